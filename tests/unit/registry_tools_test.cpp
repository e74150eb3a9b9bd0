// The console's tools that work on the registry: lists of what was used last, the index files, the page file, System
// Restore; and the Prefetch folder.
#include <algorithm>
#include <map>

#include "settings/frmPage.h"
#include "settings/frmSR.h"
#include "tests/unit/ConsoleTest.h"

using platform::Answer;
using platform::memory::ShownBox;

namespace {

constexpr std::uint32_t kInformation = 64;
const std::string kRunOnce = "HKLM\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\RunOnce";

class TypedUrls : public ConsoleTest {};

TEST_F(TypedUrls, GoWithTheirKeyAndNothingBesideIt) {
  const std::string browser = "HKCU\\Software\\Microsoft\\Internet Explorer";
  machine.registry().setText(browser + "\\TypedURLs", "url1", "http://a.example/");
  machine.registry().setText(browser, "keep", "x");
  form.cmdMRU.click();
  EXPECT_EQ(machine.registry().contents(browser), Paths{"keep=1:7800"});
  expectBox("All Recent URL's Cleared", "Scrubhaven Pro", kInformation);
  form.cmdMRU.click();
  expectBox("No URL's Found", "Scrubhaven Pro", kInformation);
  EXPECT_EQ(machine.boxes().size(), 2U);

  machine.registry().setText(browser + "\\TypedURLs\\Sub", "v", "x");
  form.cmdMRU.click();
  EXPECT_EQ(machine.boxes().size(), 2U) << "other failures pass in silence";
}

TEST_F(TypedUrls, ReadingAndWritingByPathEndInDeletionToo) {
  const std::string path = "HKEY_CURRENT_USER\\K\\v";
  machine.registry().setText("HKCU\\K", "v", "the value");
  form.ReadWriteDeleteRegistry(path, "", 1);
  EXPECT_EQ(boxTexts(), (Paths{"the value", "All Recent URL's Cleared"}));
  form.ReadWriteDeleteRegistry(path, "data", 2);
  ASSERT_EQ(machine.boxes().size(), 4U);
  EXPECT_EQ(machine.boxes()[2].text, "\"" + path + "\\data\" has been written To the registry.");
  EXPECT_EQ(machine.boxes()[2].title, "Success");
  EXPECT_FALSE(machine.registry().value("HKCU\\K", "v"));
  form.ReadWriteDeleteRegistry(path, "", 1);
  EXPECT_EQ(lastBox(), "No URL's Found");
  EXPECT_EQ(machine.faults().calls("regDelete"), 2) << "a failed read ends it";

  std::string text = "before";
  form.ReadWriteDeleteRegistry2(path, text, 1);
  machine.registry().setText("HKCU\\K", "v", "read only");
  form.ReadWriteDeleteRegistry2(path, text, 2);
  EXPECT_EQ(text, "before");
  form.ReadWriteDeleteRegistry2(path, text, 1);
  EXPECT_EQ(text, "read only");
  EXPECT_TRUE(machine.registry().value("HKCU\\K", "v"));
}

// ---- Lists of what was used last

const std::string kSoftware = "HKCU\\Software\\";
const std::string kWindows = kSoftware + "Microsoft\\Windows\\CurrentVersion\\";
const std::string kDialogs = kWindows + "Explorer\\ComDlg32\\";
const std::string kWord = kSoftware + "Microsoft\\Office\\10.0\\Common\\Open Find\\Microsoft Word\\Settings\\";
const std::string kBar = "Explorer Bars\\{C4EE31F3-4768-11D2-BE5C-00A0C9A83DA1}\\";

// The keys by what each holds afterwards.
const std::map<std::string, Paths> kSeeds = {
    {"=1:",
     {kSoftware + "WinRAR\\ArcHistory", kSoftware + "WinRAR\\DialogEditHistory\\ExtrPath",
      kSoftware + "Nico Mak Computing\\WinZip\\FileMenu",
      kSoftware + "Adobe\\Acrobat Reader\\6.0\\AVGeneral\\cRecentFiles",
      kSoftware + "Ahead\\Nero - Burning Rom\\Recent File List", kWindows + "Explorer\\RunMRU",
      kSoftware + "Microsoft\\MediaPlayer\\Player\\RecentURLList",
      kSoftware + "Microsoft\\MediaPlayer\\Player\\RecentFileList",
      kSoftware + "Microsoft\\Internet Explorer\\" + kBar + "FilesNamedMRU",
      kWindows + "Applets\\Paint\\Recent File List", kWindows + "Applets\\Wordpad\\Recent File List"}},
    {"MRUList=1:",
     {kDialogs + "LastVisitedMRU", kDialogs + "OpenSaveMRU\\*", kDialogs + "OpenSaveMRU\\exe",
      kDialogs + "OpenSaveMRU\\RAR", kDialogs + "OpenSaveMRU\\txt", kDialogs + "OpenSaveMRU\\zip"}},
    {"Maximum Entries=4:0a000000", {kWord + "Open\\File Name MRU", kWord + "Save As\\File Name MRU"}},
    {"MRU Max=4:06000000", {kSoftware + "Ulead Systems\\Ulead PhotoImpact\\8.5\\Recent File List"}},
};

class MruLists : public ConsoleTest {
 protected:
  void fillEveryList() {
    for (const auto& [seed, keys] : kSeeds) {
      for (const std::string& key : keys) machine.registry().setText(key, "a", "C:\\secret.txt");
    }
  }

