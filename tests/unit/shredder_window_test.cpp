#include <set>

#include "console/frmFind.h"
#include "shredder/frmFolder.h"
#include "shredder/frmMain.h"
#include "tests/unit/LayoutTest.h"
#include "tests/unit/ShredderTest.h"

using platform::Answer;
using platform::Pointer;

namespace {

using Paths = std::vector<std::string>;

class ShredderWindow : public ShredderTest {
 protected:
  frmMain form;

  void SetUp() override { form.load(); }

  // Adds files of these names in C:\Docs to the list, through the dialog.
  void add(std::initializer_list<const char*> names) {
    for (const char* name : names) {
      const std::string path = std::string("C:\\Docs\\") + name;
      machine.addFile(path, name);
      machine.chooseFile(path);
      form.cmdAddFile.click();
    }
  }

  // Shreds what is listed, the question answered with Yes.
  void shred() {
    machine.answer(Answer::kYes);
    form.cmdShred.click();
  }

  Paths listed() const {
    Paths all;
    for (std::size_t i = 0; i < form.ListView1.rowCount(); ++i) all.push_back(form.ListView1.text(i));
    return all;
  }

  std::string lastBox() const { return machine.boxes().empty() ? "" : machine.boxes().back().text; }

  static constexpr const char* kDone = "The selected files have been shredded.";
};

TEST_F(ShredderWindow, OpensFromTheConsoleEachTimeEmpty) {
  frmFind console;
  console.load();
  for (int opening = 0; opening < 2; ++opening) {
    machine.whenModal([&](controls::Form& opened) {
      auto& shredder = dynamic_cast<frmMain&>(opened);
      EXPECT_EQ(shredder.caption(), "Scrubhaven Pro - Shredder");
      EXPECT_FALSE(console.acceptsInput());
      EXPECT_FALSE(shredder.CancelShred);
      EXPECT_TRUE(shredder.ListView1.empty() && !shredder.ListView1.checkBoxes());
      std::set<std::string> disabled;
      for (const controls::Control* control : shredder.controls()) {
        if (!control->enabled()) disabled.insert(control->name());
      }
      EXPECT_EQ(disabled, (std::set<std::string>{"cmdCancel", "cmdShred"}));
      EXPECT_FALSE(shredder.lblBlue.visible());
      EXPECT_EQ(shredder.lblBlue.widthPercent(), 0);
      shredder.ListView1.add("C:\\left.over");
      shredder.CancelShred = true;
      shredder.cmdClose.click();
    });
    console.cmdFurnace.click();
  }
  EXPECT_EQ(machine.calls("runModal"), 2);
}

TEST_F(ShredderWindow, AddFileTakesOneFileAndMovesTheCurrentFolder) {
  add({"a.txt"});
  EXPECT_EQ(listed(), Paths{"C:\\Docs\\a.txt"});
  EXPECT_EQ(machine.fileDialogs().back().title, "Select file(s) to shred");
  EXPECT_EQ(machine.fileDialogs().back().filter, "All files (*.*)|*.*");
  EXPECT_EQ(machine.files().currentFolder(), "C:\\Docs");
  EXPECT_TRUE(form.cmdShred.enabled() && form.cmdRemoveFile.enabled());
  form.cmdAddFile.click();
  EXPECT_EQ(listed().size(), 1U) << "cancelled";
  EXPECT_TRUE(machine.boxes().empty());
}

TEST_F(ShredderWindow, RemoveFileTakesTheSelectedEntryOnly) {
  add({"a.txt", "b.txt", "c.txt"});
  form.cmdRemoveFile.click();
  EXPECT_EQ(listed().size(), 3U);
  form.ListView1.clickRow(1);
  form.cmdRemoveFile.click();
  EXPECT_EQ(listed(), (Paths{"C:\\Docs\\a.txt", "C:\\Docs\\c.txt"}));
  EXPECT_TRUE(form.cmdShred.enabled());
  for (int i = 0; i < 2; ++i) {
    form.ListView1.clickRow(0);
    form.cmdRemoveFile.click();
  }
  EXPECT_FALSE(form.cmdShred.enabled() || form.cmdRemoveFile.enabled());
  EXPECT_TRUE(machine.boxes().empty());
  EXPECT_EQ(machine.filesBelow("C:\\Docs").size(), 3U);
}

TEST_F(ShredderWindow, AnswerNoChangesNothing) {
  add({"a.txt"});
  machine.answer(Answer::kNo);
  form.cmdShred.click();
  ASSERT_EQ(machine.boxes().size(), 1U);
  EXPECT_EQ(machine.boxes()[0].text,
            "Are you certain you want to shred these files?\r\nData recovery by any means will be impossible!");
  EXPECT_EQ(machine.boxes()[0].title, "Scrubhaven Pro");
  EXPECT_EQ(machine.boxes()[0].style, 20U);
  EXPECT_EQ(listed().size(), 1U);
  EXPECT_TRUE(form.cmdShred.enabled() && !form.cmdCancel.enabled() && !form.lblBlue.visible());
  EXPECT_TRUE(machine.writes().empty());
}

TEST_F(ShredderWindow, FullRunEmptiesTheListAndLeavesBothButtonsUsable) {
  add({"a.txt", "b.txt"});
  std::set<int> widths;
  machine.everyServing([&] {
    EXPECT_EQ(machine.ui().pointer(), Pointer::kHourglass);
    if (!form.lblBlue.visible()) return;
    widths.insert(form.lblBlue.widthPercent());
    EXPECT_TRUE(form.cmdCancel.enabled() && !form.cmdShred.enabled());
    EXPECT_TRUE(form.cmdAddFile.enabled() && form.cmdAddFolder.enabled() && form.cmdClose.enabled());
  });
  machine.onBox([&](const auto& box) {
    if (box.text != kDone || widths.empty()) return;
    EXPECT_TRUE(form.ListView1.empty() && form.lblBlue.visible());
    EXPECT_EQ(machine.ui().pointer(), Pointer::kDefault);
    EXPECT_EQ(box.style, 64U);
    EXPECT_EQ(box.title, "Scrubhaven Pro");
  });
  shred();
  EXPECT_EQ(lastBox(), kDone);
  EXPECT_EQ(widths.size(), 28U);
  widths.clear();
  EXPECT_TRUE(machine.filesBelow("C:\\").empty());
  EXPECT_FALSE(form.lblBlue.visible());
  EXPECT_TRUE(form.cmdShred.enabled() && form.cmdCancel.enabled());

  shred();
  EXPECT_EQ(machine.boxes().size(), 4U) << "an empty list asks and reports all the same";
}

TEST_F(ShredderWindow, CancelEndsTheRunAfterTheFileAndStaysInForce) {
  add({"a.txt", "b.txt", "c.txt"});
  machine.whenServing([] {});
  machine.whenServing([&] { form.cmdCancel.click(); });
  shred();
  EXPECT_EQ(listed(), (Paths{"C:\\Docs\\b.txt", "C:\\Docs\\c.txt"}));
  EXPECT_EQ(machine.writes().size(), 84U) << "the file in progress is finished";
  EXPECT_TRUE(form.cmdShred.enabled() && !form.cmdCancel.enabled() && !form.lblBlue.visible());
  EXPECT_EQ(machine.ui().pointer(), Pointer::kDefault);
  shred();
  EXPECT_EQ(machine.boxes().size(), 2U) << "the two questions";
  EXPECT_EQ(listed(), Paths{"C:\\Docs\\c.txt"});
  EXPECT_EQ(machine.filesBelow("C:\\"), Paths{"C:\\Docs\\c.txt"});
}

TEST_F(ShredderWindow, ListMayChangeDuringARunAndNoWrongFileIsTaken) {
  add({"a.txt", "b.txt", "c.txt", "d.txt"});
  machine.addFile("C:\\Docs\\late.txt", "late");
  machine.whenServing([] {});
  machine.whenServing([&] {
    // The file in progress and the one behind it leave the list, another comes.
    for (int i = 0; i < 2; ++i) {
      form.ListView1.clickRow(0);
      form.cmdRemoveFile.click();
    }
    machine.chooseFile("C:\\Docs\\late.txt");
    form.cmdAddFile.click();
    // It has enabled the button, yet no second run begins.
    form.cmdShred.click();
    EXPECT_EQ(listed(), (Paths{"C:\\Docs\\c.txt", "C:\\Docs\\d.txt", "C:\\Docs\\late.txt"}));
  });
  shred();
  EXPECT_EQ(machine.filesBelow("C:\\"), Paths{"C:\\Docs\\b.txt"});
  EXPECT_EQ(machine.contents("C:\\Docs\\b.txt"), "b.txt");
  EXPECT_EQ(boxTexts().size(), 2U);
  EXPECT_EQ(lastBox(), kDone);
}

TEST_F(ShredderWindow, EmptiedListEndsTheRunQuietly) {
  add({"a.txt", "b.txt"});
  machine.whenServing([] {});
  machine.whenServing([&] {
    form.ListView1.clickRow(1);
    form.cmdRemoveFile.click();
  });
  shred();
  EXPECT_EQ(machine.filesBelow("C:\\"), Paths{"C:\\Docs\\b.txt"});
  EXPECT_EQ(boxTexts().size(), 1U);
  EXPECT_TRUE(form.cmdShred.enabled() && form.cmdCancel.enabled() && !form.lblBlue.visible());
  EXPECT_EQ(machine.ui().pointer(), Pointer::kDefault);
}

TEST_F(ShredderWindow, CloseDuringARunEndsItAfterTheFile) {
  add({"a.txt", "b.txt"});
  machine.whenServing([] {});
  machine.whenServing([&] { form.closeRequested(); });
  shred();
  EXPECT_FALSE(form.isOpen());
  EXPECT_EQ(machine.writes().size(), 84U);
  EXPECT_EQ(machine.filesBelow("C:\\"), Paths{"C:\\Docs\\b.txt"});
  EXPECT_EQ(boxTexts().size(), 1U);
  EXPECT_EQ(machine.ui().pointer(), Pointer::kDefault);

  frmMain atOnce;
  atOnce.load();
  atOnce.ListView1.add("C:\\Docs\\b.txt");
  atOnce.cmdShred.enable();
  machine.whenServing([&] { atOnce.cmdClose.click(); });
  machine.answer(Answer::kYes);
  atOnce.cmdShred.click();
  EXPECT_EQ(machine.contents("C:\\Docs\\b.txt"), "b.txt") << "no file was in progress yet";
}

TEST_F(ShredderWindow, SameFileTwiceIsShreddedAndThenMissing) {
  add({"a.txt", "a.txt"});
  shred();
  EXPECT_TRUE(machine.filesBelow("C:\\").empty());
  EXPECT_EQ(machine.writes().size(), 84U + 28U);
  EXPECT_EQ(lastBox(), kDone);
}

TEST_F(ShredderWindow, ProgressIsCappedAndTheBarCoversThatMuchOfItsTrack) {
  expectSoundLayout(form, {&form.lblBlue, &form.lblGrey});
  expectSoundMnemonics(form);
  const controls::Places places = controls::arrange(form.layout(), FixedMetrics(), {900, 500});
  form.ShredPercent = 300;
  form.UpdateProgress();
  EXPECT_EQ(form.ShredPercent, 100);
  EXPECT_EQ(form.lblBlue.covered(places.at(&form.lblBlue)).width, places.at(&form.lblGrey).width);
  form.ShredPercent = 25;
  form.UpdateProgress();
  EXPECT_TRUE(form.lblBlue.visible());
  EXPECT_EQ(places.at(&form.lblBlue).x, places.at(&form.lblGrey).x);
  EXPECT_EQ(form.lblBlue.covered(places.at(&form.lblBlue)).width, places.at(&form.lblGrey).width / 4);
}

class FolderPicker : public ShredderWindow {
 protected:
  // Adds a folder with what the user does in the picker.
  void pick(std::function<void(frmFolder&)> action) {
    machine.whenModal([&](controls::Form& opened) {
      auto& picker = dynamic_cast<frmFolder&>(opened);
      EXPECT_EQ(picker.caption(), "Add folder contents");
      EXPECT_FALSE(form.acceptsInput());
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
  pick([](frmFolder& picker) {
    EXPECT_EQ(picker.Dir1.path(), "C:\\");
    EXPECT_EQ(picker.File1.path(), "C:\\");
    EXPECT_EQ(picker.File1.files(), Paths{"root.txt"});
    picker.okButton.click();
  });
  EXPECT_EQ(listed(), Paths{"C:\\root.txt"});
  pick([](frmFolder& picker) {
    ASSERT_TRUE(picker.Dir1.setPath("C:\\Docs"));
    EXPECT_EQ(picker.File1.files(), (Paths{"A.txt", "b.txt", "protected.txt"}));
    picker.okButton.click();
  });
  EXPECT_EQ(listed(), (Paths{"C:\\root.txt", "C:\\Docs\\A.txt", "C:\\Docs\\b.txt", "C:\\Docs\\protected.txt"}));
  EXPECT_TRUE(form.cmdShred.enabled() && form.cmdRemoveFile.enabled());
  EXPECT_EQ(machine.files().currentFolder(), kHere);
}

TEST_F(FolderPicker, CancelAndEmptyFoldersAddNothing) {
  machine.addFile("C:\\root.txt");
  pick([](frmFolder& picker) { picker.cancelButton.click(); });
  pick([](frmFolder& picker) { picker.closeRequested(); });
  pick([](frmFolder& picker) {
    EXPECT_TRUE(picker.Dir1.setPath("C:\\Here"));
    picker.okButton.click();
  });
  EXPECT_TRUE(form.ListView1.empty());
  EXPECT_FALSE(form.cmdShred.enabled() || form.cmdRemoveFile.enabled());
}

TEST_F(FolderPicker, FileListFollowsTheFolderListAlsoWhenItCannotBeRead) {
  machine.addDrive('D', "BACKUP");
  machine.addFile("D:\\Old\\old.txt");
  machine.setCurrentFolder("D:\\Old");
  machine.addDrive('E', "", false);
  machine.setCurrentFolder(kHere);
  machine.addFile("C:\\Docs\\a.txt");
  machine.addFile("C:\\root.txt");
  pick([&](frmFolder& picker) {
    ASSERT_EQ(picker.Drive1.items(), (Paths{"c:", "d: [BACKUP]", "e:"}));
    picker.Drive1.choose(1);
    EXPECT_EQ(picker.Dir1.path(), "D:\\Old");
    EXPECT_EQ(picker.File1.files(), Paths{"old.txt"});

    picker.Drive1.choose(2);
    EXPECT_EQ(lastBox(), "Run-time error '68':\r\n\r\nDevice unavailable");
    EXPECT_EQ(picker.File1.path(), "D:\\Old");

    // The drive's text alone, in small letters, starts at the root and not in the current folder.
    picker.Drive1.choose(0);
    EXPECT_EQ(picker.Dir1.path(), "c:\\");
    EXPECT_EQ(picker.File1.files(), Paths{"root.txt"});

    machine.failAt("filesIn");
    ASSERT_TRUE(picker.Dir1.setPath("C:\\Docs"));
    EXPECT_EQ(picker.File1.path(), "C:\\Docs");
    EXPECT_TRUE(picker.File1.files().empty());
    EXPECT_EQ(boxTexts().size(), 2U);
    expectSoundLayout(picker);
    expectSoundMnemonics(picker);
    picker.okButton.click();
  });
  EXPECT_TRUE(form.ListView1.empty());
  EXPECT_EQ(machine.files().currentFolder(), kHere);
}

}  // namespace
