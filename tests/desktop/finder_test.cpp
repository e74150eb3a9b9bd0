// The finder's tools on real files: what the lists and the disk show after each scan and deletion.
#include <algorithm>
#include <fstream>

#include "tests/desktop/ConsoleTest.h"

namespace desktop {
namespace {

TEST_F(ConsoleTest, JunkIsFoundAndDeletedInEachOfTheThreeWays) {
  const std::string big = make("big.bak", 1536);
  const std::string small = make("sub\\small.BAK", 512);
  const std::string numbered = make("disk.001");
  const std::string locked = make("locked.bak");
  const std::string readOnly = make("read-only.bak", 1000, FILE_ATTRIBUTE_READONLY);
  const std::string ntUser = make("ntuser.bak");
  const std::string other = make("other.tmp");

  use("Custom Ext.");
  const Window choose = window("Custom File Extensions");
  typeText("001");
  choose.closeWith("Accept");
  waitForConsole();
  console().control(".bak").flip();
  console().openFolder(folderName());
  use("Scan");
  waitForResults("Results: 5 files found in ");
  Texts left = junk().texts();
  const Texts sizes = junk().texts(1);
  EXPECT_EQ(sizes.at(std::ranges::find(left, big) - left.begin()), "2 Kb");
  EXPECT_EQ(sizes.at(std::ranges::find(left, small) - left.begin()), "512 bytes");
  EXPECT_FALSE(console().control("Abort Scan").visible() || console().control("Delete Files").enabled());

  lock(locked);
  const Answer isReadOnly = {"Delete File", readOnly + "\r\nis a read only file - OK to delete?", "No"};
  const Answer isInUse = {"File Deletion Error", locked + " is in use by Windows and can not be deleted."};
  const Answer isShredded = {"Files Shredded", "All files that are not locked have been shredded."};
  const struct {
    std::string way;  // the box to flip before, if any
    std::string file;
    std::vector<Answer> answers;
    std::size_t recycled;
  } steps[] = {{"", readOnly, {isReadOnly}, 0},
               {"", big, {}, 1},
               {"Delete to Recycle Bin", locked, {isInUse}, 0},
               {"", small, {}, 0},
               {"Shred Files?", numbered, {isShredded}, 0}};
  for (const auto& [way, file, answers, recycled] : steps) {
    SCOPED_TRACE(file);
    for (int row = 0; row < static_cast<int>(left.size()); ++row) {
      if (junk().ticked(row)) junk().flip(left[static_cast<std::size_t>(row)]);
    }
    junk().flip(file);
    if (!way.empty()) console().control(way).flip();
    const std::size_t before = recycledItems();
    use("Delete Files");
    EXPECT_EQ(window("Confirm Deletion").focused().text(), "No");
    answer({"Confirm Deletion", "Confirm file deletion?", "Yes"});
    for (const Answer& expected : answers) answer(expected);
    if (file != readOnly && file != locked) std::erase(left, file);
    waitUntil("the list to be as expected", [&] { return junk().texts() == left; });
    EXPECT_EQ(exists(file), file == readOnly || file == locked);
    EXPECT_EQ(recycledItems(), before + recycled);
  }
  EXPECT_TRUE(isUntouched(ntUser) && isUntouched(readOnly) && isUntouched(other));
}

// Thousands of empty files, each of which is opened, and the button pressed while they are being listed.
TEST_F(ConsoleTest, AbortStopsALongScanAtOnce) {
  constexpr int kFolders = 20;
  constexpr int kFilesEach = 500;
  constexpr DWORD kLongestWait = 1500;  // milliseconds
  for (int number = 0; number < kFolders; ++number) {
    const std::string path = folder() + std::to_string(number) + '\\';
    std::filesystem::create_directories(path);
    for (int file = 0; file < kFilesEach; ++file) std::ofstream(path + std::to_string(file) + ".tmp");
  }
  const Control abort = console().control("Abort Scan");
  const List found = console().list("0 byte files found");
  console().openFolder(folderName());
  use("Find 0 Byte Files", {{"Warning!", "Use extreme caution when deleting 0 byte files - see help for details"}});
  waitUntil("the first rows", [&] { return found.rowCount() > 0; });
  EXPECT_FALSE(console().control("Shredder").enabled() || console().control(".bak").enabled());
  abort.click();
  window("Scan Aborted", kLongestWait);
  const int listed = found.rowCount();
  EXPECT_LT(listed, kFolders * kFilesEach);
  answer({"Scan Aborted", "    Scan Aborted"});
  waitForResults("Results: " + std::to_string(listed) + " 0 Byte files found in ");
  // The window shows one control's new state after the other.
  waitUntil("the console to be ready", [&] { return !abort.visible() && console().control(".bak").enabled(); });
}

TEST_F(ConsoleTest, EmptyFilesAreListedAndTheTickedOnesDeleted) {
  const std::string plain = make("a plain.txt", 0);
  const std::string readOnly = make("b read-only.txt", 0, FILE_ATTRIBUTE_READONLY);
  const std::string hidden = make("c hidden.txt", 0, FILE_ATTRIBUTE_HIDDEN);
  const std::string kept = make("sub\\Desktop.ini", 0);
  const std::string full = make("full.txt");
  const List zeros = console().list("0 byte files found");
  console().openFolder(folderName());
  use("Find 0 Byte Files", {{"Warning!", "Use extreme caution when deleting 0 byte files - see help for details"}});
  waitForResults("Results: 3 0 Byte files found in ");
  EXPECT_EQ(zeros.texts(), (Texts{plain, readOnly, hidden}));
  EXPECT_FALSE(junk().visible());

  const std::size_t recycled = recycledItems();
  for (const std::string& file : {readOnly, hidden}) zeros.flip(file);
  console().control("Delete", "0 byte files:").click();
  window("Confirm Deletion").closeWith("Yes");
  answer({"Delete File", readOnly + "\r\nis a read only file - OK to delete?", "No"});
  answer({"Files Deleted", "The selected 0 Byte files have been deleted to the Recycle Bin"});
  EXPECT_EQ(zeros.texts(), (Texts{plain, readOnly}));
  EXPECT_TRUE(exists(plain) && exists(readOnly) && exists(kept) && isUntouched(full) && !exists(hidden));
  EXPECT_EQ(recycledItems(), recycled + 1);
}

}  // namespace
}  // namespace desktop
