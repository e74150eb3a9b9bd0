// The console's junk scan: file types and custom extensions, the scan, and the commands of its list.
#include <algorithm>

#include "console/frmFind.h"
#include "controls/ControlLists.h"
#include "finder/frmChoose.h"
#include "finder/tree_walk.h"
#include "platform/Conversions.h"
#include "platform/Platform.h"

using controls::messageBox;
using controls::setEnabled;
using controls::setVisible;

void frmFind::makeFileTypeBoxes() {
  for (std::size_t i = 0; i < finder::kFileTypes; ++i) {
    const finder::FileType& type = finder::kJunkTypes[i];
    Check.add(Specials, "Check" + std::to_string(i),
              controls::ControlInit{.caption = type.caption, .toolTip = type.toolTip});
    Check[i].onClick = [this] { Check_Click(); };
  }
}

void frmFind::bindJunkScan() {
  ListView1.indexBy(rowKey);
  ListView1.weighBy(
      [](const controls::Row& row) { return row.subItems.empty() ? 0 : finder::bytesOf(row.subItems.front()); });
  ListView1.onItemCheck = [this] { ListView1_ItemCheck(); };
  ListView1.onItemClick = [this] { showSelectedTip(ListView1); };
  bindTool(Scan, &frmFind::Scan_Click);
  bindTool(Select_Check, &frmFind::Select_Check_Click);
  bindTool(Invert, &frmFind::Invert_Click);
  bindTool(Select_All, &frmFind::Select_All_Click);
  bindTool(cmdInvert, &frmFind::cmdInvert_Click);
  bindTool(cmdChoose, &frmFind::cmdChoose_Click);
}

void frmFind::Scan_Click() {
  prepareScan();
  const finder::ScanPatterns patterns = chosenPatterns();
  if (!finder::anyPattern(patterns)) {
    messageBox("No file types selected.");
    return;
  }
  enterScan();
  platform::machine().ui().setPointer(platform::Pointer::kHourglass);
  std::string folder = Dir1.path();
  junkRoot_ = folder;
  scanBegins(ListView1, folder);
  junkRootLinks_ = platform::linksOnTheWayTo(platform::machine().files(), folder);
  ListView1.clear();
  const std::uint32_t startTick = platform::machine().environment().getTickCount();
  std::int32_t fileCount = 0;
  std::int32_t dirCount = 0;
  std::int32_t lastLength = 0;
  FindFilesAPI(folder, patterns, fileCount, dirCount, lastLength);
  scanEnds();
  if (AbortRequested) {
    reportAbortedScan(fileCount, startTick);
  } else {
    reportFinishedScan(fileCount, startTick);
  }
}

// Shows the junk list in the place of the lists and empties it.
void frmFind::prepareScan() {
  lblFile.show();
  setVisible(false, {&lvCache, &lblStatus, &cmdCleanCache, &ListView2, &cmdSelect, &cmdCacheInvert, &cmdSelectAll,
                     &cmdZeroDelete, &cmdZeroInvert});
  setVisible(true, {&ListView1, &Select_All, &Delete, &cmdInvert});
  ListView1.clear();
  forgetScan();
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

// What every end of a scan has in common.
void frmFind::leaveScan() {
  platform::machine().ui().setPointer(platform::Pointer::kDefault);
  setVisible(false, {&lblStatus, &lblFile, &cmdAbort});
  Scan.show();
  setCommandsEnabled(true);
}

void frmFind::reportAbortedScan(std::int32_t fileCount, std::uint32_t startTick) {
  reportAbort();
  // The time that the box was open counts too.
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
  const std::uint32_t elapsed = platform::machine().environment().getTickCount() - startTick;
  Label6.setCaption("Results: " + std::to_string(fileCount) + " files found in " +
                    std::to_string(platform::roundedHalfEven(elapsed / 1000.0)) + " seconds.");
  Label6.show();
}

finder::ScanPatterns frmFind::chosenPatterns() const {
  std::bitset<finder::kFileTypes> chosen;
  for (std::size_t i = 0; i < chosen.size(); ++i) chosen[i] = Check[i].ticked();
  return finder::scanPatterns(chosen, CustomExtensions);
}

std::int64_t frmFind::FindFilesAPI(std::string& path, const finder::ScanPatterns& patterns, std::int32_t& FileCount,
                                   std::int32_t& DirCount, std::int32_t& lastLen) {
  finder::SizeText size;
  const auto list = [&](const finder::FoundFile& file) {
    lastLen = static_cast<std::int32_t>(file.size);
    // The key holds path and size, and rows hold the path only, so it almost never matches: two types that both match
    // list a file twice.
    if (ListView1.containsKey(rowKey(file.path + std::to_string(size.number())))) return;
    if (finder::isProtected(file.name)) return;
    size.update(lastLen);
    ListView1.add(file.path, {size.text()});
    ListView1.setToolTip(file.path);
    ++FileCount;
  };
  return finder::walkTree(path, DirCount,
                          {.patterns = patterns,
                           .entersHiddenSystemFolders = false,
                           .stopTest = finder::StopTest::kBeforeEachPattern,
                           .stopRequested = [this] { return AbortRequested; },
                           .onFolderRead = [this](std::size_t files) { countFolder(files); },
                           .onFilesBegin = [&size] { size = {}; },
                           .onFile = list,
                           .onFolderDone = [this](const std::string& progress) { lblFile.setCaption(progress); }});
}

std::string frmFind::rowKey(std::string_view text) {
  return platform::machine().environment().upperCase(platform::trimmed(text));
}

// "Clear All" means that every box is ticked.
void frmFind::Check_Click() {
  Scan.enable();
  const bool all = std::ranges::all_of(Check, [](const controls::CheckBox& box) { return box.ticked(); });
  Select_Check.setCaption(all ? kClearAll : kSelectAll);
}

void frmFind::Select_Check_Click() {
  // The caption may change with every box; the caption at the click decides.
  const bool tick = Select_Check.caption() == kSelectAll;
  for (controls::CheckBox& box : Check) box.setTicked(tick);
}

void frmFind::Invert_Click() {
  for (controls::CheckBox& box : Check) box.setTicked(!box.ticked());
}

void frmFind::Select_All_Click() {
  const std::optional<bool> ticked = toggleAllRows(ListView1, Select_All, "Nothing to select!");
  if (!ticked) return;
  setDeletionChoiceEnabled(*ticked);
  if (*ticked) setDeletionChoiceVisible(true);
}

void frmFind::cmdInvert_Click() {
  invertRows(ListView1, Select_All);
  enableDeletionByTicks();
}

void frmFind::ListView1_ItemCheck() {
  enableDeletionByTicks();
  captionByTicks(Select_All, ListView1);
}

void frmFind::enableDeletionByTicks() {
  const bool any = anyTicked(ListView1);
  Delete.setEnabled(any);
  setDeletionChoiceEnabled(any);
}

void frmFind::setDeletionChoiceEnabled(bool enabled) { setEnabled(enabled, {&optRecycle, &optWipe}); }

void frmFind::setDeletionChoiceVisible(bool visible) { setVisible(visible, {&optRecycle, &optWipe}); }

void frmFind::cmdChoose_Click() {
  frmChoose choose(CustomExtensions);
  choose.showModal(this);
}
