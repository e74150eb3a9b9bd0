// The tooltips of each window, and how its controls share it at any size.
#include <algorithm>
#include <set>

#include "finder/frmChoose.h"
#include "settings/frmPage.h"
#include "settings/frmSR.h"
#include "shredder/frmFolder.h"
#include "shredder/frmMain.h"
#include "tests/unit/ConsoleTest.h"

using controls::Control;
using controls::Kind;
using controls::Rect;

namespace {

// A screen with the usual dialog font.
struct FixedMetrics : controls::Metrics {
  int pixelsX(int units) const override { return units * 6 / 4; }
  int pixelsY(int units) const override { return units * 13 / 8; }
  int textWidth(const std::string& text) const override { return static_cast<int>(text.size()) * 6; }
};

// Every control stands in the tree once, in the window, in its frame, and over no other control but those that share
// its place on purpose. Alt and a letter reach one control.
void expectSound(controls::Form& form, const std::set<const Control*>& sharing, const Control* unplaced) {
  const FixedMetrics metrics;
  const controls::Box box = form.layout();
  const controls::Size least = controls::leastSize(box, metrics);
  std::multiset<const Control*> expected(form.controls().begin(), form.controls().end());
  expected.erase(unplaced);
  const std::vector<Control*> order = controls::tabOrder(box);
  EXPECT_EQ(std::multiset<const Control*>(order.begin(), order.end()), expected);
  for (const controls::Size size : {controls::Size{1, 1}, controls::Size{1600, 1200}}) {
    const controls::Places places = controls::arrange(box, metrics, size);
    const Rect window = {-1, -1, std::max(size.width, least.width) + 2, std::max(size.height, least.height) + 2};
    for (const auto& [a, ra] : places) {
      const Rect& around = a->frame() == nullptr ? window : places.at(a->frame());
      EXPECT_TRUE(ra.x > around.x && ra.right() < around.right() && ra.y > around.y && ra.bottom() < around.bottom())
          << a->name() << " sticks out";
      const bool isButton = a->kind() == Kind::kButton || a->kind() == Kind::kCheckBox;
      EXPECT_TRUE(!isButton || ra.width > metrics.textWidth(a->caption())) << a->name() << " is cut";
      for (const auto& [b, rb] : places) {
        if (a == b || a->kind() == Kind::kFrame || b->kind() == Kind::kFrame) continue;
        if (sharing.contains(a) && sharing.contains(b)) continue;
        const bool apart = ra.right() <= rb.x || rb.right() <= ra.x || ra.bottom() <= rb.y || rb.bottom() <= ra.y;
        EXPECT_TRUE(apart) << a->name() << " overlaps " << b->name();
      }
    }
  }
  std::set<char> used;
  for (const Control* control : form.controls()) {
    const char letter = control->mnemonic();
    EXPECT_TRUE(letter == 0 || used.insert(letter).second) << control->name();
  }
}

// Of each control but the boxes of the file types, its name and its text.
const Paths kTips = parts(
    R"(Picture1|Visit Velmatrix on the Web|cmdZero|Find 0 byte (empty) Files|cmdFurnace|)"
    R"(Open the Scrubhaven Pro Shredder|Del_Temps|Deletes ALL Temporary Files in the Windows Temp Folders|)"
    R"(Del_Cache|Clean Internet Explorer Temporary Files|Del_History|Clear Internet Explorer Visited Page History|)"
    R"(Del_Recent|Clear Recently Used Documents List|Del_Recycle|Empty the Windows Recycle Bin|cmdMRU|)"
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

TEST_F(Windows, HaveTheirTooltipsAndASoundLayout) {
  Paths tips;
  const auto expectWindow = [&](controls::Form& window, const std::string& caption,
                                const std::set<const Control*>& sharing = {}, const Control* unplaced = nullptr) {
    SCOPED_TRACE(caption);
    EXPECT_EQ(window.caption(), caption);
    expectSound(window, sharing, unplaced);
    for (const Control* control : window.controls()) {
      const bool isType = control->name().starts_with("Check");
      if (control->toolTip().empty() || isType) continue;
      tips.insert(tips.end(), {control->name(), control->toolTip()});
    }
  };
  expectWindow(form, "Velmatrix Scrubhaven Pro 1.32", {&form.ListView1, &form.ListView2, &form.lvCache});
  frmMain shredder;
  expectWindow(shredder, "Scrubhaven Pro - Shredder", {&shredder.lblBlue, &shredder.lblGrey});
  EXPECT_EQ(shredder.cancelButton(), nullptr) << "Esc would cancel every later run";
  frmFolder picker(shredder);
  expectWindow(picker, "Add folder contents");
  frmPage page;
  expectWindow(page, "Cear Pagfile");
  frmSR restore;
  expectWindow(restore, "Toggle System Restore", {}, &restore.ListView1);
  frmChoose choose(form.CustomExtensions);
  expectWindow(choose, "Custom File Extensions");
  EXPECT_THAT(tips, testing::ElementsAreArray(kTips));
}

}  // namespace
