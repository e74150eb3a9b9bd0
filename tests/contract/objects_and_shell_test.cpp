// The automation file objects, deletion through the shell, the Recycle Bin, and the recent documents.
#include "tests/contract/ContractTest.h"

namespace contract {
namespace {

class FileObjectsContract : public ContractTest {};

TEST_F(FileObjectsContract, TellFoldersFromFilesAndGiveAFilesFullPathAndMaskedAttributes) {
  makeFile("folder\\plain.txt");
  const std::string file = makeFile("folder\\file.txt", "", kReadOnly | kHidden);
  EXPECT_TRUE(fileObjects().folderExists(at("FOLDER\\")));
  for (const char* name : {"folder\\file.txt", "missing", "fold*"}) {
    EXPECT_FALSE(fileObjects().folderExists(at(name))) << name;
  }
  testMachine().setCurrentFolder(at("folder"));
  const auto object = fileObjects().getFile("file.txt");
  ASSERT_TRUE(object);
  EXPECT_EQ(object->path, file);
  EXPECT_EQ(withoutArchive(object->attributes), kReadOnly | kHidden);
  EXPECT_EQ(withoutArchive(fileObjects().getFile("plain.txt")->attributes), 0u) << "the bit for none is masked";
}

TEST_F(FileObjectsContract, FindNothingWhereNothingIsAndDeleteNoRoot) {
  makeFile("folder\\file.txt");
  for (const char* name : {"missing.txt", "missing\\file.txt", "folder", "*.bak"}) {
    EXPECT_EQ(numberOf(fileObjects().getFile(at(name))), kFileNotFound) << name;
    EXPECT_EQ(numberOf(fileObjects().deleteFile(at(name), true)), kFileNotFound) << name;
  }
  for (const char* name : {"missing", "missing\\folder", "folder\\file.txt", "fold*", "f?lder"}) {
    EXPECT_EQ(numberOf(fileObjects().deleteFolder(at(name), true)), kPathNotFound) << name;
  }
  EXPECT_EQ(numberOf(fileObjects().deleteFolder("", true)), kPathNotFound);
  const std::string drive = testMachine().root().substr(0, 2);
  for (const std::string& root : {drive + "\\", drive + "\\.", at("..\\")}) {
    EXPECT_EQ(numberOf(fileObjects().deleteFolder(root, true)), kPermissionDenied) << root;
  }
  EXPECT_TRUE(exists(at("folder\\file.txt")));
}

TEST_F(FileObjectsContract, DeleteWhatMatchesAndFoldersWithAllInThemProtectedFilesOnlyByForce) {
  for (const char* name : {"a.tmp", "b.tmp", "kept.txt", "tree kept\\a.txt"}) makeFile(name);
  makeFile("tree\\deep\\hidden.txt", "", kHidden | kSystem);
  makeFolder("tree\\hidden", kHidden | kSystem);
  const std::string isProtected = makeFile("tree\\deep\\protected.txt", "", kReadOnly | kHidden);
  EXPECT_TRUE(fileObjects().deleteFile(at("*.tmp"), false));
  EXPECT_EQ(numberOf(fileObjects().deleteFolder(at("tree"), false)), kPermissionDenied);
  EXPECT_EQ(numberOf(fileObjects().deleteFile(isProtected, false)), kPermissionDenied);
  EXPECT_TRUE(exists(isProtected));
  EXPECT_TRUE(fileObjects().deleteFolder(at("TREE\\"), true));
  EXPECT_EQ(namesIn(), (Names{"kept.txt", "tree kept"}));

  const std::string file = makeFile("tree\\in use.txt", "kept");
  lock(file);
  EXPECT_EQ(numberOf(fileObjects().deleteFolder(at("tree"), true)), kPermissionDenied);
  EXPECT_TRUE(exists(file));
}

TEST_F(FileObjectsContract, DeleteFoldersWithoutWhatTheirLinksPointTo) {
  makeFile("outside\\full\\kept.txt", "kept");
  makeFolder("outside\\empty");
  testMachine().makeFolderLink(at("tree\\deep\\toFull"), at("outside\\full"));
  testMachine().makeFolderLink(at("toEmpty"), at("outside\\empty"));
  for (const char* name : {"tree\\deep\\toFull", "toEmpty"}) {
    const std::uint32_t attributes = files().getFileAttributes(at(name));
    EXPECT_TRUE(isDirectory(attributes) && !isOwnFolder(attributes)) << name;
  }
  EXPECT_TRUE(files().getFileAttributes(at("tree\\deep\\toFull\\kept.txt")) != kInvalidAttributes)
      << "a path through a link leads elsewhere";
  const std::int32_t expected = testMachine().letsLinksGo() ? 0 : kPermissionDenied;
  for (const char* name : {"tree", "toEmpty"}) {
    EXPECT_EQ(numberOf(fileObjects().deleteFolder(at(name), true)), expected) << name;
    EXPECT_EQ(exists(at(name)), !testMachine().letsLinksGo()) << name;
  }
  EXPECT_EQ(testMachine().readBack(at("outside\\full\\kept.txt")), "kept");
  EXPECT_TRUE(exists(at("outside\\empty")));
}

class ShellContract : public ContractTest {
 protected:
  // Deletes what the paths name, and gives the shell's result.
  std::int32_t remove(const Names& paths, std::uint16_t flags) {
    std::string list;
    for (const std::string& path : paths) list += path + '\0';
    return machine().shell().fileOperation({.operation = kShellDelete, .sourceList = list, .flags = flags});
  }

