// Folder enumerations: which names a pattern finds, and what the records say.
#include "tests/contract/ContractTest.h"

namespace contract {
namespace {

using platform::FindRecord;
using platform::Handle;
using platform::kInvalidHandle;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class Enumeration : public ContractTest {};

TEST_F(Enumeration, GivesEveryEntryOnceWithTheTwoDotEntries) {
  makeFile("one.txt");
  makeFile("Two");
  makeFolder("three");
  EXPECT_THAT(find(at("*")), UnorderedElementsAre(".", "..", "one.txt", "Two", "three"));
  EXPECT_THAT(find(at("*.*")), UnorderedElementsAre(".", "..", "one.txt", "Two", "three"));
  EXPECT_THAT(find(at("three\\*")), UnorderedElementsAre(".", ".."));
}

TEST_F(Enumeration, OfWhatIsNotThereGivesNoHandle) {
  makeFile("file.txt");
  FindRecord record;
  for (const std::string pattern : {"*.bak", "missing.txt", "missing\\*", "file.txt\\*", "*\\file.txt", "a*\\b.txt"}) {
    EXPECT_EQ(files().findFirstFile(at(pattern), record), kInvalidHandle) << pattern;
  }
  EXPECT_EQ(files().findFirstFile("", record), kInvalidHandle);
  EXPECT_EQ(files().findFirstFile(at(std::string(260, 'x')), record), kInvalidHandle);
  EXPECT_FALSE(files().findClose(kInvalidHandle));
}

TEST_F(Enumeration, MatchesPatternsAsDosDid) {
  for (const char* name : {"a.bak", "B.BAK", "bak", "a.bak.txt", "~x.doc", "~y", "MyTwain_1.mtx", "other.mtx", "c.db$",
                           "old.---", "Thumbs.db", "Thumbs.dbx2"}) {
    makeFile(name);
  }
  EXPECT_THAT(find(at("*.bak")), UnorderedElementsAre("a.bak", "B.BAK"));
  EXPECT_THAT(find(at("*.bak ")), UnorderedElementsAre("a.bak", "B.BAK"));
  EXPECT_THAT(find(at("~*.*")), UnorderedElementsAre("~x.doc", "~y"));
  EXPECT_THAT(find(at("*Twain*.mtx")), ElementsAre("MyTwain_1.mtx"));
  EXPECT_THAT(find(at("*.db$")), ElementsAre("c.db$"));
  EXPECT_THAT(find(at("*.---")), ElementsAre("old.---"));
  EXPECT_THAT(find(at("Thumbs.db")), ElementsAre("Thumbs.db"));
  EXPECT_THAT(find(at("?.bak")), UnorderedElementsAre("a.bak", "B.BAK"));
  EXPECT_THAT(find(at("a*")), UnorderedElementsAre("a.bak", "a.bak.txt"));
}

TEST_F(Enumeration, RecordsTellKindAttributesAndSize) {
  makeFolder("folder");
  testMachine().setAttributes(makeFile("seven.txt", "1234567"), platform::kHidden | platform::kReadOnly);
  testMachine().makeLongFile(at("long.bin"), (std::uint64_t{5} << 30) + 1);

  EXPECT_TRUE(platform::isDirectory(recordOf(at("folder")).attributes));
  const FindRecord seven = recordOf(at("SEVEN.TXT"));
  EXPECT_STREQ(seven.name.data(), "seven.txt");
  EXPECT_EQ(withoutArchive(seven.attributes), platform::kHidden | platform::kReadOnly);
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
  int given = 0;
  const Handle enumeration = files().findFirstFile(at("*.tmp"), record);
  ASSERT_NE(enumeration, kInvalidHandle);
  do {
    ++given;
    EXPECT_THAT(find(at("*.txt")), ElementsAre("kept.txt"));
    ASSERT_TRUE(fileObjects().deleteFile(at(record.name.data()), true)) << record.name.data();
  } while (files().findNextFile(enumeration, record));
  EXPECT_TRUE(files().findClose(enumeration));
  EXPECT_EQ(given, 300);
  EXPECT_THAT(testMachine().namesIn(testMachine().root()), ElementsAre("kept.txt"));
}

TEST_F(Enumeration, TakesRelativePatternsFromTheCurrentFolder) {
  makeFile("here\\a.txt");
  makeFile("here\\below\\b.txt");
  testMachine().setCurrentFolder(at("here"));
  EXPECT_THAT(find("*.txt"), ElementsAre("a.txt"));
  EXPECT_THAT(find("below\\*.txt"), ElementsAre("b.txt"));
  EXPECT_THAT(find(testMachine().root().substr(0, 2) + "*.txt"), ElementsAre("a.txt"));
}

}  // namespace
}  // namespace contract
