// The console's shell, and what its three scans share.
#include <algorithm>

#include "console/modOS.h"
#include "tests/unit/ConsoleTest.h"

using platform::Pointer;
using platform::memory::Ended;

namespace {

class Console : public ConsoleTest {};

TEST_F(Console, StartsAtTheRootOfCWhateverTheCurrentFolderIs) {
  EXPECT_EQ(machine.files().currentFolder(), "C:\\Program Files\\Scrubhaven");
  EXPECT_EQ(form.Dir1.path(), "C:\\");
  EXPECT_TRUE(form.optRecycle.ticked() && !form.optWipe.ticked());

  machine.addFile("C:\\empty.tmp");
  machine.failAt("subfolders");
  frmFind fresh;
  fresh.load();
  EXPECT_EQ(boxTexts(), Paths{"Run-time error '68':\r\n\r\nDevice unavailable"});
  fresh.Check[kTypeTmp].setTicked(true);
  press(fresh.Scan);
  press(fresh.cmdZero);
  EXPECT_TRUE(fresh.ListView1.empty() && fresh.ListView2.empty()) << "nowhere to start";
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
  EXPECT_EQ(form.Drive1.drive(), "c:");
  form.Drive1.choose(1);
  Paths entries;
  for (const controls::DirEntry& entry : form.Dir1.entries()) {
    entries.push_back(std::to_string(entry.depth) + entry.text + '=' + entry.path);
  }
  EXPECT_EQ(entries, (Paths{"0D:\\=D:\\", "1Old=D:\\Old", "2Deep=D:\\Old\\Deep", "3Below=D:\\Old\\Deep\\Below"}));
  EXPECT_EQ(form.Dir1.current(), 2U);
  form.Dir1.open(1);
  form.Dir1.open(9);
  EXPECT_EQ(machine.files().currentFolderOf('d').value(), "D:\\Old\\Deep") << "the program's own folder stays";

  machine.ui().setPointer(Pointer::kHourglass);
  form.Drive1.choose(2);
  EXPECT_EQ(form.Dir1.path(), "D:\\Old");
  machine.failAt("subfolders");
  form.Dir1.open(0);
  EXPECT_EQ(boxTexts(), Paths(2, "Run-time error '68':\r\n\r\nDevice unavailable"));
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
  EXPECT_TRUE(web.file.starts_with("http://"));
}

TEST_F(Console, AbortHelpAndCloseActWhileAScanRunsAndToolsDoNot) {
  addFiles("C:\\J", {"a.tmp", "Sub\\b.tmp"});
  machine.whenServing([&] {
    EXPECT_EQ(machine.ui().pointer(), Pointer::kHourglass);
    form.cmdAbort.pointerEnters();
    EXPECT_EQ(machine.ui().pointer(), Pointer::kDefault);
    form.cmdMRU.enable();
    EXPECT_EQ(press(form.cmdMRU), Paths{});
    form.cmdHelp.enable();
    form.cmdHelp.click();
    EXPECT_EQ(machine.shell().commands().size(), 1U);
    EXPECT_THROW(form.closeRequested(), Ended);
    ASSERT_EQ(form.cancelButton(), &form.cmdAbort) << "Esc";
    form.cmdAbort.click();
  });
  EXPECT_EQ(scan({kTypeTmp}, "C:\\J"), Paths{"    Scan Aborted"});
  EXPECT_EQ(press(form.cmdMRU).size(), 1U);
  EXPECT_THROW(form.cmdExit.click(), Ended);
}

TEST_F(Console, NamesTheWindowsVersion) {
  const auto name = [this](std::uint32_t family, std::uint32_t major, std::uint32_t minor, std::uint32_t build = 0) {
    machine.version().set({.major = major, .minor = minor, .build = build, .platformId = family});
    return GetWindowsVersionName() + '|';
  };
  EXPECT_EQ(name(1, 4, 0) + name(1, 4, 10, 0x040A0000 | 2222) + name(1, 4, 10, 0x040A0000 | 1998) + name(1, 4, 90) +
                name(1, 4, 50),
            "Windows 95|Windows 98SE|Windows 98|Windows Me||");
  EXPECT_EQ(name(2, 3, 51) + name(2, 4, 1) + name(2, 5, 0) + name(2, 5, 1) + name(2, 5, 2) + name(2, 5, 3) +
                name(2, 6, 0) + name(7, 5, 1),
            "Windows NT 3.51|Windows NT 4.0|Windows 2000|Windows XP|Windows Server 2003|||Failed|");
  machine.failAt("getVersionEx");
  EXPECT_EQ(GetWindowsVersionName(), "Windows 3.1");
}

// ---- What the three scans share

class Pages : public ConsoleTest {
 protected:
  void SetUp() override {
    ConsoleTest::SetUp();
    for (const char* name : {"a.tmp", "b.tmp", "Sub\\c.tmp"}) {
      machine.addFile(std::string("C:\\J\\") + name);
      machine.urlCache().add({.url = name, .localFile = name});
    }
  }

