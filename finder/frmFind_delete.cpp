// The console's deletion of found junk files: through the shell, or by wiping.
#include <limits>
#include <utility>

#include "console/frmFind.h"
#include "finder/deletion.h"
#include "platform/Platform.h"

using controls::messageBox;
using platform::Answer;

namespace {

bool userDeletesReadOnly(const std::string& path) {
  return messageBox(path + "\r\nis a read only file - OK to delete?", platform::kBoxYesNo, "Delete File") ==
         Answer::kYes;
}

void reportInUse(const std::string& path) {
  messageBox(path + " is in use by Windows and can not be deleted.", platform::kBoxOk, "File Deletion Error");
}

}  // namespace

void frmFind::bindDelete() {
  bindTool(Delete, &frmFind::Delete_Click);
  optRecycle.onClick = [this] { optRecycle_Click(); };
  optWipe.onClick = [this] { optWipe_Click(); };
}

bool frmFind::FileIsOpen(const std::string& path) {
  if (!finder::isInUse(path)) return false;
  reportInUse(path);
  return true;
}

platform::Result<void> frmFind::DeleteFile(const std::string& path) {
  const platform::Result<finder::Deletion> wiped = finder::wipe(path);
  if (!wiped) return std::unexpected(wiped.error());
  // Every further round would look for the removed file.
  if (*wiped == finder::Deletion::kDone && ListView1.rowCount() > 1) return platform::failure(platform::kFileNotFound);
  ListView1.setToolTip("");
  return {};
}

std::int32_t frmFind::chosenFlags() const { return optRecycle.ticked() ? finder::kToRecycleBin : finder::kForGood; }

finder::DeletionQuestions frmFind::deletionQuestions() {
  return {.mayDeleteReadOnly = userDeletesReadOnly, .reportInUse = reportInUse};
}

void frmFind::Delete_Click() {
  if (!anythingToDelete(ListView1) || !userConfirmsDeletion()) return;
  if (optWipe.ticked()) {
    wipeTickedRows();
  } else {
    deleteTickedRows();
  }
}

// What is ticked at the start is deleted in the way chosen at the start, whatever the user changes meanwhile. The rows
// leave the list at the end, so that no row moves under the pointer.
void frmFind::deleteTickedRows() {
  const std::vector<std::size_t> chosen = tickedRows(ListView1);
  const std::int32_t flags = chosenFlags();
  const finder::DeletionQuestions questions = deletionQuestions();
  platform::FolderHold hold(platform::machine().files(), junkRoot_, junkRootLinks_);
  std::vector<std::size_t> gone;
  WorkProgress progress(lblFile, chosen.size());
  // A failure with one file does not stop the others.
  for (const std::size_t row : chosen) {
    const std::string path = ListView1.text(row);
    progress.next(path);
    const bool isHeld = hold.holdAbove(path);
    if (isHeld) static_cast<void>(finder::deleteThroughShell(path, flags, questions));
    if (finder::isGone(path)) {
      gone.push_back(row);
    } else if (!isHeld || !finder::isDeletable(path)) {
      // The path leads to something else now, such as a folder, which no tick stands for.
      ListView1.setTicked(row, false);
    }
  }
  removeJunkRows(std::move(gone));
}

// The result line counted the rows that have been removed.
void frmFind::removeJunkRows(std::vector<std::size_t> gone) {
  if (!gone.empty()) Label6.hide();
  ListView1.removeRows(std::move(gone));
}

void frmFind::wipeTickedRows() {
  // The row counter has 16 bits and overflows on a longer list.
  if (ListView1.rowCount() > static_cast<std::size_t>(std::numeric_limits<std::int16_t>::max())) {
    return reportUnhandled(platform::runtimeError(platform::kOverflow));
  }
  const bool walked = wipeRows(tickedRows(ListView1));
  if (ListView1.empty()) setDeletionChoiceVisible(false);
  if (!walked) return;
  ListView1.setToolTip("Scan Results");
  messageBox("All files that are not locked have been shredded.", platform::kBoxInformation, "Files Shredded");
}

// The first file, whose failure is ignored, then the others from the last row to the first. Returns false when a
// failure has ended the loop. Files that are not found are passed over.
bool frmFind::wipeRows(const std::vector<std::size_t>& chosen) {
  platform::FolderHold hold(platform::machine().files(), junkRoot_, junkRootLinks_);
  std::vector<std::size_t> gone;
  WorkProgress progress(lblFile, chosen.size());
  const auto wipeRow = [&](std::size_t row) {
    const std::string path = ListView1.text(row);
    progress.next(path);
    if (!hold.holdAbove(path)) {
      ListView1.setTicked(row, false);
      return true;
    }
    const platform::Result<finder::Deletion> wiped = finder::wipe(path);
    if (wiped == finder::Deletion::kDone || finder::isGone(path)) {
      gone.push_back(row);
    } else if (!finder::isDeletable(path)) {
      ListView1.setTicked(row, false);
    }
    return wiped || wiped.error().number == platform::kFileNotFound;
  };
  static_cast<void>(wipeRow(chosen.front()));
  const bool firstIsGone = !gone.empty();
  bool walked = true;
  for (std::size_t i = chosen.size(); i-- > (firstIsGone ? 1 : 0) && walked;) walked = wipeRow(chosen[i]);
  removeJunkRows(std::move(gone));
  return walked;
}

// The two boxes exclude each other; with both unticked, files are deleted for good without being overwritten.
void frmFind::optRecycle_Click() {
  if (optRecycle.ticked()) optWipe.setTicked(false);
}

void frmFind::optWipe_Click() {
  if (optWipe.ticked()) optRecycle.setTicked(false);
}
