// What each window shows when it opens, and how its controls share it at any size.
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

// "name|caption|tooltip", with "~" behind the name of a hidden control and "-" behind that of a disabled one. A list's
// column titles stand for its caption. Controls without any of these are left out.
Paths described(const controls::Form& form) {
  Paths lines;
  for (const Control* control : form.controls()) {
    std::string caption = control->caption();
    if (control->kind() == Kind::kListView) {
      for (const controls::Column& column : static_cast<const controls::ListView*>(control)->columns()) {
        caption += column.title + ';';
      }
    }
    const std::string state = std::string(control->visible() ? "" : "~") + (control->enabled() ? "" : "-");
    if ((caption + state + control->toolTip()).empty() || control->name().starts_with("Check")) continue;
    lines.push_back(control->name() + state + '|' + caption + '|' + control->toolTip());
  }
  return lines;
}

// Every control stands in the tree once, in the window, in its frame, and over no other control but those that share
// its place on purpose. Alt and a letter reach one control, and the letter is one of its caption.
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
    if (letter == 0) continue;
    EXPECT_TRUE(used.insert(letter).second) << control->name();
    const auto isLetter = [letter](char c) { return c == letter || c == letter - 'A' + 'a'; };
    EXPECT_TRUE(std::ranges::any_of(control->caption(), isLetter)) << control->name();
  }
}

class Windows : public ConsoleTest {
 protected:
  static void expectWindow(controls::Form& window, const char* caption, const Paths& lines,
                           const std::set<const Control*>& sharing = {}, const Control* unplaced = nullptr) {
    SCOPED_TRACE(caption);
    window.load();
    EXPECT_EQ(window.caption(), caption);
    EXPECT_THAT(described(window), testing::UnorderedElementsAreArray(lines));
    expectSound(window, sharing, unplaced);
  }
};