  static constexpr std::uint16_t kForGood = kNoConfirmation;
  static constexpr std::uint16_t kToRecycleBin = kNoConfirmation | kAllowUndo;
};

TEST_F(ShellContract, DeletesToTheRecycleBinProtectedFilesToo) {
  const std::size_t before = testMachine().recycledItems();
  EXPECT_EQ(remove({makeFile("file.txt", "bytes")}, kToRecycleBin), 0);
  EXPECT_EQ(remove({makeFile("protected.txt", "bytes", kReadOnly)}, kToRecycleBin), 0);
  EXPECT_EQ(namesIn(), Names());
  EXPECT_EQ(testMachine().recycledItems(), before + 2);
}

TEST_F(ShellContract, DeletesForGoodWhatItsListNamesAndSaysWhatStays) {
  const std::size_t before = testMachine().recycledItems();
  for (const char* name : {"a.tmp", "b.tmp", "with blanks.txt", "last", "folder\\deep\\c.txt", "kept.txt"}) {
    makeFile(name);
  }
  EXPECT_EQ(remove({at("with blanks.txt"), at("last")}, kForGood), 0);
  EXPECT_EQ(remove({at("*.tmp")}, kForGood), 0);
  EXPECT_EQ(remove({at("folder")}, kForGood), 0);
  lock(at("kept.txt"));
  for (const char* name : {"kept.txt", "missing.txt", "missing\\file.txt"}) {
    EXPECT_NE(remove({at(name)}, kForGood), 0) << name;
  }
  EXPECT_EQ(namesIn(), Names{"kept.txt"});
  EXPECT_EQ(testMachine().recycledItems(), before);
}

TEST_F(ShellContract, EmptiesTheWholeBin) {
  // Some systems cannot take protected files out of the bin; those of other tests may lie there.
  const std::size_t before = testMachine().recycledItems();
  for (const char* name : {"a.txt", "b.txt", "c.txt"}) ASSERT_EQ(remove({makeFile(name)}, kToRecycleBin), 0);
  ASSERT_EQ(testMachine().recycledItems(), before + 3);
  constexpr std::uint32_t kSilently = kBinNoConfirmation | kBinNoProgress | kBinNoSound;
  EXPECT_EQ(machine().shell().emptyRecycleBin("", kSilently), 0);
  EXPECT_LE(testMachine().recycledItems(), before);
}

TEST_F(ShellContract, ForgetsTheRecentDocuments) {
  const std::string document = makeFile("letter.txt", "bytes");
  machine().shell().addToRecentDocs(kRecentByPath, document);
  EXPECT_EQ(testMachine().recentDocuments(), 1U);
  machine().shell().addToRecentDocs(kRecentByPath, std::nullopt);
  EXPECT_EQ(testMachine().recentDocuments(), 0U);
  EXPECT_TRUE(exists(document));
}

}  // namespace
}  // namespace contract
