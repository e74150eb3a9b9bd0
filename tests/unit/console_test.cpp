// The console's shell, and what its three scans share.
#include "console/modOS.h"
#include "console/rights.h"
#include "tests/unit/ConsoleTest.h"

using platform::Pointer;
using platform::memory::Ended;

namespace {

using Console = ConsoleTest;

TEST_F(Console, StartsAtTheRootAndAChosenDriveShowsTheWayToItsCurrentFolder) {
  EXPECT_EQ(form.Dir1.path(), "C:\\");
  machine.disk().addDrive('D', "BACKUP");
  machine.addFolder("D:\\Old\\Deep\\Below");
  machine.disk().setCurrentFolder("D:\\Old\\Deep");
  machine.disk().addDrive('E', "", false);
  form.Drive1.reload();
  EXPECT_EQ(form.Drive1.items(), (Paths{"c:", "d: [BACKUP]", "e:"}));
  form.Drive1.choose(1);
  std::string entries;
  for (const controls::DirEntry& entry : form.Dir1.entries()) entries += entry.text + '=' + entry.path + ' ';
  EXPECT_EQ(entries, "D:\\=D:\\ Old=D:\\Old Deep=D:\\Old\\Deep Below=D:\\Old\\Deep\\Below ");
  form.Drive1.choose(2);
  EXPECT_EQ(boxTexts(), Paths{"Run-time error '68':\r\n\r\nDevice unavailable"});
  form.Drive1.choose(0);
  EXPECT_EQ(form.Dir1.path(), "C:\\Program Files\\Scrubhaven") << "its text is not the root but \"c:\"";
}

TEST_F(Console, AbortHelpAndCloseActWhileAScanRunsAndToolsDoNot) {
  addFiles("C:\\J", {"a.tmp", "Sub\\b.tmp"});
  form.Picture1.click();
  const platform::ShellCommand web = machine.shell().commands().at(0);
  EXPECT_FALSE(web.verb || web.parameters || web.folder || web.showCommand != 0 || !web.file.starts_with("http://"));
  machine.whenServing([&] {
    form.cmdMRU.enable();
    EXPECT_EQ(press(form.cmdMRU), Paths{});
    form.cmdHelp.enable();
    form.cmdHelp.click();
    EXPECT_THROW(form.closeRequested(), Ended);
    form.cmdAbort.click();
  });
  EXPECT_EQ(scan({kTypeTmp}, "C:\\J"), Paths{"    Scan Aborted"});
  const platform::ShellCommand& help = machine.shell().commands().at(1);
  EXPECT_EQ(help.file, "C:\\Program Files\\Scrubhaven\\scrubhaven.chm");
  EXPECT_TRUE(help.verb == "Open" && help.parameters == "0" && help.folder == "0" && help.showCommand == 1);
  EXPECT_THROW(form.cmdExit.click(), Ended);
}

TEST_F(Console, NamesTheToolsThatWillNotWorkWithoutRights) {
  EXPECT_EQ(rightsNotice(), "");
  machine.environment().setAdministrator(false);
  EXPECT_EQ(rightsNotice(), "Without administrator rights: " + form.cmdIndex.caption() + ", " +
                                form.cmdPrefetch.caption() + ", " + form.cmdSwap.caption() + " and " +
                                form.cmdSysrestore.caption() + " will not work.");
}

TEST_F(Console, NamesTheWindowsVersion) {
  const auto name = [this](std::uint32_t family, std::uint32_t major, std::uint32_t minor, std::uint32_t build = 0) {
    machine.version().set({.major = major, .minor = minor, .build = build, .platformId = family});
    return GetWindowsVersionName() + '|';
  };
  EXPECT_EQ(name(1, 4, 0) + name(1, 4, 10, 0x040A0000 | 2222) + name(1, 4, 10, 0x040A0000 | 1998) + name(1, 4, 90),
            "Windows 95|Windows 98SE|Windows 98|Windows Me|");
  EXPECT_EQ(name(2, 3, 51) + name(2, 4, 1) + name(2, 5, 0) + name(2, 5, 1) + name(2, 5, 2) + name(2, 6, 0),
            "Windows NT 3.51|Windows NT 4.0|Windows 2000|Windows XP|Windows Server 2003||");
}

// ---- What the three scans share

class Pages : public ConsoleTest {
 protected:
  Pages() {
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
  EXPECT_EQ(shown(form),
            "ListView1 : Select_All- cmdInvert- Delete- optRecycle- optWipe- cmdSelectAll cmdZeroInvert cmdZeroDelete "
            "cmdSelect- cmdCacheInvert- cmdCleanCache- cmdCacheAbort ");
  const std::string junk = "ListView1 : Select_All cmdInvert Delete- optRecycle- optWipe- Label6 cmdCacheAbort ";
  const std::string zero = "ListView2 : cmdSelectAll cmdZeroInvert cmdZeroDelete- ";
  const std::string cache = "lvCache : cmdSelect cmdCacheInvert cmdCleanCache- lblStatus cmdCacheAbort ";
  const std::tuple<const char*, const char*, std::string> cases[] = {
      {"junk", "zero", zero + "cmdInvert- Delete- optRecycle- cmdSelect- Label6 cmdCacheAbort "},
      {"cache", "zero", zero + "optRecycle- cmdSelect- cmdCacheInvert- Label6 cmdCacheAbort "},
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
}

TEST_F(Pages, OnlyAbortActsDuringAScanWhichItEndsLikeItsNormalEnd) {
  const std::tuple<const char*, controls::ListView&, Paths, const char*> cases[] = {
      {"zero", form.ListView2, {"cmdAbort"}, " 0 Byte files found in "},
      {"junk", form.ListView1, {"cmdAbort", "cmdCacheAbort"}, " files found in "}};
  for (const auto& [page, list, usable, found] : cases) {
    SCOPED_TRACE(page);
    machine.whenServing([&] {
      EXPECT_EQ(usableCommands(), usable);
      EXPECT_EQ(machine.ui().pointer(), Pointer::kHourglass);
      EXPECT_TRUE(list.visible() && form.lblFile.visible() && !form.Frame1.enabled() && !form.Specials.enabled());
      machine.environment().advance(2500);
    });
    scanFor(form, page);
    EXPECT_EQ(form.Label6.caption(), std::string("Results: 3") + found + "2 seconds.") << "halves go to the even one";
    EXPECT_EQ(form.lblFile.caption(), "C:\\J\\Sub\\c.tmp");
    const auto state = [&] { return shown(form) + testing::PrintToString(usableCommands()); };
    const std::string atEnd = state();

    // After the first folder.
    machine.whenServing([&] { form.cmdAbort.click(); });
    machine.ui().onBox([&](const auto& box) { machine.environment().advance(box.title == "Scan Aborted" ? 3500 : 0); });
    EXPECT_THAT(scanFor(form, page), testing::Contains("    Scan Aborted"));
    EXPECT_EQ(textsOf(list), (Paths{"C:\\J\\a.tmp", "C:\\J\\b.tmp"}));
    EXPECT_EQ(form.Label6.caption(), std::string("Results: 2") + found + "4 seconds.") << "the box's time counts";
    EXPECT_EQ(state(), atEnd);
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
  const std::tuple<const char*, controls::ListView&, controls::FlatButton&, controls::FlatButton&,
                   controls::FlatButton&>
      cases[] = {{"junk", form.ListView1, form.Select_All, form.cmdInvert, form.Delete},
                 {"zero", form.ListView2, form.cmdSelectAll, form.cmdZeroInvert, form.cmdZeroDelete},
                 {"cache", form.lvCache, form.cmdSelect, form.cmdCacheInvert, form.cmdCleanCache}};
  for (const auto& [page, list, select, invert, erase] : cases) {
    SCOPED_TRACE(page);
    const auto after = [&](const std::function<void()>& act) {
      act();
      std::string text;
      for (std::size_t i = 0; i < list.rowCount(); ++i) text += list.ticked(i) ? 'x' : '-';
      // Only the junk list's ticks enable the choice of the way of deletion.
      EXPECT_TRUE(form.optRecycle.enabled() == form.Delete.enabled() &&
                  form.optWipe.enabled() == form.Delete.enabled());
      return text + (erase.enabled() ? " enabled " : " disabled ") + select.caption();
    };
    EXPECT_EQ(after([&] { scanFor(form, page); }), "--- disabled Select All");
    EXPECT_EQ(after([&] { select.click(); }), "xxx enabled Clear All");
    EXPECT_EQ(after([&] { list.clickTick(0); }), "-xx enabled Clear All");
    EXPECT_EQ(after([&] { invert.click(); }), "x-- enabled Select All") << "the caption follows the last row";
    EXPECT_EQ(after([&] { invert.click(); }), "-xx enabled Clear All");
    EXPECT_EQ(after([&] { press(erase); }), "-xx enabled Clear All") << "No is the default";
    EXPECT_EQ(after([&] { select.click(); }), "--- disabled Select All");
    erase.enable();
    EXPECT_EQ(press(erase), Paths{"Nothing Selected"});
    list.clear();
    EXPECT_EQ(press(erase), Paths{"Nothing to Delete"});
    select.show();
    EXPECT_EQ(press(select), Paths{&list == &form.lvCache ? "Nothing to Select" : "Nothing to select!"});
  }
}

}  // namespace
