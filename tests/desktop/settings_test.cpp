// The two windows that show and switch a setting of the system.
#include <algorithm>

#include "tests/desktop/ConsoleTest.h"

namespace desktop {
namespace {

const std::string kMemory = "HKLM\\SYSTEM\\CurrentControlSet\\Control\\Session Manager\\Memory Management";
const std::string kRestore = "HKLM\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\SystemRestore";
const std::string kDriver = "HKLM\\SYSTEM\\CurrentControlSet\\Services\\sr";
const std::string kRunOnce = "HKLM\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\RunOnce";

// Opens a tool's window, which must show the first state, presses a button, and expects the second state.
class SettingsTest : public ConsoleTest {
 protected:
  void toggle(const std::string& tool, const std::string& title, const std::string& button, const Texts& states,
              const std::vector<Answer>& answers) {
    SCOPED_TRACE(tool + ": " + button);
    use(tool);
    const Window opened = window(title);
    EXPECT_EQ(opened.labelTexts(), Texts{states[0]});
    opened.control(button).click();
    for (const Answer& expected : answers) answer(expected);
    waitUntil("the new state", [&] { return opened.labelTexts() == Texts{states[1]}; });
    EXPECT_FALSE(opened.control(button).enabled());
    opened.closeWith("Cancel");
    waitForConsole();
  }
};

// Windows 95 and 98 have neither setting.
bool isWindows95Or98() {
  constexpr DWORD kNoNtLine = 0x80000000;
  constexpr BYTE kMe = 90;
  const DWORD version = GetVersion();
  return (version & kNoNtLine) != 0 && HIBYTE(LOWORD(version)) < kMe;
}

TEST_F(SettingsTest, AreShownAndSwitched) {
  if (isWindows95Or98()) {
    for (const char* tool : {"Clear Swap File", "System Restore"}) {
      use(tool, {{"Windows NT/2000/XP Only"}});
      waitForConsole();
    }
    return;
  }
  use("Clear Swap File", {{"Registry Access Error"}});
  waitForConsole();
  setNumber(kMemory, "ClearPageFileAtShutdown", 0);
  toggle("Clear Swap File", "Cear Pagfile", "Enable",
         {"Clear Swap File at shutdown is currently disabled.", "Clear Pagefile on shutdown is currently enabled."},
         {{"Clear Pagefile Enabled"}});
  EXPECT_EQ(std::ranges::count(contentsOf(kMemory), "ClearPageFileAtShutdown = dword:1"), 1);

  Texts runOnce = contentsOf(kRunOnce);
  setNumber(kRestore, "DisableSR", 0);
  toggle("System Restore", "Toggle System Restore", "Disable",
         {"System Restore is currently enabled.", "System Restore is currently disabled."},
         {{"Delete Restore Point", "Yes"}, {"Scrubhaven Pro"}});
  EXPECT_EQ(contentsOf(kRestore), Texts{"DisableSR = dword:1"});
  EXPECT_EQ(contentsOf(kDriver), Texts{"Start = dword:4"});
  runOnce.push_back("Delete SVI = \"C:\\Program Files\\Scrubhaven\\svi.cmd\"");
  EXPECT_EQ(contentsOf(kRunOnce), runOnce);
  EXPECT_TRUE(exists("C:\\Program Files\\Scrubhaven\\svi.cmd"));
}

}  // namespace
}  // namespace desktop
