#include "console/modOS.h"
#include "tests/unit/ConsoleTest.h"
#include "tests/unit/LayoutTest.h"

using platform::Pointer;
using platform::memory::Ended;

namespace {

class Console : public ConsoleTest {};

TEST_F(Console, StartsAtTheRootOfCWhateverTheCurrentFolderIs) {
  EXPECT_EQ(machine.files().currentFolder(), "C:\\Program Files\\Scrubhaven");
  EXPECT_EQ(form.Dir1.path(), "C:\\");
  std::set<std::string> hidden;
  std::set<std::string> disabled;
  for (const controls::Control* control : form.controls()) {
    if (!control->visible()) hidden.insert(control->name());
    if (!control->enabled()) disabled.insert(control->name());
  }
  EXPECT_EQ(hidden, (std::set<std::string>{"ListView2", "lvCache", "cmdAbort", "Label6", "lblStatus", "lblFile"}));
  EXPECT_EQ(disabled, (std::set<std::string>{"Select_All", "cmdInvert", "Delete", "cmdSelect", "cmdCacheInvert",
                                             "cmdCleanCache", "optRecycle", "optWipe"}));
  EXPECT_TRUE(form.optRecycle.ticked() && !form.optWipe.ticked());
}

TEST_F(Console, WithoutAFolderToStartInNothingIsScanned) {
  machine.addFile("C:\\empty.tmp");
  machine.failAt("subfolders");
  frmFind fresh;
  fresh.load();
  fresh.Check[kTypeTmp].setTicked(true);
  fresh.Scan.click();
  EXPECT_TRUE(fresh.ListView1.empty());
  fresh.cmdZero.click();
  EXPECT_TRUE(fresh.ListView2.empty());
}

TEST_F(Console, ChoosingADriveShowsTheWayToItsCurrentFolderAndAnEmptyOneIsReported) {
  machine.disk().addDrive('D', "BACKUP");
  machine.addFolder("D:\\Old\\Deep\\Below");
  machine.addFolder("D:\\Old\\Deep\\hidden", platform::kHidden);
  machine.disk().setCurrentFolder("D:\\Old\\Deep");
  machine.addFolder("C:\\Here");
  machine.disk().setCurrentFolder("C:\\Here");
  machine.disk().addDrive('E', "", false);
  form.Drive1.reload();
  ASSERT_EQ(form.Drive1.items(), (Paths{"c:", "d: [BACKUP]", "e:"}));
  form.Drive1.choose(1);
  Paths entries;
  for (const controls::DirEntry& entry : form.Dir1.entries()) entries.push_back(entry.text);
  EXPECT_EQ(entries, (Paths{"D:\\", "Old", "Deep", "Below"}));
  EXPECT_EQ(form.Dir1.current(), 2U);
  form.Dir1.open(1);
  EXPECT_EQ(machine.files().currentFolderOf('d').value(), "D:\\Old\\Deep") << "the list is not the program";

  machine.ui().setPointer(Pointer::kHourglass);
  form.Drive1.choose(2);
  EXPECT_EQ(form.Dir1.path(), "D:\\Old");
  EXPECT_EQ(boxTexts(), Paths{"Run-time error '68':\r\n\r\nDevice unavailable"});
  EXPECT_TRUE(machine.boxes()[0].title == "Scrubhaven Pro" && machine.boxes()[0].style == platform::kBoxCritical);
  EXPECT_EQ(machine.ui().pointer(), Pointer::kDefault);

  // A chosen drive that has gone leaves none chosen, so that choosing the first one is a change.
  machine.failAt("drives");
  form.Drive1.reload();
  form.Drive1.reload();
  EXPECT_EQ(form.Drive1.drive(), "");
  // The list's own text for C: is in lower case, so its current folder shows, not the root.
  form.Drive1.choose(0);
  EXPECT_EQ(form.Dir1.path(), "C:\\Here");
}

TEST_F(Console, HelpAndWebSiteReachTheShellAsTexts) {
  form.cmdHelp.click();
  form.Picture1.click();
  ASSERT_EQ(machine.shell().commands().size(), 2U);
  const platform::ShellCommand& help = machine.shell().commands()[0];
  EXPECT_EQ(help.file, "C:\\Program Files\\Scrubhaven\\scrubhaven.chm");
  EXPECT_TRUE(help.verb == "Open" && help.parameters == "0" && help.folder == "0" && help.showCommand == 1);
  EXPECT_EQ(help.owner, platform::ShellOwner::kDesktopWindow);
  EXPECT_EQ(form.CommonDialog1.helpFile, "C:\\Program Files\\Scrubhaven\\scrubhaven.hlp");
  const platform::ShellCommand& web = machine.shell().commands()[1];
  EXPECT_FALSE(web.verb || web.parameters || web.folder || web.showCommand != 0);
  EXPECT_EQ(web.owner, platform::ShellOwner::kNone);
}

TEST_F(Console, AbortHelpAndCloseActWhileAScanRunsAndToolsDoNot) {
  machine.addFile("C:\\Junk\\a.tmp", "x");
  machine.addFolder("C:\\Junk\\Sub");
  machine.whenServing([&] {
    EXPECT_EQ(machine.ui().pointer(), Pointer::kHourglass);
    form.cmdAbort.pointerEnters();
    EXPECT_EQ(machine.ui().pointer(), Pointer::kDefault);
    form.Delete.enable();
    form.Delete.click();
    EXPECT_TRUE(machine.boxes().empty());
    form.cmdHelp.enable();
    form.cmdHelp.click();
    EXPECT_EQ(machine.shell().commands().size(), 1U);
    EXPECT_THROW(form.closeRequested(), Ended);
    form.cmdCacheAbort.click();
  });
  scan({kTypeTmp}, "C:\\Junk");
  EXPECT_EQ(lastBox(), "    Scan Aborted");
  EXPECT_THROW(form.cmdExit.click(), Ended);
}

TEST_F(Console, FitsOnASmallScreenAndTheListsGrow) {
  expectSoundWindow(form, {&form.ListView1, &form.ListView2, &form.lvCache});
  const controls::Size small = {780, 540};
  const controls::Size least = controls::leastSize(form.layout(), FixedMetrics());
  EXPECT_TRUE(least.width <= small.width && least.height <= small.height);
  const controls::Places before = controls::arrange(form.layout(), FixedMetrics(), small);
  const controls::Places after = controls::arrange(form.layout(), FixedMetrics(), {880, 940});
  EXPECT_EQ(after.at(&form.ListView1).width, before.at(&form.ListView1).width + 100);
  EXPECT_EQ(after.at(&form.ListView1).height, before.at(&form.ListView1).height + 300);
}

TEST_F(Console, NamesTheWindowsVersion) {
  const std::pair<platform::VersionRecord, const char*> cases[] = {
      {{.major = 4, .minor = 0, .build = 950, .platformId = 1}, "Windows 95"},
      {{.major = 4, .minor = 10, .build = 0x040A0000 | 2222, .platformId = 1}, "Windows 98SE"},
      {{.major = 4, .minor = 10, .build = 0x040A0000 | 1998, .platformId = 1}, "Windows 98"},
      {{.major = 4, .minor = 90, .build = 3000, .platformId = 1}, "Windows Me"},
      {{.major = 4, .minor = 50, .platformId = 1}, ""},
      {{.major = 3, .minor = 51, .platformId = 2}, "Windows NT 3.51"},
      {{.major = 4, .minor = 0, .platformId = 2}, "Windows NT 4.0"},
      {{.major = 5, .minor = 0, .platformId = 2}, "Windows 2000"},
      {{.major = 5, .minor = 1, .platformId = 2}, "Windows XP"},
      {{.major = 5, .minor = 2, .platformId = 2}, "Windows Server 2003"},
      {{.major = 6, .minor = 0, .platformId = 2}, ""},
      {{.platformId = 7}, "Failed"},
  };
  for (const auto& [record, name] : cases) {
    machine.version().set(record);
    EXPECT_EQ(GetWindowsVersionName(), name);
  }
  machine.failAt("getVersionEx");
  EXPECT_EQ(GetWindowsVersionName(), "Windows 3.1");
}

}  // namespace
