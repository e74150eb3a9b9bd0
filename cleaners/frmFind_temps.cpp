// The console's cleaner for the temporary folders, which keeps no backup.
#include <algorithm>
#include <limits>

#include "cleaners/temp_folders.h"
#include "console/frmFind.h"
#include "controls/ControlLists.h"
#include "finder/deletion.h"
#include "finder/tree_walk.h"
#include "platform/FolderHold.h"
#include "platform/Platform.h"

using controls::messageBox;
using platform::Answer;

namespace {

constexpr const char* kEveryFile = "*.*";
// The deletion counts files in 16 bits; the rest is deleted at the next run.
constexpr std::int32_t kMostFilesAtOnce = std::numeric_limits<std::int16_t>::max();

bool userDeletesReadOnly(const std::string& path) {
  return messageBox(path + "\r\nis a read only file - OK to Delete?", platform::kBoxYesNo, "Delete File") ==
         Answer::kYes;
}

}  // namespace

void frmFind::bindTempFolders() { bindTool(Del_Temps, &frmFind::Del_Temps_Click); }

void frmFind::Del_Temps_Click() {
  Scan.disable();
  constexpr std::uint32_t kWarn = platform::kBoxOkCancel | platform::kBoxCritical | platform::kBoxSecondButtonDefault;
  const Answer answer = messageBox("This will clear ALL your profile and Windows temporary folders without backup!",
                                   kWarn, "Scrubhaven Pro - Warning!");
  if (answer != Answer::kOk) return;
  // The folders listed here are removed: no row of an earlier run may be among them.
  ListView2.clear();
  forgetScan();
  std::string folder;
  ClearTempSubfolders(folder);
  PurgeTempFolders();
  messageBox("All temporary files not in use have been deleted", platform::kBoxOk, "Done");
  Scan.enable();
}

void frmFind::ClearTempSubfolders(std::string& path) {
  path = cleaners::tempFolder("Temp");
  if (path.empty()) return;
  platform::machine().ui().serveEvents();
  for (const std::string& folder : finder::subfoldersOf(path)) ListView2.add(folder);
  if (ListView2.empty()) return;
  platform::FolderHold hold(platform::machine().files(), path);
  WorkProgress progress(lblFile, ListView2.rowCount());
  for (std::size_t i = ListView2.rowCount(); i-- > 0;) {
    const std::string folder = ListView2.text(i);
    progress.next(folder);
    // A folder that cannot be removed does not stop the others.
    if (hold.holdAbove(folder) && IsFolder(folder)) static_cast<void>(DelTree(folder));
  }
  ListView2.clear();
}

void frmFind::PurgeTempFolders() {
  controls::setVisible(false, {&lvCache, &lblStatus, &Label6});
  ListView1.show();
  ListView1.clear();
  const std::vector<std::string> fixed = cleaners::fixedFolders();
  deleteFoundFiles(fixed, findTempsIn(fixed), cleaners::countsAsReadOnlyInFixedFolders);

  const std::vector<std::string> temp = {cleaners::tempFolder("TEMP")};
  const std::vector<std::size_t> ends = findTempsIn(temp);
  platform::machine().ui().serveEvents();
  deleteFoundFiles(temp, ends, finder::countsAsReadOnly);
}

std::vector<std::size_t> frmFind::findTempsIn(const std::vector<std::string>& folders) {
  std::int32_t fileCount = 0;
  std::int32_t dirCount = 0;
  std::vector<std::size_t> ends;
  for (std::string folder : folders) {
    FindTemps(folder, kEveryFile, fileCount, dirCount);
    ends.push_back(static_cast<std::size_t>(std::min(fileCount, kMostFilesAtOnce)));
  }
  return ends;
}

void frmFind::deleteFoundFiles(const std::vector<std::string>& folders, const std::vector<std::size_t>& ends,
                               bool (*countsAsReadOnly)(std::uint32_t attributes)) {
  std::size_t next = 1;
  WorkProgress progress(lblFile, ends.empty() ? 0 : ends.back());
  for (std::size_t i = 0; i < folders.size(); ++i) {
    platform::FolderHold hold(platform::machine().files(), folders[i]);
    for (; next <= ends[i]; ++next) {
      const std::string path = FoundFiles[next];
      progress.next(path);
      if (hold.holdAbove(path)) cleaners::deleteTempFile(path, countsAsReadOnly, userDeletesReadOnly);
    }
  }
}

std::int64_t frmFind::FindTemps(std::string& path, const std::string& pattern, std::int32_t& FileCount,
                                std::int32_t& DirCount) {
  return finder::walkTree(path, DirCount,
                          {.patterns = {&pattern, 1},
                           .onSubfolder = [this](const std::string& folder) { ListView2.add(folder); },
                           .onFile =
                               [&](const finder::FoundFile& file) {
                                 ++FileCount;
                                 FoundFiles.resize(static_cast<std::size_t>(FileCount) + 1);
                                 FoundFiles.back() = file.path;
                               },
                           .onFolderDone = [this](const std::string& progress) { lblFile.setCaption(progress); }});
}

platform::Result<void> frmFind::DelTree(const std::string& path) { return cleaners::deleteTree(path); }
