// Folder enumerations: which names a pattern finds, and what the records say.
#include "tests/contract/ContractTest.h"

namespace contract {
namespace {

class Enumeration : public ContractTest {
 protected:
  FindRecord recordOf(const std::string& path) {
    FindRecord record;
    const Handle enumeration = files().findFirstFile(path, record);
    EXPECT_NE(enumeration, kInvalidHandle) << path;
    files().findClose(enumeration);
    return record;
  }
};

TEST_F(Enumeration, FindsWhatMatchesAsOnDosAndTheTwoDotEntries) {
  for (const char* name : {"a.bak", "B.BAK", "bak", "a.bak.txt", "~x.doc", "~y", "x.db$", "o.---", "MyTwain_1.mtx",
                           "other.mtx", "Thumbs.db", "Thumbs.dbx2"}) {
    makeFile(name);
  }
  makeFolder("folder");
  const std::pair<const char*, Names> cases[] = {{"folder\\*", {".", ".."}},
                                                 {"*.bak", {"B.BAK", "a.bak"}},
                                                 {"*.bak ", {"B.BAK", "a.bak"}},
                                                 {"?.bak", {"B.BAK", "a.bak"}},
                                                 {"a*", {"a.bak", "a.bak.txt"}},
                                                 {"~*.*", {"~x.doc", "~y"}},
                                                 {"a.b*.*", {"a.bak", "a.bak.txt"}},
                                                 {"*Twain*.mtx", {"MyTwain_1.mtx"}},
                                                 {"*.db$", {"x.db$"}},
                                                 {"*.---", {"o.---"}},
                                                 {"thumbs.db", {"Thumbs.db"}},
                                                 {"*.tmp", {}},
                                                 {"missing.txt", {}},
                                                 {"missing\\*", {}},
                                                 {"a.bak\\*", {}},
                                                 {"*\\a.bak", {}}};
  for (const auto& [pattern, names] : cases) EXPECT_EQ(find(at(pattern)), names) << pattern;
  Names all = namesIn();
  all.insert(all.begin(), {".", ".."});
  EXPECT_EQ(find(at("*")), all);
  EXPECT_EQ(find(at("*.*")), all);
  EXPECT_TRUE(find("").empty());
  EXPECT_FALSE(files().findClose(kInvalidHandle));
}

TEST_F(Enumeration, RecordsTellKindAttributesAndSize) {
  makeFolder("folder");
  makeFile("seven.txt", "1234567", kHidden | kReadOnly);
  testMachine().makeLongFile(at("long.bin"), (std::uint64_t{5} << 30) + 1);
  EXPECT_TRUE(isDirectory(recordOf(at("folder")).attributes));
  const FindRecord seven = recordOf(at("seven.txt"));
  EXPECT_EQ(withoutArchive(seven.attributes), kHidden | kReadOnly);
  EXPECT_EQ(seven.sizeLow, 7u);
  EXPECT_EQ(seven.sizeHigh, 0u);
  const FindRecord large = recordOf(at("long.bin"));
  EXPECT_EQ(large.sizeLow, (1u << 30) + 1);
  EXPECT_EQ(large.sizeHigh, 1u);
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
