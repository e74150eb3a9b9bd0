// The tools that work on the registry, and the Prefetch folder, in the real window and on the real machine.
#include <cstdio>

#include "tests/desktop/ConsoleTest.h"
#include "tests/desktop/Registry.h"

namespace desktop {
namespace {

using Lines = std::vector<std::string>;

constexpr const char* kTypedUrls = "HKCU\\Software\\Microsoft\\Internet Explorer\\TypedURLs";
constexpr const char* kRunOnce = "HKLM\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\RunOnce";
constexpr const char* kMemory = "HKLM\\SYSTEM\\CurrentControlSet\\Control\\Session Manager\\Memory Management";
constexpr const char* kClearAtShutdown = "ClearPageFileAtShutdown";
constexpr const char* kRestore = "HKLM\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\SystemRestore";
constexpr const char* kDriver = "HKLM\\SYSTEM\\CurrentControlSet\\Services\\sr";
constexpr const char* kPrefetch = "C:\\windows\\prefetch";
constexpr const char* kProgram = "C:\\Program Files\\Scrubhaven";

struct Seeded {
  const char* key;  // below HKCU\Software
  const char* seed;
};

constexpr Seeded kLists[] = {
    {"WinRAR\\ArcHistory", " = "},
    {"WinRAR\\DialogEditHistory\\ExtrPath", " = "},
    {"Nico Mak Computing\\WinZip\\FileMenu", " = "},
    {"Adobe\\Acrobat Reader\\6.0\\AVGeneral\\cRecentFiles", " = "},
    {"Ahead\\Nero - Burning Rom\\Recent File List", " = "},
    {"Microsoft\\Windows\\CurrentVersion\\Explorer\\RunMRU", " = "},
    {"Microsoft\\MediaPlayer\\Player\\RecentURLList", " = "},
    {"Microsoft\\MediaPlayer\\Player\\RecentFileList", " = "},
    {"Microsoft\\Internet Explorer\\Explorer Bars\\{C4EE31F3-4768-11D2-BE5C-00A0C9A83DA1}\\FilesNamedMRU", " = "},
    {"Microsoft\\Office\\10.0\\Common\\Open Find\\Microsoft Word\\Settings\\Open\\File Name MRU",
     "Maximum Entries = 10"},
    {"Microsoft\\Office\\10.0\\Common\\Open Find\\Microsoft Word\\Settings\\Save As\\File Name MRU",
     "Maximum Entries = 10"},
    {"Ulead Systems\\Ulead PhotoImpact\\8.5\\Recent File List", "MRU Max = 6"},
    {"Microsoft\\Windows\\CurrentVersion\\Explorer\\ComDlg32\\LastVisitedMRU", "MRUList = "},
    {"Microsoft\\Windows\\CurrentVersion\\Explorer\\ComDlg32\\OpenSaveMRU\\*", "MRUList = "},
    {"Microsoft\\Windows\\CurrentVersion\\Explorer\\ComDlg32\\OpenSaveMRU\\exe", "MRUList = "},
    {"Microsoft\\Windows\\CurrentVersion\\Explorer\\ComDlg32\\OpenSaveMRU\\RAR", "MRUList = "},
    {"Microsoft\\Windows\\CurrentVersion\\Explorer\\ComDlg32\\OpenSaveMRU\\txt", "MRUList = "},
    {"Microsoft\\Windows\\CurrentVersion\\Explorer\\ComDlg32\\OpenSaveMRU\\zip", "MRUList = "},
    {"Microsoft\\Windows\\CurrentVersion\\Applets\\Paint\\Recent File List", " = "},
    {"Microsoft\\Windows\\CurrentVersion\\Applets\\Wordpad\\Recent File List", " = "},
};

std::string pathOf(const Seeded& list) { return std::string("HKCU\\Software\\") + list.key; }

// One line for a key, so that the log shows what a tool made of it.
void show(const char* when, const std::string& path) {
  std::string line = std::string("  ") + when + "  " + path + ":";
  for (const std::string& one : contentsOf(path)) line += "  [" + one + "]";
  std::printf("%s%s\n", line.c_str(), hasKey(path) ? "" : "  no key");
}

class SettingsTest : public ConsoleTest {
 protected:
  void press(const std::string& button) { console().button(button).click(); }