TEST_F(Windows, OpenAsDescribed) {
  expectWindow(form, "Velmatrix Scrubhaven Pro 1.32",
               {"Picture1||Visit Velmatrix on the Web",
                "cmdZero|Find 0 Byte Files|Find 0 byte (empty) Files",
                "cmdFurnace|Shredder|Open the Scrubhaven Pro Shredder",
                "Del_Temps|Delete Temps|Deletes ALL Temporary Files in the Windows Temp Folders",
                "Del_Cache|IE Cache/Cookies|Clean Internet Explorer Temporary Files",
                "Del_History|Clear IE History|Clear Internet Explorer Visited Page History",
                "Del_Recent|Clear Recent Docs|Clear Recently Used Documents List",
                "Del_Recycle|Empty Recycle Bin|Empty the Windows Recycle Bin",
                "cmdMRU|Clear Typed URLs|Clear Internet Explorer Typed URL List",
                "cmdLists|Clean MRU Lists|Cleans MRU Lists of Common Programs",
                "cmdIndex|Wipe Index Files|Delete index.dat Files on Next Restart",
                "cmdPrefetch|Clear Prefetch|Clears the Windows Prefetch Folder",
                "cmdSwap|Clear Swap File|Toggle Clear Windows Pagefile on Shutdown",
                "cmdSysrestore|System Restore|Toggle Enable/Disable System Restore",
                "cmdHelp|Help|Scrubhaven Pro Help",
                "cmdExit|Close|Close Scrubhaven Pro",
                "Label4|Select Drive to Scan|",
                "Drive1||Choose a drive to scan (local or network)",
                "Label1|Start In|",
                "Dir1||Choose a folder to scan",
                "Scan||Scan Selected Drive and Folders",
                "cmdAbort~|Abort Scan|",
                "Frame1|File Types|",
                "Specials|Special Files|",
                "Select_Check|Select All|Toggle Select All or Clear All checkboxes",
                "Invert||Inverts Current Selection(s)",
                "cmdChoose|Custom Ext.|Choose Custom File Extensions",
                "Frame2|Scan results|",
                "ListView1|File Path and Name;Size;|Scan results",
                "ListView2~|File Path and Name;|",
                "lvCache~|File Name;Source URL;Expires;Last Access;|",
                "lblJunkCommands|Junk files:|",
                "Select_All-|Select All|Select or clear all items",
                "cmdInvert-|Invert|Invert Selection",
                "Delete-|Delete Files|Delete selected items",
                "optRecycle-|Delete to Recycle Bin|Checked = deletes to recycle bin - unchecked bypasses recycle bin",
                "optWipe-|Shred Files?|Check to send selected files to the shredder",
                "lblZeroCommands|0 byte files:|",
                "cmdSelectAll|Select All|Select All Listed Files",
                "cmdZeroInvert|Invert|",
                "cmdZeroDelete|Delete|Delete Selected Files",
                "lblCacheCommands|Internet cache:|",
                "cmdSelect-|Select All|Select or clear all items",
                "cmdCacheInvert-|Invert|Scan selected drive and folders",
                "cmdCleanCache-|Clean|Delete selected cache items",
                "cmdCacheAbort|Abort|",
                "Frame3|Scan Results|",
                "Label6~||",
                "lblStatus~||",
                "lblFile~||"},
               {&form.ListView1, &form.ListView2, &form.lvCache});
  frmMain shredder;
  expectWindow(shredder, "Scrubhaven Pro - Shredder",
               {"Frame1|Select Files to Shred|", "ListView1|File Name and Path;|",
                "cmdAddFile|Add File|Add File to Shredder List",
                "cmdAddFolder|Add Folder|Add Contents of an Entire Folder to Shredder List",
                "cmdRemoveFile|Remove File|Remove File From Shredder List", "cmdShred-|Shred Files|Shred Listed Files",
                "cmdCancel-|Cancel|Cancel Shredding Operation", "cmdClose|Close|Close Shredder", "lblBlue~||"},
               {&shredder.lblBlue, &shredder.lblGrey});
  EXPECT_EQ(shredder.cancelButton(), nullptr) << "Esc would cancel every later run";
  frmFolder picker(shredder);
  expectWindow(picker, "Add folder contents",
               {"Frame1|Select a folder (folder contents will be shredded)|", "okButton|OK|", "cancelButton|Cancel|"});
  frmPage page;
  expectWindow(page, "Cear Pagfile",
               {"cmdToggle|Toggle|Toggles Enable/Disable Clear Pagefile", "cmd_Cancel|Cancel|ExitThis Window",
                "lblPage|The current setting is not known.|"});
  frmSR restore;
  expectWindow(restore, "Toggle System Restore",
               {"cmdToggle|Toggle|Toggles Enable/Disable System Restore", "cmd_Cancel|Cancel|ExitThis Window",
                "lblSR|The current setting is not known.|", "ListView1~||"},
               {}, &restore.ListView1);
  frmChoose choose(form.CustomExtensions);
  expectWindow(choose, "Custom File Extensions",
               {"Frame1|Custom File Extensions|",
                "Label1|You can enter up to five custom file extensions here. You do not need to enter the . just the "
                "extension; for example:  jpg or 001|",
                "cmdAccept|Accept|", "cmdCancel|Cancel|"});
}

TEST_F(Windows, ConsoleFitsOnASmallScreenAndGivesItsListsMostOfALargerOne) {
  const controls::Size small = {780, 540};
  const controls::Size least = controls::leastSize(form.layout(), FixedMetrics());
  EXPECT_TRUE(least.width <= small.width && least.height <= small.height);
  const Rect before = controls::arrange(form.layout(), FixedMetrics(), small).at(&form.ListView1);
  const Rect after = controls::arrange(form.layout(), FixedMetrics(), {880, 940}).at(&form.ListView1);
  EXPECT_TRUE(after.width == before.width + 100 && after.height == before.height + 300);
}

}  // namespace
