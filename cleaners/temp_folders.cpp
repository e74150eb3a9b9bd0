// The temporary folders: which they are, and emptying them without backup.
#include <algorithm>
#include <limits>
#include <string_view>

#include "console/frmFind.h"
#include "controls/ControlLists.h"
#include "platform/Platform.h"

using controls::messageBox;
using controls::setVisible;
using platform::Answer;

namespace {

constexpr const char* kEveryFile = "*.*";
constexpr std::string_view kSeparators = "\\/";
// The deletion counts files in 16 bits; what is left over goes at the next run.
constexpr std::int32_t kMostFilesAtOnce = std::numeric_limits<std::int16_t>::max();

constexpr const char* kFixedFolders[] = {
    "C:\\Winnt\\Temp",
    "C:\\Documents and Settings\\Administrator\\Local Settings\\Temp",
    "C:\\Documents and Settings\\All Users\\Local Settings\\Temp",
    "C:\\Documents and Settings\\Default User\\Local Settings\\Temp",
    "C:\\Windows\\Temp",
    "C:\\Windows\\Cookies",
};

// In the fixed folders a hidden read-only file asks as well.
bool isReadOnlyInFixedFolders(std::uint32_t attributes) {
  constexpr std::uint32_t kMayStandBeside = platform::kHidden | platform::kArchive;
  return (attributes & ~kMayStandBeside) == platform::kReadOnly;
}

// Names without a letter name no folder of their own.
bool isOnlyDots(std::string_view name) { return name.find_first_not_of(" .") == std::string_view::npos; }

// Whether the text can be the name of one folder: nothing that a path gives a meaning to.
bool isFolderName(std::string_view name) {
  return !isOnlyDots(name) && name.find_first_of("\\/:*?\"<>|") == std::string_view::npos;
}

std::vector<std::string> fixedFolders() {
  std::vector<std::string> folders(std::begin(kFixedFolders), std::end(kFixedFolders));
  const std::string user = platform::machine().environment().getEnvironmentVariable("username");
  if (isFolderName(user)) folders.push_back("C:\\Documents and Settings\\" + user + "\\Cookies");
  return folders;
}

// Takes the first name off a path; empty at its end.
std::string_view takeName(std::string_view& path) {
  path.remove_prefix(std::min(path.find_first_not_of(kSeparators), path.size()));
  const std::string_view name = path.substr(0, path.find_first_of(kSeparators));
  path.remove_prefix(name.size());
  return name;
}

bool isSeparator(char letter) { return kSeparators.contains(letter); }

// Takes the root off a full path; false when the path is not a full one, and depends on the current folder.
bool takeRoot(std::string_view& path) {
  if (path.size() > 2 && path[1] == ':' && isSeparator(path[2])) {
    path.remove_prefix(2);
    return true;
  }
  if (path.size() < 2 || !isSeparator(path[0]) || !isSeparator(path[1])) return false;
  const std::string_view server = takeName(path);
  const std::string_view share = takeName(path);
  // "?" and "." lead past the rules for names, to drives and devices.
  return server != "?" && !isOnlyDots(server) && !isOnlyDots(share);
}

// Whether `path` is the full path of something below the root of its drive or share.
bool isBelowRoot(std::string_view path) {
  if (!takeRoot(path)) return false;
  std::size_t depth = 0;
  for (std::string_view name = takeName(path); !name.empty(); name = takeName(path)) {
    if (!isOnlyDots(name)) {
      ++depth;
      continue;
    }
    // One dot is the folder itself, and each further one a folder up: "..." is two up on Windows 95.
    const auto dots = static_cast<std::size_t>(std::ranges::count(name, '.'));
    if (dots > 1) depth -= std::min(depth, dots - 1);
  }
  return depth > 0;
}

// Whether a folder may be emptied: it is there, and is itself what its name says and no link to another place.
bool mayBeEmptied(const std::string& folder) {
  return platform::isOwnFolder(platform::machine().files().getFileAttributes(folder));
}

}  // namespace

void frmFind::bindTempFolders() { bindTool(Del_Temps, &frmFind::Del_Temps_Click); }

void frmFind::Del_Temps_Click() {
  Scan.disable();
  constexpr std::uint32_t kWarn = platform::kBoxOkCancel | platform::kBoxCritical | platform::kBoxSecondButtonDefault;
  const Answer answer = messageBox("This will clear ALL your profile and Windows temporary folders without backup!",
                                   kWarn, "Scrubhaven Pro - Warning!");
  if (answer == Answer::kCancel) return;
  // The walks list folders here that are then removed: no row of an earlier run may be among them.
  ListView2.clear();
  std::string folder;
  ClearTempSubfolders(folder);
  PurgeTempFolders();
  messageBox("All temporary files not in use have been deleted", platform::kBoxOk, "Done");
  Scan.enable();
}

void frmFind::PurgeTempFolders() {
  const std::vector<std::string> folders = fixedFolders();
  setVisible(false, {&lvCache, &lblStatus, &Label6});
  ListView1.show();
  ListView1.clear();

  std::int32_t fileCount = 0;
  std::int32_t dirCount = 0;
  for (std::string folder : folders) {
    if (IsFolder(folder) && mayBeEmptied(folder)) FindTemps(folder, kEveryFile, fileCount, dirCount);
  }
  deleteFoundFiles(fileCount, isReadOnlyInFixedFolders);

  std::string folder = tempFolder("TEMP");
  fileCount = 0;
  dirCount = 0;
  FindTemps(folder, kEveryFile, fileCount, dirCount);
  platform::machine().ui().serveEvents();
  deleteFoundFiles(fileCount, asksBeforeDeleting);
}

std::string frmFind::tempFolder(const std::string& variable) {
  std::string folder = platform::machine().environment().getEnvironmentVariable(variable);
  if (!isBelowRoot(folder)) return {};
  while (isSeparator(folder.back())) folder.pop_back();
  return mayBeEmptied(folder) ? folder + '\\' : std::string();
}

void frmFind::deleteFoundFiles(std::int32_t count, bool (*isReadOnly)(std::uint32_t attributes)) {
  const auto last = static_cast<std::size_t>(std::min(count, kMostFilesAtOnce));
  for (std::size_t i = 1; i <= last; ++i) {
    platform::machine().ui().serveEvents();
    deleteFoundFile(FoundFiles[i], isReadOnly);
  }
}

// A file that fails at any step stays, and nobody is told. One whose attributes cannot be read is not even tried.
void frmFind::deleteFoundFile(const std::string& path, bool (*isReadOnly)(std::uint32_t attributes)) {
  platform::FileObjects& objects = platform::machine().fileObjects();
  const platform::Result<platform::FileObject> file = objects.getFile(path);
  if (!file) return;
  const bool force = isReadOnly(file->attributes);
  if (force && messageBox(file->path + "\r\nis a read only file - OK to Delete?", platform::kBoxYesNo, "Delete File") !=
                   Answer::kYes) {
    return;
  }
  if (FileIsOpen1(file->path)) return;
  static_cast<void>(objects.deleteFile(path, force));
}

platform::Result<void> frmFind::DelTree(const std::string& path) {
  return platform::machine().fileObjects().deleteFolder(path, true);
}