  // The next box of that title: compares its message and presses the button.
  void answer(const std::string& title, const std::string& message, const std::string& button = "OK") {
    const Box box = program().box(title);
    EXPECT_EQ(box.message(), message);
    box.press(button);
  }

  Window open(const std::string& button, const std::string& title) {
    press(button);
    const Window window = program().window(title);
    EXPECT_FALSE(console().takesInput());
    // Resting on a control also lets the new window settle above the console.
    EXPECT_EQ(window.toolTipOf(window.button("Cancel")), "ExitThis Window");
    return window;
  }

  void waitForConsole() {
    waitUntil("the console to take input", [&] { return console().takesInput(); });
  }

  void close(const Window& window) {
    window.button("Cancel").click();
    waitForConsole();
  }

  // Presses the button and waits until nothing has come of it but the registry error.
  void expectRegistryError(const std::string& button) {
    press(button);
    answer("Registry Access Error", "The registry has reported that this key does not exist or is corrupted.");
    waitForConsole();
  }
};

TEST_F(SettingsTest, TypedAddressesAreCleared) {
  setText(kTypedUrls, "url1", "http://a.example/");
  setText(kTypedUrls, "url2", "http://b.example/");
  show("before", kTypedUrls);
  press("Clear Typed URLs");
  answer("Scrubhaven Pro", "All Recent URL's Cleared");
  show("after ", kTypedUrls);
  EXPECT_FALSE(hasKey(kTypedUrls));
  press("Clear Typed URLs");
  answer("Scrubhaven Pro", "No URL's Found");
}

TEST_F(SettingsTest, ListsAreEmptiedAndTwiceIsAsOnce) {
  for (const Seeded& list : kLists) {
    setText(pathOf(list), "", "old");
    setText(pathOf(list), "a", "C:\\secret.txt");
  }
  // A key with a subkey does not go on this Windows; it only gets the seed.
  const std::string stuck = pathOf(kLists[4]);
  setText(stuck + "\\Sub", "b", "C:\\kept.txt");
  const std::string beside = "HKCU\\Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\ComDlg32\\OpenSaveMRU\\doc";
  setText(beside, "a", "C:\\kept.doc");
  for (const Seeded& list : kLists) show("before", pathOf(list));

  for (int round = 1; round <= 2; ++round) {
    press("Clean MRU Lists");
    answer("MRU Lists Cleared", "All MRU lists have been cleared");
    for (const Seeded& list : kLists) {
      show(round == 1 ? "once  " : "twice ", pathOf(list));
      const Lines expected = pathOf(list) == stuck ? Lines{" = ", "Sub\\", "a = C:\\secret.txt"} : Lines{list.seed};
      EXPECT_EQ(contentsOf(pathOf(list)), expected) << list.key;
    }
    EXPECT_EQ(contentsOf(beside), Lines{"a = C:\\kept.doc"});
  }
}

TEST_F(SettingsTest, IndexFilesAreScheduledAfterAYesOnly) {
  const auto ask = [&](const std::string& button) {
    press("Wipe Index Files");
    EXPECT_EQ(program().box("Index.dat File Deletion").defaultButton(), "No");
    answer(
        "Index.dat File Deletion",
        "Deleting index.dat files requires that you restart your system.\r\nWould you like to schedule this event for "
        "next time you restart?",
        button);
  };
  removeValue(kRunOnce, "");
  const Lines before = contentsOf(kRunOnce);
  show("before", kRunOnce);
  ask("No");
  waitForConsole();
  show("no    ", kRunOnce);
  EXPECT_EQ(contentsOf(kRunOnce), before);
  ask("Yes");
  answer("Index.dat Files", "All relevant index.dat files will be deleted on next system restart");
  show("yes   ", kRunOnce);
  EXPECT_EQ(textOf(kRunOnce, ""), std::string(kProgram) + "\\delindex.cmd");
  EXPECT_EQ(contentsOf(kRunOnce).size(), before.size() + 1);
  EXPECT_TRUE(exists(std::string(kProgram) + "\\delindex.cmd"));
  removeValue(kRunOnce, "");
}

TEST_F(SettingsTest, PrefetchFilesGoAndFoldersStay) {
  const auto clear = [&] {
    press("Clear Prefetch");
    answer("Clear Prefetch Folder", "Delete contents of the Windows Prefetch Folder?", "Yes");
    answer(" Folder Cleared", "The Prefetch folder has been cleared.");
  };
  removeTree(kPrefetch);
  press("Clear Prefetch");
  answer("No Such Folder", "This system has no Prefetch folder.");

  makeFolders(kPrefetch);
  clear();
  EXPECT_TRUE(exists(kPrefetch)) << "an empty folder is cleared, too";

  const std::string folder = kPrefetch;
  for (const char* name : {"\\NOTEPAD.EXE-336351A9.pf", "\\layout.ini", "\\no extension", "\\Sub\\deep.pf"}) {
    makeFile(folder + name, "trace");
  }
  setAttributes(folder + "\\layout.ini", FILE_ATTRIBUTE_READONLY);
  makeFile("C:\\windows\\beside.pf", "kept");
  press("Clear Prefetch");
  answer("Clear Prefetch Folder", "Delete contents of the Windows Prefetch Folder?", "No");
  waitForConsole();
  EXPECT_TRUE(exists(folder + "\\NOTEPAD.EXE-336351A9.pf"));
  clear();
  for (const char* name : {"\\NOTEPAD.EXE-336351A9.pf", "\\layout.ini", "\\no extension"}) {
    EXPECT_FALSE(exists(folder + name)) << name;
  }
  EXPECT_TRUE(exists(folder + "\\Sub\\deep.pf"));
  EXPECT_TRUE(exists("C:\\windows\\beside.pf"));
  removeTree(kPrefetch);
}

TEST_F(SettingsTest, ThePageFileIsShownAndSwitched) {
  const auto change = [&](const std::string& shown, const std::string& button, const std::string& title,
                          const std::string& message, const std::string& now) {
    const Window window = open("Clear Swap File", "Cear Pagfile");
    EXPECT_TRUE(window.label(shown).visible());
    const Control toggle = window.button(button);
    toggle.click();
    answer(title, message);
    waitUntil("the new state", [&] { return window.labelTexts() == Lines{now}; });
    EXPECT_FALSE(toggle.enabled());
    EXPECT_EQ(toggle.text(), button);
    close(window);
  };
  setNumber(kMemory, kClearAtShutdown, 0);
  change("Clear Swap File at shutdown is currently disabled.", "Enable", "Clear Pagefile Enabled",
         "Clear Pagefile has been enabled.", "Clear Pagefile on shutdown is currently enabled.");
  EXPECT_EQ(numberOf(kMemory, kClearAtShutdown), 1u);
  change("Clear Swap File at shutdown is currently enabled.", "Disable", "Clear Pagefile Disabled",
         "Clear Pagefile has been disabled.", "Clear Pagefile on shutdown is currently disabled.");
  EXPECT_EQ(numberOf(kMemory, kClearAtShutdown), 0u);

  setNumber(kMemory, kClearAtShutdown, 2);
  const Window unknown = open("Clear Swap File", "Cear Pagfile");
  EXPECT_EQ(unknown.labelTexts(), Lines{"The current setting is not known."});
  unknown.button("Toggle").click();
  takeScreenshot("page-file");
  close(unknown);
  EXPECT_EQ(numberOf(kMemory, kClearAtShutdown), 2u);

  removeValue(kMemory, kClearAtShutdown);
  expectRegistryError("Clear Swap File");
  EXPECT_FALSE(numberOf(kMemory, kClearAtShutdown));
}

class SystemRestoreTest : public SettingsTest {
 protected:
  void SetUp() override {
    SettingsTest::SetUp();
    removeKey(kDriver);
    removeValue(kRunOnce, "Delete SVI");
  }

