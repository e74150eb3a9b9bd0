// The console's deletion of found junk files: through the shell, or by wiping.
#include <limits>
#include <utility>

#include "console/frmFind.h"
#include "finder/deletion.h"
#include "platform/Platform.h"

using controls::messageBox;
using platform::Answer;

namespace {

std::vector<std::size_t> tickedRows(const controls::ListView& list) {
  std::vector<std::size_t> rows;
  for (std::size_t i = 0; i < list.rowCount(); ++i) {
    if (list.ticked(i)) rows.push_back(i);
  }
  return rows;
}

bool userDeletesReadOnly(const std::string& path) {
  return messageBox(path + "\r\nis a read only file - OK to delete?", platform::kBoxYesNo, "Delete File") !=
         Answer::kNo;
}

}  // namespace

void frmFind::bindDelete() {
  bindTool(Delete, &frmFind::Delete_Click);
  optRecycle.onClick = [this] { optRecycle_Click(); };
  optWipe.onClick = [this] { optWipe_Click(); };
}

bool frmFind::FileIsOpen(const std::string& path) {
  if (!finder::isInUse(path)) return false;
  messageBox(path + " is in use by Windows and can not be deleted.", platform::kBoxOk, "File Deletion Error");
  return true;
}

platform::Result<void> frmFind::DeleteFile(const std::string& path) {
  const platform::Result<void> wiped = finder::wipe(path, ListView1.rowCount());
  if (wiped) ListView1.setToolTip("");
  return wiped;
}

platform::Result<finder::Deletion> frmFind::deleteRow(const std::string& path) {
  return finder::deleteThroughShell(path, optRecycle.ticked() ? finder::kToRecycleBin : finder::kForGood,
                                    {.mayDeleteReadOnly = userDeletesReadOnly,
                                     .isInUse = [this](const std::string& file) { return FileIsOpen(file); }});
}

void frmFind::Delete_Click() {
  if (!anythingToDelete(ListView1) || !userConfirmsDeletion()) return;
  if (optWipe.ticked()) {
    wipeTickedRows();
  } else {
    deleteTickedRows();
  }
}

// The rows that are ticked at the start are deleted, whatever the user ticks while the shell works. They leave the list
// at the end, so that no row moves under the pointer.
void frmFind::deleteTickedRows() {
  const std::vector<std::size_t> chosen = tickedRows(ListView1);
  // A failure with one file does not stop the others.
  for (const std::size_t row : chosen) static_cast<void>(deleteRow(ListView1.text(row)));
  std::vector<std::size_t> gone;
  for (const std::size_t row : chosen) {
    if (finder::isGone(ListView1.text(row))) gone.push_back(row);
  }
  ListView1.removeRows(std::move(gone));
}

void frmFind::wipeTickedRows() {
  // The first file is wiped before the loop, and its failure is ignored.
  static_cast<void>(DeleteFile(ListView1.text(tickedRows(ListView1).front())));
  const bool walked = wipeRowByRow();
  if (ListView1.empty()) setDeletionChoiceVisible(false);
  if (!walked) return;
  ListView1.setToolTip("Scan Results");
  messageBox("All files that are not locked have been shredded.", platform::kBoxInformation, "Files Shredded");
}

// From the last row to the first. Returns false when a failure has ended the loop.
bool frmFind::wipeRowByRow() {
  // The row counter has 16 bits and overflows on a longer list.
  if (ListView1.rowCount() > static_cast<std::size_t>(std::numeric_limits<std::int16_t>::max())) return false;
  std::vector<std::size_t> gone;
  bool walked = true;
  for (std::size_t i = ListView1.rowCount(); i-- > 0 && walked;) {
    if (!ListView1.ticked(i)) continue;
    const platform::Result<void> wiped = DeleteFile(ListView1.text(i));
    // With more than one row listed, every wipe ends with its own file not found.
    walked = wiped || wiped.error().number == platform::kFileNotFound;
    if (finder::isGone(ListView1.text(i))) gone.push_back(i);
  }
  ListView1.removeRows(std::move(gone));
  return walked;
}

// The two boxes exclude each other; with both unticked, files are deleted for good without being overwritten.
void frmFind::optRecycle_Click() {
  if (optRecycle.ticked()) optWipe.setTicked(false);
}

void frmFind::optWipe_Click() {
  if (optWipe.ticked()) optRecycle.setTicked(false);
}
