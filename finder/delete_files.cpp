// Deleting what the junk scan has found: through the shell, or by wiping; and the deletion services that other
// cleaners share.
#include <limits>
#include <ranges>

#include "console/frmFind.h"
#include "platform/Platform.h"

using controls::messageBox;
using platform::Answer;

namespace {

// Every attribute but "folder".
constexpr std::uint32_t kAnyFile = 39;
// The word that the in-use test hands to CreateFileA: all the attributes a file may have.
constexpr std::uint32_t kInUseTestFlags = 167;

constexpr std::int32_t kToRecycleBin = platform::kNoConfirmation | platform::kAllowUndo;
constexpr std::int32_t kForGood = platform::kNoConfirmation;

constexpr int kWipeFileNumber = 1;
constexpr int kWritesPerValue = 10;
constexpr std::array<unsigned char, 20> kWipeValues = {0x55, 0xAA, 0x4A, 0x63, 0x47, 0x5C, 0x65, 0x70, 0x01, 0x3D,
                                                       0x61, 0x77, 0x56, 0x4F, 0x6D, 0x48, 0x5A, 0x00, 0xFF, 0xD4};

constexpr std::uint32_t kReadOnlyArchive = platform::kReadOnly | platform::kArchive;

bool isGone(const std::string& path) { return !platform::machine().files().anyFileMatches(path, kAnyFile); }

// Writes the twenty values over the first 200 bytes, a byte at a time; what lies behind them stays.
platform::Result<void> overwriteStart(const std::string& path) {
  platform::FileSystem& files = platform::machine().files();
  const platform::Result<void> opened = files.openBinary(kWipeFileNumber, path);
  if (!opened) return opened;
  platform::Result<void> written;
  for (std::size_t i = 0; i < kWipeValues.size() && written; ++i) {
    const char value = static_cast<char>(kWipeValues[i]);
    for (int n = 0; n < kWritesPerValue && written; ++n) written = files.putBytes(kWipeFileNumber, {&value, 1});
  }
  // Ends with the position back on the first byte; an empty text changes nothing.
  for (int n = 0; n < kWritesPerValue && written; ++n) written = files.putBytesAt(kWipeFileNumber, 1, "");
  files.closeFile(kWipeFileNumber);
  return written;
}

std::vector<std::size_t> tickedRows(const controls::ListView& list) {
  std::vector<std::size_t> rows;
  for (std::size_t i = 0; i < list.rowCount(); ++i) {
    if (list.ticked(i)) rows.push_back(i);
  }
  return rows;
}

}  // namespace

bool frmFind::FileIsOpen1(const std::string& path) {
  platform::FileSystem& files = platform::machine().files();
  if (!files.anyFileMatches(path, kAnyFile)) return false;
  const platform::Handle file = files.createFile(path, {.access = platform::kGenericRead,
                                                        .share = platform::kShareNone,
                                                        .disposition = platform::kOpenExisting,
                                                        .flagsAndAttributes = kInUseTestFlags});
  files.closeHandle(file);
  return file == platform::kInvalidHandle;
}

bool frmFind::FileIsOpen(const std::string& path) {
  if (!FileIsOpen1(path)) return false;
  messageBox(path + " is in use by Windows and can not be deleted.", platform::kBoxOk, "File Deletion Error");
  return true;
}

void frmFind::ShellDeleteOne(std::string& path, std::int32_t flags) {
  path += '\0';
  platform::machine().shell().fileOperation(
      {.operation = platform::kShellDelete, .sourceList = path, .flags = static_cast<std::uint16_t>(flags)});
}

platform::Result<void> frmFind::DeleteFile(const std::string& path) {
  platform::FileObjects& objects = platform::machine().fileObjects();
  const std::size_t rounds = ListView1.rowCount();
  for (std::size_t round = 0; round < rounds; ++round) {
    const platform::Result<platform::FileObject> file = objects.getFile(path);
    if (!file) return std::unexpected(file.error());
    const bool neverOverwritten =
        asksBeforeDeleting(file->attributes) || file->attributes == (kReadOnlyArchive | platform::kHidden);
    if (neverOverwritten || FileIsOpen1(path)) break;
    if (const auto overwritten = overwriteStart(path); !overwritten) return overwritten;
    if (const auto removed = objects.deleteFile(path, true); !removed) return removed;
  }
  ListView1.setToolTip("");
  return {};
}

