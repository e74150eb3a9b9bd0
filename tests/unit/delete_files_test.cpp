#include <algorithm>

#include "finder/deletion.h"
#include "tests/unit/ConsoleTest.h"

using platform::Answer;
using platform::kArchive;
using platform::kHidden;
using platform::kReadOnly;
using platform::kSystem;

namespace {

constexpr const char* kConfirm = "Confirm file deletion?";
constexpr const char* kWiped = "All files that are not locked have been shredded.";

class DeleteFiles : public ConsoleTest {
 protected:
  // Lists the .tmp files below C:\J and ticks those with these names.
  void list(std::initializer_list<const char*> ticked) {
    scan({kTypeTmp}, "C:\\J");
    tick(form.ListView1, ticked);
  }

  // What was written over a file, each write behind the one before.
  std::string writtenTo(const std::string& path) const {
    std::string bytes;
    for (const auto& write : machine.disk().writes()) {
      if (write.path != path || write.bytes.empty()) continue;
      EXPECT_EQ(write.position, bytes.size());
      bytes += write.bytes;
    }
    return bytes;
  }
};

TEST_F(DeleteFiles, TickedOnesGoToTheRecycleBinOrForGood) {
  addFiles("C:\\J", {"a.tmp", "b.tmp", "c.tmp", "d.tmp", "e.tmp"});
  list({"b.tmp", "c.tmp"});
  EXPECT_EQ(press(form.Delete, {Answer::kYes}), Paths{kConfirm}) << "no closing message";
  EXPECT_EQ(machine.disk().recycleBin(), (Paths{"C:\\J\\b.tmp", "C:\\J\\c.tmp"}));
  EXPECT_EQ(paths(), (Paths{"C:\\J\\a.tmp", "C:\\J\\d.tmp", "C:\\J\\e.tmp"}));
  EXPECT_FALSE(form.Delete.enabled()) << "no ticked row is left";

  form.ListView1.clickTick(1);
  form.optWipe.click();
  EXPECT_TRUE(form.optWipe.ticked() && !form.optRecycle.ticked());
  form.optRecycle.click();
  EXPECT_TRUE(form.optRecycle.ticked() && !form.optWipe.ticked());
  form.optRecycle.click();
  EXPECT_EQ(press(form.Delete, {Answer::kYes}), Paths{kConfirm});
  EXPECT_EQ(machine.disk().recycleBin().size(), 2U);
  EXPECT_EQ(machine.filesBelow("C:\\J"), (Paths{"C:\\J\\a.tmp", "C:\\J\\e.tmp"}));
  Paths operations;
  for (const platform::FileOperation& one : machine.shell().fileOperations()) {
    operations.push_back(one.sourceList + std::to_string(one.flags) + ' ' + std::to_string(one.operation));
  }
  const std::string nul(1, '\0');
  EXPECT_EQ(operations,
            (Paths{"C:\\J\\b.tmp" + nul + "80 3", "C:\\J\\c.tmp" + nul + "80 3", "C:\\J\\d.tmp" + nul + "16 3"}));
}

TEST_F(DeleteFiles, ReadOnlyAsksOnlyForItsTwoAttributesAndFilesInUseAreNamed) {
  machine.addFile("C:\\J\\1.tmp", "x", kReadOnly);
  machine.addFile("C:\\J\\2.tmp", "x", kReadOnly | kArchive);
  machine.addFile("C:\\J\\3.tmp", "x", kReadOnly | kArchive | kHidden);
  addFiles("C:\\J", {"4.tmp", "5.tmp", "6.tmp"});
  list({"1.tmp", "2.tmp", "3.tmp", "4.tmp", "5.tmp"});
  machine.disk().lock("C:\\J\\4.tmp");
  machine.failAt("getFile", 5, platform::kPermissionDenied);
  machine.ui().onBox([this](const auto& box) {
    if (box.title == "Delete File") form.ListView1.setTicked(5, true);  // too late to count
  });
  const std::string ask = "\r\nis a read only file - OK to delete?";
  EXPECT_EQ(press(form.Delete, {Answer::kYes, Answer::kNo, Answer::kYes}),
            (Paths{kConfirm, "C:\\J\\1.tmp" + ask, "C:\\J\\2.tmp" + ask,
                   "C:\\J\\4.tmp is in use by Windows and can not be deleted."}));
  const Paths left = {"C:\\J\\1.tmp", "C:\\J\\4.tmp", "C:\\J\\5.tmp", "C:\\J\\6.tmp"};
  EXPECT_EQ(machine.filesBelow("C:\\J"), left) << "the attributes of the fifth cannot be read";
  EXPECT_EQ(paths(), left);
  EXPECT_EQ(form.ListView1.tickedCount(), 4U);
}

TEST_F(DeleteFiles, AFileIsInUseHoweverItIsShared) {
  machine.addFile("C:\\J\\a", "x", kReadOnly | kHidden | kSystem | kArchive);
  machine.addFolder("C:\\J\\folder");
  EXPECT_FALSE(finder::isInUse("C:\\J\\a"));
  const platform::Handle other = machine.files().createFile(
      "C:\\J\\a", {.access = platform::kGenericRead, .share = platform::kShareRead | platform::kShareWrite});
  EXPECT_TRUE(finder::isInUse("C:\\J\\a"));
  machine.files().closeHandle(other);
  EXPECT_FALSE(finder::isInUse("C:\\J\\a"));
  const int opened = machine.faults().calls("createFile");
  for (const char* none : {"C:\\J\\gone", "C:\\J\\folder"}) EXPECT_FALSE(finder::isInUse(none)) << none;
  EXPECT_EQ(machine.faults().calls("createFile"), opened);
}

TEST_F(DeleteFiles, WipesTheFirst200BytesInPlaceAndOnlyTickedFiles) {
  addFiles("C:\\J", {"a.tmp", "c.tmp"}, "untouched");
  machine.addFile("C:\\J\\b.tmp", std::string(1000, 'o'));
  addFiles("C:\\J", {"d.tmp"}, "short");
  list({"b.tmp", "d.tmp"});
  form.optWipe.click();
  EXPECT_EQ(press(form.Delete, {Answer::kYes}), (Paths{kConfirm, kWiped}));
  std::string pattern;
  for (const int value : {85, 170, 74, 99, 71, 92, 101, 112, 1, 61, 97, 119, 86, 79, 109, 72, 90, 0, 255, 212}) {
    pattern.append(10, static_cast<char>(value));
  }
  EXPECT_EQ(writtenTo("C:\\J\\b.tmp"), pattern);
  EXPECT_EQ(writtenTo("C:\\J\\d.tmp"), pattern) << "a short file is made longer first";
  EXPECT_EQ(machine.faults().calls("putBytes"), 2 * 200) << "one byte at a time";
  EXPECT_EQ(machine.faults().calls("putBytesAt"), 2 * 10);
  EXPECT_EQ(machine.contents("C:\\J\\a.tmp"), "untouched");
  EXPECT_EQ(paths(), (Paths{"C:\\J\\a.tmp", "C:\\J\\c.tmp"}));
  EXPECT_EQ(paths(), machine.filesBelow("C:\\J"));
  EXPECT_EQ(form.ListView1.toolTip(), "Scan Results");
  EXPECT_TRUE(form.optWipe.visible() && machine.disk().recycleBin().empty());

  list({"a.tmp", "c.tmp"});
  press(form.Delete, {Answer::kYes});
  EXPECT_TRUE(form.ListView1.empty());
  EXPECT_FALSE(form.optWipe.visible() || form.optRecycle.visible() || form.Delete.enabled());
}

TEST_F(DeleteFiles, WipeLeavesReadOnlyLockedAndRefusedFilesAndTheRowsInOrder) {
  machine.addFile("C:\\J\\1.tmp", "x", kReadOnly);
  machine.addFile("C:\\J\\2.tmp", "x", kReadOnly | kArchive);
  machine.addFile("C:\\J\\3.tmp", "x", kReadOnly | kArchive | kHidden);
  machine.addFile("C:\\J\\4.tmp", "goes", kHidden | kSystem);
  addFiles("C:\\J", {"5 unticked.tmp", "6 locked.tmp", "7 gone.tmp"});
  list({"1.tmp", "2.tmp", "3.tmp", "4.tmp", "locked.tmp", "gone.tmp"});
  machine.disk().lock("C:\\J\\6 locked.tmp");
  ASSERT_TRUE(machine.fileObjects().deleteFile("C:\\J\\7 gone.tmp", true));
  form.optWipe.click();
  EXPECT_EQ(press(form.Delete, {Answer::kYes}), (Paths{kConfirm, kWiped}));
  const Paths left = {"C:\\J\\1.tmp", "C:\\J\\2.tmp", "C:\\J\\3.tmp", "C:\\J\\5 unticked.tmp", "C:\\J\\6 locked.tmp"};
  EXPECT_EQ(paths(), left);
  EXPECT_TRUE(form.ListView1.tickedCount() == 4 && form.Delete.enabled());

  // A file that cannot be opened for writing ends the command and is not removed.
  machine.disk().unlock("C:\\J\\6 locked.tmp");
  machine.disk().denyWriting("C:\\J\\6 locked.tmp");
  EXPECT_EQ(press(form.Delete, {Answer::kYes}), Paths{kConfirm});
  EXPECT_EQ(machine.contents("C:\\J\\6 locked.tmp"), "x");
  EXPECT_EQ(paths(), left);
}

TEST_F(DeleteFiles, AWipeWithMoreRowsListedEndsWithItsFileNotFound) {
  for (const std::size_t rows : {1U, 2U}) {
    addFiles("C:\\J", {"a"});
    form.ListView1.add("row");
    const platform::Result<void> wiped = form.DeleteFile("C:\\J\\a");
    EXPECT_EQ(wiped ? 0 : wiped.error().number, rows == 2 ? platform::kFileNotFound : 0);
    EXPECT_FALSE(machine.exists("C:\\J\\a"));
  }
}

TEST_F(DeleteFiles, TooManyRowsEndTheWipeBeforeItsFirstFile) {
  addFiles("C:\\J", {"a.tmp", "b.tmp", "c.tmp"});
  list({"b.tmp", "c.tmp"});
  form.optWipe.click();
  for (int i = 0; i < 32765; ++i) form.ListView1.add("C:\\None\\" + std::to_string(i));
  EXPECT_EQ(press(form.Delete, {Answer::kYes}), (Paths{kConfirm, "Run-time error '6':\r\n\r\nOverflow"}));
  EXPECT_EQ(machine.filesBelow("C:\\J").size(), 3U);
  EXPECT_EQ(form.ListView1.rowCount(), 32768U);
}

}  // namespace
