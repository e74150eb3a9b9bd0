// Renaming within a drive and never across, deleting one file, and the way to a free file number.
#include "tests/contract/ContractTest.h"

namespace contract {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Renaming : public ContractTest {};

TEST_F(Renaming, MovesAFileAndTakesABareNameForOneInTheCurrentFolder) {
  const std::string file = makeFile("source\\a.txt", "kept");
  testMachine().setAttributes(file, platform::kReadOnly);
  testMachine().setCurrentFolder(makeFolder("here"));
  EXPECT_EQ(numberOf(files().rename(file, "b.txt")), 0);
  EXPECT_EQ(numberOf(files().rename("b.txt", "c.txt")), 0);
  EXPECT_EQ(numberOf(files().rename(at("here\\c.txt"), at("c name .tmp"))), 0);
  EXPECT_EQ(testMachine().readBack(at("c name .tmp")), "kept");
  EXPECT_EQ(withoutArchive(testMachine().attributes(at("c name .tmp"))), platform::kReadOnly);
  EXPECT_THAT(testMachine().namesIn(at("source")), IsEmpty());
  EXPECT_THAT(testMachine().namesIn(at("here")), IsEmpty());
  EXPECT_EQ(files().getFullPathName("c.txt").value(), at("here\\c.txt"));
  EXPECT_EQ(files().getFullPathName("..\\x\\.\\y").value(), at("x\\y"));
  EXPECT_FALSE(files().getFullPathName("").has_value());
}

TEST_F(Renaming, NeverCrossesDrives) {
  const std::string file = makeFile("a.txt", "kept");
  const std::string other = testMachine().onOtherDrive();
  testMachine().makeFile(other + "\\there.txt", "there");
  EXPECT_EQ(numberOf(files().rename(file, other + "\\b.txt")), platform::kDifferentDrive);
  EXPECT_EQ(numberOf(files().rename(other + "\\there.txt", at("b.txt"))), platform::kDifferentDrive);
  EXPECT_EQ(numberOf(files().rename(other + "\\there.txt", "bare.tmp")), platform::kDifferentDrive);
  EXPECT_EQ(testMachine().readBack(file), "kept");
  EXPECT_EQ(testMachine().readBack(other + "\\there.txt"), "there");
  EXPECT_FALSE(testMachine().exists(other + "\\b.txt"));
  EXPECT_FALSE(testMachine().exists(at("b.txt")));
  // The drive's letter counts, not how it is written.
  std::string lower = file;
  lower[0] = static_cast<char>(lower[0] - 'A' + 'a');
  EXPECT_EQ(numberOf(files().rename(lower, at("b.txt"))), 0);
  // The system itself would have copied.
  EXPECT_EQ(numberOf(files().moveFile(at("b.txt"), other + "\\b.txt")), 0);
  EXPECT_EQ(testMachine().readBack(other + "\\b.txt"), "kept");
  EXPECT_FALSE(testMachine().exists(at("b.txt")));
}

TEST_F(Renaming, IsRefusedWhereItCannotBe) {
  const std::string file = makeFile("a.txt", "kept");
  makeFile("taken.txt", "taken");
  EXPECT_EQ(numberOf(files().rename(at("missing.txt"), at("b.txt"))), platform::kFileNotFound);
  EXPECT_EQ(numberOf(files().rename(file, at("taken.txt"))), platform::kFileAlreadyExists);
  EXPECT_EQ(numberOf(files().rename(file, at("missing\\b.txt"))), platform::kPathNotFound);
  testMachine().lock(file);
  EXPECT_EQ(numberOf(files().rename(file, at("b.txt"))), platform::kPermissionDenied);
  testMachine().unlock(file);
  EXPECT_FALSE(files().rename(at("a*.txt"), at("c.txt")));
  EXPECT_EQ(testMachine().readBack(file), "kept");
  EXPECT_EQ(testMachine().readBack(at("taken.txt")), "taken");
}

class Removing : public ContractTest {};

TEST_F(Removing, TakesOneFileAndLeavesFoldersAndProtectedAndLockedFiles) {
  makeFile("a.txt");
  EXPECT_EQ(numberOf(files().remove(at("a.txt"))), 0);
  EXPECT_EQ(numberOf(files().remove(at("a.txt"))), platform::kFileNotFound);
  EXPECT_EQ(numberOf(files().remove(at("missing\\a.txt"))), platform::kPathNotFound);
  makeFolder("folder");
  const std::string file = makeFile("protected.txt", "kept");
  testMachine().setAttributes(file, platform::kReadOnly);
  const std::string locked = makeFile("locked.txt");
  testMachine().lock(locked);
  EXPECT_EQ(numberOf(files().remove(at("folder"))), platform::kPathFileAccess);
  EXPECT_EQ(numberOf(files().remove(file)), platform::kPathFileAccess);
  EXPECT_EQ(numberOf(files().remove(locked)), platform::kPermissionDenied);
  makeFile("d.txt");
  EXPECT_FALSE(files().remove(at("*.txt")));
  EXPECT_FALSE(files().remove(at("?.txt")));
  EXPECT_THAT(testMachine().namesIn(testMachine().root()),
              ElementsAre("d.txt", "folder", "locked.txt", "protected.txt"));
}

class FreeFileNumbers : public ContractTest {
 protected:
  void TearDown() override {
    for (int number = 1; number <= 511; ++number) files().closeFile(number);
  }
};

TEST_F(FreeFileNumbers, AreTheLowestUntilAllAreTaken) {
  EXPECT_EQ(files().freeFile().value(), 1);
  const std::string file = makeFile("file.bin");
  ASSERT_TRUE(files().openBinary(1, file));
  ASSERT_TRUE(files().openBinary(3, file));
  EXPECT_EQ(files().freeFile().value(), 2);
  for (int number = 1; number <= 511; ++number) static_cast<void>(files().openBinary(number, file));
  EXPECT_EQ(numberOf(files().freeFile()), platform::kTooManyFiles);
  files().closeFile(200);
  EXPECT_EQ(files().freeFile().value(), 200);
}

TEST_F(FreeFileNumbers, AreNoHandlesThatCouldBeFlushed) {
  const std::string file = makeFile("file.bin");
  ASSERT_TRUE(files().openBinary(1, file));
  EXPECT_FALSE(files().flushFileBuffers(1));
  EXPECT_FALSE(files().flushFileBuffers(platform::kInvalidHandle));
  const platform::Handle handle = files().createFile(file, {.access = platform::kGenericRead | platform::kGenericWrite,
                                                            .share = platform::kShareRead | platform::kShareWrite});
  ASSERT_NE(handle, platform::kInvalidHandle);
  EXPECT_TRUE(files().flushFileBuffers(handle));
  EXPECT_TRUE(files().closeHandle(handle));
}

}  // namespace
}  // namespace contract
