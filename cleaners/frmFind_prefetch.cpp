// The console's cleaner for the Prefetch folder.
#include "console/frmFind.h"
#include "platform/FolderHold.h"
#include "platform/Platform.h"

using controls::messageBox;
using platform::Answer;

namespace {

// Fixed, wherever the Windows folder is.
constexpr const char* kPrefetchFolder = "c:\\windows\\prefetch\\";

}  // namespace

void frmFind::bindPrefetch() { bindTool(cmdPrefetch, &frmFind::cmdPrefetch_Click); }

void frmFind::cmdPrefetch_Click() {
  platform::FileObjects& objects = platform::machine().fileObjects();
  if (!objects.folderExists(kPrefetchFolder)) {
    messageBox("This system has no Prefetch folder.", platform::kBoxCritical, "No Such Folder");
    return;
  }
  if (messageBox("Delete contents of the Windows Prefetch Folder?", platform::kBoxYesNo | platform::kBoxQuestion,
                 "Clear Prefetch Folder") != Answer::kYes) {
    return;
  }
  if (!objects.folderExists(kPrefetchFolder)) return;
  platform::FolderHold hold(platform::machine().files(), kPrefetchFolder);
  // The first file in use ends the deletion without a report.
  const std::string files = std::string(kPrefetchFolder) + "*.*";
  if (hold.holdAbove(files)) static_cast<void>(objects.deleteFile(files, true));
  messageBox("The Prefetch folder has been cleared.", platform::kBoxInformation, " Folder Cleared");
}
