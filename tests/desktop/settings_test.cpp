// The tools that work on the registry, and the Prefetch folder, in the real window and on the real machine.
#include "tests/desktop/ConsoleTest.h"
#include "tests/desktop/Registry.h"

namespace desktop {
namespace {

const std::string kTypedUrls = "HKCU\\Software\\Microsoft\\Internet Explorer\\TypedURLs";
const std::string kDialogs = "HKCU\\Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\ComDlg32\\OpenSaveMRU\\";
const std::string kRunOnce = "HKLM\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\RunOnce";
const std::string kMemory = "HKLM\\SYSTEM\\CurrentControlSet\\Control\\Session Manager\\Memory Management";
const std::string kClearAtShutdown = "ClearPageFileAtShutdown";
const std::string kRestore = "HKLM\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\SystemRestore";
const std::string kDriver = "HKLM\\SYSTEM\\CurrentControlSet\\Services\\sr";
const std::string kProgramFolder = "C:\\Program Files\\Scrubhaven\\";

class SettingsTest : public ConsoleTest {
 protected:
  Window open(const std::string& button, const std::string& title, const std::string& state) {
    press(button);
    const Window opened = window(title);
    EXPECT_FALSE(console().takesInput());
    // Resting on a control also lets the new window settle above the console.
    EXPECT_EQ(opened.toolTipOf(opened.button("Cancel")), "ExitThis Window");
    EXPECT_EQ(opened.labelTexts(), Texts{state});
    return opened;
  }

