// The captions and tooltips of the windows.
#include "tests/unit/ConsoleTest.h"

using controls::Control;

namespace {

// Of each control but the boxes of the file types, its name and its text.
const Paths kTips =
    parts(R"(Picture1|Visit Velmatrix on the Web|cmdZero|Find 0 byte (empty) Files|cmdFurnace|)"
          R"(Open the Scrubhaven Pro Shredder|Del_Temps|Deletes ALL Temporary Files in the Windows Temp Folders|)"
          R"(Del_Recycle|Empty the Windows Recycle Bin|Del_Cache|Clean Internet Explorer Temporary Files|Del_History|)"
          R"(Clear Internet Explorer Visited Page History|Del_Recent|Clear Recently Used Documents List|cmdMRU|)"
          R"(Clear Internet Explorer Typed URL List|cmdLists|Cleans MRU Lists of Common Programs|cmdIndex|)"
          R"(Delete index.dat Files on Next Restart|cmdPrefetch|Clears the Windows Prefetch Folder|cmdSwap|)"
          R"(Toggle Clear Windows Pagefile on Shutdown|cmdSysrestore|Toggle Enable/Disable System Restore|cmdHelp|)"
          R"(Scrubhaven Pro Help|cmdExit|Close Scrubhaven Pro|Drive1|Choose a drive to scan (local or network)|Dir1|)"
          R"(Choose a folder to scan|Scan|Scan Selected Drive and Folders|Select_Check|)"
          R"(Toggle Select All or Clear All checkboxes|Invert|Inverts Current Selection(s)|cmdChoose|)"
          R"(Choose Custom File Extensions|ListView1|Scan results|Select_All|Select or clear all items|cmdInvert|)"
          R"(Invert Selection|Delete|Delete selected items|optRecycle|)"
          R"(Checked = deletes to recycle bin - unchecked bypasses recycle bin|optWipe|)"
          R"(Check to send selected files to the shredder|cmdSelectAll|Select All Listed Files|cmdZeroDelete|)"
          R"(Delete Selected Files|cmdSelect|Select or clear all items|cmdCacheInvert|Scan selected drive and folders|)"
          R"(cmdCleanCache|Delete selected cache items|cmdAddFile|Add File to Shredder List|cmdAddFolder|)"
          R"(Add Contents of an Entire Folder to Shredder List|cmdRemoveFile|Remove File From Shredder List|cmdShred|)"
          R"(Shred Listed Files|cmdCancel|Cancel Shredding Operation|cmdClose|Close Shredder|cmdToggle|)"
          R"(Toggles Enable/Disable Clear Pagefile|cmd_Cancel|ExitThis Window|cmdToggle|)"
          R"(Toggles Enable/Disable System Restore|cmd_Cancel|ExitThis Window)");

using Windows = ConsoleTest;

TEST_F(Windows, HaveTheirCaptionsAndTooltips) {
  Paths tips;
  const auto expectWindow = [&](const controls::Form& window, const std::string& caption) {
    EXPECT_EQ(window.caption(), caption);
    for (const Control* control : window.controls()) {
      const bool isType = control->name().starts_with("Check");
      if (control->toolTip().empty() || isType) continue;
      tips.insert(tips.end(), {control->name(), control->toolTip()});
    }
  };
  expectWindow(form, "Velmatrix Scrubhaven Pro 1.32");
  const OtherWindows others(form);
  EXPECT_EQ(others.shredder.cancelButton(), nullptr) << "Esc would cancel every later run";
  const char* const captions[] = {"Scrubhaven Pro - Shredder", "Add folder contents", "Cear Pagfile",
                                  "Toggle System Restore", "Custom File Extensions"};
  for (std::size_t i = 0; i < std::size(captions); ++i) expectWindow(*others.all[i], captions[i]);
  EXPECT_THAT(tips, testing::ElementsAreArray(kTips));
}

}  // namespace
