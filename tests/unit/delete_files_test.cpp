#include <map>

#include "finder/deletion.h"
#include "tests/unit/ConsoleTest.h"

using platform::Answer;
using platform::kArchive;
using platform::kHidden;
using platform::kReadOnly;

namespace {

constexpr const char* kConfirm = "Confirm file deletion?";
constexpr const char* kWiped = "All files that are not locked have been shredded.";

class DeleteFiles : public ConsoleTest {
 protected:
  // Lists the .tmp files below C:\J, ticks those with these names and presses Delete.
  Paths erase(std::initializer_list<const char*> ticked, std::initializer_list<Answer> answers = {Answer::kYes}) {
    scan({kTypeTmp}, "C:\\J");
    tick(form.ListView1, ticked);
    return press(form.Delete, answers);
  }

  // Three files that are read-only, with different other attributes.
  void addReadOnlyFiles() {
    machine.addFile("C:\\J\\1.tmp", "x", kReadOnly);
    machine.addFile("C:\\J\\2.tmp", "x", kReadOnly | kArchive);
    machine.addFile("C:\\J\\3.tmp", "x", kReadOnly | kArchive | kHidden);
  }
};

TEST_F(DeleteFiles, TickedOnesGoToTheRecycleBinOrForGood) {
  addFiles("C:\\J", {"a.tmp", "b.tmp", "c.tmp", "d.tmp", "e.tmp"});
  EXPECT_EQ(erase({"b.tmp", "c.tmp"}), Paths{kConfirm}) << "no closing message";
  EXPECT_EQ(machine.disk().recycleBin(), (Paths{"C:\\J\\b.tmp", "C:\\J\\c.tmp"}));
  EXPECT_EQ(paths(), (Paths{"C:\\J\\a.tmp", "C:\\J\\d.tmp", "C:\\J\\e.tmp"}));
  EXPECT_FALSE(form.Delete.enabled()) << "no ticked row is left";

  form.ListView1.clickTick(1);
  form.optWipe.click();
  EXPECT_FALSE(form.optRecycle.ticked());
  form.optRecycle.click();
  EXPECT_TRUE(form.optRecycle.ticked() && !form.optWipe.ticked());
  form.optRecycle.click();
  EXPECT_EQ(press(form.Delete, {Answer::kYes}), Paths{kConfirm});
  EXPECT_EQ(machine.filesBelow("C:\\J"), (Paths{"C:\\J\\a.tmp", "C:\\J\\e.tmp"}));
  EXPECT_EQ(machine.shell().fileOperations().back().flags, 16) << "no question of the shell";
}

TEST_F(DeleteFiles, ReadOnlyAsksOnlyForItsTwoAttributesAndFilesInUseAreNamed) {
  addReadOnlyFiles();
  addFiles("C:\\J", {"4.tmp", "5.tmp"});
  machine.disk().lock("C:\\J\\4.tmp");
  machine.ui().onBox([this](const auto& box) {
    if (box.title == "Delete File") form.ListView1.setTicked(4, true);  // too late to count
  });
  const std::string ask = "\r\nis a read only file - OK to delete?";
  EXPECT_EQ(erase({"1.tmp", "2.tmp", "3.tmp", "4.tmp"}, {Answer::kYes, Answer::kNo, Answer::kYes}),
            (Paths{kConfirm, "C:\\J\\1.tmp" + ask, "C:\\J\\2.tmp" + ask,
                   "C:\\J\\4.tmp is in use by Windows and can not be deleted."}));
  const Paths left = {"C:\\J\\1.tmp", "C:\\J\\4.tmp", "C:\\J\\5.tmp"};
  EXPECT_EQ(machine.filesBelow("C:\\J"), left);
  EXPECT_EQ(paths(), left);
}

TEST_F(DeleteFiles, AFileIsInUseHoweverItIsShared) {
  addFiles("C:\\J", {"a"});
  const platform::Handle other = machine.files().createFile(
      "C:\\J\\a", {.access = platform::kGenericRead, .share = platform::kShareRead | platform::kShareWrite});
  EXPECT_TRUE(finder::isInUse("C:\\J\\a"));
  machine.files().closeHandle(other);
  for (const char* free : {"C:\\J\\a", "C:\\J\\gone", "C:\\J"}) EXPECT_FALSE(finder::isInUse(free)) << free;
}

TEST_F(DeleteFiles, WipesTheFirst200BytesInPlaceAndOnlyTickedFiles) {
  addFiles("C:\\J", {"a.tmp", "c.tmp"}, "untouched");
  machine.addFile("C:\\J\\b.tmp", std::string(1000, 'o'));
  addFiles("C:\\J", {"d.tmp"}, "short");
  form.optWipe.setTicked(true);
  EXPECT_EQ(erase({"b.tmp", "d.tmp"}), (Paths{kConfirm, kWiped}));
  std::string pattern;
  for (const int value : {85, 170, 74, 99, 71, 92, 101, 112, 1, 61, 97, 119, 86, 79, 109, 72, 90, 0, 255, 212}) {
    pattern.append(10, static_cast<char>(value));
  }
  std::map<std::string, std::string> written;
  for (const auto& write : machine.disk().writes()) {
    EXPECT_TRUE(write.bytes.empty() || write.position == written[write.path].size());
    written[write.path] += write.bytes;
  }
  EXPECT_EQ(written["C:\\J\\b.tmp"], pattern);
  EXPECT_EQ(written["C:\\J\\d.tmp"], pattern) << "a short file is made longer first";
  EXPECT_EQ(machine.contents("C:\\J\\a.tmp"), "untouched");
  EXPECT_EQ(paths(), (Paths{"C:\\J\\a.tmp", "C:\\J\\c.tmp"}));
  EXPECT_EQ(paths(), machine.filesBelow("C:\\J"));
  EXPECT_TRUE(form.optWipe.visible() && machine.disk().recycleBin().empty());
  erase({"a.tmp", "c.tmp"});
  EXPECT_FALSE(form.optWipe.visible() || form.optRecycle.visible() || form.Delete.enabled());
}

TEST_F(DeleteFiles, WipeLeavesReadOnlyAndLockedFilesAndTheRowsInOrder) {
  addReadOnlyFiles();
  addFiles("C:\\J", {"4 goes.tmp", "5 unticked.tmp", "6 locked.tmp"});
  machine.disk().lock("C:\\J\\6 locked.tmp");
  form.optWipe.setTicked(true);
  EXPECT_EQ(erase({"1.tmp", "2.tmp", "3.tmp", "goes.tmp", "locked.tmp"}), (Paths{kConfirm, kWiped}));
  const Paths left = {"C:\\J\\1.tmp", "C:\\J\\2.tmp", "C:\\J\\3.tmp", "C:\\J\\5 unticked.tmp", "C:\\J\\6 locked.tmp"};
  EXPECT_EQ(paths(), left);
  EXPECT_EQ(machine.filesBelow("C:\\J"), left);

  // A file that cannot be opened for writing ends the command, as too many rows do.
  machine.disk().unlock("C:\\J\\6 locked.tmp");
  machine.disk().denyWriting("C:\\J\\6 locked.tmp");
  EXPECT_EQ(press(form.Delete, {Answer::kYes}), Paths{kConfirm});
  for (int i = 0; i < 32767; ++i) form.ListView1.add("C:\\J");
  EXPECT_EQ(press(form.Delete, {Answer::kYes}), (Paths{kConfirm, "Run-time error '6':\r\n\r\nOverflow"}));
  EXPECT_EQ(machine.filesBelow("C:\\J"), left);
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

}  // namespace