  // What the window says after a change; its button has had its turn. Closes the window.
  void expectChanged(const Window& opened, const std::string& button, const std::string& state) {
    waitUntil("the new state", [&] { return opened.labelTexts() == Texts{state}; });
    EXPECT_FALSE(opened.button(button).enabled());
    opened.button("Cancel").click();
    waitForConsole();
  }
};

// One list for each kind of seed; one whose key cannot go, because it has a subkey; and one that is not of the twenty.
TEST_F(SettingsTest, ListsOfTheUserAreClearedAndNothingBesideThem) {
  setText(kTypedUrls, "url1", "http://a.example/");
  press("Clear Typed URLs");
  answer("Scrubhaven Pro", "All Recent URL's Cleared");
  EXPECT_FALSE(hasKey(kTypedUrls));
  press("Clear Typed URLs");
  answer("Scrubhaven Pro", "No URL's Found");

  const std::string software = "HKCU\\Software\\";
  const std::pair<std::string, std::string> lists[] = {
      {software + "WinRAR\\DialogEditHistory\\ExtrPath", " = \"\""},
      {software + "Microsoft\\Office\\10.0\\Common\\Open Find\\Microsoft Word\\Settings\\Save As\\File Name MRU",
       "Maximum Entries = dword:10"},
      {software + "Ulead Systems\\Ulead PhotoImpact\\8.5\\Recent File List", "MRU Max = dword:6"},
      {kDialogs + "*", "MRUList = \"\""},
  };
  const std::string stuck = software + "Ahead\\Nero - Burning Rom\\Recent File List";
  for (const auto& [list, seed] : lists) setText(list, "a", "C:\\secret.txt");
  setText(stuck, "a", "C:\\secret.txt");
  setText(stuck + "\\Sub", "b", "C:\\kept.txt");
  setText(kDialogs + "doc", "a", "C:\\kept.doc");
  for (int round = 0; round < 2; ++round) {
    press("Clean MRU Lists");
    answer("MRU Lists Cleared", "All MRU lists have been cleared");
    for (const auto& [list, seed] : lists) EXPECT_EQ(contentsOf(list), Texts{seed}) << list;
    EXPECT_EQ(contentsOf(stuck), (Texts{" = \"\"", "Sub\\", "a = \"C:\\secret.txt\""}));
    EXPECT_EQ(contentsOf(kDialogs + "doc"), Texts{"a = \"C:\\kept.doc\""});
  }
}

TEST_F(SettingsTest, IndexFilesAreScheduledAndPrefetchFilesGoAfterAYesOnly) {
  const auto ask = [this](const std::string& button) {
    press("Wipe Index Files");
    answer("Index.dat File Deletion",
           "Deleting index.dat files requires that you restart your system.\r\nWould you like to schedule this event "
           "for next time you restart?",
           button);
  };
  Texts runOnce = contentsOf(kRunOnce);
  ask("No");
  waitForConsole();
  EXPECT_EQ(contentsOf(kRunOnce), runOnce);
  ask("Yes");
  answer("Index.dat Files", "All relevant index.dat files will be deleted on next system restart");
  runOnce.insert(runOnce.begin(), " = \"" + kProgramFolder + "delindex.cmd\"");
  EXPECT_EQ(contentsOf(kRunOnce), runOnce);
  EXPECT_TRUE(exists(kProgramFolder + "delindex.cmd"));
  removeValue(kRunOnce, "");

  const std::string prefetch = "C:\\windows\\prefetch\\";
  removeTree("C:\\windows\\prefetch");
  press("Clear Prefetch");
  answer("No Such Folder", "This system has no Prefetch folder.");
  for (const std::string name : {"a.pf", "layout.ini", "no extension", "Sub\\deep.pf"}) makeFile(prefetch + name, "x");
  setAttributes(prefetch + "layout.ini", FILE_ATTRIBUTE_READONLY);
  makeFile("C:\\windows\\beside.pf", "kept");
  for (const std::string button : {"No", "Yes"}) {
    EXPECT_EQ(namesIn(prefetch), (Texts{"Sub", "a.pf", "layout.ini", "no extension"}));
    press("Clear Prefetch");
    answer("Clear Prefetch Folder", "Delete contents of the Windows Prefetch Folder?", button);
  }
  answer(" Folder Cleared", "The Prefetch folder has been cleared.");
  EXPECT_EQ(namesIn(prefetch), Texts{"Sub"});
  EXPECT_TRUE(exists(prefetch + "Sub\\deep.pf") && exists("C:\\windows\\beside.pf"));
  removeTree("C:\\windows\\prefetch");
}

TEST_F(SettingsTest, ThePageFileIsShownAndSwitched) {
  removeValue(kMemory, kClearAtShutdown);
  press("Clear Swap File");
  answer("Registry Access Error", "The registry has reported that this key does not exist or is corrupted.");
  waitForConsole();
  EXPECT_EQ(shown(kMemory, kClearAtShutdown), "");

  setNumber(kMemory, kClearAtShutdown, 0);
  const Window page = open("Clear Swap File", "Cear Pagfile", "Clear Swap File at shutdown is currently disabled.");
  takeScreenshot("page-file");
  page.button("Enable").click();
  answer("Clear Pagefile Enabled", "Clear Pagefile has been enabled.");
  expectChanged(page, "Enable", "Clear Pagefile on shutdown is currently enabled.");
  EXPECT_EQ(shown(kMemory, kClearAtShutdown), "dword:1");
}

TEST_F(SettingsTest, SystemRestoreIsShownAndSwitched) {
  const std::string disabled = "System Restore is currently disabled.";
  const std::string enabled = "System Restore is currently enabled.";
  Texts runOnce = contentsOf(kRunOnce);
  setNumber(kRestore, "DisableSR", 1);
  const Window off = open("System Restore", "Toggle System Restore", disabled);
  takeScreenshot("system-restore");
  off.button("Enable").click();
  answer("System Restore Enabled", "System Restore has been successfully enabled.");
  expectChanged(off, "Enable", enabled);
  EXPECT_EQ(contentsOf(kRestore), Texts{"DisableSR = dword:0"});
  EXPECT_EQ(contentsOf(kDriver), Texts{"Start = dword:0"});
  EXPECT_EQ(contentsOf(kRunOnce), runOnce);

  const Window on = open("System Restore", "Toggle System Restore", enabled);
  on.button("Disable").click();
  answer("Delete Restore Point", "Do you want to delete all existing Restore Points?", "Yes");
  answer("Scrubhaven Pro",
         "System Restore has been successfully disabled.\r\n\r\nAll System Restore Points will be deleted on next "
         "restart.");
  expectChanged(on, "Disable", disabled);
  EXPECT_EQ(contentsOf(kRestore), Texts{"DisableSR = dword:1"});
  EXPECT_EQ(contentsOf(kDriver), Texts{"Start = dword:4"});
  runOnce.push_back("Delete SVI = \"" + kProgramFolder + "svi.cmd\"");
  EXPECT_EQ(contentsOf(kRunOnce), runOnce);
  EXPECT_TRUE(exists(kProgramFolder + "svi.cmd"));
  removeKey(kDriver);
  removeKey(kRestore);
  removeValue(kRunOnce, "Delete SVI");
}

TEST(OldWindows, TheProgramStartsAndRefusesWhatIsNotThere) {
  const ChangedText version("HKCU\\Software\\Wine", "Version", "win98");
  const Program program;
  for (const char* button : {"Clear Swap File", "System Restore"}) {
    program.press(button);
    program.answer("Windows NT/2000/XP Only", "Sorry, this tool is for Windows NT/2000/XP only.");
    program.waitForConsole();
  }
}

}  // namespace
}  // namespace desktop
