// The console's zero-byte finder: the scan, the commands of its list, and the deletion.
#include <limits>
#include <utility>

#include "console/frmFind.h"
#include "controls/ControlLists.h"
#include "finder/tree_walk.h"
#include "platform/Conversions.h"
#include "platform/Platform.h"

using controls::messageBox;
using controls::setEnabled;
using controls::setVisible;

namespace {

// Whole seconds since the tick count was `startTick`, halves to the even one. The subtraction is signed: it fails with
// an overflow when the tick count has passed from the highest to the lowest number.
platform::Result<std::int32_t> signedSecondsSince(std::uint32_t startTick) {
  const auto now = static_cast<std::int32_t>(platform::machine().environment().getTickCount());
  const std::int64_t elapsed = std::int64_t{now} - static_cast<std::int32_t>(startTick);
  if (elapsed != static_cast<std::int32_t>(elapsed)) return platform::failure(platform::kOverflow);
  return platform::roundedHalfEven(static_cast<double>(elapsed) / 1000);
}

// The count is a 16-bit number.
platform::Result<std::int16_t> shortCount(std::size_t count) {
  if (count > std::numeric_limits<std::int16_t>::max()) return platform::failure(platform::kOverflow);
  return static_cast<std::int16_t>(count);
}

// The folder may have an older size, so a file is listed as empty only if its own size is 0 too. A size that cannot be
// read is not 0.
bool isEmptyFile(const finder::FoundFile& file) {
  return file.size == 0 && platform::machine().files().fileSize(file.path) == 0U;
}

}  // namespace

void frmFind::bindZeroBytes() {
  bindTool(cmdZero, &frmFind::cmdZero_Click);
  bindTool(cmdZeroDelete, &frmFind::cmdZeroDelete_Click);
  bindTool(cmdSelectAll, &frmFind::cmdSelectAll_Click);
  bindTool(cmdZeroInvert, &frmFind::cmdZeroInvert_Click);
  ListView2.onItemCheck = [this] { ListView2_ItemCheck(); };
}

void frmFind::cmdZero_Click() {
  ListView2.clear();
  forgetScan();
  std::string folder = Dir1.path();
  zeroRoot_ = folder;
  zeroRootLinks_ = platform::linksOnTheWayTo(platform::machine().files(), folder);
  enterZeroScan();
  messageBox("Use extreme caution when deleting 0 byte files - see help for details", platform::kBoxCritical,
             "Warning!");
  scanBegins(ListView2, folder);
  const std::uint32_t startTick = platform::machine().environment().getTickCount();
  std::int32_t fileCount = 0;
  std::int32_t dirCount = 0;
  std::int64_t total = 0;
  FindZeros(folder, "*.*", fileCount, dirCount, total);
  scanEnds();
  if (AbortRequested) reportAbort();
  reportZeroScan(startTick);
}

// Shows the zero-byte list in the place of the lists. Only Abort stays enabled: the commands of the other lists would
// work on rows that are not shown.
void frmFind::enterZeroScan() {
  setVisible(false, {&optWipe, &cmdCleanCache, &optRecycle, &ListView1, &Label6, &lvCache, &Select_All, &lblStatus,
                     &cmdSelectAll, &Scan});
  setVisible(true, {&cmdZeroDelete, &lblFile, &ListView2, &cmdSelect, &cmdAbort});
  setEnabled(false, {&cmdSelect, &cmdZeroDelete, &cmdZeroInvert, &cmdSelectAll, &Scan, &Delete, &cmdInvert,
                     &cmdCacheInvert, &cmdCacheAbort});
  setCommandsEnabled(false);
  platform::machine().ui().setPointer(platform::Pointer::kHourglass);
}

void frmFind::leaveZeroScan() {
  setVisible(false, {&cmdAbort, &lblFile});
  platform::machine().ui().setPointer(platform::Pointer::kDefault);
  setVisible(true, {&cmdZeroInvert, &cmdSelectAll, &cmdZeroDelete, &Scan, &optRecycle});
  setEnabled(true, {&cmdZeroInvert, &cmdSelectAll, &Scan, &cmdCacheAbort});
  setCommandsEnabled(true);
  optRecycle.disable();
}

