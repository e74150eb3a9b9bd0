// Folder enumerations: which names a pattern finds, and what the records say.
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

}  // namespace
}  // namespace contract
