// The console's tools that work on the registry: lists of what was used last, the index files, the page file, System
// Restore; and the Prefetch folder.
#include <map>

#include "settings/frmPage.h"
#include "settings/frmSR.h"
#include "tests/unit/ConsoleTest.h"

using platform::Answer;
using platform::memory::ShownBox;

namespace {

constexpr platform::VersionRecord kWindows95 = {.major = 4, .minor = 0, .build = 950, .platformId = 1};
constexpr platform::VersionRecord kWindows98 = {.major = 4, .minor = 10, .build = 1998, .platformId = 1};
constexpr platform::VersionRecord kWindows98Se = {.major = 4, .minor = 10, .build = 2222, .platformId = 1};
constexpr platform::VersionRecord kWindowsMe = {.major = 4, .minor = 90, .build = 3000, .platformId = 1};

class RegistryTool : public ConsoleTest {
 protected:
  // Expects the last box to be this one.
  void expectBox(const std::string& text, const std::string& title, std::uint32_t style) {
    ASSERT_FALSE(machine.boxes().empty());
    const ShownBox& box = machine.boxes().back();
    EXPECT_EQ(box.text, text);
    EXPECT_EQ(box.title, title);
    EXPECT_EQ(box.style, style);
  }

  Paths boxTexts() const {
    Paths texts;
    for (const ShownBox& box : machine.boxes()) texts.push_back(box.text);
    return texts;
  }
};

constexpr std::uint32_t kInformation = 64;

// ---- Typed addresses

class TypedUrls : public RegistryTool {
 protected:
  const std::string key = "HKCU\\Software\\Microsoft\\Internet Explorer\\TypedURLs";
};

TEST_F(TypedUrls, GoWithTheirKeyAndNothingBesideIt) {
  machine.setRegistryText(key, "url1", "http://a.example/");
  machine.setRegistryText(key, "url2", "http://b.example/");
  machine.setRegistryText("HKCU\\Software\\Microsoft\\Internet Explorer", "keep", "x");
  form.cmdMRU.click();
  EXPECT_FALSE(machine.hasRegistryKey(key));
  EXPECT_EQ(machine.registryContents("HKCU\\Software\\Microsoft\\Internet Explorer").size(), 1U);
  ASSERT_EQ(machine.boxes().size(), 1U);
  expectBox("All Recent URL's Cleared", "Scrubhaven Pro", kInformation);
  form.cmdMRU.click();
  ASSERT_EQ(machine.boxes().size(), 2U);
  expectBox("No URL's Found", "Scrubhaven Pro", kInformation);
}

TEST_F(TypedUrls, OtherFailuresPassInSilence) {
  machine.setRegistryText(key + "\\Sub", "v", "x");
  form.cmdMRU.click();
  EXPECT_TRUE(machine.boxes().empty());
  EXPECT_TRUE(machine.hasRegistryKey(key + "\\Sub"));
  machine.failAt("regDelete", 1, platform::kCannotCreateObject);
  form.cmdMRU.click();
  EXPECT_TRUE(machine.boxes().empty());
}

TEST_F(TypedUrls, ReadingAndWritingEndInDeletionToo) {
  machine.setRegistryText("HKCU\\K", "v", "the value");
  form.ReadWriteDeleteRegistry("HKEY_CURRENT_USER\\K\\v", "", 1);
  EXPECT_EQ(boxTexts(), (Paths{"the value", "All Recent URL's Cleared"}));
  EXPECT_EQ(machine.boxes()[0].style, 0U);
  EXPECT_FALSE(machine.registryValue("HKCU\\K", "v"));
  form.ReadWriteDeleteRegistry("HKEY_CURRENT_USER\\K\\v", "data", 2);
  ASSERT_EQ(machine.boxes().size(), 4U);
  EXPECT_EQ(machine.boxes()[2].text, "\"HKEY_CURRENT_USER\\K\\v\\data\" has been written To the registry.");
  EXPECT_EQ(machine.boxes()[2].title, "Success");
  EXPECT_EQ(machine.boxes()[2].style, kInformation);
  EXPECT_FALSE(machine.registryValue("HKCU\\K", "v"));
  form.ReadWriteDeleteRegistry("HKEY_CURRENT_USER\\K\\v", "", 1);
  EXPECT_EQ(lastBox(), "No URL's Found");
  EXPECT_EQ(machine.calls("regDelete"), 2) << "a failed read ends it";

  machine.setRegistryText("HKCU\\K", "v", "read only");
  std::string text = "before";
  form.ReadWriteDeleteRegistry2("HKEY_CURRENT_USER\\K\\none", text, 1);
  form.ReadWriteDeleteRegistry2("HKEY_CURRENT_USER\\K\\v", text, 2);
  EXPECT_EQ(text, "before");
  form.ReadWriteDeleteRegistry2("HKEY_CURRENT_USER\\K\\v", text, 1);
  EXPECT_EQ(text, "read only");
  EXPECT_TRUE(machine.registryValue("HKCU\\K", "v"));
}

// ---- Lists of what was used last

const std::map<std::string, std::string> kSeeds = {
    {"Software\\WinRAR\\ArcHistory", "=1:"},
    {"Software\\WinRAR\\DialogEditHistory\\ExtrPath", "=1:"},
    {"Software\\Nico Mak Computing\\WinZip\\FileMenu", "=1:"},
    {"Software\\Adobe\\Acrobat Reader\\6.0\\AVGeneral\\cRecentFiles", "=1:"},
    {"Software\\Ahead\\Nero - Burning Rom\\Recent File List", "=1:"},
    {"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\RunMRU", "=1:"},
    {"Software\\Microsoft\\MediaPlayer\\Player\\RecentURLList", "=1:"},
    {"Software\\Microsoft\\MediaPlayer\\Player\\RecentFileList", "=1:"},
    {"Software\\Microsoft\\Internet Explorer\\Explorer Bars\\{C4EE31F3-4768-11D2-BE5C-00A0C9A83DA1}\\FilesNamedMRU",
     "=1:"},
    {"Software\\Microsoft\\Office\\10.0\\Common\\Open Find\\Microsoft Word\\Settings\\Open\\File Name MRU",
     "Maximum Entries=4:0a000000"},
    {"Software\\Microsoft\\Office\\10.0\\Common\\Open Find\\Microsoft Word\\Settings\\Save As\\File Name MRU",
     "Maximum Entries=4:0a000000"},
    {"Software\\Ulead Systems\\Ulead PhotoImpact\\8.5\\Recent File List", "MRU Max=4:06000000"},
    {"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\ComDlg32\\LastVisitedMRU", "MRUList=1:"},
    {"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\ComDlg32\\OpenSaveMRU\\*", "MRUList=1:"},
    {"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\ComDlg32\\OpenSaveMRU\\exe", "MRUList=1:"},
    {"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\ComDlg32\\OpenSaveMRU\\RAR", "MRUList=1:"},
    {"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\ComDlg32\\OpenSaveMRU\\txt", "MRUList=1:"},
    {"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\ComDlg32\\OpenSaveMRU\\zip", "MRUList=1:"},
    {"Software\\Microsoft\\Windows\\CurrentVersion\\Applets\\Paint\\Recent File List", "=1:"},
    {"Software\\Microsoft\\Windows\\CurrentVersion\\Applets\\Wordpad\\Recent File List", "=1:"},
};

class MruLists : public RegistryTool {
 protected:
  void fillEveryList() {
    for (const auto& [key, seed] : kSeeds) {
      machine.setRegistryText("HKCU\\" + key, "", "old");
      machine.setRegistryText("HKCU\\" + key, "a", "C:\\secret.txt");
    }
  }

