// The junk scan: file types and own extensions, the scan itself, and ticking what it has found.
#include <algorithm>
#include <optional>

#include "console/frmFind.h"
#include "controls/ControlLists.h"
#include "finder/frmChoose.h"
#include "platform/Platform.h"

using controls::messageBox;
using controls::setEnabled;
using controls::setVisible;

namespace {

struct FileType {
  const char* caption;
  const char* pattern;  // null: a star followed by the caption
  const char* toolTip;
};

constexpr const char* kSetupBackups = "Temporary Setup and Application Backup Files";
constexpr const char* kApplicationBackups = "Application Backup Files";

constexpr std::array<FileType, kFileTypes> kTypes = {{
    {".wbk", nullptr, "Temporary Works Backup Files"},
    {".bak", nullptr, kApplicationBackups},
    {".gid", nullptr, "Temporary Windows Help Data Files"},
    {".tmp", nullptr, kSetupBackups},
    {"~*.*", "~*.*", kSetupBackups},
    {".temp", nullptr, kSetupBackups},
    {"._mp", nullptr, kSetupBackups},
    {".dir", "mscreate.dir", "mscreate.dir Windows Temporary Directory Setup Information Files"},
    {".---", nullptr, "Old Setup and Application Backup Files"},
    {".syd", nullptr, kApplicationBackups},
    {".nav", nullptr, "Norton Backup Files"},
    {".old", nullptr, kApplicationBackups},
    {".mtx", "*Twain*.mtx", "Temporary Windows Twain Files"},
    {".cpy", nullptr, kApplicationBackups},
    {".db$", nullptr, "dBase Temporary Files"},
    {".db", "Thumbs.db", "Thumbs.db Temporary Folder Content Information Files"},
    {".prv", nullptr, kApplicationBackups},
    {".chk", nullptr, "Windows Checkdisk and Scandisk Files"},
    {".nu3", nullptr, "Norton Backup Files"},
    {".err", nullptr, "Application Error Log Files"},
}};

std::string patternOf(const FileType& type) {
  return type.pattern == nullptr ? std::string("*") + type.caption : type.pattern;
}

bool isBlank(const std::string& text) { return platform::trimmed(text).empty(); }

}  // namespace

void frmFind::makeFileTypeBoxes() {
  for (std::size_t i = 0; i < kTypes.size(); ++i) {
    Check.add(Specials, "Check" + std::to_string(i),
              controls::ControlInit{.caption = kTypes[i].caption, .toolTip = kTypes[i].toolTip});
    Check[i].onClick = [this] { Check_Click(); };
  }
}

void frmFind::bindJunkScan() {
  ListView1.indexBy(rowKey);
  ListView1.onItemCheck = [this] { ListView1_ItemCheck(); };
  ListView1.onItemClick = [this] { showSelectedTip(ListView1); };
  bindTool(Scan, &frmFind::Scan_Click);
  bindTool(Select_Check, &frmFind::Select_Check_Click);
  bindTool(Invert, &frmFind::Invert_Click);
  bindTool(Select_All, &frmFind::Select_All_Click);
  bindTool(cmdInvert, &frmFind::cmdInvert_Click);
  bindTool(cmdChoose, &frmFind::cmdChoose_Click);
  bindTool(Delete, &frmFind::Delete_Click);
  optRecycle.onClick = [this] { optRecycle_Click(); };
  optWipe.onClick = [this] { optWipe_Click(); };
}

void frmFind::Scan_Click() {
  prepareScan();
  if (!anyTypeChosen()) {
    messageBox("No file types selected.");
    return;
  }
  enterScan();
  const ScanPatternList patterns = scanPatterns();
  platform::machine().ui().setPointer(platform::Pointer::kHourglass);
  std::string folder = Dir1.path();
  ListView1.clear();
  const std::uint32_t startTick = platform::machine().environment().getTickCount();
  std::int32_t fileCount = 0;
  std::int32_t dirCount = 0;
  std::int32_t lastLength = 0;
  FindFilesAPI(folder, patterns, fileCount, dirCount, lastLength);
  if (AbortRequested) {
    reportAbortedScan(fileCount, startTick);
  } else {
    reportFinishedScan(fileCount, startTick);
  }
}

// Gives the place of the lists to the junk list and empties it.
void frmFind::prepareScan() {
  lblFile.show();
  setVisible(false, {&lvCache, &lblStatus, &cmdCleanCache, &ListView2, &cmdSelect, &cmdCacheInvert, &cmdSelectAll,
                     &cmdZeroDelete, &cmdZeroInvert});
  setVisible(true, {&ListView1, &Select_All, &Delete, &cmdInvert});
  ListView1.clear();
  Select_All.setCaption(kSelectAll);
  setDeletionChoiceVisible(false);
  setDeletionChoiceEnabled(false);
  ListView1.setToolTip("");
}

void frmFind::enterScan() {
  setCommandsEnabled(false);
  setEnabled(false, {&Scan, &cmdInvert, &Delete, &Select_All});
  setVisible(false, {&cmdCacheInvert, &Scan, &cmdSelectAll, &cmdZeroDelete});
  cmdAbort.show();
}

