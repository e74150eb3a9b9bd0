// The console's tools that work on the registry, and the Prefetch folder.
#include <algorithm>
#include <map>

#include "settings/frmPage.h"
#include "settings/frmSR.h"
#include "tests/unit/ConsoleTest.h"

using platform::Answer;

namespace {

const std::string kSoftware = "HKCU\\Software\\";
const std::string kBeside = kSoftware + "Microsoft\\Windows\\CurrentVersion\\Explorer\\ComDlg32\\OpenSaveMRU\\doc";
const std::string kRunOnce = "HKLM\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\RunOnce";

class RegistryTools : public ConsoleTest {};

TEST_F(RegistryTools, TypedUrlsGoWithTheirKeyAndNothingBesideIt) {
  const std::string browser = "HKCU\\Software\\Microsoft\\Internet Explorer";
  machine.registry().setText(browser + "\\TypedURLs", "url1", "http://a.example/");
  machine.registry().setText(browser, "keep", "x");
  EXPECT_EQ(press(form.cmdMRU), Paths{"All Recent URL's Cleared"});
  EXPECT_EQ(machine.registry().contents(browser), Paths{"keep=1:7800"});
  EXPECT_EQ(press(form.cmdMRU), Paths{"No URL's Found"});
  machine.registry().setText(browser + "\\TypedURLs\\Sub", "v", "x");
  EXPECT_EQ(press(form.cmdMRU), Paths{}) << "other failures are not reported";
}

TEST_F(RegistryTools, ReadingAndWritingByPathEndInDeletionToo) {
  const std::string path = "HKEY_CURRENT_USER\\K\\v";
  machine.registry().setText("HKCU\\K", "v", "the value");
  std::string text = "before";
  form.ReadWriteDeleteRegistry2(path, text, 2);
  EXPECT_EQ(text, "before");
  form.ReadWriteDeleteRegistry2(path, text, 1);
  EXPECT_EQ(text, "the value");
  form.ReadWriteDeleteRegistry(path, "", 1);
  form.ReadWriteDeleteRegistry2(path, text, 1);
  EXPECT_EQ(text, "the value") << "a failed read leaves it";
  form.ReadWriteDeleteRegistry(path, "data", 2);
  EXPECT_FALSE(machine.registry().value("HKCU\\K", "v"));
  form.ReadWriteDeleteRegistry(path, "", 1);
  machine.failAt("regWrite");
  form.ReadWriteDeleteRegistry(path, "data", 2);
  EXPECT_EQ(boxTexts(),
            (Paths{"the value", "All Recent URL's Cleared", "\"" + path + "\\data\" has been written To the registry.",
                   "All Recent URL's Cleared", "No URL's Found"}));
  EXPECT_EQ(machine.faults().calls("regDelete"), 2) << "a failed read or write ends it";
}

// Below HKCU\Software: the keys of the lists of what was used last, by what each holds afterwards.
const std::map<std::string, Paths> kSeeds = {
    {"=1:", parts(R"(WinRAR\ArcHistory|WinRAR\DialogEditHistory\ExtrPath|Nico Mak Computing\WinZip\FileMenu|)"
                  R"(Adobe\Acrobat Reader\6.0\AVGeneral\cRecentFiles|Ahead\Nero - Burning Rom\Recent File List|)"
                  R"(Microsoft\Windows\CurrentVersion\Explorer\RunMRU|Microsoft\MediaPlayer\Player\RecentURLList|)"
                  R"(Microsoft\MediaPlayer\Player\RecentFileList|Microsoft\Internet Explorer\Explorer Bars\)"
                  R"({C4EE31F3-4768-11D2-BE5C-00A0C9A83DA1}\FilesNamedMRU|)"
                  R"(Microsoft\Windows\CurrentVersion\Applets\Paint\Recent File List|)"
                  R"(Microsoft\Windows\CurrentVersion\Applets\Wordpad\Recent File List)")},
    {"MRUList=1:", parts(R"(Microsoft\Windows\CurrentVersion\Explorer\ComDlg32\LastVisitedMRU|)"
                         R"(Microsoft\Windows\CurrentVersion\Explorer\ComDlg32\OpenSaveMRU\*|)"
                         R"(Microsoft\Windows\CurrentVersion\Explorer\ComDlg32\OpenSaveMRU\exe|)"
                         R"(Microsoft\Windows\CurrentVersion\Explorer\ComDlg32\OpenSaveMRU\RAR|)"
                         R"(Microsoft\Windows\CurrentVersion\Explorer\ComDlg32\OpenSaveMRU\txt|)"
                         R"(Microsoft\Windows\CurrentVersion\Explorer\ComDlg32\OpenSaveMRU\zip)")},
    {"Maximum Entries=4:0a000000",
     parts(R"(Microsoft\Office\10.0\Common\Open Find\Microsoft Word\Settings\Open\File Name MRU|)"
           R"(Microsoft\Office\10.0\Common\Open Find\Microsoft Word\Settings\Save As\File Name MRU)")},
    {"MRU Max=4:06000000", {R"(Ulead Systems\Ulead PhotoImpact\8.5\Recent File List)"}},
};

// Every call fails once in turn: each other list is emptied, and the message comes.
TEST_F(RegistryTools, MruListsAreEmptiedOrMadeAndAFailureStaysWithItsOwnList) {
  const auto emptied = [this] {
    std::ptrdiff_t count = 0;
    for (const auto& [seed, keys] : kSeeds) {
      count += std::ranges::count(keys, Paths{seed},
                                  [&](const auto& key) { return machine.registry().contents(kSoftware + key); });
    }
    return count;
  };
  EXPECT_EQ(press(form.cmdLists), Paths{"All MRU lists have been cleared"});
  EXPECT_EQ(emptied(), 20) << "made where they were missing";
  EXPECT_EQ(machine.registry().calls()[5], "createKey HKCU Software\\WinRAR\\DialogEditHistory\\ExtrPath\\ 6");
  machine.registry().setText(kSoftware + "WinRAR", "keep", "x");
  machine.registry().setText(kBeside, "keep", "x");
  int runs = 0;
  withEachCallFailing({"openKey", "deleteKey", "createKey", "setValue"}, [&](const std::string& call) {
    for (const auto& [seed, keys] : kSeeds) {
      for (const std::string& key : keys) machine.registry().setText(kSoftware + key, "a", "secret");
    }
    EXPECT_EQ(press(form.cmdLists), Paths{"All MRU lists have been cleared"});
    EXPECT_EQ(emptied(), machine.faults().left() ? 20 : 19) << call;
    ++runs;
  });
  EXPECT_EQ(runs, 4 * 21);
  EXPECT_TRUE(machine.registry().value(kSoftware + "WinRAR", "keep"));
  EXPECT_TRUE(machine.registry().value(kBeside, "keep"));
}

TEST_F(RegistryTools, IndexFilesAreScheduledAfterAYesOnly) {
  EXPECT_EQ(press(form.cmdIndex), Paths{kAskIndex});
  EXPECT_TRUE(machine.registry().calls().empty()) << "No is the default";
  EXPECT_EQ(press(form.cmdIndex, {Answer::kYes}),
            (Paths{kAskIndex, "All relevant index.dat files will be deleted on next system restart"}));
  EXPECT_EQ(machine.registry().value(kRunOnce, "")->data,
            std::string("C:\\Program Files\\Scrubhaven\\delindex.cmd") + '\0');
  EXPECT_EQ(machine.registry().contents(kRunOnce).size(), 1U);
  machine.failAt("regWrite", 1, platform::kPermissionDenied);
  EXPECT_EQ(press(form.cmdIndex, {Answer::kYes}), (Paths{kAskIndex, "Run-time error '70':\r\n\r\nPermission denied"}));
  machine.answer(Answer::kYes);
  form.ReadWriteDeleteRegistry1("HKEY_CURRENT_USER\\K\\", "x", 3);
  EXPECT_FALSE(machine.registry().hasKey("HKCU\\K")) << "other modes only ask";
}

TEST_F(RegistryTools, PrefetchedFilesGoReadOnlyOnesTooAndFoldersStay) {
  EXPECT_EQ(press(form.cmdPrefetch), Paths{"This system has no Prefetch folder."});
  addFiles("C:\\WINDOWS", {"Prefetch\\Sub\\deep.pf", "Prefetch\\in use.pf", "a.pf", "Prefetch\\a.pf"});
  machine.disk().lock("C:\\WINDOWS\\Prefetch\\in use.pf");
  machine.addFile("C:\\WINDOWS\\Prefetch\\hidden", "", platform::kReadOnly | platform::kHidden);
  const std::string ask = "Delete contents of the Windows Prefetch Folder?";
  EXPECT_EQ(press(form.cmdPrefetch, {Answer::kNo}), Paths{ask});
  EXPECT_EQ(machine.filesBelow("C:\\WINDOWS").size(), 5U);
  EXPECT_EQ(press(form.cmdPrefetch, {Answer::kYes}), (Paths{ask, "The Prefetch folder has been cleared."}));
  EXPECT_EQ(machine.filesBelow("C:\\WINDOWS"),
            (Paths{"C:\\WINDOWS\\Prefetch\\Sub\\deep.pf", "C:\\WINDOWS\\Prefetch\\in use.pf", "C:\\WINDOWS\\a.pf"}));
  machine.failAt("folderExists", 2);  // gone while the question was open
  EXPECT_EQ(press(form.cmdPrefetch, {Answer::kYes}), Paths{ask});
}

// ---- The two windows

// The machine, with a shell that notes how many registry calls stand before each command line.
class WatchedMachine final : public platform::Machine, public platform::Shell {
 public:
  explicit WatchedMachine(platform::memory::MemoryMachine& real) : real_(real) {}
  Paths launches;