  // How many lists hold their seed and nothing else.
  std::ptrdiff_t emptied() {
    std::ptrdiff_t count = 0;
    for (const auto& [seed, keys] : kSeeds) {
      count += std::ranges::count(keys, Paths{seed}, [&](const auto& key) { return machine.registry().contents(key); });
    }
    return count;
  }
};

TEST_F(MruLists, AreEmptiedOrMadeAndNothingElseIs) {
  form.cmdLists.click();
  EXPECT_EQ(emptied(), 20);
  expectBox("All MRU lists have been cleared", "MRU Lists Cleared", kInformation);
  EXPECT_EQ(machine.registry().calls()[5], "createKey HKCU Software\\WinRAR\\DialogEditHistory\\ExtrPath\\ 6");
  const Paths made = machine.registry().contents("HKCU");
  form.cmdLists.click();
  EXPECT_EQ(machine.registry().contents("HKCU"), made) << "twice is as once";

  fillEveryList();
  machine.registry().setText(kSoftware + "WinRAR", "keep", "x");
  machine.registry().setText(kDialogs + "OpenSaveMRU\\doc", "keep", "x");
  form.cmdLists.click();
  EXPECT_EQ(emptied(), 20);
  EXPECT_TRUE(machine.registry().value(kSoftware + "WinRAR", "keep"));
  EXPECT_TRUE(machine.registry().value(kDialogs + "OpenSaveMRU\\doc", "keep"));
}

// Every call fails once in turn: each other list is emptied, and the message comes.
TEST_F(MruLists, AnyFailureStaysWithItsOwnList) {
  for (const char* operation : {"openKey", "deleteKey", "createKey", "setValue"}) {
    for (int n = 1; n <= 20; ++n) {
      fillEveryList();
      machine.failAt(operation, n);
      form.cmdLists.click();
      EXPECT_EQ(emptied(), 19) << operation << n;
      EXPECT_EQ(lastBox(), "All MRU lists have been cleared");
    }
  }
}

// ---- Index files and the Prefetch folder

class RestartAndPrefetch : public ConsoleTest {};

TEST_F(RestartAndPrefetch, IndexFilesAreScheduledAfterAYesOnly) {
  form.cmdIndex.click();
  expectBox(
      "Deleting index.dat files requires that you restart your system.\r\nWould you like to schedule this event for "
      "next time you restart?",
      "Index.dat File Deletion", 292);
  EXPECT_TRUE(machine.registry().calls().empty()) << "No is the default";

  machine.registry().setText(kRunOnce, "other", "kept");
  machine.answer(Answer::kYes);
  form.cmdIndex.click();
  expectBox("All relevant index.dat files will be deleted on next system restart", "Index.dat Files", kInformation);
  EXPECT_EQ(machine.registry().value(kRunOnce, "")->data,
            std::string("C:\\Program Files\\Scrubhaven\\delindex.cmd") + '\0');
  EXPECT_EQ(machine.registry().contents(kRunOnce).size(), 2U);

  machine.answer(Answer::kYes);
  machine.failAt("regWrite", 1, platform::kPermissionDenied);
  form.cmdIndex.click();
  expectBox("Run-time error '70':\r\n\r\nPermission denied", "Scrubhaven Pro", 16);
  machine.answer(Answer::kYes);
  form.ReadWriteDeleteRegistry1("HKEY_CURRENT_USER\\K\\", "x", 3);
  EXPECT_FALSE(machine.registry().hasKey("HKCU\\K"));
  EXPECT_EQ(machine.boxes().size(), 6U) << "the program goes on, and other modes only ask";
}

TEST_F(RestartAndPrefetch, PrefetchedFilesGoReadOnlyOnesTooAndFoldersStay) {
  form.cmdPrefetch.click();
  expectBox("This system has no Prefetch folder.", "No Such Folder", 16);
  const Paths kept = {"C:\\WINDOWS\\Prefetch\\Sub\\deep.pf", "C:\\WINDOWS\\Prefetch\\in use.pf", "C:\\WINDOWS\\a.pf"};
  for (const std::string& file : kept) machine.addFile(file);
  machine.disk().lock("C:\\WINDOWS\\Prefetch\\in use.pf");
  machine.addFile("C:\\WINDOWS\\Prefetch\\a.pf");
  machine.addFile("C:\\WINDOWS\\Prefetch\\hidden", "", platform::kReadOnly | platform::kHidden);
  machine.answer(Answer::kNo);
  form.cmdPrefetch.click();
  expectBox("Delete contents of the Windows Prefetch Folder?", "Clear Prefetch Folder", 36);
  EXPECT_EQ(machine.filesBelow("C:\\WINDOWS").size(), 5U);
  machine.answer(Answer::kYes);
  form.cmdPrefetch.click();
  EXPECT_EQ(machine.filesBelow("C:\\WINDOWS"), kept);
  expectBox("The Prefetch folder has been cleared.", " Folder Cleared", kInformation);
}

// ---- The two windows

class SystemSetting : public ConsoleTest {
 protected:
  // Opens the window, has `act` act in it, and closes it by its Cancel button.
  template <typename Window>
  void open(controls::FlatButton& button, std::function<void(Window&)> act) {
    bool opened = false;
    machine.ui().whenModal([&](controls::Form& shown) {
      opened = true;
      EXPECT_FALSE(form.acceptsInput());
      auto& window = dynamic_cast<Window&>(shown);
      EXPECT_TRUE(window.cmdToggle.enabled());
      act(window);
      window.cmd_Cancel.click();
    });
    button.click();
    EXPECT_TRUE(opened);
  }

