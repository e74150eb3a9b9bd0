// The registry layer, and the console's tools that have no page of their own.
#include <algorithm>
#include <map>
#include <tuple>

#include "settings/frmPage.h"
#include "settings/frmSR.h"
#include "settings/modRegistry.h"
#include "tests/unit/ConsoleTest.h"

using platform::Answer;
using platform::Variant;

namespace {

const std::string kKey = "HKCU\\Software\\T";
const std::string kRunOnce = "HKLM\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\RunOnce";

class RegistryTools : public ConsoleTest {
 protected:
  // The status, and the value in `result`; "def" is the default.
  std::int32_t read(const std::string& type, const std::string& hive = "HKCU") {
    return ReadRegistryValue(hive, "Software\\T", "v", type, "def", result);
  }

  // The status, or the failure's number, negative.
  static std::int32_t write(const std::string& type, const Variant& value, const std::string& hive = "HKCU") {
    const auto status = WriteRegistryValue(hive, "Software\\T", "v", type, value);
    return status ? *status : -status.error().number;
  }

  Variant result;
};

TEST_F(RegistryTools, HivesAreRootsInAnyCaseOrIniFilesThatPeopleSee) {
  machine.addFile("C:\\a.ini", "[Software\\T]\r\nv=7\r\n", platform::kReadOnly);
  machine.addFile("C:\\h.ini", "", platform::kHidden);
  machine.addFolder("C:\\d.ini");
  std::uint32_t root = 0x80000000;
  for (const char* hive : {"HKCR", "hkcu", "HkLm", "HKU", "", "HKCC", "HKDD"}) {
    EXPECT_EQ(GetRootKey(hive), *hive == 0 ? 0 : root) << hive;
    ++root;
  }
  for (const char* none : {"C:\\h.ini", "C:\\d.ini", "C:\\none.ini", "HKCUX"}) {
    EXPECT_TRUE(read("S", none) == kUnknownHive && write("S", "x", none) == kUnknownHive) << none;
  }
  EXPECT_EQ(read("s", "C:\\a.ini") + read("D", "C:\\a.ini"), 0);
  EXPECT_EQ(result, Variant("def")) << "an INI file gives no numbers";
  EXPECT_EQ(write("D", 5, "C:\\a.ini"), kUnknownHive);
}

TEST_F(RegistryTools, WritesEachTypeInItsFormOrFailsWithTheConversion) {
  // A failure leaves what the case before has stored.
  const std::tuple<const char*, Variant, std::int32_t, const char*> cases[] = {
      {"s", "ab", 0, "v=1:616200"},  // the system adds the NUL that stands behind the text
      {"B", true, 0, "v=3:ffff"},
      {"b", "FALSE", 0, "v=3:0000"},
      {"B", "perhaps", -platform::kTypeMismatch, "v=3:0000"},
      {"D", "2.5", 0, "v=4:02000000"},  // halves go to the even number
      {"D", -32768, 0, "v=4:00800000"},
      {"D", 32768, -platform::kOverflow, "v=4:00800000"},
  };
  for (const auto& [type, value, outcome, stored] : cases) {
    EXPECT_EQ(write(type, value), outcome) << type << platform::textOf(value);
    EXPECT_EQ(machine.registry().contents(kKey).at(0), stored) << type << platform::textOf(value);
  }
  EXPECT_EQ(machine.registry().openKeys(), 2U) << "one for each failed conversion";
}

TEST_F(RegistryTools, ReadingAndWritingByPathEndInDeletionToo) {
  const std::string path = "HKEY_CURRENT_USER\\K\\v";
  machine.registry().setText("HKCU\\K", "v", "the value");
  std::string text;
  form.ReadWriteDeleteRegistry2(path, text, 1);
  for (const std::int16_t mode : {1, 2}) form.ReadWriteDeleteRegistry(path, "data", mode);
  EXPECT_TRUE(text == "the value" && !machine.registry().value("HKCU\\K", "v"));
  EXPECT_EQ(boxTexts(),
            (Paths{"the value", "All Recent URL's Cleared", "\"" + path + "\\data\" has been written To the registry.",
                   "All Recent URL's Cleared"}));
}

TEST_F(RegistryTools, EachMruListIsEmptiedAndMadeAgainWithTheValueThatItsApplicationExpects) {
  press(form.cmdLists);
  const Paths made = machine.registry().contents("HKCU\\Software");
  std::map<std::string, int> values;
  for (const std::string& line : made) {
    const std::size_t end = line.rfind('\\');
    if (end + 1 == line.size()) continue;
    ++values[line.substr(end + 1)];
    machine.registry().setText("HKCU\\Software\\" + line.substr(0, end), "a", "secret");
  }
  EXPECT_EQ(values, (std::map<std::string, int>{
                        {"=1:", 11}, {"MRUList=1:", 6}, {"Maximum Entries=4:0a000000", 2}, {"MRU Max=4:06000000", 1}}));
  EXPECT_EQ(press(form.cmdLists), Paths{"All MRU lists have been cleared"});
  EXPECT_EQ(machine.registry().contents("HKCU\\Software"), made);
}

// What each tool shows when its question is refused, agreed to, and when there is nothing.
TEST_F(RegistryTools, ToolsWithoutAListSayWhatTheyHaveDone) {
  const std::string failure = "Run-time error '-2147221164':\r\n\r\nApplication-defined or object-defined error";
  EXPECT_EQ(press(form.cmdMRU), Paths{"No URL's Found"});
  EXPECT_EQ(press(form.cmdPrefetch), Paths{"This system has no Prefetch folder."});
  EXPECT_EQ(press(form.cmdSwap), Paths{kUnreadable});
  machine.version().set({.major = 4, .minor = 10, .build = 2222, .platformId = 1});
  EXPECT_EQ(press(form.cmdSysrestore), Paths{"Sorry, this tool is for Windows NT/2000/XP only."});
  machine.urlHistory().visit("http://h/");
  press(form.Del_History);
  EXPECT_TRUE(machine.urlHistory().visited().empty());
  machine.urlHistory().unregister();
  EXPECT_EQ(press(form.Del_History), Paths{failure});
  // The warning is no question, and an empty bin is reported as emptied too.
  EXPECT_EQ(press(form.Del_Recycle).back(), "Recycle Bin Emptied");
  EXPECT_EQ(machine.shell().binEmptyings(), (std::vector{std::pair(std::string(), 7U)}));
  addFiles("C:\\WINDOWS\\Prefetch", {"in use.pf"});
  machine.disk().lock("C:\\WINDOWS\\Prefetch\\in use.pf");
  machine.addFile("C:\\WINDOWS\\Prefetch\\hidden", "", platform::kReadOnly | platform::kHidden);
  EXPECT_EQ(press(form.cmdPrefetch, {Answer::kYes}).back(), "The Prefetch folder has been cleared.");
  EXPECT_EQ(machine.filesBelow("C:\\WINDOWS"), Paths{"C:\\WINDOWS\\Prefetch\\in use.pf"});
}

// ---- The two windows

class SystemSetting : public ConsoleTest {
 protected:
  const std::string pageKey = "HKLM\\SYSTEM\\CurrentControlSet\\Control\\Session Manager\\Memory Management";
  const std::string restoreKey = "HKLM\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\SystemRestore";
  const std::string driverKey = "HKLM\\SYSTEM\\CurrentControlSet\\Services\\sr";