  void expectOnlySeeds() {
    for (const auto& [key, seed] : kSeeds) EXPECT_EQ(machine.registryContents("HKCU\\" + key), Paths{seed}) << key;
  }
};

TEST_F(MruLists, AreEmptiedOrMadeAndATwiceIsAsOnce) {
  ASSERT_EQ(kSeeds.size(), 20U);
  fillEveryList();
  machine.setRegistryText("HKCU\\Software\\WinRAR", "keep", "x");
  machine.setRegistryText("HKCU\\Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\ComDlg32\\OpenSaveMRU\\doc",
                          "a", "kept");
  form.cmdLists.click();
  expectBox("All MRU lists have been cleared", "MRU Lists Cleared", kInformation);
  expectOnlySeeds();
  const Paths once = machine.registryContents("HKCU");
  form.cmdLists.click();
  EXPECT_EQ(machine.registryContents("HKCU"), once);
  EXPECT_EQ(machine.boxes().size(), 2U);
  EXPECT_TRUE(machine.registryValue("HKCU\\Software\\WinRAR", "keep"));
  EXPECT_EQ(
      machine
          .registryContents("HKCU\\Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\ComDlg32\\OpenSaveMRU\\doc")
          .size(),
      1U);

  platform::memory::MemoryMachine bare;
  const platform::Use onBare(bare);
  frmFind console;
  console.load();
  console.cmdLists.click();
  for (const auto& [key, seed] : kSeeds) EXPECT_EQ(bare.registryContents("HKCU\\" + key), Paths{seed}) << key;
}

TEST_F(MruLists, CallsNameEachKeyAsItIsWrittenAndPassNoNul) {
  fillEveryList();
  form.cmdLists.click();
  const std::vector<std::string>& calls = machine.registryCalls();
  ASSERT_EQ(calls.size(), 80U);
  const Paths first(calls.begin(), calls.begin() + 8);
  EXPECT_EQ(first, (Paths{"openKey HKCU Software\\WinRAR\\ 4", "deleteKey ArcHistory",
                          "createKey HKCU Software\\WinRAR\\ArcHistory\\ 6", "setValue  1 0",
                          "openKey HKCU Software\\WinRAR\\ 4", "deleteKey DialogEditHistory\\ExtrPath",
                          "createKey HKCU Software\\WinRAR\\DialogEditHistory\\ExtrPath\\ 6", "setValue  1 0"}));
  EXPECT_EQ(calls[39], "setValue Maximum Entries 4 4");
  EXPECT_EQ(calls[54],
            "createKey HKCU Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\ComDlg32\\OpenSaveMRU\\*\\ 6");
  EXPECT_EQ(calls[76], "openKey HKCU Software\\Microsoft\\Windows\\CurrentVersion\\Applets\\Wordpad 4");
}

TEST_F(MruLists, AListThatCannotGoKeepsNoOtherAndIsSeededOnlyOnTheNtLine) {
  fillEveryList();
  const std::string stuck = "HKCU\\Software\\WinRAR\\ArcHistory";
  machine.setRegistryText(stuck + "\\Sub", "s", "x");
  form.cmdLists.click();
  EXPECT_EQ(machine.registryContents(stuck),
            (Paths{"=1:", "a=1:433a5c7365637265742e74787400", "Sub\\", "Sub\\s=1:7800"}));
  machine.setVersion(kWindows98);
  form.cmdLists.click();
  EXPECT_EQ(machine.registryContents(stuck), Paths{"=1:00"}) << "the 95 family stores the NUL";
}

// Every call fails once in turn: each other list is emptied, and the message comes.
TEST_F(MruLists, AnyFailureStaysWithItsOwnList) {
  for (const char* operation : {"openKey", "deleteKey", "createKey", "setValue"}) {
    for (int n = 1; n <= 20; ++n) {
      fillEveryList();
      machine.failAt(operation, n);
      form.cmdLists.click();
      EXPECT_FALSE(machine.faultsLeft());
      int emptied = 0;
      for (const auto& [key, seed] : kSeeds) emptied += machine.registryContents("HKCU\\" + key) == Paths{seed} ? 1 : 0;
      EXPECT_EQ(emptied, 19) << operation << n;
      EXPECT_EQ(lastBox(), "All MRU lists have been cleared");
    }
  }
}

// ---- Index files

TEST_F(RegistryTool, IndexFilesAreScheduledAfterAYesOnly) {
  const std::string runOnce = "HKLM\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\RunOnce";
  form.cmdIndex.click();
  ASSERT_EQ(machine.boxes().size(), 1U);
  expectBox(
      "Deleting index.dat files requires that you restart your system.\r\nWould you like to schedule this event for "
      "next time you restart?",
      "Index.dat File Deletion", 292);
  EXPECT_TRUE(machine.registryCalls().empty());

  machine.setRegistryText(runOnce, "other", "kept");
  machine.answer(Answer::kYes);
  form.cmdIndex.click();
  expectBox("All relevant index.dat files will be deleted on next system restart", "Index.dat Files", kInformation);
  const std::string script = "C:\\Program Files\\Scrubhaven\\delindex.cmd";
  EXPECT_EQ(machine.registryValue(runOnce, ""),
            (platform::memory::RegistryValue{platform::kRegistryText, script + '\0'}));
  EXPECT_EQ(machine.registryContents(runOnce).size(), 2U);

  machine.answer(Answer::kYes);
  machine.failAt("regWrite", 1, platform::kPermissionDenied);
  form.cmdIndex.click();
  expectBox("Run-time error '70':\r\n\r\nPermission denied", "Scrubhaven Pro", 16);
  machine.answer(Answer::kYes);
  form.ReadWriteDeleteRegistry1("HKEY_CURRENT_USER\\K\\", "x", 3);
  EXPECT_FALSE(machine.hasRegistryKey("HKCU\\K"));
  EXPECT_EQ(machine.boxes().size(), 6U) << "the program goes on, and other modes only ask";
}

// ---- Prefetch folder

class Prefetch : public RegistryTool {
 protected:
  void clear() {
    machine.answer(Answer::kYes);
    form.cmdPrefetch.click();
    expectBox("The Prefetch folder has been cleared.", " Folder Cleared", kInformation);
  }
};

TEST_F(Prefetch, AMissingFolderIsToldAndNoKeepsEverything) {
  machine.addFile("C:\\WINNT\\Prefetch\\elsewhere.pf");
  form.cmdPrefetch.click();
  ASSERT_EQ(machine.boxes().size(), 1U);
  expectBox("This system has no Prefetch folder.", "No Such Folder", 16);
  machine.addFile("C:\\WINDOWS\\Prefetch\\a.pf");
  machine.answer(Answer::kNo);
  form.cmdPrefetch.click();
  expectBox("Delete contents of the Windows Prefetch Folder?", "Clear Prefetch Folder", 36);
  EXPECT_TRUE(machine.exists("C:\\WINDOWS\\Prefetch\\a.pf"));
}

TEST_F(Prefetch, FilesGoReadOnlyOnesTooAndFoldersStay) {
  machine.addFile("C:\\WINDOWS\\Prefetch\\a.pf");
  machine.addFile("C:\\WINDOWS\\Prefetch\\read only", "", platform::kReadOnly | platform::kHidden);
  machine.addFile("C:\\WINDOWS\\Prefetch\\Sub\\deep.pf");
  machine.addFile("C:\\WINDOWS\\a.pf");
  clear();
  EXPECT_EQ(machine.filesBelow("C:\\WINDOWS"), (Paths{"C:\\WINDOWS\\Prefetch\\Sub\\deep.pf", "C:\\WINDOWS\\a.pf"}));
  clear();
  machine.addFile("C:\\WINDOWS\\Prefetch\\in use.pf");
  machine.lock("C:\\WINDOWS\\Prefetch\\in use.pf");
  clear();
  EXPECT_TRUE(machine.exists("C:\\WINDOWS\\Prefetch\\in use.pf"));
}

// ---- The two windows

// Which versions of Windows a tool refuses before it reads anything.
class SystemSetting : public RegistryTool {
 protected:
  void expectRefusals(controls::FlatButton& button) {
    for (const platform::VersionRecord& version : {kWindows95, kWindows98, kWindows98Se}) {
      machine.setVersion(version);
      button.click();
      expectBox("Sorry, this tool is for Windows NT/2000/XP only.", "Windows NT/2000/XP Only", 48);
    }
    EXPECT_TRUE(machine.registryCalls().empty());
    const platform::VersionRecord passing[] = {
        kWindowsMe, {.major = 6, .platformId = 2}, {.major = 5, .platformId = 2}};
    for (const platform::VersionRecord& version : passing) {
      machine.setVersion(version);
      button.click();
      expectBox("The registry has reported that this key does not exist or is corrupted.", "Registry Access Error", 16);
    }
    EXPECT_EQ(machine.calls("runModal"), 0);
  }

