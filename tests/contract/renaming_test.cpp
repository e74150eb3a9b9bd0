// Renaming within a drive and never across, and deleting one file.
#include "tests/contract/ContractTest.h"

namespace contract {
namespace {

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
