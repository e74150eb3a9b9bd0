#include "tests/unit/ConsoleTest.h"

#include <algorithm>

#include "finder/frmChoose.h"

using platform::kHidden;
using platform::kSystem;
using platform::Pointer;

namespace {

using JunkScan = ConsoleTest;

TEST_F(JunkScan, SizesRoundToEvenAndExactly1024KeepsTheTextBefore) {
  int number = 0;
  for (const std::uint64_t size : {1024, 512, 1536, 2560, 1024, 3584, 0}) {
    machine.addSizedFile("C:\\J\\" + std::to_string(++number) + ".tmp", size);
  }
  machine.addSizedFile("C:\\J\\Sub\\8.tmp", 1024);
  scan({kTypeTmp}, "C:\\J");
  EXPECT_EQ(rows(), (Paths{"C:\\J\\1.tmp|0", "C:\\J\\2.tmp|512 bytes", "C:\\J\\3.tmp|2 Kb", "C:\\J\\4.tmp|2 Kb",
                           "C:\\J\\5.tmp|2 Kb", "C:\\J\\6.tmp|4 Kb", "C:\\J\\7.tmp|0 bytes", "C:\\J\\Sub\\8.tmp|0"}));
  EXPECT_EQ(form.ListView1.toolTip(), "C:\\J\\Sub\\8.tmp");
}

TEST_F(JunkScan, ProtectedNamesFollowTheirOwnCaseRules) {
  addFiles("C:\\P", {"ntuser.bak", "Data.Bak", "OPA11.bak", "SAM.bak", "default.bak", "opera6.adr.bak", "MYOB.bak",
                     "User.bak", "own.bak"});
  machine.addFile("C:\\P\\Q\\sam.BAK", "x");
  scan({kTypeBak}, "C:\\P");
  EXPECT_EQ(paths(), (Paths{"C:\\P\\MYOB.bak", "C:\\P\\own.bak", "C:\\P\\User.bak", "C:\\P\\Q\\sam.BAK"}));
}

TEST_F(JunkScan, FoldersThatAreNotSearched) {
  machine.addFile("C:\\W\\HiddenOnly\\a.tmp", "x");
  machine.addFile("C:\\W\\Both\\b.tmp", "x");
  machine.addFile("C:\\Elsewhere\\c.tmp", "x");
  machine.addFile("C:\\W\\NoAttributes\\d.tmp", "x");
  machine.disk().setAttributes("C:\\W\\HiddenOnly", kHidden);
  machine.disk().setAttributes("C:\\W\\Both", kHidden | kSystem);
  machine.disk().addLink("C:\\W\\Link", "C:\\Elsewhere");
  // That of "NoAttributes", the last of the entries.
  machine.failAt("getFileAttributes", 4);
  scan({kTypeTmp}, "C:\\W");
  EXPECT_EQ(paths(), Paths{"C:\\W\\HiddenOnly\\a.tmp"});
}

TEST_F(JunkScan, PatternsOfSpecialTypesAndOwnExtensions) {
  addFiles("C:\\T", {"Thumbs.db", "other.db", "mscreate.dir", "x.dir", "myTwain1.mtx", "other.mtx", "~saved.txt",
                     "photo.gif", "photo. jpg", "~twice.001", "long name.gifted", "sub.txt"});
  machine.disk().setShortName("C:\\T\\long name.gifted", "LONGNA~1.GIF");
  form.CustomExtensions = {"gif", "  ", " jpg", "..\\x", "001"};
  scan({kTypeTilde, kTypeDir, kTypeMtx, kTypeDb}, "C:\\T");
  EXPECT_EQ(paths(), (Paths{"C:\\T\\~saved.txt", "C:\\T\\~twice.001", "C:\\T\\mscreate.dir", "C:\\T\\myTwain1.mtx",
                            "C:\\T\\Thumbs.db", "C:\\T\\long name.gifted", "C:\\T\\photo.gif", "C:\\T\\photo. jpg",
                            "C:\\T\\~twice.001"}))
      << "short names match too, and a file of two types is listed twice";
}

TEST_F(JunkScan, WithoutTypesOrFilesItSaysSoAndLeavesNoDeleteOverAnEmptyList) {
  machine.addFile("C:\\J\\a.tmp", "x");
  machine.addFolder("C:\\Empty");
  scan({kTypeTmp}, "C:\\J");
  form.ListView1.clickTick(0);
  ASSERT_TRUE(form.Delete.enabled());
  scan({}, "C:\\Empty");
  EXPECT_EQ(lastBox(), "No files of the selected type found.");
  EXPECT_TRUE(form.Scan.acceptsInput() && !form.Select_All.enabled());
  form.Check[kTypeTmp].click();
  form.Scan.click();
  EXPECT_EQ(lastBox(), "No file types selected.");
  EXPECT_TRUE(form.lblFile.visible() && form.Scan.acceptsInput());
  EXPECT_FALSE(form.Delete.enabled() || form.optRecycle.visible() || form.optWipe.visible());
  form.Select_All.enable();
  form.Select_All.click();
  EXPECT_EQ(lastBox(), "Nothing to select!");
}

TEST_F(JunkScan, BusyStateLetsOnlyAbortActAndEndsAsItBegan) {
  machine.addFile("C:\\J\\a.tmp", "x");
  machine.whenServing([&] {
    EXPECT_EQ(usableCommands(), (Paths{"cmdAbort", "cmdCacheAbort"}));
    EXPECT_TRUE(form.lblFile.visible());
    machine.environment().advance(2500);
  });
  scan({kTypeTmp}, "C:\\J");
  EXPECT_EQ(form.Label6.caption(), "Results: 1 files found in 2 seconds.");
  EXPECT_EQ(machine.ui().pointer(), Pointer::kDefault);
  EXPECT_FALSE(form.lblFile.visible() || form.lblStatus.visible() || form.cmdAbort.visible());
  EXPECT_THAT(usableCommands(),
              testing::IsSupersetOf({"Scan", "Select_All", "cmdInvert", "Check0", "cmdExit", "Invert"}));
  EXPECT_TRUE(form.optRecycle.visible() && !form.optRecycle.enabled() && !form.Delete.enabled());
}

TEST_F(JunkScan, AbortStopsBeforeDeeperFoldersAndCountsTheTimeOfTheBox) {
  for (int i = 0; i < 5; ++i) machine.addFile("C:\\J\\F" + std::to_string(i) + "\\a.tmp", "x");
  machine.addFile("C:\\J\\top.tmp", "x");
  int served = 0;
  machine.ui().everyServing([&] {
    if (++served == 9) form.cmdAbort.click();  // behind the 8 entries of C:\J, with "." and ".."
  });
  machine.ui().onBox([&](const platform::memory::ShownBox& box) {
    EXPECT_EQ(box.text + box.title, "    Scan AbortedScan Aborted");
    EXPECT_FALSE(form.Label6.visible());
    machine.environment().advance(3500);
  });
  scan({kTypeTmp}, "C:\\J");
  EXPECT_EQ(paths(), Paths{"C:\\J\\top.tmp"});
  EXPECT_EQ(machine.boxes().size(), 1U);
  EXPECT_EQ(form.Label6.caption(), "Results: 1 files found in 4 seconds.");
  EXPECT_TRUE(form.Scan.acceptsInput() && form.Select_All.enabled() && form.cmdInvert.enabled());
  EXPECT_TRUE(form.optRecycle.visible() && !form.cmdSelect.visible() && !form.cmdAbort.visible());
  EXPECT_FALSE(form.Delete.enabled());
}

TEST_F(JunkScan, BoxesSayClearAllWhenAllAreTickedRowsWhenAnyIs) {
  form.Select_Check.click();
  EXPECT_TRUE(std::ranges::all_of(form.Check, &controls::CheckBox::ticked));
  EXPECT_EQ(form.Select_Check.caption(), "Clear All");
  form.Check[5].click();
  EXPECT_EQ(form.Select_Check.caption(), "Select All");
  form.Invert.click();
  EXPECT_EQ(std::ranges::count_if(form.Check, &controls::CheckBox::ticked), 1);

  addFiles("C:\\J", {"a.temp", "b.temp", "c.temp"});
  scan({}, "C:\\J");
  form.Select_All.click();
  EXPECT_EQ(form.ListView1.tickedCount(), 3U);
  EXPECT_EQ(form.Select_All.caption(), "Clear All");
  EXPECT_TRUE(form.Delete.enabled() && form.optRecycle.enabled());
  form.ListView1.clickTick(0);
  EXPECT_EQ(form.Select_All.caption(), "Clear All");
  form.cmdInvert.click();
  EXPECT_TRUE(form.ListView1.ticked(0) && !form.ListView1.ticked(2));
  EXPECT_EQ(form.Select_All.caption(), "Select All") << "follows the last row";
  EXPECT_TRUE(form.Delete.enabled() && form.optWipe.enabled());
  form.Select_All.click();
  form.Select_All.click();
  EXPECT_EQ(form.ListView1.tickedCount(), 0U);
  EXPECT_FALSE(form.Delete.enabled() || form.optRecycle.enabled() || form.optWipe.enabled());
}

TEST_F(JunkScan, OwnExtensionsAreKeptWhenAllBoxesAreEmptied) {
  const auto choose = [this](std::initializer_list<const char*> texts, bool accept) {
    machine.ui().whenModal([&, texts, accept](controls::Form& shown) {
      auto& window = dynamic_cast<frmChoose&>(shown);
      EXPECT_EQ(window.caption(), "Custom File Extensions");
      EXPECT_FALSE(form.cmdChoose.acceptsInput()) << "the console is covered";
      std::size_t i = 0;
      for (const char* text : texts) window.txtChoose[i++].type(text);
      (accept ? window.cmdAccept : window.cmdCancel).click();
    });
    form.cmdChoose.click();
  };
  using Extensions = std::array<std::string, 5>;
  choose({"jpg", "", "001"}, true);
  EXPECT_EQ(form.CustomExtensions, (Extensions{"jpg", "", "001", "", ""}));
  choose({"", "", ""}, true);
  choose({"gif"}, false);
  EXPECT_EQ(form.CustomExtensions, (Extensions{"jpg", "", "001", "", ""}));
  choose({"", "png"}, true);
  EXPECT_EQ(form.CustomExtensions, (Extensions{"", "png", "001", "", ""}));
}

TEST_F(JunkScan, SumOfSizesCountsLargeFilesWrongly) {
  machine.addSizedFile("C:\\L\\a.tmp", 100);
  machine.addSizedFile("C:\\L\\b.tmp", 0x80000000ULL);
  machine.addSizedFile("C:\\L\\c.tmp", 0x300000005ULL);
  finder::ScanPatterns patterns;
  patterns[3] = "*.tmp";
  std::string path = "C:\\L";
  std::int32_t counters[3] = {};
  EXPECT_EQ(form.FindFilesAPI(path, patterns, counters[0], counters[1], counters[2]), 100 - 2147483648LL + (5 - 3));
  EXPECT_EQ(path, "C:\\L\\");
  EXPECT_EQ(counters[0], 3) << "files";
  EXPECT_EQ(counters[2], 5) << "last length";
}

// Every platform call of a scan fails once, one after the other: the scan must end, and list nothing that is not there.
TEST_F(JunkScan, SurvivesAnyFailingCall) {
  addFiles("C:\\J", {"a.tmp", "Sub\\b.tmp"});
  machine.addFolder("C:\\J\\no file.tmp");
  withEachCallFailing({"findFirstFile", "findNextFile", "findClose", "getFileAttributes", "fileLength", "folderExists"},
                      [&](const std::string& what) {
                        scan({kTypeTmp}, "C:\\J");
                        EXPECT_TRUE(form.Scan.acceptsInput()) << what;
                        for (const std::string& path : paths()) EXPECT_TRUE(machine.contents(path)) << what << path;
                      });
  EXPECT_EQ(form.ListView1.rowCount(), 2U);
}

TEST_F(JunkScan, StaysLinearAtAHundredThousandRows) {
  for (int i = 0; i < 100000; ++i) form.ListView1.add("C:\\F\\" + std::to_string(i) + ".tmp", {"1 bytes"});
  form.Select_All.enable();
  form.cmdInvert.enable();
  form.Select_All.click();
  form.cmdInvert.click();
  EXPECT_EQ(form.ListView1.tickedCount(), 0U);
  form.Select_All.click();
  for (std::size_t i = form.ListView1.rowCount(); i-- > 0;) form.ListView1.remove(i);
  EXPECT_TRUE(form.ListView1.empty());
  EXPECT_FALSE(form.Delete.enabled());
}

}  // namespace