bool frmFind::anythingToDelete(const controls::ListView& list) {
  if (list.tickedCount() > 0) return true;
  messageBox(list.empty() ? "Nothing to Delete" : "Nothing Selected");
  return false;
}

bool frmFind::userConfirmsDeletion() {
  return messageBox("Confirm file deletion?", platform::kBoxAsk, "Confirm Deletion") != Answer::kNo;
}

// Only these two; a hidden read-only file does not ask.
bool frmFind::asksBeforeDeleting(std::uint32_t attributes) {
  return attributes == platform::kReadOnly || attributes == kReadOnlyArchive;
}

bool frmFind::userConfirmsReadOnly(const std::string& path) {
  return messageBox(path + "\r\nis a read only file - OK to delete?", platform::kBoxYesNo, "Delete File") !=
         Answer::kNo;
}

std::int32_t frmFind::chosenDeletion() const { return optRecycle.ticked() ? kToRecycleBin : kForGood; }

void frmFind::Delete_Click() {
  if (!anythingToDelete(ListView1) || !userConfirmsDeletion()) return;
  if (optWipe.ticked()) {
    wipeTickedRows();
  } else {
    deleteThroughShell();
  }
}

// What is ticked now is deleted, whatever the user ticks while the shell works. The rows go at the end, the last one
// first, so that none moves under the user's hand.
void frmFind::deleteThroughShell() {
  const std::vector<std::size_t> chosen = tickedRows(ListView1);
  for (const std::size_t row : chosen) deleteRowThroughShell(ListView1.text(row));
  for (const std::size_t row : std::views::reverse(chosen)) {
    if (isGone(ListView1.text(row))) ListView1.remove(row);
  }
}

// A file whose attributes cannot be read is passed over.
void frmFind::deleteRowThroughShell(const std::string& path) {
  const platform::Result<platform::FileObject> file = platform::machine().fileObjects().getFile(path);
  if (!file) return;
  if (asksBeforeDeleting(file->attributes) && !userConfirmsReadOnly(path)) return;
  if (FileIsOpen(path)) return;
  std::string source = path;
  ShellDeleteOne(source, chosenDeletion());
}

void frmFind::wipeTickedRows() {
  // The first file is wiped ahead of the walk, and what goes wrong with it is passed over.
  [[maybe_unused]] const platform::Result<void> passedOver = DeleteFile(ListView1.text(tickedRows(ListView1).front()));
  const bool walked = wipeRowByRow();
  if (ListView1.empty()) setDeletionChoiceVisible(false);
  if (!walked) return;
  ListView1.setToolTip("Scan Results");
  messageBox("All files that are not locked have been shredded.", platform::kBoxInformation, "Files Shredded");
}

// The last row first, so that a row that goes never moves one still to come. False when the walk has ended early.
bool frmFind::wipeRowByRow() {
  // Rows are counted in 16 bits, and a longer list overflows.
  if (ListView1.rowCount() > static_cast<std::size_t>(std::numeric_limits<std::int16_t>::max())) return false;
  for (std::size_t i = ListView1.rowCount(); i-- > 0;) {
    if (!ListView1.ticked(i)) continue;
    const std::string path = ListView1.text(i);
    const platform::Result<void> wiped = DeleteFile(path);
    // With more than one row listed, every wipe ends by finding its own file gone.
    if (!wiped && wiped.error().number != platform::kFileNotFound) return false;
    if (isGone(path)) ListView1.remove(i);
  }
  return true;
}

// The two boxes exclude each other; both may be unticked, which deletes for good without overwriting.
void frmFind::optRecycle_Click() {
  if (optRecycle.ticked()) optWipe.setTicked(false);
}

void frmFind::optWipe_Click() {
  if (optWipe.ticked()) optRecycle.setTicked(false);
}