// The time that a box was open during the scan counts too.
void frmFind::reportZeroScan(std::uint32_t startTick) {
  const platform::Result<std::int32_t> seconds = signedSecondsSince(startTick);
  if (!seconds) reportUnhandled(seconds.error());
  leaveZeroScan();
  if (!seconds) return;
  const platform::Result<std::int16_t> count = shortCount(ListView2.rowCount());
  if (!count) return reportUnhandled(count.error());
  Label6.setCaption("Results: " + std::to_string(*count) + " 0 Byte files found in " + std::to_string(*seconds) +
                    " seconds.");
  Label6.show();
}

void frmFind::FindZeros(std::string& path, const std::string& pattern, std::int32_t& FileCount, std::int32_t& DirCount,
                        std::int64_t& total) {
  total += finder::walkTree(path, DirCount,
                            {.patterns = {&pattern, 1},
                             .stopTest = finder::StopTest::kBeforeEachFolderEntry,
                             .stopRequested = [this] { return AbortRequested; },
                             .onFolderRead = [this](std::size_t files) { countFolder(files); },
                             .onFile =
                                 [&](const finder::FoundFile& file) {
                                   ++FileCount;
                                   if (isEmptyFile(file) && !finder::isKeptEmpty(file.name)) ListView2.add(file.path);
                                 },
                             .onFolderDone =
                                 [this](const std::string& progress) {
                                   lblFile.setCaption(progress);
                                   refresh();
                                 }});
}

void frmFind::cmdZeroDelete_Click() {
  cmdSelect.show();
  setVisible(false, {&Select_All, &cmdSelectAll});
  if (const platform::Result<void> created = platform::machine().fileObjects().create(); !created) {
    return reportUnhandled(created.error());
  }
  if (!anythingToDelete(ListView2)) return;
  if (!userConfirmsDeletion()) {
    cmdSelect.hide();
    cmdSelectAll.show();
    cmdSelectAll.enable();
    return;
  }
  if (!deleteTickedZeroFiles()) return;
  messageBox("The selected 0 Byte files have been deleted to the Recycle Bin", platform::kBoxInformation,
             "Files Deleted");
}

// Those that are ticked at the start, from the last row to the first. Ends with the failure of the first row without a
// file: a folder, or a file deleted since the scan.
platform::Result<void> frmFind::deleteTickedZeroFiles() {
  const std::int32_t flags = chosenFlags();
  finder::DeletionQuestions questions = deletionQuestions();
  questions.isStillWanted = [](const std::string& path) {
    return finder::isDeletable(path) && platform::machine().files().fileSize(path) == 0U;
  };
  platform::FolderHold hold(platform::machine().files(), zeroRoot_, zeroRootLinks_);
  std::vector<std::size_t> done;
  platform::Result<void> result;
  const std::vector<std::size_t> chosen = tickedRows(ListView2);
  WorkProgress progress(lblFile, chosen.size());
  for (auto row = chosen.rbegin(); row != chosen.rend() && result; ++row) {
    const std::string path = ListView2.text(*row);
    progress.next(path);
    platform::Result<finder::Deletion> deleted = finder::Deletion::kChanged;
    if (hold.holdAbove(path)) deleted = finder::deleteThroughShell(path, flags, questions);
    if (!deleted) result = std::unexpected(deleted.error());
    // The row of a file in use is removed too, although the file stays.
    if (deleted == finder::Deletion::kDone || deleted == finder::Deletion::kInUse || finder::isGone(path)) {
      done.push_back(*row);
    } else {
      ListView2.setTicked(*row, false);
    }
  }
  // The result line counted the rows that are removed.
  if (!done.empty()) Label6.hide();
  ListView2.removeRows(std::move(done));
  return result;
}

void frmFind::cmdSelectAll_Click() {
  const std::optional<bool> ticked = toggleAllRows(ListView2, cmdSelectAll, "Nothing to select!");
  if (!ticked) return;
  optRecycle.disable();
  if (*ticked) optRecycle.show();
  updateZeroDelete();
}

void frmFind::cmdZeroInvert_Click() {
  invertRows(ListView2, cmdSelectAll);
  updateZeroDelete();
}

void frmFind::ListView2_ItemCheck() {
  showSelectedTip(ListView2);
  updateZeroDelete();
  captionByTicks(cmdSelectAll, ListView2);
}

void frmFind::updateZeroDelete() { cmdZeroDelete.setEnabled(anyTicked(ListView2)); }
