#include "console/frmFind.h"
#include "shredder/frmFolder.h"
#include "tests/unit/LayoutTest.h"
#include "tests/unit/ShredderTest.h"

using platform::Answer;
using platform::Pointer;

namespace {

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
  void shred(std::function<void()> whileShredding = [] {}) {
    machine.whenServing([] {});
    machine.whenServing(std::move(whileShredding));
    machine.answer(Answer::kYes);
    form.cmdShred.click();
  }

  void expectIdle(bool canCancel) {
    EXPECT_TRUE(form.cmdShred.enabled() && !form.lblBlue.visible());
    EXPECT_EQ(form.cmdCancel.enabled(), canCancel);
    EXPECT_EQ(machine.ui().pointer(), Pointer::kDefault);
  }

  Paths listed() const {
    Paths all;
    for (std::size_t i = 0; i < form.ListView1.rowCount(); ++i) all.push_back(form.ListView1.text(i));
    return all;
  }

  static constexpr const char* kQuestion =
      "Are you certain you want to shred these files?\r\nData recovery by any means will be impossible!";
  static constexpr const char* kDone = "The selected files have been shredded.";
};

TEST_F(ShredderWindow, OpensFromTheConsoleEachTimeEmpty) {
  frmFind console;
  console.load();
  for (int opening = 0; opening < 2; ++opening) {
    machine.ui().whenModal([&](controls::Form& opened) {
      auto& shredder = dynamic_cast<frmMain&>(opened);
      EXPECT_EQ(shredder.caption(), "Scrubhaven Pro - Shredder");
      EXPECT_FALSE(console.acceptsInput() || shredder.CancelShred || shredder.lblBlue.visible());
      EXPECT_TRUE(shredder.ListView1.empty() && !shredder.ListView1.checkBoxes());
      EXPECT_FALSE(shredder.cmdCancel.enabled() || shredder.cmdShred.enabled());
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
  EXPECT_TRUE(form.cmdShred.enabled() && form.cmdRemoveFile.enabled());
  form.cmdAddFile.click();
  form.cmdRemoveFile.click();
  EXPECT_EQ(listed().size(), 3U) << "cancelled, and nothing selected";
  removeRow(1);
  EXPECT_EQ(listed(), (Paths{"C:\\Docs\\a.txt", "C:\\Docs\\c.txt"}));
  EXPECT_TRUE(form.cmdShred.enabled());
  removeRow(0);
  removeRow(0);
  EXPECT_FALSE(form.cmdShred.enabled() || form.cmdRemoveFile.enabled());
  EXPECT_TRUE(machine.boxes().empty());
  EXPECT_EQ(machine.filesBelow("C:\\Docs").size(), 3U);
}

TEST_F(ShredderWindow, AsksFirstThenEmptiesTheListAndLeavesBothButtonsUsable) {
  add({"a.txt", "b.txt", "a.txt"});
  machine.answer(Answer::kNo);
  form.cmdShred.click();
  ASSERT_EQ(boxTexts(), Paths{kQuestion});
  EXPECT_EQ(machine.boxes()[0].title, "Scrubhaven Pro");
  EXPECT_EQ(machine.boxes()[0].style, 20U);
  EXPECT_EQ(listed().size(), 3U);
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
    if (box.text != kDone) return;
    EXPECT_TRUE(form.ListView1.empty());
    EXPECT_EQ(machine.ui().pointer(), Pointer::kDefault);
    EXPECT_EQ(box.style, 64U);
  });
  shred();
  EXPECT_EQ(widths.size(), 28U);
  EXPECT_TRUE(machine.filesBelow("C:\\").empty());
  EXPECT_EQ(machine.disk().writes().size(), 2 * kPasses + SHRED_ROUNDS) << "the same file again is missing";
  expectIdle(true);

  shred();
  EXPECT_EQ(boxTexts(), (Paths{kQuestion, kQuestion, kDone, kQuestion, kDone})) << "an empty list is shredded as well";
}

TEST_F(ShredderWindow, CancelEndsTheRunAfterTheFileAndStaysInForce) {
  add({"a.txt", "b.txt", "c.txt"});
  bool again = false;
  machine.ui().everyServing([&] {
    if (again || !form.CancelShred || form.cmdCancel.enabled()) return;
    again = true;
    machine.answer(Answer::kNo);
    form.cmdShred.click();
  });
  shred([&] { form.cmdCancel.click(); });
  EXPECT_EQ(boxTexts(), (Paths{kQuestion, kQuestion})) << "the button that the end of the run enables works at once";
  EXPECT_EQ(listed(), (Paths{"C:\\Docs\\b.txt", "C:\\Docs\\c.txt"}));
  EXPECT_EQ(machine.disk().writes().size(), kPasses) << "the file in progress is finished";
  expectIdle(false);
  shred();
  EXPECT_EQ(boxTexts().size(), 3U) << "nothing but the questions";
  EXPECT_EQ(listed(), Paths{"C:\\Docs\\c.txt"});
  EXPECT_EQ(machine.filesBelow("C:\\"), Paths{"C:\\Docs\\c.txt"});
}

TEST_F(ShredderWindow, ListMayChangeDuringARunAndNoWrongFileIsTaken) {
  add({"a.txt", "b.txt", "c.txt", "d.txt"});
  shred([&] {
    // The file in progress and the one behind it leave the list, another comes.
    removeRow(0);
    removeRow(0);
    add({"late.txt"});
    // It has enabled the button, yet no second run begins.
    form.cmdShred.click();
    EXPECT_EQ(listed(), (Paths{"C:\\Docs\\c.txt", "C:\\Docs\\d.txt", "C:\\Docs\\late.txt"}));
  });
  EXPECT_EQ(machine.filesBelow("C:\\"), Paths{"C:\\Docs\\b.txt"});
  EXPECT_EQ(machine.contents("C:\\Docs\\b.txt"), "b.txt");
  EXPECT_EQ(boxTexts(), (Paths{kQuestion, kDone}));
}

TEST_F(ShredderWindow, EmptiedListAndCloseEndARunQuietlyAfterTheFile) {
  add({"a.txt", "b.txt"});
  shred([&] { removeRow(1); });
  EXPECT_EQ(machine.filesBelow("C:\\"), Paths{"C:\\Docs\\b.txt"});
  expectIdle(true);

  add({"a.txt", "b.txt"});
  shred([&] { form.closeRequested(); });
  EXPECT_FALSE(form.isOpen());
  EXPECT_EQ(machine.disk().writes().size(), 2 * kPasses);
  EXPECT_EQ(machine.filesBelow("C:\\"), Paths{"C:\\Docs\\b.txt"});
  EXPECT_EQ(boxTexts(), (Paths{kQuestion, kQuestion}));
  EXPECT_EQ(machine.ui().pointer(), Pointer::kDefault);

  form.load();
  form.cmdShred.enable();
  machine.whenServing([&] { form.cmdClose.click(); });
  machine.answer(Answer::kYes);
  form.cmdShred.click();
  EXPECT_EQ(machine.contents("C:\\Docs\\b.txt"), "b.txt") << "no file was in progress yet";
}

TEST_F(ShredderWindow, ProgressIsCappedAndTheBarCoversThatMuchOfItsTrack) {
  expectSoundWindow(form, {&form.lblBlue, &form.lblGrey});
  EXPECT_EQ(form.cancelButton(), nullptr) << "no key sets the lasting Cancel by the way";
  const controls::Places places = controls::arrange(form.layout(), FixedMetrics(), {900, 500});
  const controls::Rect track = places.at(&form.lblGrey);
  EXPECT_EQ(places.at(&form.lblBlue).x, track.x);
  for (const auto& [percent, width] : {std::pair{300, track.width}, std::pair{25, track.width / 4}}) {
    form.ShredPercent = static_cast<std::int16_t>(percent);
    form.UpdateProgress();
    EXPECT_EQ(form.ShredPercent, std::min(percent, 100));
    EXPECT_EQ(form.lblBlue.covered(places.at(&form.lblBlue)).width, width);
  }
}

class FolderPicker : public ShredderWindow {
 protected:
  // Adds a folder with what the user does in the picker.
  void pick(std::function<void(frmFolder&)> action) {
    machine.ui().whenModal([&](controls::Form& opened) {
      auto& picker = dynamic_cast<frmFolder&>(opened);
      EXPECT_TRUE(picker.caption() == "Add folder contents" && !form.acceptsInput());
      action(picker);
    });
    form.cmdAddFolder.click();
  }
};

TEST_F(FolderPicker, AddsTheFilesThatItShowsInTheirOrder) {
  machine.addFile("C:\\root.txt");
  machine.addFile("C:\\Docs\\b.txt");
  machine.addFile("C:\\Docs\\A.txt");
  machine.addFile("C:\\Docs\\hidden.txt", "", platform::kHidden);
  machine.addFile("C:\\Docs\\system.txt", "", platform::kSystem);
  machine.addFile("C:\\Docs\\protected.txt", "", platform::kReadOnly);
  machine.addFile("C:\\Docs\\Sub\\below.txt");
  pick([](frmFolder& picker) { picker.cancelButton.click(); });
  pick([](frmFolder& picker) { picker.closeRequested(); });
  const auto pickFolder = [this](const std::string& path) {
    pick([&path](frmFolder& picker) {
      EXPECT_TRUE(picker.Dir1.setPath(path));
      picker.okButton.click();
    });
  };
  pickFolder(kHere);
  EXPECT_TRUE(form.ListView1.empty() && !form.cmdShred.enabled() && !form.cmdRemoveFile.enabled());
  pickFolder("C:\\");
  pickFolder("C:\\Docs");
  EXPECT_EQ(listed(), (Paths{"C:\\root.txt", "C:\\Docs\\A.txt", "C:\\Docs\\b.txt", "C:\\Docs\\protected.txt"}));
  EXPECT_TRUE(form.cmdShred.enabled() && form.cmdRemoveFile.enabled());
  EXPECT_EQ(machine.files().currentFolder(), kHere);
}

TEST_F(FolderPicker, FileListFollowsTheFolderListAlsoWhenItCannotBeRead) {
  machine.disk().addDrive('D', "BACKUP");
  machine.addFile("D:\\Old\\old.txt");
  machine.disk().setCurrentFolder("D:\\Old");
  machine.disk().addDrive('E', "", false);
  machine.disk().setCurrentFolder(kHere);
  machine.addFile("C:\\root.txt");
  machine.addFile("C:\\Docs\\a.txt");
  pick([&](frmFolder& picker) {
    expectSoundWindow(picker);
    EXPECT_EQ(picker.File1.path(), "C:\\");
    picker.Drive1.choose(1);
    EXPECT_EQ(picker.File1.files(), Paths{"old.txt"});
    picker.Drive1.choose(2);
    EXPECT_EQ(boxTexts(), Paths{"Run-time error '68':\r\n\r\nDevice unavailable"});
    EXPECT_EQ(picker.File1.path(), "D:\\Old");
    // The drive's text alone, in small letters, starts at the root and not in the current folder.
    picker.Drive1.choose(0);
    EXPECT_EQ(picker.Dir1.path(), "c:\\");
    EXPECT_EQ(picker.File1.files(), Paths{"root.txt"});

    machine.failAt("filesIn");
    ASSERT_TRUE(picker.Dir1.setPath("C:\\Docs"));
    EXPECT_TRUE(picker.File1.path() == "C:\\Docs" && picker.File1.files().empty());
    EXPECT_EQ(boxTexts().size(), 2U);
    picker.okButton.click();
  });
  EXPECT_TRUE(form.ListView1.empty());
}

}  // namespace