  Paths scanFor(frmFind& console, const std::string& page) {
    if (page == "cache") return press(console.Del_Cache);
    EXPECT_TRUE(console.Dir1.setPath("C:\\J"));
    if (page == "zero") return press(console.cmdZero);
    // Behind the cache page only a click on a box enables the scan.
    console.Check[0].click();
    console.Check[kTypeTmp].setTicked(true);
    return press(console.Scan);
  }

  // The lists that are visible, the one in front first, and the other visible controls below the lists, those that are
  // disabled with "-". Labels of commands are left out.
  static std::string shown(frmFind& console) {
    std::string lists;
    std::string others;
    for (const controls::Control* control : controls::tabOrder(console.layout())) {
      const bool isBelow = control->frame() == &console.Frame2 || control->frame() == &console.Frame3;
      if (!isBelow || !control->visible() || control->name().ends_with("Commands")) continue;
      (control->kind() == controls::Kind::kListView ? lists : others) +=
          control->name() + (control->enabled() ? " " : "- ");
    }
    return lists + ": " + others;
  }
};

TEST_F(Pages, FollowEachOtherInEveryOrder) {
  const std::string junk = "ListView1 : Select_All cmdInvert Delete- optRecycle- optWipe- cmdCacheAbort Label6 ";
  const std::string zero = "optRecycle- cmdSelectAll cmdZeroInvert cmdZeroDelete- cmdSelect- ";
  const std::string cache = "lvCache : cmdSelect cmdCacheInvert cmdCleanCache- cmdCacheAbort lblStatus ";
  const std::tuple<const char*, const char*, std::string> cases[] = {
      {"junk", "zero", "ListView2 : cmdInvert- Delete- " + zero + "cmdCacheAbort Label6 "},
      {"cache", "zero", "ListView2 : " + zero + "cmdCacheInvert- cmdCacheAbort Label6 "},
      {"zero", "junk", junk},
      {"cache", "junk", junk},
      {"junk", "cache", cache},
      {"zero", "cache", cache},
  };
  for (const auto& [first, then, expected] : cases) {
    frmFind console;
    console.load();
    scanFor(console, first);
    console.ListView1.clickTick(0);
    scanFor(console, then);
    EXPECT_EQ(shown(console), expected) << first << ' ' << then;
    EXPECT_EQ(console.Scan.acceptsInput(), then != std::string("cache"));
  }
  // Two at once: the temporary folders leave the zero-byte list, an empty cache leaves the junk list.
  scanFor(form, "zero");
  EXPECT_EQ(press(form.Del_Temps, {platform::Answer::kOk}).size(), 2U);
  EXPECT_EQ(shown(form).substr(0, 22), "ListView1 ListView2 : ");
  scanFor(form, "junk");
  machine.failAt("findFirstUrlCacheEntry", 2);
  EXPECT_EQ(press(form.Del_Cache), Paths{"No cache items found."});
  EXPECT_EQ(shown(form).substr(0, 20), "lvCache ListView1 : ");
}

TEST_F(Pages, OnlyAbortActsDuringAScanAndAllToolsDoAgainBehindIt) {
  for (controls::Control* command : {&form.cmdInvert, &form.cmdCacheInvert, &form.Delete}) command->enable();
  const auto tools = [this] {
    Paths names = usableCommands();
    std::erase_if(names, [this](const std::string& name) {
      return std::ranges::any_of(form.controls(),
                                 [&](auto* one) { return one->name() == name && one->frame() == &form.Frame2; });
    });
    return names;
  };
  const Paths before = tools();
  const std::tuple<const char*, controls::ListView&, Paths, const char*> cases[] = {
      {"zero", form.ListView2, {"cmdAbort"}, "Results: 3 0 Byte files found in 2 seconds."},
      {"junk", form.ListView1, {"cmdAbort", "cmdCacheAbort"}, "Results: 3 files found in 2 seconds."}};
  for (const auto& [page, list, usable, line] : cases) {
    SCOPED_TRACE(page);
    machine.whenServing([&] {
      EXPECT_EQ(usableCommands(), usable);
      EXPECT_EQ(machine.ui().pointer(), Pointer::kHourglass);
      EXPECT_TRUE(list.visible() && form.lblFile.visible() && !form.Frame1.enabled() && !form.Specials.enabled());
      EXPECT_EQ(shown(form).find(list.name() + " :"), 0U);
      machine.environment().advance(2500);
    });
    scanFor(form, page);
    EXPECT_EQ(form.Label6.caption(), line) << "halves go to the even second";
    EXPECT_EQ(form.lblFile.caption(), "C:\\J\\Sub\\c.tmp");
    EXPECT_TRUE(form.Label6.visible() && !form.lblFile.visible());
    EXPECT_EQ(machine.ui().pointer(), Pointer::kDefault);
    EXPECT_EQ(tools(), before);
  }
}

// The abort comes with the first entry of the subfolder, behind the five of C:\J with "." and "..".
TEST_F(Pages, AnAbortEndsAScanAndTheTimeOfTheBoxCounts) {
  const std::tuple<const char*, controls::ListView&, int, const char*> cases[] = {
      {"junk", form.ListView1, 9, "Results: 2 files found in 4 seconds."},
      {"zero", form.ListView2, 7, "Results: 2 0 Byte files found in 4 seconds."}};
  int served = 0;
  machine.ui().everyServing([&] {
    if (++served == 6) form.cmdAbort.click();
  });
  machine.ui().onBox([&](const auto& box) {
    if (box.title != "Scan Aborted") return;
    EXPECT_FALSE(form.Label6.visible() || form.AbortRequested);
    machine.environment().advance(3500);
  });
  for (const auto& [page, list, times, line] : cases) {
    SCOPED_TRACE(page);
    served = 0;
    form.Label6.hide();
    EXPECT_THAT(scanFor(form, page), testing::Contains("    Scan Aborted"));
    EXPECT_EQ(pathsOf(list), (Paths{"C:\\J\\a.tmp", "C:\\J\\b.tmp"}));
    EXPECT_EQ(served, times) << "no further folder";
    EXPECT_EQ(form.Label6.caption(), line);
    EXPECT_EQ(machine.ui().pointer(), Pointer::kDefault);
    const std::string aborted = shown(form);
    const Paths usable = usableCommands();
    scanFor(form, page);
    EXPECT_EQ(list.rowCount(), 3U);
    EXPECT_EQ(shown(form), aborted) << "an abort leaves the console as a normal end does";
    EXPECT_EQ(usableCommands(), usable);
  }
}

TEST_F(Pages, AnIdleAbortStaysPendingForTheNextScanWhicheverItIs) {
  const std::tuple<const char*, controls::ListView&, std::size_t> cases[] = {
      {"junk", form.ListView1, 0}, {"zero", form.ListView2, 0}, {"cache", form.lvCache, 2}};
  for (const auto& [page, list, rows] : cases) {
    SCOPED_TRACE(page);
    form.cmdCacheAbort.click();
    EXPECT_THAT(scanFor(form, page), testing::Contains("    Scan Aborted"));
    EXPECT_EQ(list.rowCount(), rows);
    EXPECT_THAT(scanFor(form, page), testing::Not(testing::Contains("    Scan Aborted")));
    EXPECT_EQ(list.rowCount(), 3U) << "the second scan is a whole one";
  }
}

// The commands of the three lists behave alike.
TEST_F(Pages, TicksEnableTheCommandsAndTheCaptionFollows) {
  struct ListCase {
    const char* page;
    controls::ListView& list;
    controls::FlatButton& select;
    controls::FlatButton& invert;
    controls::FlatButton& erase;
  };
  ListCase cases[] = {{"junk", form.ListView1, form.Select_All, form.cmdInvert, form.Delete},
                      {"zero", form.ListView2, form.cmdSelectAll, form.cmdZeroInvert, form.cmdZeroDelete},
                      {"cache", form.lvCache, form.cmdSelect, form.cmdCacheInvert, form.cmdCleanCache}};
  for (ListCase& one : cases) {
    SCOPED_TRACE(one.page);
    const bool isCache = &one.list == &form.lvCache;
    const auto state = [&] {
      std::string text;
      for (std::size_t i = 0; i < one.list.rowCount(); ++i) text += one.list.ticked(i) ? 'x' : '-';
      // Only the junk list's ticks enable the choice of the way of deletion.
      EXPECT_TRUE(form.optRecycle.enabled() == form.Delete.enabled() &&
                  form.optWipe.enabled() == form.Delete.enabled());
      return text + (one.erase.enabled() ? " enabled " : " disabled ") + one.select.caption();
    };
    scanFor(form, one.page);
    EXPECT_EQ(state(), "--- disabled Select All");
    for (controls::Control* choice : {&form.optRecycle, &form.optWipe}) choice->hide();
    EXPECT_EQ(press(one.select), Paths{});
    EXPECT_TRUE(form.optRecycle.visible() == !isCache && form.optWipe.visible() == (&one.list == &form.ListView1));
    EXPECT_EQ(state(), "xxx enabled Clear All");
    one.list.clickTick(0);
    EXPECT_EQ(state(), "-xx enabled Clear All");
    one.invert.click();
    EXPECT_EQ(state(), "x-- enabled Select All") << "the caption follows the last row";
    one.invert.click();
    EXPECT_EQ(state(), "-xx enabled Clear All");
    EXPECT_EQ(press(one.erase), Paths{isCache ? "Delete Selected Cache Items?" : "Confirm file deletion?"})
        << "No is the default";
    EXPECT_EQ(state(), "-xx enabled Clear All");
    one.select.show();
    one.select.click();
    EXPECT_EQ(state(), "--- disabled Select All");
    one.list.clickTick(2);
    EXPECT_EQ(state(), "--x enabled Clear All");
    one.list.clickTick(2);
    one.erase.enable();
    EXPECT_EQ(press(one.erase), Paths{"Nothing Selected"});
    one.list.clear();
    EXPECT_EQ(press(one.erase), Paths{"Nothing to Delete"});
    one.erase.disable();
    one.select.show();
    EXPECT_EQ(press(one.select), Paths{isCache ? "Nothing to Select" : "Nothing to select!"});
    EXPECT_EQ(state(), " disabled Select All");
  }
  EXPECT_EQ(machine.filesBelow("C:\\J").size() + machine.urlCache().urls().size(), 6U);
}

}  // namespace
