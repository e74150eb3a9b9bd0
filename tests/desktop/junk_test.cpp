// Junk scans in the real window, over real files, and what the list and the disk show after a deletion.
#include <algorithm>
#include <cstdio>
#include <fstream>
#include <map>

#include "tests/desktop/ConsoleTest.h"

namespace desktop {
namespace {

class JunkTest : public ConsoleTest {
 protected:
  // Presses "Delete Files" and answers the question.
  void deleteTicked(const std::string& button = "Yes") {
    press("Delete Files");
    EXPECT_EQ(box("Confirm Deletion").defaultButton(), "No");
    answer("Confirm Deletion", "Confirm file deletion?", button);
  }

  // Waits until the rows of these files have left the list; so have the files, and no others.
  void expectGone(const Texts& files) {
    for (const std::string& file : files) left_.erase(file);
    waitUntil(std::to_string(left_.size()) + " rows",
              [&] { return junk().rowCount() == static_cast<int>(left_.size()); });
    for (const std::string& file : junk().texts()) EXPECT_TRUE(left_.contains(file)) << file;
    for (const auto& [file, size] : left_) EXPECT_TRUE(isUntouched(file, size)) << file;
    for (const std::string& file : files) EXPECT_FALSE(exists(file)) << file;
  }

  std::string makeJunk(const std::string& name, std::size_t size = 1000) {
    const std::string path = make(name, size);
    left_[path] = size;
    return path;
  }

 private:
  std::map<std::string, std::size_t> left_;
};

TEST_F(JunkTest, FilesAreFoundAndGoInEachOfTheThreeWays) {
  const std::string big = makeJunk("big.bak", 1536);
  const std::string small = makeJunk("sub\\small.BAK", 512);
  const std::string numbered = makeJunk("disk.001");
  const std::string locked = makeJunk("locked.bak");
  const std::string readOnly = makeJunk("read-only.bak");
  const std::string last = makeJunk("last.bak");
  const std::string ntUser = make("ntuser.bak");
  const std::string hidden = make("hidden\\buried.bak");
  setAttributes(readOnly, FILE_ATTRIBUTE_READONLY);
  setAttributes(kFolder + "hidden", FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM);
  const Window window = console();
  const Control recycle = window.checkBox("Delete to Recycle Bin");
  const Control wipe = window.checkBox("Shred Files?");

  press("Custom Ext.");
  const Window choose = this->window("Custom File Extensions");
  typeText("xyz");
  pressKey(VK_TAB);
  typeText("001");
  waitUntil("the typed text", [&] { return choose.all(Kind::kTextBox).at(1).text() == "001"; });
  choose.button("Accept").click();
  waitForConsole();
  window.checkBox(".bak").flip();
  console().openFolder("desktop");
  press("Scan");
  waitForResults("Results: 6 files found in ");
  expectGone({});
  const Texts files = junk().texts();
  const Texts sizes = junk().texts(1);
  EXPECT_EQ(sizes.at(std::ranges::find(files, big) - files.begin()), "2 Kb");
  EXPECT_EQ(sizes.at(std::ranges::find(files, small) - files.begin()), "512 bytes");
  EXPECT_TRUE(window.button("Scan").enabled());
  EXPECT_FALSE(window.button("Abort Scan").visible() || window.button("Delete Files").enabled() || wipe.enabled());
  junk().clickRow(0);
  waitUntil("the tooltip of the first row", [&] { return window.toolTipOf(junk()) == files[0]; });

  const Control toggle = window.buttonAfter("Junk files:", "Select All");
  toggle.click();
  waitUntil("Clear All", [&] { return toggle.text() == "Clear All"; });
  junk().flip(big);
  window.buttonAfter("Junk files:", "Invert").click();
  waitUntil("the inverted ticks", [&] { return toggle.text() == "Select All"; });
  deleteTicked("No");
  expectGone({});

  const std::size_t recycled = recycledItems();
  deleteTicked();
  expectGone({big});
  EXPECT_EQ(recycledItems(), recycled + 1);

  junk().flip(readOnly);
  deleteTicked();
  answer("Delete File", readOnly + "\r\nis a read only file - OK to delete?", "No");
  waitForConsole();
  {
    const Lock lock(locked);
    // The read-only one loses its tick.
    for (const std::string& file : {locked, small, readOnly}) junk().flip(file);
    recycle.flip();
    EXPECT_FALSE(wipe.ticked());
    deleteTicked();
    answer("File Deletion Error", locked + " is in use by Windows and can not be deleted.");
  }
  expectGone({small});
  EXPECT_EQ(recycledItems(), recycled + 1);

  wipe.flip();
  EXPECT_FALSE(recycle.ticked());
  for (const std::string& file : {numbered, readOnly}) junk().flip(file);
  {
    const Lock lock(locked);
    deleteTicked();
    answer("Files Shredded", "All files that are not locked have been shredded.");
  }
  expectGone({numbered});
  EXPECT_EQ(recycledItems(), recycled + 1);
  EXPECT_TRUE(isUntouched(ntUser) && isUntouched(hidden) && isUntouched(last));
}

// Ten thousand files, and the button pressed while they are being listed.
TEST_F(JunkTest, AbortStopsALongScanAtOnce) {
  constexpr int kFolders = 20;
  constexpr int kFilesEach = 500;
  constexpr DWORD kLongestWait = 1500;  // milliseconds
  // Left where they are: the machine is made anew for every run, and removing them takes as long as making them.
  for (int folder = 0; folder < kFolders; ++folder) {
    const std::string path = "C:\\long\\" + std::to_string(folder) + "\\";
    std::filesystem::create_directories(path);
    for (int file = 0; file < kFilesEach; ++file) std::ofstream(path + std::to_string(file) + ".tmp");
  }
  const Window window = console();
  window.checkBox(".tmp").flip();
  // The list was read before the folder was made; opening the root reads it again.
  window.openFolder("C:\\");
  window.openFolder("long");
  const Control abort = window.button("Abort Scan");
  press("Scan");
  waitUntil("the rows of two folders", [&] { return junk().rowCount() > 2 * kFilesEach; });
  EXPECT_FALSE(window.button("Delete Files").enabled() || window.button("Shredder").enabled());
  EXPECT_FALSE(window.checkBox(".bak").enabled());
  takeScreenshot("scan-running");

  const DWORD clicked = GetTickCount();
  abort.click();
  box("Scan Aborted");
  const DWORD waited = GetTickCount() - clicked;
  const int listed = junk().rowCount();
  std::printf("abort: %lu ms from the click to the box, %d of %d files listed\n", waited, listed,
              kFolders * kFilesEach);
  EXPECT_LT(waited, kLongestWait);
  EXPECT_LT(listed, kFolders * kFilesEach);
  answer("Scan Aborted", "    Scan Aborted");
  waitForResults("Results: " + std::to_string(listed) + " files found in ");
  // The window shows one control's new state after the other.
  waitUntil("the console to look as after a scan",
            [&] { return !abort.visible() && window.button("Scan").enabled() && window.checkBox(".bak").enabled(); });
}

}  // namespace
}  // namespace desktop
