// The automation file objects, deletion through the shell, and the Recycle Bin.
#include "tests/contract/ContractTest.h"

namespace contract {
namespace {

class FileObjectsContract : public ContractTest {};

TEST_F(FileObjectsContract, TellFoldersFromFilesFindNothingWhereNothingIsAndDeleteNoRoot) {
  const std::string file = makeFile("folder\\file.txt", "", kReadOnly | kHidden);
  const auto object = fileObjects().getFile(file);
  ASSERT_TRUE(object);
  EXPECT_EQ(object->path, file);
  EXPECT_EQ(withoutArchive(object->attributes), kReadOnly | kHidden);
  EXPECT_EQ(withoutArchive(fileObjects().getFile(makeFile("plain.txt"))->attributes), 0u)
      << "none has a bit of its own";
  for (const char* name : {"missing.txt", "missing\\file.txt", "folder", "*.bak"}) {
    EXPECT_EQ(numberOf(fileObjects().getFile(at(name))), kFileNotFound) << name;
    EXPECT_EQ(numberOf(fileObjects().deleteFile(at(name), true)), kFileNotFound) << name;
  }
  EXPECT_TRUE(fileObjects().folderExists(at("FOLDER\\")));
  for (const std::string& path : {at("missing\\folder"), file, at("fold*"), at("f?lder"), std::string()}) {
    EXPECT_FALSE(fileObjects().folderExists(path)) << path;
    EXPECT_EQ(numberOf(fileObjects().deleteFolder(path, true)), kPathNotFound) << path;
  }
  for (const std::string& root : {std::string("C:\\"), std::string("C:\\."), at("..\\")}) {
    EXPECT_EQ(numberOf(fileObjects().deleteFolder(root, true)), kPermissionDenied) << root;
  }
  EXPECT_TRUE(exists(file));
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
  testMachine().makeFolderLink("tree\\deep\\toFull", "outside\\full");
  testMachine().makeFolderLink("toEmpty", "outside\\empty");
  for (const char* name : {"tree\\deep\\toFull", "toEmpty"}) {
    const std::uint32_t attributes = files().getFileAttributes(at(name));
    EXPECT_TRUE(isDirectory(attributes) && !isOwnFolder(attributes)) << name;
  }
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
};

TEST_F(ShellContract, DeletesToTheRecycleBinAndEmptiesIt) {
  constexpr std::uint16_t kToRecycleBin = kNoConfirmation | kAllowUndo;
  constexpr std::uint32_t kSilently = kBinNoConfirmation | kBinNoProgress | kBinNoSound;
  const std::size_t before = testMachine().recycledItems();
  for (const char* name : {"a.txt", "b.txt"}) EXPECT_EQ(remove({makeFile(name)}, kToRecycleBin), 0);
  EXPECT_EQ(testMachine().recycledItems(), before + 2);
  EXPECT_EQ(machine().shell().emptyRecycleBin("", kSilently), 0);
  EXPECT_EQ(testMachine().recycledItems(), 0U);
  // Some systems cannot take protected files out of the bin again.
  EXPECT_EQ(remove({makeFile("protected.txt", "bytes", kReadOnly)}, kToRecycleBin), 0);
  EXPECT_EQ(testMachine().recycledItems(), 1U);
  EXPECT_EQ(namesIn(), Names());
}

TEST_F(ShellContract, ShowsNoHelpThatIsNotThere) {
  EXPECT_FALSE(machine().shell().showHelp(at("missing.chm"), "overview.html"));
  machine().shell().closeHelp();
}

TEST_F(ShellContract, DeletesForGoodWhatItsListNamesAndSaysWhatStays) {
  const std::size_t before = testMachine().recycledItems();
  for (const char* name : {"a.tmp", "with blanks.txt", "last", "folder\\deep\\c.txt", "kept.txt"}) makeFile(name);
  lock(at("kept.txt"));
  EXPECT_EQ(remove({at("with blanks.txt"), at("last"), at("*.tmp"), at("folder")}, kNoConfirmation), 0);
  for (const char* name : {"kept.txt", "missing.txt"}) EXPECT_NE(remove({at(name)}, kNoConfirmation), 0) << name;
  EXPECT_EQ(namesIn(), Names{"kept.txt"});
  EXPECT_EQ(testMachine().recycledItems(), before);
}

}  // namespace
}  // namespace contract