  // Opens the window, has `act` act in it, and closes it by its Cancel button.
  template <typename Window>
  void open(controls::FlatButton& button, std::function<void(Window&)> act) {
    bool opened = false;
    machine.whenModal([&](controls::Form& shown) {
      auto& window = dynamic_cast<Window&>(shown);
      opened = true;
      EXPECT_FALSE(form.acceptsInput());
      EXPECT_EQ(window.cmd_Cancel.caption(), "Cancel");
      EXPECT_EQ(window.cmd_Cancel.toolTip(), "ExitThis Window");
      act(window);
      window.cmd_Cancel.click();
    });
    button.click();
    EXPECT_TRUE(opened);
  }
};

class PageFile : public SystemSetting {
 protected:
  const std::string key = "HKLM\\SYSTEM\\CurrentControlSet\\Control\\Session Manager\\Memory Management";

  std::string stored() { return machine.registryContents(key).at(0); }

  void expectState(const std::string& caption, const std::string& label) {
    open<frmPage>(form.cmdSwap, [&](frmPage& page) {
      EXPECT_EQ(page.caption(), "Cear Pagfile");
      EXPECT_EQ(page.cmdToggle.toolTip(), "Toggles Enable/Disable Clear Pagefile");
      EXPECT_EQ(page.cmdToggle.caption(), caption);
      EXPECT_EQ(page.lblPage.caption(), label);
      EXPECT_TRUE(page.cmdToggle.enabled());
    });
  }
};

TEST_F(PageFile, OldWindowsAndMissingValuesAreToldAndNothingOpens) { expectRefusals(form.cmdSwap); }

TEST_F(PageFile, TheWindowShowsTheStoredStateAndNothingOfAnEarlierOne) {
  machine.setRegistryNumber(key, "ClearPageFileAtShutdown", 0);
  expectState("Enable", "Clear Swap File at shutdown is currently disabled.");
  EXPECT_EQ(machine.registryCalls(),
            (Paths{"openKey HKLM SYSTEM\\CurrentControlSet\\Control\\Session Manager\\Memory Management 1",
                   "queryValue ClearPageFileAtShutdown 32"}));
  machine.setRegistryNumber(key, "ClearPageFileAtShutdown", 1);
  expectState("Disable", "Clear Swap File at shutdown is currently enabled.");
  machine.setRegistryNumber(key, "ClearPageFileAtShutdown", 2);
  expectState("Toggle", "The current setting is not known.");
  open<frmPage>(form.cmdSwap, [](frmPage& page) { page.cmdToggle.click(); });
  EXPECT_EQ(stored(), "ClearPageFileAtShutdown=4:02000000");
  EXPECT_TRUE(machine.boxes().empty());
}

TEST_F(PageFile, TogglesOnceEachTimeAndReportsSuccessInAnyCase) {
  machine.setRegistryNumber(key, "ClearPageFileAtShutdown", 0);
  open<frmPage>(form.cmdSwap, [&](frmPage& page) {
    machine.onBox([&](const ShownBox&) {
      EXPECT_EQ(page.lblPage.caption(), "Clear Swap File at shutdown is currently disabled.");
    });
    page.cmdToggle.click();
    page.cmdToggle.click();
    EXPECT_EQ(page.cmdToggle.caption(), "Enable");
    EXPECT_FALSE(page.cmdToggle.enabled());
    EXPECT_EQ(page.lblPage.caption(), "Clear Pagefile on shutdown is currently enabled.");
  });
  machine.onBox(nullptr);
  ASSERT_EQ(machine.boxes().size(), 1U);
  expectBox("Clear Pagefile has been enabled.", "Clear Pagefile Enabled", kInformation);
  EXPECT_EQ(stored(), "ClearPageFileAtShutdown=4:01000000");
  EXPECT_EQ(machine.registryCalls()[2],
            "createKey HKLM System\\CurrentControlSet\\Control\\Session Manager\\Memory Management\\ 6");

  machine.failAt("setValue");
  open<frmPage>(form.cmdSwap, [&](frmPage& page) {
    page.cmdToggle.click();
    EXPECT_EQ(page.lblPage.caption(), "Clear Pagefile on shutdown is currently disabled.");
    EXPECT_FALSE(page.cmdToggle.enabled());
  });
  expectBox("Clear Pagefile has been disabled.", "Clear Pagefile Disabled", kInformation);
  EXPECT_EQ(stored(), "ClearPageFileAtShutdown=4:01000000") << "a failed write is not noticed";
  open<frmPage>(form.cmdSwap, [&](frmPage& page) { page.cmdToggle.click(); });
  EXPECT_EQ(stored(), "ClearPageFileAtShutdown=4:00000000");
}

class SystemRestore : public SystemSetting {
 protected:
  const std::string key = "HKLM\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\SystemRestore";
  const std::string driver = "HKLM\\SYSTEM\\CurrentControlSet\\Services\\sr";
  const std::string runOnce = "HKLM\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\RunOnce";
  const std::string start = "net start \"System Restore Service\"";
  const std::string stop = "net stop \"System Restore Service\"";