  platform::FileSystem& files() override { return real_.files(); }
  platform::FileObjects& fileObjects() override { return real_.fileObjects(); }
  platform::Shell& shell() override { return *this; }
  platform::Registry& registry() override { return real_.registry(); }
  platform::ProfileFile& profiles() override { return real_.profiles(); }
  platform::ScriptShell& scriptShell() override { return real_.scriptShell(); }
  platform::SystemVersion& version() override { return real_.version(); }
  platform::Environment& environment() override { return real_.environment(); }
  platform::Ui& ui() override { return real_.ui(); }
  platform::UrlCache& urlCache() override { return real_.urlCache(); }
  platform::UrlHistory& urlHistory() override { return real_.urlHistory(); }
  platform::Calendar& calendar() override { return real_.calendar(); }

  std::int32_t fileOperation(const platform::FileOperation&) override { return 0; }
  std::int32_t execute(const platform::ShellCommand&) override { return 0; }
  std::int32_t emptyRecycleBin(const std::string&, std::uint32_t) override { return 0; }
  void addToRecentDocs(std::uint32_t, const std::optional<std::string>&) override {}
  platform::Result<void> launchHidden(const std::string& command) override {
    launches.push_back(std::to_string(real_.registry().calls().size()) + ' ' + command);
    return real_.shell().launchHidden(command);
  }

