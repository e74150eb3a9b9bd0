// Attributes, lengths, handles that lock, and writing in place by file number.
#include "tests/contract/ContractTest.h"

namespace contract {
namespace {

using platform::Handle;
using platform::kGenericRead;
using platform::kGenericWrite;
using platform::kInvalidAttributes;
using platform::kInvalidHandle;
using platform::kShareNone;
using platform::kShareRead;
using platform::kShareWrite;

class Attributes : public ContractTest {};

TEST_F(Attributes, AndLengthOfWhatIsNotThereAreInvalid) {
  makeFile("file.txt");
  makeFolder("folder");
  EXPECT_TRUE(platform::isDirectory(files().getFileAttributes(at("FOLDER\\..\\folder\\."))));
  for (const std::string name : {"missing", "missing\\file.txt", "file.txt\\below", "*.txt", "fi?e.txt"}) {
    EXPECT_EQ(files().getFileAttributes(at(name)), kInvalidAttributes) << name;
  }
  EXPECT_EQ(files().getFileAttributes(""), kInvalidAttributes);
  for (const std::string name : {"missing.txt", "missing\\file.txt", "folder", "*.txt"}) {
    EXPECT_EQ(numberOf(files().fileLength(at(name))), platform::kFileNotFound) << name;
  }
}

TEST_F(Attributes, AndLengthOfALockedFileCanBeAsked) {
  const std::string file = makeFile("locked.txt", "12345");
  testMachine().lock(file);
  EXPECT_FALSE(platform::isDirectory(files().getFileAttributes(file)));
  EXPECT_NE(files().getFileAttributes(file), kInvalidAttributes);
  EXPECT_EQ(files().fileLength(file), 5);
  EXPECT_EQ(recordOf(file).sizeLow, 5u);
  EXPECT_TRUE(fileObjects().getFile(file).has_value());
}

TEST_F(Attributes, LengthIsTheLowHalfAsASignedNumber) {
  EXPECT_EQ(files().fileLength(makeFile("empty.txt")), 0);
  testMachine().makeLongFile(at("two.bin"), std::uint64_t{3} << 30);
  EXPECT_EQ(files().fileLength(at("two.bin")), -(1 << 30));
  testMachine().makeLongFile(at("five.bin"), (std::uint64_t{5} << 30) + 7);
  EXPECT_EQ(files().fileLength(at("five.bin")), (1 << 30) + 7);
}

TEST_F(Attributes, MaskDecidesWhatTheDirectorySearchSees) {
  constexpr std::uint32_t kAnyFile = 39;
  testMachine().setAttributes(makeFile("hidden.txt"), platform::kHidden);
  testMachine().setAttributes(makeFile("protected.txt"), platform::kReadOnly);
  makeFolder("folder");
  EXPECT_TRUE(files().anyFileMatches(at("hidden.txt"), kAnyFile));
  EXPECT_TRUE(files().anyFileMatches(at("hidden.txt"), platform::kHidden));
  EXPECT_FALSE(files().anyFileMatches(at("hidden.txt"), platform::kReadOnly | platform::kSystem));
  EXPECT_FALSE(files().anyFileMatches(at("protected.txt"), 0));
  EXPECT_TRUE(files().anyFileMatches(at("protected.txt"), kAnyFile));
  EXPECT_FALSE(files().anyFileMatches(at("folder"), kAnyFile));
  EXPECT_TRUE(files().anyFileMatches(at("folder"), kAnyFile | platform::kDirectory));
  EXPECT_FALSE(files().anyFileMatches(at("missing.txt"), kAnyFile));
  EXPECT_TRUE(files().anyFileMatches(at("*.txt"), platform::kReadOnly)) << "it goes past what the mask lacks";
}

class Handles : public ContractTest {};

TEST_F(Handles, WithoutSharingKeepOthersOut) {
  const std::string file = makeFile("file.txt", "bytes");
  const Handle handle = files().createFile(file, {.access = kGenericRead, .share = kShareNone});
  ASSERT_NE(handle, kInvalidHandle);
  EXPECT_FALSE(opensForReading(file, kShareRead | kShareWrite));
  EXPECT_EQ(numberOf(files().openBinary(1, file)), platform::kPermissionDenied);
  EXPECT_EQ(numberOf(fileObjects().deleteFile(file, true)), platform::kPermissionDenied);
  ASSERT_TRUE(files().closeHandle(handle));
  EXPECT_FALSE(files().closeHandle(handle));
  EXPECT_FALSE(files().closeHandle(kInvalidHandle));

  const Handle reader = files().createFile(file, {.access = kGenericRead, .share = kShareRead});
  EXPECT_TRUE(opensForReading(file, kShareRead));
  EXPECT_FALSE(opensForReading(file, kShareNone));
  EXPECT_EQ(files().createFile(file, {.access = kGenericWrite, .share = kShareRead | kShareWrite}), kInvalidHandle);
  EXPECT_TRUE(files().closeHandle(reader));
  EXPECT_EQ(testMachine().readBack(file), "bytes");
}

TEST_F(Handles, AreGivenForFilesThatExistOnly) {
  // The attribute word that asks for nothing in particular: read-only, hidden, system, archive and normal together.
  constexpr std::uint32_t kEveryKind = 167;
  const std::string file = makeFile("protected.txt");
  testMachine().setAttributes(file, platform::kReadOnly | platform::kHidden | platform::kSystem);
  makeFolder("folder");
  const Handle handle = files().createFile(file, {.flagsAndAttributes = kEveryKind});
  ASSERT_NE(handle, kInvalidHandle);
  EXPECT_TRUE(files().closeHandle(handle));
  EXPECT_EQ(files().createFile(at("folder"), {.flagsAndAttributes = kEveryKind}), kInvalidHandle);
  EXPECT_EQ(files().createFile(at("missing.txt"), {.flagsAndAttributes = kEveryKind}), kInvalidHandle);
  EXPECT_EQ(files().createFile(at("*.txt"), {.flagsAndAttributes = kEveryKind}), kInvalidHandle);
  EXPECT_FALSE(testMachine().exists(at("missing.txt")));
}

class FileNumbers : public ContractTest {
 protected:
  void TearDown() override { files().closeFile(1); }
};

TEST_F(FileNumbers, WriteInPlaceFromTheFirstByteOn) {
  const std::string file = makeFile("file.bin", "0123456789");
  ASSERT_TRUE(files().openBinary(1, file));
  EXPECT_TRUE(files().putBytes(1, "ab"));
  EXPECT_TRUE(files().putBytes(1, "c"));
  EXPECT_EQ(testMachine().readBack(file), "abc3456789");
  EXPECT_FALSE(opensForReading(file, kShareNone));
  EXPECT_EQ(numberOf(fileObjects().deleteFile(file, true)), platform::kPermissionDenied);
  EXPECT_TRUE(files().putBytesAt(1, 6, "X"));
  EXPECT_TRUE(files().putBytes(1, "Y"));
  EXPECT_TRUE(files().putBytesAt(1, 1, std::string_view("\0\xFF", 2)));
  EXPECT_TRUE(files().putBytesAt(1, 12, "\r"));
  EXPECT_TRUE(files().putBytesAt(1, 3, "")) << "changes nothing but the position";
  EXPECT_TRUE(files().putBytes(1, "C"));
  EXPECT_TRUE(files().putBytesAt(1, 100, ""));
  files().closeFile(1);
  EXPECT_EQ(testMachine().readBack(file), std::string("\0\xFF"
                                                      "C34XY789\0\r",
                                                      12));

  ASSERT_TRUE(files().openBinary(1, at("new.bin"))) << "is made";
  files().closeFile(1);
  EXPECT_EQ(testMachine().readBack(at("new.bin")), "");
}

TEST_F(FileNumbers, AreRefusedOutOfRangeTakenOrClosedAndForWhatCannotBeWritten) {
  const std::string file = makeFile("file.bin", "abc");
  EXPECT_EQ(numberOf(files().openBinary(0, file)), platform::kBadFileNumber);
  EXPECT_EQ(numberOf(files().openBinary(512, file)), platform::kBadFileNumber);
  EXPECT_EQ(numberOf(files().putBytes(1, "x")), platform::kBadFileNumber);
  ASSERT_TRUE(files().openBinary(1, file));
  EXPECT_EQ(numberOf(files().openBinary(1, makeFile("other.bin"))), platform::kFileAlreadyOpen);
  files().closeFile(1);
  EXPECT_EQ(numberOf(files().putBytes(1, "x")), platform::kBadFileNumber);
  EXPECT_EQ(numberOf(files().putBytesAt(1, 1, "x")), platform::kBadFileNumber);
  EXPECT_EQ(testMachine().readBack(file), "abc");
  EXPECT_EQ(numberOf(files().openBinary(1, at("missing\\new.bin"))), platform::kPathNotFound);
  EXPECT_EQ(numberOf(files().openBinary(1, makeFolder("folder"))), platform::kPathFileAccess);
  testMachine().setAttributes(file, platform::kReadOnly);
  EXPECT_EQ(numberOf(files().openBinary(1, file)), platform::kPathFileAccess);
}

}  // namespace
}  // namespace contract