  void store(std::uint32_t disabled) { machine.setRegistryNumber(key, "DisableSR", disabled); }

  void expectStored(const std::string& disabled, const std::string& driverStart) {
    EXPECT_EQ(machine.registryContents(key), Paths{"DisableSR=4:0" + disabled + "000000"});
    EXPECT_EQ(machine.registryContents(driver), Paths{"Start=4:0" + driverStart + "000000"});
  }

  void expectDisabled(const frmSR& window) {
    EXPECT_EQ(window.lblSR.caption(), "System Restore is currently disabled.");
    EXPECT_FALSE(window.cmdToggle.enabled());
  }
};

TEST_F(SystemRestore, OldWindowsAndMissingValuesAreToldAndNothingOpens) { expectRefusals(form.cmdSysrestore); }

TEST_F(SystemRestore, TheWindowShowsTheStoredState) {
  struct Case {
    std::uint32_t disabled;
    const char* caption;
    const char* label;
  };
  for (const Case& one : {Case{1, "Enable", "System Restore is currently disabled."},
                          Case{0, "Disable", "System Restore is currently enabled."},
                          Case{2, "Toggle", "The current setting is not known."}}) {
    store(one.disabled);
    open<frmSR>(form.cmdSysrestore, [&](frmSR& window) {
      EXPECT_EQ(window.caption(), "Toggle System Restore");
      EXPECT_EQ(window.cmdToggle.toolTip(), "Toggles Enable/Disable System Restore");
      EXPECT_EQ(window.cmdToggle.caption(), one.caption);
      EXPECT_EQ(window.lblSR.caption(), one.label);
      if (one.disabled == 2) window.cmdToggle.click();
    });
  }
  EXPECT_EQ(machine.registryCalls()[0],
            "openKey HKLM SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\SystemRestore 1");
  EXPECT_EQ(machine.launches(), Paths{start}) << "an unknown state starts the service and no more";
  EXPECT_TRUE(machine.boxes().empty());
}

TEST_F(SystemRestore, EnablingStartsTheServiceAndWritesBothValues) {
  store(1);
  open<frmSR>(form.cmdSysrestore, [&](frmSR& window) {
    machine.onBox([&](const ShownBox&) { EXPECT_TRUE(window.cmdToggle.enabled()); });
    window.cmdToggle.click();
    window.cmdToggle.click();
    EXPECT_EQ(window.lblSR.caption(), "System Restore is currently enabled.");
    EXPECT_FALSE(window.cmdToggle.enabled());
    EXPECT_EQ(window.cmdToggle.caption(), "Enable");
  });
  ASSERT_EQ(machine.boxes().size(), 1U);
  expectBox("System Restore has been successfully enabled.", "System Restore Enabled", kInformation);
  EXPECT_EQ(machine.launches(), Paths{start});
  expectStored("0", "0");
  EXPECT_EQ(machine.registryCalls()[2],
            "createKey HKLM SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\SystemRestore\\ 6");
  EXPECT_EQ(machine.registryCalls()[4], "createKey HKLM SYSTEM\\CurrentControlSet\\Services\\sr\\ 6");
}

TEST_F(SystemRestore, DisablingWithYesSchedulesTheRemovalAndShowsTheStateBeforeTheMessage) {
  store(0);
  open<frmSR>(form.cmdSysrestore, [&](frmSR& window) {
    machine.answer(Answer::kYes);
    machine.onBox([&](const ShownBox& box) {
      if (box.title == "Delete Restore Point") {
        EXPECT_EQ(machine.launches(), Paths{start});
        EXPECT_EQ(box.style, 292U);
      } else {
        expectDisabled(window);
      }
    });
    window.cmdToggle.click();
  });
  ASSERT_EQ(machine.boxes().size(), 2U);
  EXPECT_EQ(machine.boxes()[0].text, "Do you want to delete all existing Restore Points?");
  expectBox(
      "System Restore has been successfully disabled.\r\n\r\nAll System Restore Points will be deleted on next "
      "restart.",
      "Scrubhaven Pro", kInformation);
  EXPECT_EQ(machine.launches(), (Paths{start, stop}));
  expectStored("1", "4");
  EXPECT_EQ(machine.registryValue(runOnce, "Delete SVI")->data,
            std::string("C:\\Program Files\\Scrubhaven\\svi.cmd") + '\0');
  EXPECT_EQ(machine.registryCalls().back(), "setValue Delete SVI 1 35") << "the text without its NUL";
}

TEST_F(SystemRestore, DisablingWithNoLeavesTheRestorePointsAndShowsTheStateAfterTheMessage) {
  store(0);
  machine.failAt("launchHidden", 1);
  machine.failAt("setValue", 2);
  open<frmSR>(form.cmdSysrestore, [&](frmSR& window) {
    machine.onBox([&](const ShownBox&) {
      EXPECT_EQ(window.lblSR.caption(), "System Restore is currently enabled.");
      EXPECT_TRUE(window.cmdToggle.enabled());
    });
    window.cmdToggle.click();
    expectDisabled(window);
  });
  expectBox("System Restore has been disabled.", "System Restore Disabled", kInformation);
  EXPECT_EQ(machine.launches(), (Paths{start, stop}));
  EXPECT_FALSE(machine.hasRegistryKey(runOnce));
  EXPECT_EQ(machine.registryContents(key), Paths{"DisableSR=4:01000000"});
  EXPECT_FALSE(machine.registryValue(driver, "Start")) << "a failed write is not noticed";
}

}  // namespace