 private:
  platform::memory::MemoryMachine& real_;
};

class SystemSetting : public ConsoleTest {
 protected:
  // Stores the setting, opens its window, presses the toggle twice and closes the window by Cancel. Returns what the
  // window's toggle and label show at the start, under each box, and at the end, with "!" once the toggle is disabled.
  template <typename Window>
  Paths toggle(std::uint32_t stored, controls::FlatButton& button, controls::Label Window::*label,
               std::initializer_list<Answer> answers = {}) {
    machine.registry().setNumber(pageKey, "ClearPageFileAtShutdown", stored);
    machine.registry().setNumber(restoreKey, "DisableSR", stored);
    Paths seen;
    machine.ui().whenModal([&](controls::Form& shown) {
      EXPECT_FALSE(form.acceptsInput());
      auto& window = dynamic_cast<Window&>(shown);
      EXPECT_EQ(window.cancelButton(), &window.cmd_Cancel);
      const auto see = [&](const std::string& when) {
        const std::string state = window.cmdToggle.caption() + (window.cmdToggle.enabled() ? " | " : "! | ");
        seen.push_back(when + state + (window.*label).caption());
      };
      see("");
      machine.ui().onBox([&](const auto& box) { see(box.text.substr(0, box.text.find('\r')) + " | "); });
      for (const Answer answer : answers) machine.answer(answer);
      window.cmdToggle.click();
      window.cmdToggle.click();
      see("");
      machine.ui().onBox({});
      window.cmd_Cancel.click();
    });
    button.click();
    return seen;
  }

