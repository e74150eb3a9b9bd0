#include "tests/unit/ConsoleTest.h"

using platform::Answer;
using platform::kArchive;
using platform::kHidden;
using platform::kReadOnly;

namespace {

constexpr const char* kConfirm = "Confirm file deletion?";

using ZeroByteFiles = ConsoleTest;

TEST_F(ZeroByteFiles, ListsEmptyFilesOfAllFoldersButTheNamesThatWindowsKeeps) {
  addFiles("C:\\Z", {"IO.SYS", "MSDOS.SYS", "WIN.INI", "SYSTEM.INI", "Desktop.ini", "Boot.ini"}, "");
  addFiles("C:\\Z\\Case", {"io.sys", "MsDos.Sys", "win.ini", "System.ini", "desktop.ini", "BOOT.INI"}, "");
  addFiles("C:\\Z", {"1 one byte"});
  addFiles("C:\\Z\\Hidden", {"a", "b"}, "");
  machine.disk().setAttributes("C:\\Z\\Hidden", kHidden | platform::kSystem);
  machine.disk().setListedSize("C:\\Z\\1 one byte", 0);
  machine.addSizedFile("C:\\Z\\Hidden\\low half is 0", 0x100000000ULL);
  addFiles("C:\\Elsewhere", {"c"}, "");
  machine.disk().addLink("C:\\Z\\Link", "C:\\Elsewhere");
  EXPECT_TRUE(form.Dir1.setPath("C:\\Z"));
  form.cmdZero.click();
  EXPECT_EQ(pathsOf(form.ListView2),
            (Paths{"C:\\Z\\Case\\BOOT.INI", "C:\\Z\\Case\\desktop.ini", "C:\\Z\\Case\\io.sys", "C:\\Z\\Case\\MsDos.Sys",
                   "C:\\Z\\Case\\System.ini", "C:\\Z\\Case\\win.ini", "C:\\Z\\Hidden\\a", "C:\\Z\\Hidden\\b"}));
}

TEST_F(ZeroByteFiles, DeletesFromTheLastRowOnAsTheBoxSaysAndAsksForReadOnly) {
  addFiles("C:\\Z", {"1 plain", "6 in use"}, "");
  machine.addFile("C:\\Z\\3 kept", "", kReadOnly);
  machine.addFile("C:\\Z\\4 given up", "", kReadOnly | kArchive);
  machine.addFile("C:\\Z\\5 hidden", "", kReadOnly | kHidden);
  machine.disk().lock("C:\\Z\\6 in use");
  EXPECT_TRUE(form.Dir1.setPath("C:\\Z"));
  form.cmdZero.click();
  form.cmdSelectAll.click();
  const std::string ask = "\r\nis a read only file - OK to delete?";
  EXPECT_EQ(press(form.cmdZeroDelete, {Answer::kYes, Answer::kOk, Answer::kYes, Answer::kNo}),
            (Paths{kConfirm, "C:\\Z\\6 in use is in use by Windows and can not be deleted.", "C:\\Z\\4 given up" + ask,
                   "C:\\Z\\3 kept" + ask, "The selected 0 Byte files have been deleted to the Recycle Bin"}));
  EXPECT_EQ(machine.filesBelow("C:\\Z"), (Paths{"C:\\Z\\3 kept", "C:\\Z\\6 in use"}));
  EXPECT_EQ(machine.disk().recycleBin(), (Paths{"C:\\Z\\5 hidden", "C:\\Z\\4 given up", "C:\\Z\\1 plain"}));
  EXPECT_EQ(pathsOf(form.ListView2), Paths{"C:\\Z\\3 kept"});
  EXPECT_FALSE(form.cmdZeroDelete.enabled() || form.cmdSelectAll.visible() || form.Select_All.visible());
}

}  // namespace
