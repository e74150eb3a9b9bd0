// Deleting what a scan has found, and what the disk and the list show afterwards.
#include "tests/desktop/ConsoleTest.h"

namespace desktop {
namespace {

class DeleteTest : public ConsoleTest {
 protected:
  // Three files, scanned.
  void SetUp() override {
    ConsoleTest::SetUp();
    for (const char* name : {"first.bak", "second.bak", "third.bak"}) files_.push_back(make(name, 1000));
  }

  void scanFiles() { scan(".bak", static_cast<int>(files_.size())); }

  void untick(const std::string& box) {
    const Control control = console().checkBox(box);
    control.click();
    waitUntil("no tick in \"" + box + "\"", [&control] { return !control.ticked(); });
  }

  bool isUntouched(const std::string& path) {
    return exists(path) && readFile(path) == sampleBytes(path.substr(path.rfind('\\') + 1), 1000);
  }

  std::vector<std::string> files_;
};

TEST_F(DeleteTest, OnlyTheTickedRowIsWiped) {
  scanFiles();
  tickRow(files_[1]);
  tick("Shred Files?");
  EXPECT_FALSE(console().checkBox("Delete to Recycle Bin").ticked());
  const std::size_t recycled = recycledItems();

  deleteTicked("Yes");
  const Box closing = program().box("Files Shredded");
  EXPECT_EQ(closing.message(), "All files that are not locked have been shredded.");
  closing.press("OK");

  EXPECT_FALSE(exists(files_[1]));
  EXPECT_TRUE(isUntouched(files_[0]));
  EXPECT_TRUE(isUntouched(files_[2]));
  EXPECT_EQ(recycledItems(), recycled);
  waitForRows({files_[0], files_[2]});
  EXPECT_FALSE(console().button("Delete Files").enabled());
}

TEST_F(DeleteTest, NoToTheQuestionChangesNothing) {
  scanFiles();
  tickRow(files_[0]);
  deleteTicked("No");
  EXPECT_TRUE(isUntouched(files_[0]));
  EXPECT_EQ(listedPaths(), files_);
  EXPECT_TRUE(junk().ticked(0));
}

TEST_F(DeleteTest, RecycledFilesCanComeBackAndOthersCannot) {
  scanFiles();
  const std::size_t recycled = recycledItems();
  tickRow(files_[0]);
  deleteTicked("Yes");
  waitForRows({files_[1], files_[2]});
  EXPECT_FALSE(exists(files_[0]));
  EXPECT_EQ(recycledItems(), recycled + 1);

  tickRow(files_[1]);
  untick("Delete to Recycle Bin");
  EXPECT_FALSE(console().checkBox("Shred Files?").ticked());
  deleteTicked("Yes");
  waitForRows({files_[2]});
  EXPECT_FALSE(exists(files_[1]));
  EXPECT_EQ(recycledItems(), recycled + 1);
  EXPECT_TRUE(isUntouched(files_[2]));
}

TEST_F(DeleteTest, AFileInUseIsNamedAndLeft) {
  scanFiles();
  tickRow(files_[0]);
  tickRow(files_[1]);
  {
    const Lock lock(files_[0]);
    deleteTicked("Yes");
    const Box refusal = program().box("File Deletion Error");
    EXPECT_EQ(refusal.message(), files_[0] + " is in use by Windows and can not be deleted.");
    refusal.press("OK");
    waitForRows({files_[0], files_[2]});
  }
  EXPECT_TRUE(isUntouched(files_[0]));
  EXPECT_FALSE(exists(files_[1]));
}

TEST_F(DeleteTest, AReadOnlyFileIsAskedFor) {
  setAttributes(files_[2], FILE_ATTRIBUTE_READONLY);
  scanFiles();
  const std::size_t recycled = recycledItems();
  tickRow(files_[2]);
  for (const char* answer : {"No", "Yes"}) {
    deleteTicked("Yes");
    const Box question = program().box("Delete File");
    EXPECT_EQ(question.message(), files_[2] + "\r\nis a read only file - OK to delete?");
    EXPECT_EQ(question.buttons(), (std::vector<std::string>{"Yes", "No"}));
    EXPECT_TRUE(isUntouched(files_[2]));  // also after the No
    question.press(answer);
    waitUntil("the console to take input again", [this] { return console().takesInput(); });
  }
  waitForRows({files_[0], files_[1]});
  EXPECT_FALSE(exists(files_[2]));
  EXPECT_EQ(recycledItems(), recycled + 1);
}

// A wipe leaves read-only files and files in use alone, without a word about them.
TEST_F(DeleteTest, AWipeLeavesLockedAndReadOnlyFiles) {
  setAttributes(files_[0], FILE_ATTRIBUTE_READONLY);
  scanFiles();
  console().buttonAfter("Junk files:", "Select All").click();
  waitUntil("a tick in the last row", [this] { return junk().ticked(2); });
  tick("Shred Files?");
  {
    const Lock lock(files_[1]);
    deleteTicked("Yes");
    program().box("Files Shredded").press("OK");
  }
  waitForRows({files_[0], files_[1]});
  EXPECT_TRUE(isUntouched(files_[0]));
  EXPECT_TRUE(isUntouched(files_[1]));
  EXPECT_FALSE(exists(files_[2]));
}

}  // namespace
}  // namespace desktop
