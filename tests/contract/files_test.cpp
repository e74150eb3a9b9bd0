// Attributes, sizes, handles that lock, held folders, writing in place by file number, renaming.
#include "tests/contract/ContractTest.h"

namespace contract {
namespace {

class Files : public ContractTest {};

TEST_F(Files, AttributesAndWholeSizesAreThoseOfLockedFilesTooAndOfNothingElse) {
  makeFolder("folder");
  const std::string file = makeFile("file.txt", "12345");
  lock(file);
  EXPECT_EQ(files().getFileAttributes(file) & (kDirectory | kHidden), 0u);
  EXPECT_EQ(files().fileSize(file), 5U);
  EXPECT_TRUE(isDirectory(files().getFileAttributes(at("FOLDER\\..\\folder\\."))));
  for (const std::string& path : {at("missing\\file.txt"), at("file.txt\\below"), at("fi?e.txt"), std::string()}) {
    EXPECT_EQ(files().getFileAttributes(path), kInvalidAttributes) << path;
    EXPECT_EQ(numberOf(files().fileSize(path)), kFileNotFound) << path;
  }
  for (const std::uint64_t size : {std::uint64_t{0}, std::uint64_t{3} << 30, (std::uint64_t{5} << 30) + 7}) {
    testMachine().makeLongFile(at("long.bin"), size);
    EXPECT_EQ(files().fileSize(at("long.bin")), size);
  }
}

TEST_F(Files, TheMaskDecidesWhatTheDirectorySearchSees) {
  constexpr std::uint32_t kAnyFile = 39;
  makeFile("protected.txt", "", kReadOnly);
  makeFolder("folder");
  for (const auto& [name, mask, expected] : {std::tuple("protected.txt", kAnyFile, true),
                                             {"protected.txt", 0, false},
                                             {"folder", kAnyFile, false},
                                             {"missing.txt", kAnyFile, false}}) {
    EXPECT_EQ(files().anyFileMatches(at(name), mask), expected) << name << mask;
  }
  makeFile("z.txt");
  EXPECT_TRUE(files().anyFileMatches(at("*.txt"), 0)) << "the search passes over what the mask lacks";
}

TEST_F(Files, AHandleWithoutSharingKeepsOthersOutAndIsGivenForFilesThatExistOnly) {
  // Read-only, hidden, system, archive and normal together: the test whether a file is in use.
  constexpr OpenRequest kRequest = {.access = kGenericRead, .share = kShareNone, .flagsAndAttributes = 167};
  makeFolder("folder");
  for (const std::string& file : {makeFile("file.txt", "bytes"), makeFile("protected.txt", "bytes", kReadOnly)}) {
    const Handle handle = files().createFile(file, kRequest);
    ASSERT_NE(handle, kInvalidHandle);
    EXPECT_FALSE(opensForReading(file, kShareRead | kShareWrite));
    EXPECT_FALSE(files().openBinary(1, file));
    EXPECT_EQ(numberOf(fileObjects().deleteFile(file, true)), kPermissionDenied);
    ASSERT_TRUE(files().closeHandle(handle));
    EXPECT_FALSE(files().closeHandle(handle));
    EXPECT_TRUE(opensForReading(file, kShareNone));
    EXPECT_EQ(testMachine().readBack(file), "bytes");
  }
  EXPECT_FALSE(files().closeHandle(kInvalidHandle));
  for (const char* name : {"missing.txt", "folder", "*.txt"}) {
    EXPECT_EQ(files().createFile(at(name), kRequest), kInvalidHandle) << name;
  }
  EXPECT_EQ(namesIn(), (Names{"file.txt", "folder", "protected.txt"}));
}

TEST_F(Files, AHeldFolderIsNeitherRenamedNorDeletedAndNoLink) {
  const std::string folder = makeFolder("held");
  const std::string file = makeFile("file.txt");
  testMachine().makeFolderLink("link", "held");
  const Result<Handle> held = files().holdFolder(folder, false);
  ASSERT_TRUE(held);
  EXPECT_FALSE(files().moveFile(folder, at("moved")));
  EXPECT_FALSE(fileObjects().deleteFolder(folder, true));
  EXPECT_TRUE(files().moveFile(file, at("held\\file.txt"))) << "only the folder itself is held";
  files().releaseFolder(*held);
  for (const char* name : {"link", "held\\file.txt", "missing"}) {
    EXPECT_FALSE(files().holdFolder(at(name), false)) << name;
  }
  const Result<Handle> link = files().holdFolder(at("link"), true);
  ASSERT_TRUE(link);
  files().releaseFolder(*link);
  EXPECT_TRUE(fileObjects().deleteFolder(folder, true));
}

TEST_F(Files, FileNumbersWriteInPlaceFromTheFirstByteOn) {
  const std::string file = makeFile("file.bin", "0123456789");
  EXPECT_EQ(files().freeFile().value(), 1);
  ASSERT_TRUE(files().openBinary(1, file));
  EXPECT_EQ(files().freeFile().value(), 2);
  EXPECT_FALSE(files().flushFileBuffers(1)) << "a file number is no handle";
  EXPECT_TRUE(files().putBytes(1, "ab"));
  EXPECT_TRUE(files().putBytes(1, "c"));
  EXPECT_EQ(testMachine().readBack(file), "abc3456789");
  EXPECT_EQ(numberOf(fileObjects().deleteFile(file, true)), kPermissionDenied);
  EXPECT_TRUE(files().putBytesAt(1, 6, "X"));
  EXPECT_TRUE(files().putBytes(1, "Y"));
  EXPECT_TRUE(files().putBytesAt(1, 1, std::string_view("\0\xFF", 2)));
  EXPECT_TRUE(files().putBytesAt(1, 12, "\r"));
  EXPECT_TRUE(files().putBytesAt(1, 100, "")) << "changes nothing";
  files().closeFile(1);
  EXPECT_EQ(testMachine().readBack(file), std::string("\0\xFF\x63\x33\x34XY789\0\r", 12));
}

TEST_F(Files, FileNumbersMakeMissingFilesAndAreRefusedWhereNothingCanBeWritten) {
  ASSERT_TRUE(files().openBinary(1, at("new.bin")));
  EXPECT_EQ(numberOf(files().openBinary(1, makeFile("file.bin"))), kFileAlreadyOpen);
  files().closeFile(1);
  EXPECT_EQ(testMachine().readBack(at("new.bin")), "");
  EXPECT_EQ(numberOf(files().putBytes(1, "x")), kBadFileNumber);
  makeFolder("folder");
  testMachine().makeFolderLink("link", "folder");
  makeFile("protected.bin", "", kReadOnly);
  for (const auto& [name, number] : {std::pair("missing\\new.bin", kPathNotFound),
                                     {"folder", kPathFileAccess},
                                     {"link", kPathFileAccess},
                                     {"protected.bin", kPathFileAccess}}) {
    EXPECT_EQ(numberOf(files().openBinary(1, at(name))), number) << name;
  }
}

// ---- Renaming within a drive and never across, and deleting one file

class Renaming : public ContractTest {};

TEST_F(Renaming, MovesAFileAndTakesABareNameForOneInTheCurrentFolder) {
  const std::string file = makeFile("source\\a.txt", "kept", kReadOnly);
  testMachine().setCurrentFolder(makeFolder("here"));
  EXPECT_EQ(files().getFullPathName("..\\x\\.\\y").value(), at("x\\y"));
  EXPECT_FALSE(files().getFullPathName("").has_value());
  EXPECT_TRUE(files().rename(file, "b.txt"));
  EXPECT_TRUE(files().rename("b.txt", "c.txt"));
  EXPECT_TRUE(files().rename(at("here\\c.txt"), at("c name .tmp")));
  EXPECT_EQ(testMachine().readBack(at("c name .tmp")), "kept");
  EXPECT_EQ(withoutArchive(files().getFileAttributes(at("c name .tmp"))), kReadOnly);
  EXPECT_EQ(namesIn("source"), Names());
  EXPECT_EQ(namesIn("here"), Names());
}

TEST_F(Renaming, NeverCrossesDrives) {
  const std::string file = makeFile("a.txt", "kept");
  const std::string other = testMachine().onOtherDrive();
  const std::string there = other + "\\there.txt";
  testMachine().makeFile(there, "there");
  for (const auto& [from, to] : {std::pair(file, other + "\\b.txt"), {there, at("b.txt")}, {there, "bare.tmp"}}) {
    EXPECT_EQ(numberOf(files().rename(from, to)), kDifferentDrive) << to;
  }
  EXPECT_EQ(namesIn(), Names{"a.txt"});
  EXPECT_EQ(testMachine().namesIn(other), Names{"there.txt"});
  // The drive's letter counts, not how it is written.
  EXPECT_EQ(numberOf(files().rename("c" + file.substr(1), at("b.txt"))), 0);
}

TEST_F(Renaming, AndRemovingLeaveFoldersAndProtectedAndLockedFiles) {
  const std::string file = makeFile("d.txt", "kept");
  const std::string locked = makeFile("locked.txt");
  makeFolder("folder");
  makeFile("protected.txt", "kept", kReadOnly);
  lock(locked);
  for (const auto& [from, to, number] : {std::tuple(at("missing.txt"), at("b.txt"), kFileNotFound),
                                         {file, locked, kFileAlreadyExists},
                                         {file, at("missing\\b.txt"), kPathNotFound},
                                         {locked, at("b.txt"), kPermissionDenied}}) {
    EXPECT_EQ(numberOf(files().rename(from, to)), number) << from << to;
  }
  const std::pair<const char*, std::int32_t> kept[] = {
      {"a.txt", kFileNotFound},           {"missing\\a.txt", kPathNotFound}, {"folder", kPathFileAccess},
      {"protected.txt", kPathFileAccess}, {"locked.txt", kPermissionDenied},
  };
  for (const auto& [name, number] : kept) EXPECT_EQ(numberOf(files().remove(at(name))), number) << name;
  for (const char* name : {"*.txt", "?.txt"}) {
    EXPECT_FALSE(files().rename(at(name), at("c.txt"))) << name;
    EXPECT_FALSE(files().remove(at(name))) << name;
  }
  EXPECT_EQ(namesIn(), (Names{"d.txt", "folder", "locked.txt", "protected.txt"}));
  EXPECT_TRUE(files().remove(file) && !exists(file));
}

}  // namespace
}  // namespace contract