  void TearDown() override {
    removeKey(kDriver);
    removeKey(kRestore);
    removeValue(kRunOnce, "Delete SVI");
    SettingsTest::TearDown();
  }

  void expectStored(DWORD disabled, DWORD start) {
    show("after ", kRestore);
    show("after ", kDriver);
    show("after ", kRunOnce);
    EXPECT_EQ(numberOf(kRestore, "DisableSR"), disabled);
    EXPECT_EQ(numberOf(kDriver, "Start"), start);
  }

  // Disables System Restore; the question about the restore points gets this answer.
  Window disable(const std::string& button) {
    setNumber(kRestore, "DisableSR", 0);
    const Window window = open("System Restore", "Toggle System Restore");
    EXPECT_EQ(window.labelTexts(), Lines{"System Restore is currently enabled."});
    window.button("Disable").click();
    EXPECT_EQ(program().box("Delete Restore Point").defaultButton(), "No");
    answer("Delete Restore Point", "Do you want to delete all existing Restore Points?", button);
    return window;
  }

  void expectDisabled(const Window& window) {
    waitUntil("the new state", [&] { return window.labelTexts() == Lines{"System Restore is currently disabled."}; });
    EXPECT_FALSE(window.button("Disable").enabled());
  }
};

TEST_F(SystemRestoreTest, IsEnabled) {
  setNumber(kRestore, "DisableSR", 1);
  const Window window = open("System Restore", "Toggle System Restore");
  EXPECT_EQ(window.labelTexts(), Lines{"System Restore is currently disabled."});
  takeScreenshot("system-restore");
  window.button("Enable").click();
  answer("System Restore Enabled", "System Restore has been successfully enabled.");
  waitUntil("the new state", [&] { return window.labelTexts() == Lines{"System Restore is currently enabled."}; });
  EXPECT_FALSE(window.button("Enable").enabled());
  close(window);
  expectStored(0, 0);
  EXPECT_FALSE(textOf(kRunOnce, "Delete SVI"));

  removeKey(kRestore);
  expectRegistryError("System Restore");
  EXPECT_FALSE(hasKey(kRestore));
}

TEST_F(SystemRestoreTest, IsDisabledAndItsPointsAreScheduled) {
  const Window window = disable("Yes");
  const Box closing = program().box("Scrubhaven Pro");
  expectDisabled(window);
  EXPECT_EQ(closing.message(),
            "System Restore has been successfully disabled.\r\n\r\nAll System Restore Points will be deleted on next "
            "restart.");
  closing.press("OK");
  close(window);
  expectStored(1, 4);
  EXPECT_EQ(textOf(kRunOnce, "Delete SVI"), std::string(kProgram) + "\\svi.cmd");
  EXPECT_TRUE(exists(std::string(kProgram) + "\\svi.cmd"));
}

TEST_F(SystemRestoreTest, IsDisabledAndItsPointsAreKept) {
  const Window window = disable("No");
  const Box closing = program().box("System Restore Disabled");
  EXPECT_EQ(window.labelTexts(), Lines{"System Restore is currently enabled."});
  EXPECT_EQ(closing.message(), "System Restore has been disabled.");
  closing.press("OK");
  expectDisabled(window);
  close(window);
  expectStored(1, 4);
  EXPECT_FALSE(textOf(kRunOnce, "Delete SVI"));
}

// Each program that starts while this lives takes itself to run on that Windows.
class PlayedVersion {
 public:
  explicit PlayedVersion(const std::string& version) : before_(textOf(kWine, "Version").value()) {
    setText(kWine, "Version", version);
  }
  ~PlayedVersion() { setText(kWine, "Version", before_); }
  PlayedVersion(const PlayedVersion&) = delete;
  PlayedVersion& operator=(const PlayedVersion&) = delete;

 private:
  static constexpr const char* kWine = "HKCU\\Software\\Wine";

  std::string before_;
};

// The title and the message of the box that a button of the console leads to.
std::string boxOf(const Program& program, const std::string& button, const std::string& title) {
  program.console().button(button).click();
  const Box box = program.box(title);
  const std::string message = box.message();
  box.press("OK");
  waitUntil("the console to take input", [&] { return program.console().takesInput(); });
  return message;
}

TEST(OldWindows, Windows98IsRefusedAndWindowsMePassesOn) {
  removeValue(kMemory, kClearAtShutdown);
  removeKey(kRestore);
  {
    const PlayedVersion version("win98");
    const Program program;
    for (const char* button : {"Clear Swap File", "System Restore"}) {
      EXPECT_EQ(boxOf(program, button, "Windows NT/2000/XP Only"), "Sorry, this tool is for Windows NT/2000/XP only.");
    }
  }
  const PlayedVersion version("winme");
  const Program program;
  for (const char* button : {"Clear Swap File", "System Restore"}) {
    EXPECT_EQ(boxOf(program, button, "Registry Access Error"),
              "The registry has reported that this key does not exist or is corrupted.");
  }
}

}  // namespace
}  // namespace desktop
