// The console's status bar, the text of an empty list, and the names of the commands.
#include "tests/unit/ConsoleTest.h"

namespace {

class Status : public ConsoleTest {
 protected:
  // The status bar: "text|pane|pane", and "|..." while the bar moves.
  std::string shown() {
    form.prepareToShow();
    std::string all = form.Status.text();
    for (const std::string& pane : form.Status.panes()) all += '|' + pane;
    return all + (form.Status.moving() ? "|..." : "");
  }

  std::string emptyText(const controls::ListView& list) {
    form.prepareToShow();
    return list.emptyText();
  }
};

TEST_F(Status, NamesTheToolsThatNeedRightsUntilTheFirstScan) {
  machine.environment().setAdministrator(false);
  form.load();
  EXPECT_TRUE(shown().starts_with("Without administrator rights: ")) << shown();
  addFiles("C:\\J", {"a.tmp"});
  scan({kTypeTmp}, "C:\\J");
  EXPECT_TRUE(shown().starts_with("Folder to search: C:\\J")) << shown();
}

TEST_F(Status, TellsWhatIsSearchedFoundAndTicked) {
  addFiles("C:\\J", {"small.tmp"}, std::string(1000, 'x'));
  addFiles("C:\\J\\Sub", {"large.tmp"}, std::string(3000000, 'x'));
  addFiles("C:\\J", {"other.txt"});
  EXPECT_EQ(shown(), "Folder to search: C:\\");
  form.Status.setHinted(&form.Scan);
  EXPECT_EQ(shown(), "Scan Selected Drive and Folders");
  form.Status.setHinted(&form.Label4);
  EXPECT_EQ(shown(), "Folder to search: C:\\") << "it has no tooltip";

  machine.whenServing([&] { EXPECT_EQ(shown(), "Searching C:\\J|1 folder, 2 files, 1 found|..."); });
  scan({kTypeTmp}, "C:\\J");
  EXPECT_EQ(shown(), "Folder to search: C:\\J|2 rows");
  form.ListView1.clickTick(0);
  EXPECT_EQ(shown(), "Folder to search: C:\\J|2 rows|1 ticked, 1,000 bytes");
  form.Select_All.click();
  form.cmdInvert.click();
  EXPECT_EQ(shown(), "Folder to search: C:\\J|2 rows|2 ticked, 2.9 MB");
  press(form.Delete, {platform::Answer::kYes});
  EXPECT_EQ(shown(), "Folder to search: C:\\J");
  EXPECT_EQ(form.ListView1.tickedWeight(), 0);
  EXPECT_EQ(emptyText(form.ListView1), "None of the files found is left.");
}

TEST_F(Status, OfAnAbortedScanSaysThatTheListIsIncompleteUntilTheNextOne) {
  addFiles("C:\\J", {"a.tmp", "Sub\\b.tmp"});
  machine.whenServing([&] { form.cmdAbort.click(); });
  scan({kTypeTmp}, "C:\\J");
  EXPECT_EQ(shown(), "Folder to search: C:\\J|1 row, list incomplete");
  EXPECT_EQ(form.Label6.caption(), "Results: 1 files found in 0 seconds.");
  form.Select_All.click();
  machine.whenServing([&] { EXPECT_EQ(form.Label6.caption(), "") << "it counted other rows"; });
  scan({}, "C:\\J");
  form.ListView1.clickTick(1);
  EXPECT_EQ(shown(), "Folder to search: C:\\J|2 rows|1 ticked, 1 byte");
}

TEST_F(Status, AnEmptyListSaysWhy) {
  const std::string start = "Choose a folder and file types, then press the magnifier to scan.";
  EXPECT_EQ(emptyText(form.ListView1), start);
  machine.addFolder("C:\\J");
  machine.whenServing([&] { EXPECT_EQ(emptyText(form.ListView1), "Searching ..."); });
  scan({kTypeTmp}, "C:\\J");
  machine.whenServing([] {});
  EXPECT_EQ(emptyText(form.ListView1), "No files of the chosen types were found in C:\\J.");
  press(form.cmdZero);
  EXPECT_EQ(emptyText(form.ListView2), "No empty files were found in C:\\J.");
  form.cmdCacheAbort.click();
  press(form.cmdZero);
  EXPECT_EQ(emptyText(form.ListView2), "The scan was aborted before it found anything.");
  press(form.Del_Cache);
  EXPECT_EQ(emptyText(form.lvCache), "The Internet cache is empty.");
  press(form.Del_Temps, {platform::Answer::kOk});
  EXPECT_EQ(emptyText(form.ListView1), start) << "the scan is not the list's any more";
}

}  // namespace
