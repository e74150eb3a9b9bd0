// Junk scans in the real window, over real files.
#include <algorithm>
#include <chrono>
#include <cstdio>

#include "tests/desktop/ConsoleTest.h"

namespace desktop {
namespace {

// Rows without their ticks, by path: the disk decides in which order it gives its files.
std::vector<Row> sorted(std::vector<Row> rows) {
  std::ranges::sort(rows, {}, &Row::path);
  return rows;
}

TEST_F(ConsoleTest, AScanListsFilesWithTheirSizesAndLeavesProtectedOnes) {
  const std::string kb = make("sizes\\1536.bak", 1536);
  const std::string even = make("sizes\\2560.bak", 2560);
  const std::string bytes = make("sizes\\512.bak", 512);
  const std::string edge = make("edge\\1024.bak", 1024);
  const std::string lower = make("names\\sam.BAK", 10);
  const std::string never = make("names\\MYOB.bak", 11);
  make("names\\ntuser.bak", 12);
  make("protected\\SAM.bak", 13);
  make("names\\letter.txt", 14);
  make("hidden\\buried.bak", 15);
  setAttributes("C:\\desktop\\hidden", FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM);

  scan(".bak", 6);
  const std::vector<Row> expected = {{edge, "0"},  {never, "11 bytes"}, {lower, "10 bytes"},
                                     {kb, "2 Kb"}, {even, "2 Kb"},      {bytes, "512 bytes"}};
  EXPECT_EQ(sorted(junk().rows()), sorted(expected));

  const Window window = console();
  EXPECT_TRUE(window.button("Scan").enabled());
  EXPECT_FALSE(window.button("Abort Scan").visible());
  EXPECT_TRUE(window.buttonAfter("Junk files:", "Select All").enabled());
  EXPECT_FALSE(window.button("Delete Files").enabled());
  EXPECT_TRUE(window.checkBox("Shred Files?").visible());
  EXPECT_FALSE(window.checkBox("Shred Files?").enabled());

  // The newest row first, then whatever row was clicked.
  const List list = junk();
  EXPECT_EQ(window.toolTipOf(list), list.cell(list.rowCount() - 1, 0));
  list.clickText(0);
  waitUntil("the tooltip of the first row", [&] { return window.toolTipOf(list) == list.cell(0, 0); });
}

TEST_F(ConsoleTest, ThumbnailFilesAreFoundByTheirTypeAlone) {
  const std::string thumbs = make("Thumbs.db", 3000);
  make("album.db", 3000);
  scan(".db", 1);
  EXPECT_EQ(junk().rows(), (std::vector<Row>{{thumbs, "3 Kb"}}));
}

TEST_F(ConsoleTest, ATypedExtensionIsSearched) {
  const std::string numbered = make("disk.001", 100);
  const std::string picture = make("holiday.jpg", 200);
  make("disk.002", 100);

  console().button("Custom Ext.").click();
  const Window choose = program().window("Custom File Extensions");
  typeText("001");
  pressKey(VK_TAB);
  pressKey(VK_TAB);
  typeText("jpg");
  const std::vector<Control> boxes = choose.textBoxes();
  ASSERT_EQ(boxes.size(), 5u);
  waitUntil("the typed texts", [&] { return boxes[0].text() == "001" && boxes[2].text() == "jpg"; });
  choose.button("Accept").click();
  waitUntil("the console to take input again", [&] { return console().takesInput(); });

  openFolder();
  console().button("Scan").click();
  waitForResults(2);
  EXPECT_EQ(sorted(junk().rows()), (std::vector<Row>{{numbered, "100 bytes"}, {picture, "200 bytes"}}));

  // What was accepted is still there, and Cancel leaves it.
  console().button("Custom Ext.").click();
  const Window again = program().window("Custom File Extensions");
  EXPECT_EQ(again.textBoxes().at(2).text(), "jpg");
  again.button("Cancel").click();
  waitUntil("the console to take input again", [&] { return console().takesInput(); });
}

TEST_F(ConsoleTest, AScanWithoutTypesOrWithoutMatchesSaysSo) {
  openFolder();
  console().button("Scan").click();
  const Box nothingChosen = program().box("Scrubhaven Pro");
  EXPECT_EQ(nothingChosen.message(), "No file types selected.");
  nothingChosen.press("OK");

  tick(".bak");
  console().button("Scan").click();
  const Box nothingFound = program().box("Scrubhaven Pro");
  EXPECT_EQ(nothingFound.message(), "No files of the selected type found.");
  nothingFound.press("OK");
  waitForResults(0);
  EXPECT_FALSE(console().checkBox("Delete to Recycle Bin").visible());
  EXPECT_FALSE(console().checkBox("Shred Files?").visible());
}

TEST_F(ConsoleTest, SelectAllAndInvertTickRowsAndBoxes) {
  for (const char* name : {"a.bak", "b.bak", "c.bak"}) make(name, 10);
  scan(".bak", 3);
  const List list = junk();
  const Control toggle = console().buttonAfter("Junk files:", "Select All");
  const auto ticks = [&list] { return std::vector{list.ticked(0), list.ticked(1), list.ticked(2)}; };

  toggle.click();
  waitUntil("Clear All", [&toggle] { return toggle.text() == "Clear All"; });
  EXPECT_EQ(ticks(), (std::vector{true, true, true}));
  EXPECT_TRUE(console().button("Delete Files").enabled());
  EXPECT_TRUE(console().checkBox("Shred Files?").enabled());

  list.clickTick(1);
  waitUntil("the tick to go", [&list] { return !list.ticked(1); });
  EXPECT_EQ(toggle.text(), "Clear All");
  console().buttonAfter("Junk files:", "Invert").click();
  waitUntil("the inverted ticks", [&] { return ticks() == std::vector{false, true, false}; });
  EXPECT_EQ(toggle.text(), "Select All");

  const Control boxes = console().buttonIn("File Types", "Select All");
  boxes.click();
  waitUntil("all types", [&boxes] { return boxes.text() == "Clear All"; });
  EXPECT_TRUE(console().checkBox(".err").ticked());
  console().buttonIn("File Types", "Invert").click();
  waitUntil("no types", [&boxes] { return boxes.text() == "Select All"; });
  EXPECT_FALSE(console().checkBox(".err").ticked());
}

// Twenty thousand files, and the button pressed while they are being listed.
TEST_F(ConsoleTest, AbortStopsALongScanAtOnce) {
  constexpr int kFolders = 40;
  constexpr int kFilesEach = 500;
  constexpr long long kLongestWait = 1500;  // milliseconds
  // Left where they are: the machine is made anew for every run, and removing them takes as long as making them.
  for (int folder = 0; folder < kFolders; ++folder) {
    const std::string path = "C:\\long\\" + std::to_string(folder);
    makeFolders(path);
    for (int file = 0; file < kFilesEach; ++file) makeEmptyFile(path + "\\" + std::to_string(file) + ".tmp");
  }

  tick(".tmp");
  // The list was read before the folder was made; opening the root reads it again.
  console().folderList().open("C:\\");
  console().folderList().open("long");
  const Control abort = console().button("Abort Scan");
  console().button("Scan").click();
  waitUntil("the abort button", [&abort] { return abort.visible(); });
  waitUntil("the rows of two folders", [&] { return junk().rowCount() > 2 * kFilesEach; });
  EXPECT_FALSE(console().button("Delete Files").enabled());
  EXPECT_FALSE(console().button("Shredder").enabled());
  EXPECT_FALSE(console().checkBox(".bak").enabled());
  takeScreenshot("scan-running");

  const auto clicked = std::chrono::steady_clock::now();
  abort.click();
  const Box box = program().box("Scan Aborted");
  const auto waited =
      std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - clicked).count();
  const int listed = junk().rowCount();
  std::printf("abort: %lld ms from the click to the box, %d of %d files listed\n", static_cast<long long>(waited),
              listed, kFolders * kFilesEach);
  EXPECT_LT(waited, kLongestWait);
  EXPECT_LT(listed, kFolders * kFilesEach);
  EXPECT_EQ(box.message(), "    Scan Aborted");
  box.press("OK");

  waitForResults(listed);
  const Window window = console();
  // The window shows one control's new state after the other.
  waitUntil("the console to look as after a scan", [&] {
    return window.button("Scan").visible() && window.button("Scan").enabled() && !abort.visible() &&
           window.buttonAfter("Junk files:", "Select All").enabled() && window.button("Shredder").enabled() &&
           window.checkBox(".bak").enabled() && window.checkBox("Shred Files?").visible();
  });
  EXPECT_FALSE(window.button("Delete Files").enabled());
}

}  // namespace
}  // namespace desktop