  // Stores the setting, opens its window, presses the toggle twice and closes the window by Cancel. Returns the
  // toggle's caption and the label at the start, the boxes, both at the end, with "!" once the toggle is disabled, and
  // what is stored.
  Paths toggle(controls::FlatButton& button, std::uint32_t stored, Answer deletesPoints = Answer::kNo) {
    machine.registry().setNumber(pageKey, "ClearPageFileAtShutdown", stored);
    machine.registry().setNumber(restoreKey, "DisableSR", stored);
    Paths seen;
    machine.ui().onBox([&](const auto& box) {
      if (box.title == "Delete Restore Point") machine.answer(deletesPoints);
      seen.push_back(box.text.substr(0, box.text.find('\r')));
    });
    machine.ui().whenModal([&](controls::Form& shown) {
      auto& window = dynamic_cast<ToggleWindow&>(shown);
      const auto label = std::ranges::find(shown.controls(), controls::Kind::kLabel, &controls::Control::kind);
      const auto see = [&] {
        seen.push_back(window.cmdToggle.caption() + (window.cmdToggle.enabled() ? ": " : "!: ") + (*label)->caption());
      };
      see();
      window.cmdToggle.click();
      window.cmdToggle.click();
      see();
      window.cmd_Cancel.click();
    });
    button.click();
    for (const std::string& key : &button == &form.cmdSwap ? Paths{pageKey} : Paths{restoreKey, driverKey}) {
      std::ranges::copy(machine.registry().contents(key), std::back_inserter(seen));
    }
    return seen;
  }
};

TEST_F(SystemSetting, IsShownAndSwitchedOnceAtEachOpening) {
  const std::string ask = "Do you want to delete all existing Restore Points?";
  const std::string unknown = "Toggle: The current setting is not known.";
  EXPECT_EQ(toggle(form.cmdSwap, 1)[2], "Disable!: Clear Pagefile on shutdown is currently disabled.");
  EXPECT_EQ(toggle(form.cmdSwap, 2), (Paths{unknown, unknown, "ClearPageFileAtShutdown=4:02000000"}));
  EXPECT_EQ(toggle(form.cmdSysrestore, 2), (Paths{unknown, unknown, "DisableSR=4:02000000"}));
  EXPECT_EQ(toggle(form.cmdSysrestore, 1),
            (Paths{"Enable: System Restore is currently disabled.", "System Restore has been successfully enabled.",
                   "Enable!: System Restore is currently enabled.", "DisableSR=4:00000000", "Start=4:00000000"}));
  EXPECT_EQ(machine.shell().launches().back(), "net start \"System Restore Service\"");
  EXPECT_EQ(toggle(form.cmdSysrestore, 0),
            (Paths{"Disable: System Restore is currently enabled.", ask, "System Restore has been disabled.",
                   "Disable!: System Restore is currently disabled.", "DisableSR=4:01000000", "Start=4:04000000"}));
  EXPECT_FALSE(machine.registry().hasKey(kRunOnce));
  EXPECT_EQ(machine.shell().launches().back(), "net stop \"System Restore Service\"");
}

TEST_F(SystemSetting, RestorePointsAreRemovedInThisOrder) {
  std::string calls;
  machine.faults().onCall([&](std::string_view operation) { calls.append(operation) += ' '; });
  toggle(form.cmdSysrestore, 0, Answer::kYes);
  EXPECT_EQ(calls,
            "getVersionEx openKey queryValue closeKey runModal launchHidden messageBox createKey setValue closeKey "
            "createKey setValue closeKey launchHidden createKey "
            "setValue closeKey messageBox ");
}

}  // namespace
