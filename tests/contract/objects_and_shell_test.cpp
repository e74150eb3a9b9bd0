// The automation file objects and deletion through the shell.
#include "tests/contract/ContractTest.h"

namespace contract {
namespace {

using testing::ElementsAre;

class FileObjectsContract : public ContractTest {};

TEST_F(FileObjectsContract, TellFoldersFromFilesAndGiveAFilesFullPathAndMaskedAttributes) {
  const std::string file = makeFile("folder\\file.txt");
  EXPECT_TRUE(fileObjects().folderExists(at("FOLDER\\")));
  for (const std::string name : {"folder\\file.txt", "missing", "fold*"}) {
    EXPECT_FALSE(fileObjects().folderExists(at(name))) << name;
  }
  testMachine().setAttributes(file, platform::kReadOnly | platform::kHidden);
  testMachine().setCurrentFolder(at("folder"));
  const auto object = fileObjects().getFile("file.txt");
  ASSERT_TRUE(object);
  EXPECT_EQ(object->path, file);
  EXPECT_EQ(withoutArchive(object->attributes), platform::kReadOnly | platform::kHidden);

  testMachine().setAttributes(file, 0);
  EXPECT_EQ(withoutArchive(fileObjects().getFile(file)->attributes), 0u) << "the bit for none is not one of theirs";
}

TEST_F(FileObjectsContract, FindNoFileWhereThereIsNone) {
  makeFile("folder\\file.txt");
  for (const std::string name : {"missing.txt", "missing\\file.txt", "folder", "*.txt"}) {
    EXPECT_EQ(numberOf(fileObjects().getFile(at(name))), platform::kFileNotFound) << name;
  }
  for (const std::string name : {"missing.txt", "missing\\file.txt", "*.bak", "folder"}) {
    EXPECT_EQ(numberOf(fileObjects().deleteFile(at(name), true)), platform::kFileNotFound) << name;
  }
  EXPECT_TRUE(testMachine().exists(at("folder\\file.txt")));
}

TEST_F(FileObjectsContract, DeleteWhatMatchesAndFoldersWithAllInThemProtectedFilesOnlyByForce) {
  for (const char* name : {"a.tmp", "b.tmp", "kept.txt", "tree kept\\a.txt"}) makeFile(name);
  testMachine().setAttributes(makeFile("tree\\deep\\hidden.txt"), platform::kHidden | platform::kSystem);
  testMachine().setAttributes(makeFolder("tree\\hidden"), platform::kHidden | platform::kSystem);
  testMachine().setAttributes(makeFile("tree\\deep\\protected.txt"), platform::kReadOnly | platform::kHidden);
  EXPECT_TRUE(fileObjects().deleteFile(at("*.tmp"), false));
  EXPECT_EQ(numberOf(fileObjects().deleteFolder(at("tree"), false)), platform::kPermissionDenied);
  EXPECT_EQ(numberOf(fileObjects().deleteFile(at("tree\\deep\\protected.txt"), false)), platform::kPermissionDenied);
  EXPECT_TRUE(testMachine().exists(at("tree\\deep\\protected.txt")));
  EXPECT_TRUE(fileObjects().deleteFolder(at("TREE\\"), true));
  EXPECT_THAT(testMachine().namesIn(testMachine().root()), ElementsAre("kept.txt", "tree kept"));
  EXPECT_TRUE(fileObjects().deleteFolder(at("tree kept"), false));

  const std::string file = makeFile("tree\\in use.txt", "kept");
  testMachine().lock(file);
  EXPECT_EQ(numberOf(fileObjects().deleteFolder(at("tree"), true)), platform::kPermissionDenied);
  EXPECT_TRUE(testMachine().exists(file));
}

TEST_F(FileObjectsContract, DeleteNoFolderWhereThereIsNoneAndNoRoot) {
  makeFile("tree\\file.txt");
  for (const std::string name : {"missing", "missing\\tree", "tree\\file.txt", "tr*", "tr?e"}) {
    EXPECT_EQ(numberOf(fileObjects().deleteFolder(at(name), true)), platform::kPathNotFound) << name;
  }
  EXPECT_EQ(numberOf(fileObjects().deleteFolder("", true)), platform::kPathNotFound);
  const std::string drive = testMachine().root().substr(0, 2);
  for (const std::string& root : {drive + "\\", drive + "\\.", at("..\\")}) {
    EXPECT_EQ(numberOf(fileObjects().deleteFolder(root, true)), platform::kPermissionDenied) << root;
  }
  EXPECT_TRUE(testMachine().exists(at("tree\\file.txt")));
}

TEST_F(FileObjectsContract, DeleteFoldersWithoutWhatTheirLinksPointTo) {
  makeFile("outside\\full\\kept.txt", "kept");
  makeFolder("outside\\empty");
  testMachine().makeFolderLink(at("tree\\deep\\toFull"), at("outside\\full"));
  testMachine().makeFolderLink(at("toEmpty"), at("outside\\empty"));
  for (const std::string name : {"tree\\deep\\toFull", "toEmpty"}) {
    const std::uint32_t attributes = files().getFileAttributes(at(name));
    EXPECT_TRUE(platform::isDirectory(attributes) && !platform::isOwnFolder(attributes)) << name;
  }
  EXPECT_TRUE(fileObjects().folderExists(at("toEmpty")));
  const std::int32_t expected = testMachine().letsLinksGo() ? 0 : platform::kPermissionDenied;
  EXPECT_EQ(numberOf(fileObjects().deleteFolder(at("tree"), true)), expected);
  EXPECT_EQ(numberOf(fileObjects().deleteFolder(at("toEmpty"), true)), expected);
  EXPECT_EQ(testMachine().exists(at("tree")), !testMachine().letsLinksGo());
  EXPECT_EQ(testMachine().exists(at("toEmpty")), !testMachine().letsLinksGo());
  EXPECT_EQ(testMachine().readBack(at("outside\\full\\kept.txt")), "kept");
  EXPECT_TRUE(testMachine().exists(at("outside\\empty")));
}

class ShellContract : public ContractTest {
 protected:
  // Deletes what the paths name, and gives the shell's result.
  std::int32_t remove(const std::vector<std::string>& paths, std::uint16_t flags) {
    std::string list;
    for (const std::string& path : paths) list += path + '\0';
    return shell().fileOperation({.operation = platform::kShellDelete, .sourceList = list, .flags = flags});
  }

