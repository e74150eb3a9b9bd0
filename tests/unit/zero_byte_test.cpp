#include "tests/unit/ConsoleTest.h"

#include <algorithm>

using platform::Answer;
using platform::kArchive;
using platform::kHidden;
using platform::kReadOnly;
using platform::kSystem;
using platform::Pointer;
using platform::memory::ShownBox;

namespace {

constexpr const char* kAbortBox = "    Scan Aborted";
constexpr const char* kWarning = "Use extreme caution when deleting 0 byte files - see help for details";

class ZeroByteFiles : public ConsoleTest {
 protected:
  void find(const std::string& folder) {
    ASSERT_TRUE(form.Dir1.setPath(folder));
    form.cmdZero.click();
  }

  Paths zeros() const { return textsOf(form.ListView2); }

  // Finds what is in C:\Z, ticks the rows of these files and presses Delete.
  void deleteTicked(std::initializer_list<const char*> names, std::initializer_list<Answer> answers) {
    find("C:\\Z");
    tick(form.ListView2, names);
    for (const Answer answer : answers) machine.answer(answer);
    form.cmdZeroDelete.click();
  }
};

TEST_F(ZeroByteFiles, ListsEmptyFilesOfAllFoldersButTheNamesThatWindowsKeeps) {
  for (const char* name : {"IO.SYS", "MSDOS.SYS", "WIN.INI", "SYSTEM.INI", "Desktop.ini", "Boot.ini"}) {
    machine.addFile(std::string("C:\\Z\\Kept\\") + name);
  }
  for (const char* name : {"desktop.ini", "BOOT.INI", "none"}) machine.addFile(std::string("C:\\Z\\Other\\") + name);
  machine.addFile("C:\\Z\\Other\\one byte.txt", "x");
  machine.addSizedFile("C:\\Z\\Other\\low half is 0.bin", 0x100000000ULL);
  machine.addFile("C:\\Z\\Hidden\\a", "", kHidden | kSystem);
  machine.disk().setAttributes("C:\\Z\\Hidden", kHidden | kSystem);
  machine.addFile("C:\\Z\\top.txt");
  find("C:\\Z");
  EXPECT_EQ(zeros(), (Paths{"C:\\Z\\top.txt", "C:\\Z\\Hidden\\a", "C:\\Z\\Other\\BOOT.INI", "C:\\Z\\Other\\desktop.ini",
                            "C:\\Z\\Other\\none"}));
}

TEST_F(ZeroByteFiles, LengthsAreAskedByPathAndLinksAndUnreadableEntriesArePassedOver) {
  machine.addFile("C:\\Z\\a growing.txt", "just written");
  machine.disk().setListedSize("C:\\Z\\a growing.txt", 0);
  machine.addFile("C:\\Z\\b emptied.txt");
  machine.disk().setListedSize("C:\\Z\\b emptied.txt", 7);
  machine.addFile("C:\\Z\\c unreadable.txt");
  machine.addFile("C:\\Elsewhere\\empty.txt");
  machine.disk().addLink("C:\\Z\\Link", "C:\\Elsewhere");
  machine.addFile("C:\\Z\\Sub\\empty.txt");
  machine.failAt("fileLength", 3);
  machine.failAt("getFileAttributes", 5);  // that of Sub, the last entry
  find("C:\\Z");
  EXPECT_EQ(zeros(), Paths{"C:\\Z\\b emptied.txt"});
}

TEST_F(ZeroByteFiles, OnlyAbortActsDuringAScan) {
  machine.addFile("C:\\Z\\a.txt");
  for (controls::Control* command : {&form.cmdInvert, &form.cmdCacheInvert, &form.Delete}) command->enable();
  int served = 0;
  machine.whenServing([&] {
    ++served;
    expectBox(kWarning, "Warning!", 16);
    EXPECT_EQ(machine.ui().pointer(), Pointer::kHourglass);
    EXPECT_TRUE(form.ListView2.visible() && form.lblFile.visible());
    EXPECT_FALSE(form.ListView1.visible() || form.lvCache.visible() || form.Label6.visible());
    EXPECT_EQ(usableCommands(), Paths{"cmdAbort"});
    machine.environment().advance(2500);
  });
  find("C:\\Z");
  ASSERT_EQ(served, 1);
  EXPECT_EQ(form.Label6.caption(), "Results: 1 0 Byte files found in 2 seconds.") << "halves go to the even second";
  EXPECT_EQ(form.lblFile.caption(), "C:\\Z\\a.txt");
  EXPECT_EQ(machine.ui().pointer(), Pointer::kDefault);
  EXPECT_FALSE(form.Delete.enabled() || form.cmdInvert.enabled() || form.cmdCacheInvert.enabled());
  EXPECT_THAT(usableCommands(), testing::IsSupersetOf({"cmdZeroInvert", "cmdSelectAll", "Scan", "cmdExit", "cmdZero",
                                                       "cmdCacheAbort", "Check0"}));
  EXPECT_TRUE(form.Label6.visible());
  EXPECT_TRUE(form.cmdZeroDelete.visible() && !form.cmdZeroDelete.enabled());
  EXPECT_TRUE(form.cmdSelect.visible() && !form.cmdSelect.enabled());
  EXPECT_TRUE(form.optRecycle.visible() && !form.optRecycle.enabled() && !form.optWipe.visible());
  EXPECT_FALSE(form.Select_All.visible() || form.cmdAbort.visible() || form.lblFile.visible());
}

TEST_F(ZeroByteFiles, AbortTakesEffectAtTheNextEntryAndTheResultLineFollowsTheBox) {
  for (int i = 0; i < 4; ++i) machine.addFile("C:\\Z\\F" + std::to_string(i) + "\\deep.txt");
  machine.addFile("C:\\Z\\top.txt");
  constexpr int kInFirstSubfolder = 8;  // after the 7 entries of C:\Z, with "." and ".."
  int served = 0;
  machine.ui().everyServing([&] {
    if (++served == kInFirstSubfolder) form.cmdAbort.click();
  });
  machine.ui().onBox([&](const ShownBox& box) {
    if (box.text != kAbortBox) return;
    EXPECT_FALSE(form.Label6.visible() || form.AbortRequested);
    machine.environment().advance(3500);
  });
  find("C:\\Z");
  EXPECT_EQ(served, kInFirstSubfolder + 1) << "one more, and no further folder";
  EXPECT_EQ(zeros(), Paths{"C:\\Z\\top.txt"});
  expectBox(kAbortBox, "Scan Aborted", 0);
  EXPECT_EQ(form.Label6.caption(), "Results: 1 0 Byte files found in 4 seconds.");
  const Paths usable = usableCommands();
  find("C:\\Z");
  EXPECT_EQ(zeros().size(), 5U);
  EXPECT_EQ(usableCommands(), usable) << "an abort leaves the console as a normal end does";
}

TEST_F(ZeroByteFiles, OverflowsAreReportedWithoutAResultLineAndLeaveTheConsoleUsable) {
  const std::string overflow = "Run-time error '6':\r\n\r\nOverflow";
  machine.addFolder("C:\\Z");
  machine.environment().setTickCount(0x7FFFFFFF);
  machine.whenServing([&] { machine.environment().advance(1); });
  find("C:\\Z");
  EXPECT_EQ(lastBox(), overflow);
  EXPECT_FALSE(form.Label6.visible() || form.cmdAbort.visible());
  EXPECT_TRUE(form.Scan.acceptsInput() && form.cmdZero.acceptsInput());
  EXPECT_EQ(machine.ui().pointer(), Pointer::kDefault);

  machine.whenServing([&] {
    for (int i = 0; i < 32768; ++i) form.ListView2.add("C:\\Z\\" + std::to_string(i));
  });
  find("C:\\Z");
  EXPECT_EQ(lastBox(), overflow);
  EXPECT_FALSE(form.Label6.visible());
  EXPECT_TRUE(form.Scan.acceptsInput());
}

TEST_F(ZeroByteFiles, TicksEnableDeleteAndTheCaptionFollows) {
  machine.addFolder("C:\\Z");
  find("C:\\Z");
  form.cmdSelectAll.click();
  EXPECT_EQ(lastBox(), "Nothing to select!");
  for (const char* name : {"a", "b", "c"}) machine.addFile(std::string("C:\\Z\\") + name);
  find("C:\\Z");
  form.ListView2.clickRow(1);
  form.ListView2.clickTick(1);
  EXPECT_EQ(form.ListView2.toolTip(), "C:\\Z\\b");
  EXPECT_TRUE(form.cmdZeroDelete.enabled());
  EXPECT_EQ(form.cmdSelectAll.caption(), "Clear All");
  form.ListView2.clickTick(2);
  form.cmdZeroInvert.click();
  EXPECT_TRUE(form.ListView2.ticked(0) && !form.ListView2.ticked(1) && !form.ListView2.ticked(2));
  EXPECT_EQ(form.cmdSelectAll.caption(), "Select All") << "the last row, though others are ticked";
  EXPECT_TRUE(form.cmdZeroDelete.enabled());
  form.optRecycle.enable();
  form.optRecycle.hide();
  form.cmdSelectAll.click();
  EXPECT_EQ(form.ListView2.tickedCount(), 3U);
  EXPECT_EQ(form.cmdSelectAll.caption(), "Clear All");
  EXPECT_TRUE(form.optRecycle.visible() && !form.optRecycle.enabled());
  form.cmdSelectAll.click();
  EXPECT_EQ(form.ListView2.tickedCount(), 0U);
  EXPECT_EQ(form.cmdSelectAll.caption(), "Select All");
  EXPECT_FALSE(form.cmdZeroDelete.enabled());
}

TEST_F(ZeroByteFiles, DeletesOnlyTickedOnesAsTheBoxSaysAndAsksForReadOnly) {
  machine.addFile("C:\\Z\\1 plain", "", 0);
  machine.addFile("C:\\Z\\2 unticked", "", 0);
  machine.addFile("C:\\Z\\3 kept", "", kReadOnly);
  machine.addFile("C:\\Z\\4 given up", "", kReadOnly | kArchive);
  machine.addFile("C:\\Z\\5 hidden", "", kReadOnly | kHidden);
  machine.addFile("C:\\Z\\6 in use", "", kArchive);
  machine.disk().lock("C:\\Z\\6 in use");
  // Asked for from the last row to the first: the confirmation, the box about the file in use, then 4 and 3.
  deleteTicked({"plain", "kept", "given up", "hidden", "in use"},
               {Answer::kYes, Answer::kOk, Answer::kYes, Answer::kNo});
  EXPECT_EQ(machine.filesBelow("C:\\Z"), (Paths{"C:\\Z\\2 unticked", "C:\\Z\\3 kept", "C:\\Z\\6 in use"}));
  EXPECT_EQ(machine.disk().recycleBin(), (Paths{"C:\\Z\\5 hidden", "C:\\Z\\4 given up", "C:\\Z\\1 plain"}));
  EXPECT_EQ(zeros(), (Paths{"C:\\Z\\2 unticked", "C:\\Z\\3 kept"}));
  EXPECT_EQ(form.ListView2.tickedCount(), 0U);
  EXPECT_EQ(boxTexts(),
            (Paths{kWarning, "Confirm file deletion?", "C:\\Z\\6 in use is in use by Windows and can not be deleted.",
                   "C:\\Z\\4 given up\r\nis a read only file - OK to delete?",
                   "C:\\Z\\3 kept\r\nis a read only file - OK to delete?",
                   "The selected 0 Byte files have been deleted to the Recycle Bin"}));
  expectBox(lastBox(), "Files Deleted", 64);
  EXPECT_FALSE(form.cmdZeroDelete.enabled() || form.cmdSelectAll.visible() || form.Select_All.visible());
  EXPECT_TRUE(form.cmdSelect.visible());

  form.optRecycle.setTicked(false);
  deleteTicked({"unticked"}, {Answer::kYes});
  EXPECT_FALSE(machine.exists("C:\\Z\\2 unticked"));
  EXPECT_EQ(machine.disk().recycleBin().size(), 3U) << "for good";
  EXPECT_EQ(machine.shell().fileOperations().back().flags, 16U);
}

TEST_F(ZeroByteFiles, NothingListedAndNoChangeNothing) {
  form.cmdZeroDelete.click();
  EXPECT_EQ(lastBox(), "Nothing to Delete");
  machine.addFile("C:\\Z\\a");
  deleteTicked({"a"}, {Answer::kNo});
  EXPECT_TRUE(machine.exists("C:\\Z\\a") && form.ListView2.ticked(0));
  EXPECT_TRUE(form.cmdSelectAll.acceptsInput() && !form.cmdSelect.visible());
  EXPECT_TRUE(machine.shell().fileOperations().empty());
}

TEST_F(ZeroByteFiles, ARowWithoutAFileEndsTheDeletionAndTheProgramGoesOn) {
  for (const bool isFolderNow : {true, false}) {
    for (const char* name : {"a", "b", "c"}) machine.addFile(std::string("C:\\Z\\") + name);
    find("C:\\Z");
    ASSERT_TRUE(machine.fileObjects().deleteFile("C:\\Z\\b", true));
    if (isFolderNow) machine.addFile("C:\\Z\\b\\kept", "kept");
    form.ListView2.clickTick(0);
    form.ListView2.clickTick(1);
    machine.answer(Answer::kYes);
    form.cmdZeroDelete.click();
    EXPECT_EQ(lastBox(), "Confirm file deletion?") << "no closing message";
    EXPECT_EQ(zeros(), (Paths{"C:\\Z\\a", "C:\\Z\\b", "C:\\Z\\c"}));
    EXPECT_TRUE(machine.exists("C:\\Z\\a") && form.cmdZero.acceptsInput());
    EXPECT_EQ(machine.exists("C:\\Z\\b\\kept"), isFolderNow);
    static_cast<void>(machine.fileObjects().deleteFolder("C:\\Z\\b", true));
  }
}

// Each platform call of a scan and of a deletion fails once: only empty files are ever listed, only ticked ones go.
TEST_F(ZeroByteFiles, AnyFailureListsNoFullFileAndDeletesNoOtherOne) {
  machine.addFile("C:\\Z\\Sub\\full", "full");
  withEachCallFailing({"findFirstFile", "findNextFile", "findClose", "getFileAttributes", "fileLength", "folderExists",
                       "getFile", "anyFileMatches", "createFile", "fileOperation"},
                      [&](const std::string& what) {
                        for (const char* name : {"a", "b", "Sub\\c"}) machine.addFile(std::string("C:\\Z\\") + name);
                        deleteTicked({"a", "c"}, {});
                        EXPECT_EQ(std::ranges::count(zeros(), "C:\\Z\\Sub\\full"), 0) << what;
                        if (form.ListView2.tickedCount() > 0) {
                          machine.answer(Answer::kYes);
                          form.cmdZeroDelete.click();
                        }
                        EXPECT_TRUE(machine.exists("C:\\Z\\b") && machine.exists("C:\\Z\\Sub\\full")) << what;
                        EXPECT_TRUE(machine.openHandles() == 0 && form.cmdZero.acceptsInput()) << what;
                      });
}

}  // namespace
