#include <set>

#include "console/frmFind.h"
#include "shredder/frmFolder.h"
#include "shredder/frmMain.h"
#include "tests/unit/ShredderTest.h"

using platform::Answer;
using platform::Pointer;

namespace {

const Paths kShredded = {kAskShred, "The selected files have been shredded."};
const Paths kQuiet = {kAskShred};

class ShredderWindow : public ShredderTest {
 protected:
  frmMain form;

  void SetUp() override { form.load(); }

  // Adds files of these names in C:\Docs to the list, through the dialog.
  void add(std::initializer_list<const char*> names) {
    for (const char* name : names) {
      const std::string path = std::string("C:\\Docs\\") + name;
      machine.addFile(path, name);
      machine.ui().chooseFile(path);
      form.cmdAddFile.click();
    }
  }

  void removeRow(std::size_t row) {
    form.ListView1.clickRow(row);
    form.cmdRemoveFile.click();
  }

  // Shreds what is listed, the question answered with Yes; the user acts while the first file is in progress.
  Paths shred(std::function<void()> whileShredding = [] {}) {
    machine.whenServing([] {});
    machine.whenServing(std::move(whileShredding));
    return press(form.cmdShred, {Answer::kYes});
  }

  void expectIdle(bool canCancel) {
    EXPECT_TRUE(form.cmdShred.enabled() && !form.lblBlue.visible());
    EXPECT_EQ(form.cmdCancel.enabled(), canCancel);
    EXPECT_EQ(machine.ui().pointer(), Pointer::kDefault);
  }
};

TEST_F(ShredderWindow, OpensFromTheConsoleEachTimeEmpty) {
  frmFind console;
  console.load();
  for (int opening = 0; opening < 2; ++opening) {
    machine.ui().whenModal([&](controls::Form& opened) {
      auto& shredder = dynamic_cast<frmMain&>(opened);
      EXPECT_FALSE(console.acceptsInput() || shredder.CancelShred || shredder.cmdShred.enabled());
      EXPECT_TRUE(shredder.ListView1.empty() && !shredder.ListView1.checkBoxes());
      shredder.ListView1.add("C:\\left.over");
      shredder.CancelShred = true;
      shredder.cmdClose.click();
      EXPECT_TRUE(console.acceptsInput()) << "also while a handler of the closed window still runs";
    });
    console.cmdFurnace.click();
  }
}

TEST_F(ShredderWindow, AddsOneFileAndRemovesTheSelectedEntryOnly) {
  add({"a.txt", "b.txt", "c.txt"});
  EXPECT_EQ(machine.ui().fileDialogs().back().title, "Select file(s) to shred");
  EXPECT_EQ(machine.ui().fileDialogs().back().filter, "All files (*.*)|*.*");
  EXPECT_EQ(machine.files().currentFolder(), "C:\\Docs");
  form.cmdAddFile.click();
  form.cmdRemoveFile.click();
  EXPECT_EQ(form.ListView1.rowCount(), 3U) << "cancelled, and nothing selected";
  removeRow(1);
  EXPECT_EQ(rowsOf(form.ListView1), (Paths{"C:\\Docs\\a.txt", "C:\\Docs\\c.txt"}));
  EXPECT_TRUE(form.cmdShred.enabled() && form.cmdRemoveFile.enabled());
  removeRow(0);
  removeRow(0);
  EXPECT_FALSE(form.cmdShred.enabled() || form.cmdRemoveFile.enabled());
  EXPECT_EQ(machine.filesBelow("C:\\Docs").size(), 3U);
}

TEST_F(ShredderWindow, AsksFirstThenEmptiesTheListAndLeavesBothButtonsUsable) {
  add({"a.txt", "b.txt", "a.txt"});
  EXPECT_EQ(press(form.cmdShred, {Answer::kNo}), kQuiet);
  EXPECT_EQ(form.ListView1.rowCount(), 3U);
  expectIdle(false);
  EXPECT_TRUE(machine.disk().writes().empty());

  std::set<int> widths;
  machine.ui().everyServing([&] {
    EXPECT_EQ(machine.ui().pointer(), Pointer::kHourglass);
    if (!form.lblBlue.visible()) return;
    widths.insert(form.lblBlue.widthPercent());
    EXPECT_TRUE(form.cmdCancel.enabled() && !form.cmdShred.enabled());
    EXPECT_TRUE(form.cmdAddFile.enabled() && form.cmdAddFolder.enabled() && form.cmdClose.enabled());
  });
  machine.ui().onBox([&](const auto& box) {
    EXPECT_EQ(form.ListView1.empty(), box.text != kAskShred);
    EXPECT_EQ(machine.ui().pointer(), Pointer::kDefault);
  });
  // A file that is added meanwhile is dropped from the list, and stays on the disk.
  EXPECT_EQ(shred([&] {
              add({"late.txt"});
              form.cmdShred.disable();
            }),
            kShredded);
  EXPECT_EQ(widths.size(), 28U);
  EXPECT_EQ(machine.filesBelow("C:\\"), Paths{"C:\\Docs\\late.txt"});
  EXPECT_EQ(machine.contents("C:\\Docs\\late.txt"), "late.txt");
  EXPECT_EQ(machine.disk().writes().size(), 2 * kPasses + SHRED_ROUNDS) << "the same file again is missing";
  expectIdle(true);
  machine.ui().onBox({});
  EXPECT_EQ(shred(), kShredded) << "an empty list is shredded as well";
}

TEST_F(ShredderWindow, CancelEndsTheRunAfterTheFileAndStaysInForce) {
  add({"a.txt", "b.txt", "c.txt"});
  bool again = false;
  machine.ui().everyServing([&] {
    if (again || !form.CancelShred || form.cmdCancel.enabled()) return;
    again = true;
    EXPECT_EQ(press(form.cmdShred, {Answer::kNo}), kQuiet) << "the end of the run has enabled it";
  });
  EXPECT_EQ(shred([&] { form.cmdCancel.click(); }).size(), 2U);
  EXPECT_EQ(rowsOf(form.ListView1), (Paths{"C:\\Docs\\b.txt", "C:\\Docs\\c.txt"}));
  EXPECT_EQ(machine.disk().writes().size(), kPasses) << "the file in progress is finished";
  expectIdle(false);
  EXPECT_EQ(shred(), kQuiet);
  EXPECT_EQ(machine.filesBelow("C:\\"), Paths{"C:\\Docs\\c.txt"});
}

TEST_F(ShredderWindow, ListMayChangeDuringARunAndNoWrongFileIsTaken) {
  add({"a.txt", "b.txt", "c.txt", "d.txt"});
  EXPECT_EQ(shred([&] {
              // The file in progress and the one behind it leave the list, another comes.
              removeRow(0);
              removeRow(0);
              add({"late.txt"});
              // It has enabled the button, yet no second run begins.
              EXPECT_EQ(press(form.cmdShred), Paths{});
            }),
            kShredded);
  EXPECT_EQ(machine.filesBelow("C:\\"), Paths{"C:\\Docs\\b.txt"});
  EXPECT_EQ(machine.contents("C:\\Docs\\b.txt"), "b.txt");
}

TEST_F(ShredderWindow, EmptiedListAndCloseEndARunQuietlyAfterTheFile) {
  add({"a.txt", "b.txt"});
  EXPECT_EQ(shred([&] { removeRow(1); }), kQuiet);
  EXPECT_EQ(machine.filesBelow("C:\\"), Paths{"C:\\Docs\\b.txt"});
  expectIdle(true);
  add({"a.txt", "b.txt"});
  EXPECT_EQ(shred([&] { form.closeRequested(); }), kQuiet);
  EXPECT_FALSE(form.isOpen());
  EXPECT_EQ(machine.filesBelow("C:\\"), Paths{"C:\\Docs\\b.txt"});
  EXPECT_EQ(machine.ui().pointer(), Pointer::kDefault);
  form.load();
  form.cmdShred.enable();
  machine.whenServing([&] { form.cmdClose.click(); });
  EXPECT_EQ(press(form.cmdShred, {Answer::kYes}), kQuiet);
  EXPECT_EQ(machine.contents("C:\\Docs\\b.txt"), "b.txt") << "no file was in progress yet";
}

TEST_F(ShredderWindow, ProgressIsCappedAndTheBarCoversThatMuchOfItsTrack) {
  for (const auto& [percent, width] : {std::pair{300, 200}, {25, 50}, {-5, 0}}) {
    form.ShredPercent = static_cast<std::int16_t>(percent);
    form.UpdateProgress();
    EXPECT_EQ(form.ShredPercent, std::min(percent, 100));
    EXPECT_EQ(form.lblBlue.covered({.width = 200}).width, width);
    EXPECT_TRUE(form.lblBlue.visible());
  }
}

class FolderPicker : public ShredderWindow {
 protected:
  // Adds a folder with what the user does in the picker.
  void pick(std::function<void(frmFolder&)> action) {
    machine.ui().whenModal([&](controls::Form& opened) { action(dynamic_cast<frmFolder&>(opened)); });
    form.cmdAddFolder.click();
  }
};

TEST_F(FolderPicker, AddsTheFilesThatItShowsInTheirOrder) {
  addFiles("C:\\Docs", {"..\\root.txt", "b.txt", "A.txt", "Sub\\below.txt"});
  for (const auto& [name, attribute] :
       {std::pair("hidden", platform::kHidden), {"system", platform::kSystem}, {"read-only", platform::kReadOnly}}) {
    machine.addFile(std::string("C:\\Docs\\") + name, "", attribute);
  }
  pick([](frmFolder& picker) { picker.cancelButton.click(); });
  pick([](frmFolder& picker) { picker.closeRequested(); });
  for (const char* path : {kHere, "C:\\", "C:\\Docs"}) {
    EXPECT_TRUE(!form.ListView1.empty() || path == kHere || !form.cmdShred.enabled());
    pick([&path](frmFolder& picker) {
      EXPECT_TRUE(picker.Dir1.setPath(path));
      picker.okButton.click();
    });
  }
  EXPECT_EQ(rowsOf(form.ListView1),
            (Paths{"C:\\root.txt", "C:\\Docs\\A.txt", "C:\\Docs\\b.txt", "C:\\Docs\\read-only"}));
  EXPECT_TRUE(form.cmdShred.enabled() && form.cmdRemoveFile.enabled());
  EXPECT_EQ(machine.files().currentFolder(), kHere);
}

TEST_F(FolderPicker, FileListFollowsTheFolderListAlsoWhenItCannotBeRead) {
  machine.disk().addDrive('D', "BACKUP");
  addFiles("D:\\Old", {"old.txt"});
  machine.disk().setCurrentFolder("D:\\Old");
  machine.disk().addDrive('E', "", false);
  machine.disk().setCurrentFolder(kHere);
  addFiles("C:\\Docs", {"..\\root.txt", "a.txt"});
  const std::string unavailable = "Run-time error '68':\r\n\r\nDevice unavailable";
  pick([&](frmFolder& picker) {
    EXPECT_EQ(picker.defaultButton(), &picker.okButton);
    EXPECT_EQ(picker.File1.path(), "C:\\");
    picker.Drive1.choose(1);
    EXPECT_EQ(picker.File1.files(), Paths{"old.txt"});
    picker.Drive1.choose(2);
    machine.failAt("subfolders");
    picker.Dir1.open(0);
    EXPECT_EQ(boxTexts(), Paths(2, unavailable));
    EXPECT_EQ(picker.File1.path(), "D:\\Old");
    picker.File1.click(0);
    EXPECT_EQ(picker.File1.selected(), 0U);
    // The drive's text alone, in small letters, starts at the root and not in the current folder.
    picker.Drive1.choose(0);
    EXPECT_EQ(picker.Dir1.path(), "c:\\");
    EXPECT_EQ(picker.File1.files(), Paths{"root.txt"});
    machine.failAt("filesIn");
    ASSERT_TRUE(picker.Dir1.setPath("C:\\Docs"));
    EXPECT_TRUE(picker.File1.path() == "C:\\Docs" && picker.File1.files().empty() && !picker.File1.selected());
    EXPECT_EQ(boxTexts(), Paths(3, unavailable));
    picker.okButton.click();
  });
  EXPECT_TRUE(form.ListView1.empty());
}

}  // namespace
