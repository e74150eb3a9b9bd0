// Folder enumerations: which names a pattern finds, and what the records say; drives and the lists of their folders.
#include <algorithm>

#include "tests/contract/ContractTest.h"

namespace contract {
namespace {

class Enumeration : public ContractTest {};

TEST_F(Enumeration, FindsWhatMatchesAsOnDosAndTheTwoDotEntries) {
  for (const char* name : {"a.bak", "B.BAK", "bak", "a.bak.txt", "~x.doc", "~y", "x.db$", "MyTwain_1.mtx", "other.mtx",
                           "Thumbs.db", "Thumbs.dbx2"}) {
    makeFile(name);
  }
  makeFolder("folder");
  Names all = namesIn();
  all.insert(all.begin(), {".", ".."});
  const std::pair<const char*, Names> cases[] = {{"*", all},
                                                 {"folder\\*", {".", ".."}},
                                                 {"*.bak", {"B.BAK", "a.bak"}},
                                                 {"*.bak ", {"B.BAK", "a.bak"}},
                                                 {"~*.*", {"~x.doc", "~y"}},
                                                 {"a.b*.*", {"a.bak", "a.bak.txt"}},
                                                 {"*Twain*.mtx", {"MyTwain_1.mtx"}},
                                                 {"*.db$", {"x.db$"}},
                                                 {"thumbs.db", {"Thumbs.db"}},
                                                 {"missing\\*", {}},
                                                 {"a.bak\\*", {}},
                                                 {"*\\a.bak", {}}};
  for (const auto& [pattern, names] : cases) EXPECT_EQ(find(at(pattern)), names) << pattern;
  EXPECT_FALSE(files().findClose(kInvalidHandle));
}

TEST_F(Enumeration, RecordsTellKindAttributesAndSize) {
  makeFolder("folder");
  makeFile("seven.txt", "1234567", kHidden | kReadOnly);
  testMachine().makeLongFile(at("long.bin"), (std::uint64_t{5} << 30) + 1);
  const std::tuple<const char*, std::uint32_t, std::uint32_t, std::uint32_t> cases[] = {
      {"folder", kDirectory, 0, 0}, {"seven.txt", kHidden | kReadOnly, 0, 7}, {"long.bin", 0, 1, (1u << 30) + 1}};
  for (const auto& [name, attributes, high, low] : cases) {
    FindRecord record;
    ASSERT_TRUE(files().findClose(files().findFirstFile(at(name), record))) << name;
    EXPECT_EQ(withoutArchive(record.attributes) & ~kNormal, attributes) << name;
    EXPECT_EQ(std::tuple(record.sizeHigh, record.sizeLow), std::tuple(high, low)) << name;
  }
}

TEST_F(Enumeration, GoesOnWhileWhatItGaveIsDeletedAndOthersRunBesideIt) {
  for (int i = 0; i < 300; ++i) makeFile("f" + std::to_string(i) + ".tmp");
  makeFile("kept.txt");
  FindRecord record;
  const Handle enumeration = files().findFirstFile(at("*.tmp"), record);
  ASSERT_NE(enumeration, kInvalidHandle);
  do {
    EXPECT_EQ(find(at("*.txt")), Names{"kept.txt"});
    ASSERT_TRUE(fileObjects().deleteFile(at(record.name.data()), true)) << record.name.data();
  } while (files().findNextFile(enumeration, record));
  EXPECT_TRUE(files().findClose(enumeration));
  EXPECT_EQ(namesIn(), Names{"kept.txt"});
}

// ---- Drives and current folders

class Drives : public ContractTest {};

TEST_F(Drives, HaveACurrentFolderEachAndListWhatPeopleSee) {
  for (const char* name : {"beta\\below", "Alpha", "alphabet", "Gamma.old"}) makeFolder(name);
  for (const char* name : {"b", "A.txt", "c.x.y", "B.txt"}) makeFile(name);
  makeFolder("hidden", kHidden);
  makeFolder("system", kSystem);
  makeFile("hidden.txt", "", kHidden);
  makeFile("system.txt", "", kSystem);
  makeFile("protected.txt", "", kReadOnly);
  EXPECT_EQ(files().subfolders(testMachine().root()).value(), (Names{"Alpha", "alphabet", "beta", "Gamma.old"}));
  EXPECT_EQ(files().subfolders(at("beta\\")).value(), Names{"below"});
  EXPECT_EQ(files().filesIn(testMachine().root()).value(), (Names{"A.txt", "b", "B.txt", "c.x.y", "protected.txt"}));
  for (const char* name : {"missing", "b"}) EXPECT_EQ(numberOf(files().subfolders(at(name))), kPathNotFound) << name;

  for (const std::string& folder : {at("beta"), at("").substr(0, 3)}) {
    testMachine().setCurrentFolder(folder);
    EXPECT_EQ(files().currentFolder(), folder);
    EXPECT_EQ(files().currentFolderOf(folder[0]).value(), folder);
  }
  const std::vector<Drive> drives = files().drives();
  char missing = 'Z';
  while (std::ranges::find(drives, missing, &Drive::letter) != drives.end()) --missing;
  EXPECT_EQ(numberOf(files().currentFolderOf(missing)), kDeviceUnavailable);
  EXPECT_EQ(numberOf(files().subfolders(std::string(1, missing) + ":\\")), kDeviceUnavailable);
}

}  // namespace
}  // namespace contract
