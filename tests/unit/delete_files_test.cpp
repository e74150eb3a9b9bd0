#include "tests/unit/ConsoleTest.h"

#include <algorithm>

using platform::Answer;
using platform::kArchive;
using platform::kHidden;
using platform::kReadOnly;

namespace {

std::string wipePattern() {
  std::string pattern;
  for (const int value : {85, 170, 74, 99, 71, 92, 101, 112, 1, 61, 97, 119, 86, 79, 109, 72, 90, 0, 255, 212}) {
    pattern.append(10, static_cast<char>(value));
  }
  return pattern;
}

class DeleteFiles : public ConsoleTest {
 protected:
  // Scans C:\J, ticks the rows of these files and leaves them to be deleted.
  void list(std::initializer_list<const char*> ticked) {
    scan({kTypeTmp}, "C:\\J");
    tick(form.ListView1, ticked);
  }

  // Presses Delete Files and answers the question with Yes.
  void confirm() {
    machine.answer(Answer::kYes);
    form.Delete.click();
  }

  // What was written over a file, in order, and whether each write followed the one before.
  std::string writtenTo(const std::string& path) const {
    std::string bytes;
    for (const auto& write : machine.disk().writes()) {
      if (write.path == path && !write.bytes.empty()) {
        EXPECT_EQ(write.position, bytes.size());
        bytes += write.bytes;
      }
    }
    return bytes;
  }
};

TEST_F(DeleteFiles, AsksFirstAndNoOrNothingTickedChangesNothing) {
  machine.addFile("C:\\J\\a.tmp", "a");
  form.Delete.enable();
  form.Delete.click();
  EXPECT_EQ(lastBox(), "Nothing to Delete");
  list({});
  form.Delete.enable();
  form.Delete.click();
  EXPECT_EQ(lastBox(), "Nothing Selected");
  list({"a.tmp"});
  machine.answer(Answer::kNo);
  form.Delete.click();
  expectBox("Confirm file deletion?", "Confirm Deletion", 292);
  EXPECT_EQ(paths(), Paths{"C:\\J\\a.tmp"});
  EXPECT_TRUE(machine.shell().fileOperations().empty());
}

TEST_F(DeleteFiles, GoesToTheRecycleBinOrIsGoneForGoodAndOnlyTickedRows) {
  for (const char* name : {"a", "b", "c", "d"}) machine.addFile(std::string("C:\\J\\") + name + ".tmp", name);
  list({"b.tmp", "c.tmp"});
  const std::size_t before = machine.boxes().size();
  confirm();
  EXPECT_EQ(machine.boxes().size(), before + 1) << "no closing message";
  EXPECT_EQ(machine.disk().recycleBin(), (Paths{"C:\\J\\b.tmp", "C:\\J\\c.tmp"}));
  EXPECT_EQ(paths(), (Paths{"C:\\J\\a.tmp", "C:\\J\\d.tmp"}));
  ASSERT_EQ(machine.shell().fileOperations().size(), 2U);
  EXPECT_EQ(machine.shell().fileOperations()[0].flags, 80);
  EXPECT_EQ(machine.shell().fileOperations()[0].sourceList, std::string("C:\\J\\b.tmp") + '\0');
  EXPECT_FALSE(form.Delete.enabled()) << "no ticked row is left";

  form.ListView1.clickTick(1);
  form.optRecycle.click();
  EXPECT_FALSE(form.optWipe.ticked());
  confirm();
  EXPECT_EQ(machine.shell().fileOperations().back().flags, 16);
  EXPECT_EQ(machine.disk().recycleBin().size(), 2U);
  EXPECT_EQ(machine.filesBelow("C:\\J"), Paths{"C:\\J\\a.tmp"});
}

TEST_F(DeleteFiles, ReadOnlyAsksOnlyForItsTwoAttributesAndNoKeepsTheFile) {
  machine.addFile("C:\\J\\1.tmp", "x", kReadOnly);
  machine.addFile("C:\\J\\33.tmp", "x", kReadOnly | kArchive);
  machine.addFile("C:\\J\\35.tmp", "x", kReadOnly | kArchive | kHidden);
  machine.addFile("C:\\J\\other.tmp", "x");
  list({"1.tmp", "33.tmp", "35.tmp"});
  const std::size_t before = machine.boxes().size();
  machine.ui().onBox([this](const auto& box) {
    if (box.title == "Delete File") form.ListView1.setTicked(3, true);  // too late to count
  });
  for (const Answer answer : {Answer::kYes, Answer::kNo, Answer::kYes}) machine.answer(answer);
  form.Delete.click();
  EXPECT_EQ(machine.boxes().size(), before + 3);
  expectBox("C:\\J\\33.tmp\r\nis a read only file - OK to delete?", "Delete File", 4);
  EXPECT_EQ(machine.filesBelow("C:\\J"), (Paths{"C:\\J\\1.tmp", "C:\\J\\other.tmp"}));
  EXPECT_EQ(paths(), (Paths{"C:\\J\\1.tmp", "C:\\J\\other.tmp"}));
  EXPECT_TRUE(form.ListView1.ticked(0));
}

TEST_F(DeleteFiles, FileInUseIsNamedAndStays) {
  for (const char* name : {"a", "b", "gone"}) machine.addFile(std::string("C:\\J\\") + name + ".tmp");
  list({"a.tmp", "b.tmp", "gone.tmp"});
  machine.disk().lock("C:\\J\\a.tmp");
  machine.failAt("getFile", 2, platform::kPermissionDenied);
  confirm();
  expectBox("C:\\J\\a.tmp is in use by Windows and can not be deleted.", "File Deletion Error", 0);
  EXPECT_EQ(machine.filesBelow("C:\\J"), (Paths{"C:\\J\\a.tmp", "C:\\J\\b.tmp"})) << "b's attributes cannot be read";
  EXPECT_EQ(paths(), machine.filesBelow("C:\\J"));
  const int opened = machine.faults().calls("createFile");
  EXPECT_FALSE(form.FileIsOpen1("C:\\J\\gone.tmp"));
  EXPECT_EQ(machine.faults().calls("createFile"), opened);
}

TEST_F(DeleteFiles, WipesTheFirst200BytesInPlaceAndOnlyTickedFiles) {
  machine.addFile("C:\\J\\a.tmp", "untouched a");
  machine.addFile("C:\\J\\b.tmp", std::string(1000, 'o'));
  machine.addFile("C:\\J\\c.tmp", "untouched c");
  machine.addFile("C:\\J\\d.tmp", "short");
  list({"b.tmp", "d.tmp"});
  form.optWipe.click();
  EXPECT_FALSE(form.optRecycle.ticked());
  confirm();
  EXPECT_EQ(writtenTo("C:\\J\\b.tmp"), wipePattern());
  EXPECT_EQ(writtenTo("C:\\J\\d.tmp"), wipePattern()) << "a short file is made longer first";
  EXPECT_EQ(machine.contents("C:\\J\\a.tmp"), "untouched a");
  EXPECT_EQ(paths(), (Paths{"C:\\J\\a.tmp", "C:\\J\\c.tmp"}));
  EXPECT_EQ(paths(), machine.filesBelow("C:\\J"));
  expectBox("All files that are not locked have been shredded.", "Files Shredded", 64);
  EXPECT_EQ(form.ListView1.toolTip(), "Scan Results");
  EXPECT_TRUE(form.optWipe.visible());
  EXPECT_TRUE(machine.disk().recycleBin().empty());

  list({"a.tmp", "c.tmp"});
  confirm();
  EXPECT_TRUE(form.ListView1.empty());
  EXPECT_FALSE(form.optWipe.visible() || form.optRecycle.visible() || form.Delete.enabled());
}

TEST_F(DeleteFiles, WipeLeavesReadOnlyLockedAndRefusedFilesAndTheRowsInOrder) {
  machine.addFile("C:\\J\\1.tmp", "free");
  machine.addFile("C:\\J\\2.tmp", "unticked");
  machine.addFile("C:\\J\\3.tmp", "read-only", kReadOnly | kArchive | kHidden);
  machine.addFile("C:\\J\\4.tmp", "locked");
  machine.addFile("C:\\J\\5.tmp", "gone already");
  list({"1.tmp", "3.tmp", "4.tmp", "5.tmp"});
  machine.disk().lock("C:\\J\\4.tmp");
  ASSERT_TRUE(machine.fileObjects().deleteFile("C:\\J\\5.tmp", true));
  form.optWipe.click();
  confirm();
  EXPECT_EQ(paths(), (Paths{"C:\\J\\2.tmp", "C:\\J\\3.tmp", "C:\\J\\4.tmp"}));
  EXPECT_EQ(form.ListView1.tickedCount(), 2U);
  EXPECT_TRUE(form.Delete.enabled());
  EXPECT_EQ(lastBox(), "All files that are not locked have been shredded.");

  // A file that cannot be opened for writing ends the command and is not removed.
  machine.disk().unlock("C:\\J\\4.tmp");
  machine.disk().denyWriting("C:\\J\\4.tmp");
  const std::size_t before = machine.boxes().size();
  confirm();
  EXPECT_EQ(machine.boxes().size(), before + 1) << "no closing message";
  EXPECT_EQ(machine.contents("C:\\J\\4.tmp"), "locked");
  EXPECT_EQ(paths(), (Paths{"C:\\J\\2.tmp", "C:\\J\\3.tmp", "C:\\J\\4.tmp"}));
  EXPECT_EQ(machine.openHandles(), 0U);
}

TEST_F(DeleteFiles, TooManyRowsEndTheWipeAfterItsFirstFile) {
  addFiles("C:\\J", {"a.tmp", "b.tmp", "c.tmp"});
  list({"b.tmp", "c.tmp"});
  form.optWipe.click();
  for (int i = 0; i < 32765; ++i) form.ListView1.add("C:\\None\\" + std::to_string(i));
  confirm();
  EXPECT_EQ(lastBox(), "Confirm file deletion?");
  EXPECT_EQ(machine.filesBelow("C:\\J"), (Paths{"C:\\J\\a.tmp", "C:\\J\\c.tmp"}));
  EXPECT_EQ(form.ListView1.rowCount(), 32768U);
}

// Each platform call of a wipe fails once: no other file is harmed, no handle stays open, every file left has its row.
TEST_F(DeleteFiles, AnyFailureLeavesFilesAndRowsInStep) {
  form.optWipe.setTicked(true);
  withEachCallFailing({"anyFileMatches", "createFile", "getFile", "openBinary", "putBytes", "putBytesAt", "deleteFile"},
                      [&](const std::string& what) {
                        addFiles("C:\\J", {"a.tmp", "b.tmp", "c.tmp"});
                        list({"a.tmp", "c.tmp"});
                        confirm();
                        EXPECT_EQ(machine.contents("C:\\J\\b.tmp"), "x") << what;
                        EXPECT_EQ(machine.openHandles(), 0U) << what;
                        // A failing look for the file itself is the one way to a row that leaves too early.
                        if (what.starts_with("anyFileMatches")) return;
                        for (const std::string& file : machine.filesBelow("C:\\J")) {
                          EXPECT_EQ(std::ranges::count(paths(), file), 1) << what << file;
                        }
                      });
}

}  // namespace