  static constexpr std::uint16_t kForGood = platform::kNoConfirmation;
  static constexpr std::uint16_t kToRecycleBin = platform::kNoConfirmation | platform::kAllowUndo;
};

TEST_F(ShellContract, DeletesToTheRecycleBinProtectedFilesToo) {
  const std::size_t before = testMachine().recycledItems();
  const std::string file = makeFile("file.txt", "bytes");
  EXPECT_EQ(remove({file}, kToRecycleBin), 0);
  EXPECT_FALSE(testMachine().exists(file));
  EXPECT_EQ(testMachine().recycledItems(), before + 1);

  const std::string isProtected = makeFile("protected.txt", "bytes");
  testMachine().setAttributes(isProtected, platform::kReadOnly);
  EXPECT_EQ(remove({isProtected}, kToRecycleBin), 0);
  EXPECT_FALSE(testMachine().exists(isProtected));
  EXPECT_EQ(testMachine().recycledItems(), before + 2);
}

TEST_F(ShellContract, DeletesForGoodWhatItsListNamesAndSaysWhatStays) {
  const std::size_t before = testMachine().recycledItems();
  for (const char* name : {"a.tmp", "b.tmp", "with blanks.txt", "last", "folder\\deep\\c.txt", "kept.txt"})
    makeFile(name);
  EXPECT_EQ(remove({at("with blanks.txt"), at("last")}, kForGood), 0);
  EXPECT_EQ(remove({at("*.tmp")}, kForGood), 0);
  EXPECT_EQ(remove({at("folder")}, kForGood), 0);
  EXPECT_THAT(testMachine().namesIn(testMachine().root()), ElementsAre("kept.txt"));
  EXPECT_EQ(testMachine().recycledItems(), before);

  testMachine().lock(at("kept.txt"));
  for (const std::string name : {"kept.txt", "missing.txt", "missing\\file.txt"}) {
    EXPECT_NE(remove({at(name)}, kForGood), 0) << name;
  }
  EXPECT_TRUE(testMachine().exists(at("kept.txt")));
}

}  // namespace
}  // namespace contract