  Paths toggleRestore(std::uint32_t disabled, std::initializer_list<Answer> answers = {}) {
    const platform::ScopedMachine use(watched);
    return toggle(disabled, form.cmdSysrestore, &frmSR::lblSR, answers);
  }

  WatchedMachine watched{machine};
  const std::string pageKey = "HKLM\\SYSTEM\\CurrentControlSet\\Control\\Session Manager\\Memory Management";
  const std::string restoreKey = "HKLM\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\SystemRestore";
  const std::string driverKey = "HKLM\\SYSTEM\\CurrentControlSet\\Services\\sr";
  const std::string start = " net start \"System Restore Service\"";
  const std::string stop = " net stop \"System Restore Service\"";
};

TEST_F(SystemSetting, OldWindowsAndMissingValuesAreToldAndNothingOpens) {
  for (controls::FlatButton* button : {&form.cmdSwap, &form.cmdSysrestore}) {
    const std::size_t calls = machine.registry().calls().size();
    for (const auto& [minor, build] : {std::pair(0U, 950U), {10U, 1998U}, {10U, 2222U}}) {
      machine.version().set({.major = 4, .minor = minor, .build = build, .platformId = 1});
      EXPECT_EQ(press(*button), Paths{"Sorry, this tool is for Windows NT/2000/XP only."});
    }
    EXPECT_EQ(machine.registry().calls().size(), calls);
    machine.version().set({.major = 4, .minor = 90, .build = 3000, .platformId = 1});
    EXPECT_EQ(press(*button), Paths{kUnreadable}) << "Windows Me goes by a name that passes";
  }
  for (const char* name : {"Windows ME", "Windows 98 SE"}) EXPECT_FALSE(isOnNtLine(name));
  EXPECT_EQ(machine.faults().calls("runModal"), 0);
}

TEST_F(SystemSetting, ThePageFileTogglesOnceEachTimeAndReportsSuccessInAnyCase) {
  const std::string clears = "Clear Pagefile on shutdown is currently ";
  EXPECT_EQ(toggle(0, form.cmdSwap, &frmPage::lblPage),
            (Paths{"Enable | Clear Swap File at shutdown is currently disabled.",
                   "Clear Pagefile has been enabled. | Enable | Clear Swap File at shutdown is currently disabled.",
                   "Enable! | " + clears + "enabled."}));
  EXPECT_EQ(machine.registry().contents(pageKey), Paths{"ClearPageFileAtShutdown=4:01000000"});
  EXPECT_EQ(machine.registry().calls()[0],
            "openKey HKLM SYSTEM\\CurrentControlSet\\Control\\Session Manager\\Memory Management 1");
  EXPECT_EQ(machine.registry().calls()[2],
            "createKey HKLM System\\CurrentControlSet\\Control\\Session Manager\\Memory Management\\ 6");
  machine.failAt("setValue");
  for (const char* stored : {"ClearPageFileAtShutdown=4:01000000", "ClearPageFileAtShutdown=4:00000000"}) {
    EXPECT_EQ(toggle(1, form.cmdSwap, &frmPage::lblPage),
              (Paths{"Disable | Clear Swap File at shutdown is currently enabled.",
                     "Clear Pagefile has been disabled. | Disable | Clear Swap File at shutdown is currently enabled.",
                     "Disable! | " + clears + "disabled."}));
    EXPECT_EQ(machine.registry().contents(pageKey), Paths{stored});
  }
}

TEST_F(SystemSetting, AnUnknownStateIsShownAndNotChanged) {
  const Paths unknown(2, "Toggle | The current setting is not known.");
  EXPECT_EQ(toggle(2, form.cmdSwap, &frmPage::lblPage), unknown);
  EXPECT_EQ(toggleRestore(2), unknown);
  EXPECT_EQ(machine.registry().calls().size(), 4U) << "read only";
  EXPECT_EQ(watched.launches, (Paths{"4" + start, "4" + start})) << "but the service is started";
}

TEST_F(SystemSetting, RestoreIsEnabledOrDisabledInThisOrder) {
  const std::string enabled = "System Restore is currently enabled.";
  const std::string disabled = "System Restore is currently disabled.";
  const std::string question = "Do you want to delete all existing Restore Points? | Disable | " + enabled;
  const Paths written = {"createKey HKLM SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\SystemRestore\\ 6",
                         "setValue DisableSR 4 4", "createKey HKLM SYSTEM\\CurrentControlSet\\Services\\sr\\ 6",
                         "setValue Start 4 4"};
  const auto callsFrom = [this](std::size_t first) {
    const Paths& all = machine.registry().calls();
    return Paths(all.begin() + static_cast<std::ptrdiff_t>(std::min(first, all.size())), all.end());
  };
  EXPECT_EQ(toggleRestore(1),
            (Paths{"Enable | " + disabled, "System Restore has been successfully enabled. | Enable | " + disabled,
                   "Enable! | " + enabled}));
  EXPECT_EQ(callsFrom(2), written);
  EXPECT_EQ(machine.registry().contents(restoreKey), Paths{"DisableSR=4:00000000"});
  EXPECT_EQ(machine.registry().contents(driverKey), Paths{"Start=4:00000000"});

  machine.failAt("launchHidden", 1);
  EXPECT_EQ(toggleRestore(0, {Answer::kNo}),
            (Paths{"Disable | " + enabled, question, "System Restore has been disabled. | Disable | " + enabled,
                   "Disable! | " + disabled}));
  EXPECT_EQ(callsFrom(8), written);
  EXPECT_EQ(machine.registry().contents(restoreKey), Paths{"DisableSR=4:01000000"});
  EXPECT_EQ(machine.registry().contents(driverKey), Paths{"Start=4:04000000"});

  machine.failAt("setValue", 2);
  EXPECT_EQ(
      toggleRestore(0, {Answer::kYes}),
      (Paths{"Disable | " + enabled, question,
             "System Restore has been successfully disabled. | Disable! | " + disabled, "Disable! | " + disabled}));
  Paths last = written;
  last.push_back("createKey HKLM SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\RunOnce 6");
  last.push_back("setValue Delete SVI 1 35");
  EXPECT_EQ(callsFrom(14), last);
  EXPECT_EQ(machine.registry().value(kRunOnce, "Delete SVI")->data,
            std::string("C:\\Program Files\\Scrubhaven\\svi.cmd") + '\0');
  // Each behind what was read and written before it; the last stop stands before the entry for the next start.
  EXPECT_EQ(watched.launches, (Paths{"2" + start, "8" + start, "12" + stop, "14" + start, "18" + stop}));
}

}  // namespace
