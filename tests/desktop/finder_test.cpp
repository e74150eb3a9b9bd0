// The finder's tools on real files: what the lists and the disk show after each scan and deletion.
#include <fstream>

#include "tests/desktop/ConsoleTest.h"

namespace desktop {
namespace {

// Plain files are deleted in the three ways by NamesTest.
TEST_F(ConsoleTest, JunkIsFoundAndStaysWhileItIsReadOnlyOrInUse) {
  const std::string big = make("big.bak", 1536);
  const std::string numbered = make("disk.001");
  const std::string locked = make("locked.bak");
  const std::string readOnly = make("read-only.bak", 1000, FILE_ATTRIBUTE_READONLY);
  const std::string small = make("sub\\small.BAK", 512);
  for (const char* name : {"ntuser.bak", "other.tmp"}) make(name);
  use("Custom Ext.");
  const Window choose = window("Custom File Extensions");
  typeText("001");
  choose.closeWith("Accept");
  waitForConsole();
  console().control(".bak").flip();
  console().openFolder(folderName());
  use("Scan");
  waitForResults("Results: 5 files found in ");
  const Texts listed = {big, locked, readOnly, numbered, small};
  EXPECT_EQ(junk().texts(), listed);
  EXPECT_EQ(junk().texts(1), (Texts{"2 Kb", "1000 bytes", "1000 bytes", "1000 bytes", "512 bytes"}));
  EXPECT_FALSE(console().control("Abort Scan").visible() || console().control("Delete Files").enabled());

  lock(locked);
  for (const std::string& file : {locked, readOnly, small}) junk().flip(file);
  waitUntil("the status bar to count", [this] {
    const Texts texts = console().statusTexts();
    return texts.size() == 3 && texts[1] == "5 rows" && texts[2] == "3 ticked, 2.5 KB";
  });
  const std::size_t recycled = recycledItems();
  use("Delete Files");
  EXPECT_EQ(window("Confirm Deletion").focused().text(), "No");
  answer({"Confirm Deletion", "Yes"});
  answer({"File Deletion Error", "OK", locked + " is in use by Windows and can not be deleted."});
  answer({"Delete File", "No", readOnly + "\r\nis a read only file - OK to delete?"});
  waitUntil("one row less", [&] { return junk().rowCount() == 4; });
  EXPECT_EQ(junk().texts(), (Texts{big, locked, readOnly, numbered}));
  EXPECT_TRUE(isUntouched(big, 1536) && exists(locked) && isUntouched(readOnly) && !exists(small));
  EXPECT_EQ(recycledItems(), recycled + 1);
}

// A 64-bit Windows shows a 32-bit program another folder under this name.
TEST_F(ConsoleTest, TheSystemFolderIsScannedOnceAndAsItIs) {
  const std::string file = "C:\\windows\\system32\\seen once.bak";
  makeFile(file, "S");
  console().control(".bak").flip();
  console().openFolder("windows");
  use("Scan");
  waitForResults("Results: ");
  EXPECT_EQ(junk().texts(), Texts{file});
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
  const List found = console().list("ListView2");
  console().openFolder(folderName());
  use("Find 0 Byte Files", {{"Warning!"}});
  waitUntil("the first rows", [&] { return found.rowCount() > 0; });
  EXPECT_FALSE(console().control("Shredder").enabled() || console().control(".bak").enabled());
  abort.click();
  window("Scan Aborted", kLongestWait);
  const int listed = found.rowCount();
  EXPECT_LT(listed, kFolders * kFilesEach);
  answer({"Scan Aborted"});
  waitForResults("Results: " + std::to_string(listed) + " 0 Byte files found in ");
  // The window shows one control's new state after the other.
  waitUntil("the console to be ready", [&] { return !abort.visible() && console().control(".bak").enabled(); });
}

}  // namespace
}  // namespace desktop