  // Presses a window's toggle twice. What its label shows meanwhile, under each box and at the end, with "That is all."
  // once the toggle is disabled.
  template <typename Window>
  Paths toggle(controls::FlatButton& button, controls::Label Window::*label) {
    Paths seen;
    open<Window>(button, [&](Window& window) {
      const auto see = [&](const std::string& when) {
        seen.push_back(when + ": " + (window.*label).caption() + (window.cmdToggle.enabled() ? "" : " That is all."));
      };
      machine.ui().onBox([&](const ShownBox& box) { see(box.title); });
      window.cmdToggle.click();
      window.cmdToggle.click();
      see("at the end");
      machine.ui().onBox({});
    });
    return seen;
  }

  Paths toggleRestore(std::uint32_t disabled) {
    machine.registry().setNumber(restoreKey, "DisableSR", disabled);
    return toggle(form.cmdSysrestore, &frmSR::lblSR);
  }

  const std::string pageKey = "HKLM\\SYSTEM\\CurrentControlSet\\Control\\Session Manager\\Memory Management";
  const std::string restoreKey = "HKLM\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\SystemRestore";
  const std::string driverKey = "HKLM\\SYSTEM\\CurrentControlSet\\Services\\sr";
  const std::string start = "net start \"System Restore Service\"";
  const std::string stop = "net stop \"System Restore Service\"";
};

TEST_F(SystemSetting, OldWindowsAndMissingValuesAreToldAndNothingOpens) {
  for (controls::FlatButton* button : {&form.cmdSwap, &form.cmdSysrestore}) {
    const std::size_t calls = machine.registry().calls().size();
    for (const auto& [minor, build] : {std::pair(0U, 950U), {10U, 1998U}, {10U, 2222U}}) {
      machine.version().set({.major = 4, .minor = minor, .build = build, .platformId = 1});
      button->click();
      expectBox("Sorry, this tool is for Windows NT/2000/XP only.", "Windows NT/2000/XP Only", 48);
    }
    EXPECT_EQ(machine.registry().calls().size(), calls);
    // Windows Me goes by a name that passes.
    machine.version().set({.major = 4, .minor = 90, .build = 3000, .platformId = 1});
    button->click();
    expectBox("The registry has reported that this key does not exist or is corrupted.", "Registry Access Error", 16);
  }
  EXPECT_EQ(machine.faults().calls("runModal"), 0);
}

TEST_F(SystemSetting, TheWindowsShowTheStoredStateAndNothingOfAnEarlierOne) {
  const std::string unknown = "Toggle: The current setting is not known.";
  const Paths pages = {"Enable: Clear Swap File at shutdown is currently disabled.",
                       "Disable: Clear Swap File at shutdown is currently enabled.", unknown};
  const Paths restores = {"Disable: System Restore is currently enabled.",
                          "Enable: System Restore is currently disabled.", unknown};
  for (std::uint32_t value = 0; value < 3; ++value) {
    machine.registry().setNumber(pageKey, "ClearPageFileAtShutdown", value);
    machine.registry().setNumber(restoreKey, "DisableSR", value);
    open<frmPage>(form.cmdSwap, [&](frmPage& page) {
      EXPECT_EQ(page.cmdToggle.caption() + ": " + page.lblPage.caption(), pages[value]);
      if (value == 2) page.cmdToggle.click();
    });
    open<frmSR>(form.cmdSysrestore, [&](frmSR& restore) {
      EXPECT_EQ(restore.cmdToggle.caption() + ": " + restore.lblSR.caption(), restores[value]);
      if (value == 2) restore.cmdToggle.click();
    });
  }
  EXPECT_EQ(machine.registry().calls().size(), 12U) << "an unknown state is not changed";
  EXPECT_EQ(machine.shell().launches(), Paths{start}) << "but starts the service";
  EXPECT_TRUE(machine.boxes().empty());
}

TEST_F(SystemSetting, ThePageFileTogglesOnceEachTimeAndReportsSuccessInAnyCase) {
  machine.registry().setNumber(pageKey, "ClearPageFileAtShutdown", 0);
  EXPECT_EQ(toggle(form.cmdSwap, &frmPage::lblPage),
            (Paths{"Clear Pagefile Enabled: Clear Swap File at shutdown is currently disabled.",
                   "at the end: Clear Pagefile on shutdown is currently enabled. That is all."}));
  expectBox("Clear Pagefile has been enabled.", "Clear Pagefile Enabled", kInformation);
  EXPECT_EQ(machine.registry().contents(pageKey), Paths{"ClearPageFileAtShutdown=4:01000000"});
  EXPECT_EQ(machine.registry().calls()[2],
            "createKey HKLM System\\CurrentControlSet\\Control\\Session Manager\\Memory Management\\ 6");

  machine.failAt("setValue");
  for (const char* stored : {"ClearPageFileAtShutdown=4:01000000", "ClearPageFileAtShutdown=4:00000000"}) {
    EXPECT_EQ(toggle(form.cmdSwap, &frmPage::lblPage).back(),
              "at the end: Clear Pagefile on shutdown is currently disabled. That is all.");
    expectBox("Clear Pagefile has been disabled.", "Clear Pagefile Disabled", kInformation);
    EXPECT_EQ(machine.registry().contents(pageKey), Paths{stored});
  }
}

TEST_F(SystemSetting, EnablingRestoreStartsTheServiceAndWritesBothValues) {
  EXPECT_EQ(toggleRestore(1), (Paths{"System Restore Enabled: System Restore is currently disabled.",
                                     "at the end: System Restore is currently enabled. That is all."}));
  expectBox("System Restore has been successfully enabled.", "System Restore Enabled", kInformation);
  EXPECT_EQ(machine.shell().launches(), Paths{start});
  EXPECT_EQ(machine.registry().contents(restoreKey), Paths{"DisableSR=4:00000000"});
  EXPECT_EQ(machine.registry().contents(driverKey), Paths{"Start=4:00000000"});
  EXPECT_EQ(machine.registry().calls()[2],
            "createKey HKLM SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\SystemRestore\\ 6");
}

TEST_F(SystemSetting, DisablingRestoreWithYesSchedulesTheRemovalOfThePoints) {
  machine.answer(Answer::kYes);
  EXPECT_EQ(toggleRestore(0), (Paths{"Delete Restore Point: System Restore is currently enabled.",
                                     "Scrubhaven Pro: System Restore is currently disabled. That is all.",
                                     "at the end: System Restore is currently disabled. That is all."}));
  EXPECT_EQ(machine.boxes()[0].text, "Do you want to delete all existing Restore Points?");
  EXPECT_EQ(machine.boxes()[0].style, 292U);
  expectBox(
      "System Restore has been successfully disabled.\r\n\r\nAll System Restore Points will be deleted on next "
      "restart.",
      "Scrubhaven Pro", kInformation);
  EXPECT_EQ(machine.shell().launches(), (Paths{start, stop}));
  EXPECT_EQ(machine.registry().contents(restoreKey), Paths{"DisableSR=4:01000000"});
  EXPECT_EQ(machine.registry().contents(driverKey), Paths{"Start=4:04000000"});
  EXPECT_EQ(machine.registry().value(kRunOnce, "Delete SVI")->data,
            std::string("C:\\Program Files\\Scrubhaven\\svi.cmd") + '\0');
}

TEST_F(SystemSetting, DisablingRestoreWithNoLeavesThePointsWhateverFails) {
  machine.failAt("launchHidden", 1);
  machine.failAt("setValue", 2);
  EXPECT_EQ(toggleRestore(0), (Paths{"Delete Restore Point: System Restore is currently enabled.",
                                     "System Restore Disabled: System Restore is currently enabled.",
                                     "at the end: System Restore is currently disabled. That is all."}));
  expectBox("System Restore has been disabled.", "System Restore Disabled", kInformation);
  EXPECT_EQ(machine.shell().launches(), (Paths{start, stop}));
  EXPECT_FALSE(machine.registry().hasKey(kRunOnce));
  EXPECT_EQ(machine.registry().contents(restoreKey), Paths{"DisableSR=4:01000000"});
  EXPECT_FALSE(machine.registry().value(driverKey, "Start"));
}

}  // namespace
