// Attributes, lengths, handles that lock, and writing in place by file number.
#include "tests/contract/ContractTest.h"

namespace contract {
namespace {

class Attributes : public ContractTest {};

TEST_F(Attributes, AndLengthAreThoseOfLockedFilesTooAndOfNothingElse) {
  makeFolder("folder");
  const std::string file = makeFile("file.txt", "12345");
  lock(file);
  EXPECT_EQ(files().getFileAttributes(file) & (kDirectory | kHidden), 0u);
  EXPECT_EQ(files().fileSize(file), 5U);
  EXPECT_TRUE(fileObjects().getFile(file).has_value());
  EXPECT_TRUE(isDirectory(files().getFileAttributes(at("FOLDER\\..\\folder\\."))));
  for (const std::string& path :
       {at("missing"), at("missing\\file.txt"), at("file.txt\\below"), at("*.txt"), at("fi?e.txt"), std::string()}) {
    EXPECT_EQ(files().getFileAttributes(path), kInvalidAttributes) << path;
    EXPECT_EQ(numberOf(files().fileSize(path)), kFileNotFound) << path;
  }
  EXPECT_EQ(numberOf(files().fileSize(at("folder"))), kFileNotFound);
}

TEST_F(Attributes, SizeIsTheWholeOne) {
  for (const std::uint64_t size : {std::uint64_t{0}, std::uint64_t{3} << 30, (std::uint64_t{5} << 30) + 7}) {
    testMachine().makeLongFile(at("long.bin"), size);
    EXPECT_EQ(files().fileSize(at("long.bin")), size);
  }
}

TEST_F(Attributes, MaskDecidesWhatTheDirectorySearchSees) {
  constexpr std::uint32_t kAnyFile = 39;
  makeFile("hidden.txt", "", kHidden);
  makeFile("protected.txt", "", kReadOnly);
  makeFolder("folder");
  const std::tuple<const char*, std::uint32_t, bool> cases[] = {
      {"hidden.txt", kAnyFile, true},
      {"hidden.txt", kHidden, true},
      {"hidden.txt", kReadOnly | kSystem, false},
      {"protected.txt", kAnyFile, true},
      {"protected.txt", 0, false},
      {"folder", kAnyFile, false},
      {"folder", kAnyFile | kDirectory, true},
      {"missing.txt", kAnyFile, false},
      {"*.txt", kReadOnly, true}};  // the search goes past what the mask lacks

  for (const auto& [name, mask, expected] : cases) {
    EXPECT_EQ(files().anyFileMatches(at(name), mask), expected) << name << mask;
  }
}

class Handles : public ContractTest {};

TEST_F(Handles, WithoutSharingKeepOthersOut) {
  const std::string file = makeFile("file.txt", "bytes");
  const Handle handle = files().createFile(file, {.access = kGenericRead, .share = kShareNone});
  ASSERT_NE(handle, kInvalidHandle);
  EXPECT_FALSE(opensForReading(file, kShareRead | kShareWrite));
  EXPECT_EQ(numberOf(files().openBinary(1, file)), kPermissionDenied);
  EXPECT_EQ(numberOf(fileObjects().deleteFile(file, true)), kPermissionDenied);
  ASSERT_TRUE(files().closeHandle(handle));
  EXPECT_FALSE(files().closeHandle(handle));
  EXPECT_FALSE(files().closeHandle(kInvalidHandle));
  EXPECT_TRUE(opensForReading(file, kShareNone));
  EXPECT_EQ(testMachine().readBack(file), "bytes");
}

TEST_F(Handles, AreGivenForFilesThatExistOnly) {
  // Read-only, hidden, system, archive and normal together.
  constexpr std::uint32_t kEveryKind = 167;
  const std::string file = makeFile("protected.txt", "", kReadOnly | kHidden | kSystem);
  makeFolder("folder");
  const Handle handle = files().createFile(file, {.flagsAndAttributes = kEveryKind});
  ASSERT_NE(handle, kInvalidHandle);
  EXPECT_TRUE(files().closeHandle(handle));
  for (const char* name : {"folder", "missing.txt", "*.txt"}) {
    EXPECT_EQ(files().createFile(at(name), {.flagsAndAttributes = kEveryKind}), kInvalidHandle) << name;
  }
  EXPECT_EQ(namesIn(), (Names{"folder", "protected.txt"}));
}

class FileNumbers : public ContractTest {
 protected:
  void TearDown() override {
    for (int number = 1; number <= 511; ++number) files().closeFile(number);
  }
};

TEST_F(FileNumbers, WriteInPlaceFromTheFirstByteOn) {
  const std::string file = makeFile("file.bin", "0123456789");
  ASSERT_TRUE(files().openBinary(1, file));
  EXPECT_TRUE(files().putBytes(1, "ab"));
  EXPECT_TRUE(files().putBytes(1, "c"));
  EXPECT_EQ(testMachine().readBack(file), "abc3456789");
  EXPECT_FALSE(opensForReading(file, kShareNone));
  EXPECT_EQ(numberOf(fileObjects().deleteFile(file, true)), kPermissionDenied);
  EXPECT_TRUE(files().putBytesAt(1, 6, "X"));
  EXPECT_TRUE(files().putBytes(1, "Y"));
  EXPECT_TRUE(files().putBytesAt(1, 1, std::string_view("\0\xFF", 2)));
  EXPECT_TRUE(files().putBytesAt(1, 12, "\r"));
  EXPECT_TRUE(files().putBytesAt(1, 3, "")) << "changes nothing but the position";
  EXPECT_TRUE(files().putBytes(1, "C"));
  EXPECT_TRUE(files().putBytesAt(1, 100, ""));
  EXPECT_EQ(numberOf(files().putBytesAt(1, 0, "x")), kInvalidCall);
  files().closeFile(1);
  EXPECT_EQ(testMachine().readBack(file), std::string("\0\xFF\x43\x33\x34XY789\0\r", 12));
}

TEST_F(FileNumbers, MakeMissingFilesAndAreRefusedWhereNothingCanBeWritten) {
  ASSERT_TRUE(files().openBinary(1, at("new.bin")));
  EXPECT_EQ(numberOf(files().openBinary(1, makeFile("file.bin"))), kFileAlreadyOpen);
  files().closeFile(1);
  EXPECT_EQ(testMachine().readBack(at("new.bin")), "");
  EXPECT_EQ(numberOf(files().putBytes(1, "x")), kBadFileNumber);
  EXPECT_EQ(numberOf(files().putBytesAt(1, 1, "x")), kBadFileNumber);
  EXPECT_EQ(numberOf(files().openBinary(512, at("file.bin"))), kBadFileNumber);
  EXPECT_EQ(numberOf(files().openBinary(1, at("missing\\new.bin"))), kPathNotFound);
  EXPECT_EQ(numberOf(files().openBinary(1, makeFolder("folder"))), kPathFileAccess);
  EXPECT_EQ(numberOf(files().openBinary(1, makeFile("protected.bin", "", kReadOnly))), kPathFileAccess);
}

TEST_F(FileNumbers, AreGivenFromTheLowestAndAreNoHandlesThatCouldBeFlushed) {
  const std::string file = makeFile("file.bin");
  for (int number = 1; number <= 511; ++number) {
    EXPECT_EQ(files().freeFile().value(), number);
    ASSERT_TRUE(files().openBinary(number, file));
  }
  EXPECT_EQ(numberOf(files().freeFile()), kTooManyFiles);
  files().closeFile(200);
  EXPECT_EQ(files().freeFile().value(), 200);
  EXPECT_FALSE(files().flushFileBuffers(1));
  EXPECT_FALSE(files().flushFileBuffers(kInvalidHandle));
}

}  // namespace
}  // namespace contract
