// Renaming within a drive and never across, and deleting one file.
#include "tests/contract/ContractTest.h"

namespace contract {
namespace {

class Renaming : public ContractTest {};

TEST_F(Renaming, MovesAFileAndTakesABareNameForOneInTheCurrentFolder) {
  const std::string file = makeFile("source\\a.txt", "kept", kReadOnly);
  testMachine().setCurrentFolder(makeFolder("here"));
  EXPECT_EQ(files().getFullPathName("c.txt").value(), at("here\\c.txt"));
  EXPECT_EQ(files().getFullPathName("..\\x\\.\\y").value(), at("x\\y"));
  EXPECT_FALSE(files().getFullPathName("").has_value());
  EXPECT_EQ(numberOf(files().rename(file, "b.txt")), 0);
  EXPECT_EQ(numberOf(files().rename("b.txt", "c.txt")), 0);
  EXPECT_EQ(numberOf(files().rename(at("here\\c.txt"), at("c name .tmp"))), 0);
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
  // The system itself would have copied.
  EXPECT_EQ(numberOf(files().moveFile(at("b.txt"), other + "\\b.txt")), 0);
  EXPECT_EQ(testMachine().readBack(other + "\\b.txt"), "kept");
  EXPECT_EQ(namesIn(), Names());
}

TEST_F(Renaming, IsRefusedWhereItCannotBe) {
  const std::string file = makeFile("a.txt", "kept");
  const std::string locked = makeFile("locked.txt");
  lock(locked);
  EXPECT_EQ(numberOf(files().rename(at("missing.txt"), at("b.txt"))), kFileNotFound);
  EXPECT_EQ(numberOf(files().rename(file, locked)), kFileAlreadyExists);
  EXPECT_EQ(numberOf(files().rename(file, at("missing\\b.txt"))), kPathNotFound);
  EXPECT_EQ(numberOf(files().rename(locked, at("b.txt"))), kPermissionDenied);
  EXPECT_FALSE(files().rename(at("a*.txt"), at("c.txt")));
  EXPECT_EQ(namesIn(), (Names{"a.txt", "locked.txt"}));
}

class Removing : public ContractTest {};

TEST_F(Removing, TakesOneFileAndLeavesFoldersAndProtectedAndLockedFiles) {
  EXPECT_EQ(numberOf(files().remove(makeFile("a.txt"))), 0);
  makeFile("d.txt");
  makeFolder("folder");
  makeFile("protected.txt", "kept", kReadOnly);
  lock(makeFile("locked.txt"));
  const std::pair<const char*, std::int32_t> refused[] = {
      {"a.txt", kFileNotFound},           {"missing\\a.txt", kPathNotFound}, {"folder", kPathFileAccess},
      {"protected.txt", kPathFileAccess}, {"locked.txt", kPermissionDenied},
  };
  for (const auto& [name, number] : refused) EXPECT_EQ(numberOf(files().remove(at(name))), number) << name;
  for (const char* name : {"*.txt", "?.txt"}) EXPECT_FALSE(files().remove(at(name))) << name;
  EXPECT_EQ(namesIn(), (Names{"d.txt", "folder", "locked.txt", "protected.txt"}));
}

}  // namespace
}  // namespace contract
