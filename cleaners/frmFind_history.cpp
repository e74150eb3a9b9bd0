// The console's cleaners for the history of visited pages, the recent documents and the Recycle Bin.
#include "cleaners/modHistory.h"
#include "console/frmFind.h"
#include "platform/Platform.h"

using controls::messageBox;

namespace {

constexpr std::uint32_t kSilently = platform::kBinNoConfirmation | platform::kBinNoProgress | platform::kBinNoSound;

}  // namespace

void frmFind::bindHistory() {
  bindTool(Del_History, &frmFind::Del_History_Click);
  bindTool(Del_Recent, &frmFind::Del_Recent_Click);
  bindTool(Del_Recycle, &frmFind::Del_Recycle_Click);
}

void frmFind::Del_History_Click() {
  const platform::Result<void> cleared = ClearUrlHistory();
  if (!cleared) return reportUnhandled(cleared.error());
  messageBox("Recent History Cleared");
}

void frmFind::Del_Recent_Click() {
  platform::machine().shell().addToRecentDocs(platform::kRecentByPath, std::nullopt);
  messageBox("Recent Document List Cleared");
}

// The box is a warning and not a question: the bin is emptied whatever the user presses.
void frmFind::Del_Recycle_Click() {
  messageBox("Are you sure you want to delete the contents of the Recycle Bin?", platform::kBoxCritical,
             "Confirm Deletion");
  EmptyRecycleBin("", true);
  messageBox("Recycle Bin Emptied");
}

std::int32_t frmFind::EmptyRecycleBin(const std::string& RecycleBinDrive, bool Slient) {
  return platform::machine().shell().emptyRecycleBin(RecycleBinDrive, Slient ? kSilently : 0);
}