// What every ending of a scan has in common.
void frmFind::leaveScan() {
  platform::machine().ui().setPointer(platform::Pointer::kDefault);
  setVisible(false, {&lblStatus, &lblFile, &cmdAbort});
  Scan.show();
  setCommandsEnabled(true);
}

void frmFind::reportAbortedScan(std::int32_t fileCount, std::uint32_t startTick) {
  AbortRequested = false;
  messageBox("    Scan Aborted", platform::kBoxOk, "Scan Aborted");
  // The time that the box stood open counts too.
  showResultLine(fileCount, startTick);
  leaveScan();
  cmdSelect.hide();
  setEnabled(true, {&Scan, &cmdInvert, &Select_All});
  Select_All.show();
  setDeletionChoiceVisible(true);
}

void frmFind::reportFinishedScan(std::int32_t fileCount, std::uint32_t startTick) {
  showResultLine(fileCount, startTick);
  leaveScan();
  Scan.enable();
  if (fileCount == 0) {
    optRecycle.hide();
    messageBox("No files of the selected type found.");
    return;
  }
  setEnabled(true, {&Select_All, &cmdInvert});
  setDeletionChoiceVisible(true);
}

void frmFind::showResultLine(std::int32_t fileCount, std::uint32_t startTick) {
  Label6.setCaption("Results: " + std::to_string(fileCount) + " files found in " +
                    std::to_string(secondsSince(startTick)) + " seconds.");
  Label6.show();
}

bool frmFind::anyTypeChosen() const {
  return std::ranges::any_of(Check, [](const controls::CheckBox& box) { return box.ticked(); }) ||
         !std::ranges::all_of(CustomExtensions, isBlank);
}

ScanPatternList frmFind::scanPatterns() const {
  ScanPatternList patterns;
  for (std::size_t i = 0; i < kTypes.size(); ++i) {
    if (Check[i].ticked()) patterns[i] = patternOf(kTypes[i]);
  }
  for (std::size_t i = 0; i < CustomExtensions.size(); ++i) {
    if (!isBlank(CustomExtensions[i])) patterns[kFileTypes + i] = "*." + CustomExtensions[i];
  }
  return patterns;
}

// "Clear All" says that every box is ticked.
void frmFind::Check_Click() {
  Scan.enable();
  const bool all = std::ranges::all_of(Check, [](const controls::CheckBox& box) { return box.ticked(); });
  Select_Check.setCaption(all ? kClearAll : kSelectAll);
}

void frmFind::Select_Check_Click() {
  // The caption may change with every box; the one that was clicked decides.
  const bool tick = Select_Check.caption() == kSelectAll;
  for (controls::CheckBox& box : Check) box.setTicked(tick);
}

void frmFind::Invert_Click() {
  for (controls::CheckBox& box : Check) box.setTicked(!box.ticked());
}

void frmFind::Select_All_Click() {
  const bool tick = Select_All.caption() == kSelectAll;
  if (tick && ListView1.empty()) {
    messageBox("Nothing to select!");
    return;
  }
  tickAllRows(ListView1, tick);
  Select_All.setCaption(tick ? kClearAll : kSelectAll);
  setDeletionChoiceEnabled(tick);
  if (tick) setDeletionChoiceVisible(true);
}

void frmFind::tickAllRows(controls::ListView& list, bool tick) {
  for (std::size_t i = 0; i < list.rowCount(); ++i) list.setTicked(i, tick);
}

void frmFind::invertRows(controls::ListView& list, controls::FlatButton& selection) {
  for (std::size_t i = 0; i < list.rowCount(); ++i) {
    const bool wasTicked = list.ticked(i);
    list.setTicked(i, !wasTicked);
    selection.setCaption(wasTicked ? kSelectAll : kClearAll);
  }
}

void frmFind::captionByTicks(controls::FlatButton& selection, const controls::ListView& list) {
  selection.setCaption(list.tickedCount() > 0 ? kClearAll : kSelectAll);
}

void frmFind::showSelectedTip(controls::ListView& list) {
  if (const std::optional<std::size_t> row = list.selected()) list.setToolTip(list.text(*row));
}

void frmFind::cmdInvert_Click() {
  invertRows(ListView1, Select_All);
  const bool any = ListView1.tickedCount() > 0;
  Delete.setEnabled(any);
  setDeletionChoiceEnabled(any);
}

void frmFind::ListView1_ItemCheck() {
  const bool any = ListView1.tickedCount() > 0;
  setDeletionChoiceEnabled(any);
  Delete.setEnabled(any);
  captionByTicks(Select_All, ListView1);
}

void frmFind::setDeletionChoiceEnabled(bool enabled) { setEnabled(enabled, {&optRecycle, &optWipe}); }

void frmFind::setDeletionChoiceVisible(bool visible) { setVisible(visible, {&optRecycle, &optWipe}); }

void frmFind::cmdChoose_Click() {
  frmChoose choose(*this);
  choose.showModal(this);
}
