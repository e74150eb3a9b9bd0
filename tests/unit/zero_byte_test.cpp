#include <algorithm>

#include "tests/unit/ConsoleTest.h"

using platform::Answer;
using platform::kArchive;
using platform::kHidden;
using platform::kReadOnly;
using platform::Pointer;

namespace {

constexpr const char* kWarning = "Use extreme caution when deleting 0 byte files - see help for details";
constexpr const char* kConfirm = "Confirm file deletion?";

class ZeroByteFiles : public ConsoleTest {
 protected:
  Paths find(const std::string& folder = "C:\\Z") {
    EXPECT_TRUE(form.Dir1.setPath(folder));
    return press(form.cmdZero);
  }

  Paths zeros() const { return pathsOf(form.ListView2); }

  // Ticks the rows of these files and presses Delete.
  Paths deleteTicked(std::initializer_list<const char*> names, std::initializer_list<Answer> answers) {
    tick(form.ListView2, names);
    return press(form.cmdZeroDelete, answers);
  }
};

TEST_F(ZeroByteFiles, ListsEmptyFilesOfAllFoldersButTheNamesThatWindowsKeeps) {
  addFiles("C:\\Z", {"IO.SYS", "MSDOS.SYS", "WIN.INI", "SYSTEM.INI", "Desktop.ini", "Boot.ini"}, "");
  addFiles("C:\\Z\\Case", {"io.sys", "MsDos.Sys", "win.ini", "System.ini", "desktop.ini", "BOOT.INI"}, "");
  addFiles("C:\\Z", {"1 one byte"});
  addFiles("C:\\Z\\Hidden", {"a", "b", "c", "d"}, "");
  machine.disk().setAttributes("C:\\Z\\Hidden", kHidden | platform::kSystem);
  machine.disk().setListedSize("C:\\Z\\1 one byte", 0);
  machine.disk().setListedSize("C:\\Z\\Hidden\\a", 7);  // the folder's entry lags behind
  machine.addSizedFile("C:\\Z\\Hidden\\low half is 0", 0x100000000ULL);
  addFiles("C:\\Elsewhere", {"c"}, "");
  machine.disk().addLink("C:\\Z\\Link", "C:\\Elsewhere");
  machine.failAt("fileSize", 15);  // that of Hidden\b
  find();
  EXPECT_EQ(zeros(), (Paths{"C:\\Z\\Case\\BOOT.INI", "C:\\Z\\Case\\desktop.ini", "C:\\Z\\Case\\io.sys",
                            "C:\\Z\\Case\\MsDos.Sys", "C:\\Z\\Case\\System.ini", "C:\\Z\\Case\\win.ini",
                            "C:\\Z\\Hidden\\a", "C:\\Z\\Hidden\\c", "C:\\Z\\Hidden\\d"}));
}

TEST_F(ZeroByteFiles, OverflowsAreReportedWithoutAResultLineAndLeaveTheConsoleUsable) {
  machine.addFolder("C:\\Z");
  for (const bool ofTime : {true, false}) {
    machine.environment().setTickCount(0x7FFFFFFF);
    machine.whenServing([&, ofTime] {
      if (ofTime) machine.environment().advance(1);
      for (int i = 0; i < 32767 + !ofTime; ++i) form.ListView2.add("C:\\Z\\" + std::to_string(i));
    });
    EXPECT_EQ(find(), (Paths{kWarning, "Run-time error '6':\r\n\r\nOverflow"}));
    EXPECT_FALSE(form.Label6.visible() || form.cmdAbort.visible());
    EXPECT_TRUE(form.Scan.acceptsInput() && form.cmdZero.acceptsInput());
    EXPECT_EQ(machine.ui().pointer(), Pointer::kDefault);
  }
}

TEST_F(ZeroByteFiles, DeletesOnlyTickedOnesAsTheBoxSaysAndAsksForReadOnly) {
  machine.addFile("C:\\Z\\1 plain", "", 0);
  machine.addFile("C:\\Z\\2 unticked", "", 0);
  machine.addFile("C:\\Z\\3 kept", "", kReadOnly);
  machine.addFile("C:\\Z\\4 given up", "", kReadOnly | kArchive);
  machine.addFile("C:\\Z\\5 hidden", "", kReadOnly | kHidden);
  machine.addFile("C:\\Z\\6 in use", "", kArchive);
  machine.disk().lock("C:\\Z\\6 in use");
  find();
  form.ListView2.clickRow(2);
  // From the last row to the first.
  const std::string ask = "\r\nis a read only file - OK to delete?";
  EXPECT_EQ(deleteTicked({"plain", "kept", "given up", "hidden", "in use"},
                         {Answer::kYes, Answer::kOk, Answer::kYes, Answer::kNo}),
            (Paths{kConfirm, "C:\\Z\\6 in use is in use by Windows and can not be deleted.", "C:\\Z\\4 given up" + ask,
                   "C:\\Z\\3 kept" + ask, "The selected 0 Byte files have been deleted to the Recycle Bin"}));
  EXPECT_EQ(machine.filesBelow("C:\\Z"), (Paths{"C:\\Z\\2 unticked", "C:\\Z\\3 kept", "C:\\Z\\6 in use"}));
  EXPECT_EQ(machine.disk().recycleBin(), (Paths{"C:\\Z\\5 hidden", "C:\\Z\\4 given up", "C:\\Z\\1 plain"}));
  EXPECT_EQ(zeros(), (Paths{"C:\\Z\\2 unticked", "C:\\Z\\3 kept"}));
  EXPECT_EQ(form.ListView2.toolTip(), "C:\\Z\\3 kept") << "the selected row when a tick changed";
  EXPECT_EQ(form.ListView2.tickedCount(), 0U);
  EXPECT_FALSE(form.cmdZeroDelete.enabled() || form.cmdSelectAll.visible() || form.Select_All.visible());
  EXPECT_TRUE(form.cmdSelect.visible());

  form.optRecycle.setTicked(false);
  EXPECT_EQ(deleteTicked({"unticked"}, {Answer::kNo}), Paths{kConfirm});
  EXPECT_TRUE(form.cmdSelectAll.acceptsInput() && !form.cmdSelect.visible());
  press(form.cmdZeroDelete, {Answer::kYes});
  EXPECT_FALSE(machine.exists("C:\\Z\\2 unticked"));
  EXPECT_EQ(machine.disk().recycleBin().size(), 3U) << "for good";
}

TEST_F(ZeroByteFiles, ARowWithoutAFileEndsTheDeletionAndTheProgramGoesOn) {
  for (const bool isFolderNow : {true, false}) {
    addFiles("C:\\Z", {"a", "b", "c"}, "");
    find();
    ASSERT_TRUE(machine.fileObjects().deleteFile("C:\\Z\\b", true));
    if (isFolderNow) addFiles("C:\\Z\\b", {"kept"});
    EXPECT_EQ(deleteTicked({"a", "b", "c"}, {Answer::kYes}), Paths{kConfirm}) << "no closing message";
    EXPECT_EQ(zeros(), (Paths{"C:\\Z\\a", "C:\\Z\\b"}));
    EXPECT_TRUE(machine.exists("C:\\Z\\a") && form.cmdZero.acceptsInput());
    EXPECT_EQ(machine.exists("C:\\Z\\b\\kept"), isFolderNow);
    static_cast<void>(machine.fileObjects().deleteFolder("C:\\Z\\b", true));
  }
}

}  // namespace
