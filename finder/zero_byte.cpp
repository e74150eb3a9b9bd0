// The zero-byte finder: listing files without a byte, ticking them, and deleting what is ticked.
#include <limits>

#include "console/frmFind.h"
#include "controls/ControlLists.h"
#include "platform/Platform.h"

using controls::messageBox;
using controls::setEnabled;
using controls::setVisible;

namespace {

// Whole seconds since the tick count was `startTick`, halves to the even one. Ticks are signed here: a scan during
// which they pass from the highest to the lowest number fails with an overflow.
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
  std::string folder = Dir1.path();
  enterZeroScan();
  messageBox("Use extreme caution when deleting 0 byte files - see help for details", platform::kBoxCritical,
             "Warning!");
  const std::uint32_t startTick = platform::machine().environment().getTickCount();
  std::int32_t fileCount = 0;
  std::int32_t dirCount = 0;
  std::int64_t total = 0;
  FindZeros(folder, "*.*", fileCount, dirCount, total);
  if (AbortRequested) {
    AbortRequested = false;
    messageBox("    Scan Aborted", platform::kBoxOk, "Scan Aborted");
  }
  reportZeroScan(startTick);
}

// Gives the place of the lists to the zero-byte list, and leaves nothing usable but Abort: the commands of the other
// lists would work on rows that nobody sees.
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

// The time that a box stood open over the scan counts too.
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

void frmFind::cmdZeroDelete_Click() {
  cmdSelect.show();
  setVisible(false, {&Select_All, &cmdSelectAll});
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

// Last row first, so that a row that goes never moves one still to come. The first row without a file ends it: a
// folder, or a file that has gone since the scan.
platform::Result<void> frmFind::deleteTickedZeroFiles() {
  for (std::size_t i = ListView2.rowCount(); i-- > 0;) {
    if (!ListView2.ticked(i)) continue;
    if (const platform::Result<void> deleted = deleteZeroFile(i); !deleted) return deleted;
    // The row of a file in use goes too, though the file stays.
    if (ListView2.ticked(i)) ListView2.remove(i);
  }
  return {};
}

platform::Result<void> frmFind::deleteZeroFile(std::size_t row) {
  std::string path = ListView2.text(row);
  const platform::Result<platform::FileObject> file = platform::machine().fileObjects().getFile(path);
  if (!file) return std::unexpected(file.error());
  if (asksBeforeDeleting(file->attributes) && !userConfirmsReadOnly(file->path)) {
    ListView2.setTicked(row, false);
    return {};
  }
  if (!FileIsOpen(file->path)) ShellDeleteOne(path, chosenDeletion());
  return {};
}

void frmFind::cmdSelectAll_Click() {
  const bool tick = cmdSelectAll.caption() == kSelectAll;
  if (tick && ListView2.empty()) {
    messageBox("Nothing to select!");
    return;
  }
  tickAllRows(ListView2, tick);
  cmdSelectAll.setCaption(tick ? kClearAll : kSelectAll);
  optRecycle.disable();
  if (tick) optRecycle.show();
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

void frmFind::updateZeroDelete() { cmdZeroDelete.setEnabled(ListView2.tickedCount() > 0); }
