#include "cleaners/temp_folders.h"

#include <algorithm>

#include "finder/deletion.h"
#include "finder/tree_walk.h"
#include "platform/Names.h"
#include "platform/Paths.h"
#include "platform/Platform.h"

namespace cleaners {
namespace {

constexpr std::string_view kSeparators = "\\/";

constexpr const char* kFixedFolders[] = {
    "C:\\Winnt\\Temp",
    "C:\\Documents and Settings\\Administrator\\Local Settings\\Temp",
    "C:\\Documents and Settings\\All Users\\Local Settings\\Temp",
    "C:\\Documents and Settings\\Default User\\Local Settings\\Temp",
    "C:\\Windows\\Temp",
    "C:\\Windows\\Cookies",
};

bool isOnlyDots(std::string_view name) { return name.find_first_not_of(" .") == std::string_view::npos; }

// Whether the folder exists and is no link to another place.
bool mayBeEmptied(const std::string& folder) {
  return platform::isOwnFolder(platform::machine().files().getFileAttributes(folder));
}

bool isSeparator(char letter) { return kSeparators.contains(letter); }

// Removes the first name from `path` and returns it; empty at the end.
std::string_view takeName(std::string_view& path) {
  path.remove_prefix(std::min(path.find_first_not_of(kSeparators), path.size()));
  const std::string_view name = path.substr(0, path.find_first_of(kSeparators));
  path.remove_prefix(name.size());
  return name;
}

// Removes the root from `path`; returns false when the path depends on the current folder.
bool takeRoot(std::string_view& path) {
  if (path.size() > 2 && path[1] == ':' && isSeparator(path[2])) {
    path.remove_prefix(2);
    return true;
  }
  if (path.size() < 2 || !isSeparator(path[0]) || !isSeparator(path[1])) return false;
  const std::string_view server = takeName(path);
  const std::string_view share = takeName(path);
  // "\\\\?\\" and "\\\\.\\" bypass the rules for names and can name drives and devices.
  return server != "?" && !isOnlyDots(server) && !isOnlyDots(share);
}

// The folder that an environment variable names, or `otherwise` when it is not set, followed by `below`.
std::string folderOf(const char* variable, const std::string& otherwise, const char* below = "") {
  const std::string folder = platform::machine().environment().getEnvironmentVariable(variable);
  return (folder.empty() ? otherwise : folder) + below;
}

// The folders that a TEMP value must neither name nor contain.
std::vector<std::string> protectedFolders() {
  platform::Environment& environment = platform::machine().environment();
  std::vector<std::string> folders = {environment.windowsFolder(), environment.programFolder()};
  for (const char* variable : {"ProgramFiles", "ProgramFiles(x86)", "ProgramW6432", "CommonProgramFiles"}) {
    folders.push_back(folderOf(variable, "C:\\Program Files"));
  }
  for (const char* variable : {"ALLUSERSPROFILE", "ProgramData", "PUBLIC"}) {
    folders.push_back(folderOf(variable, "C:\\Documents and Settings\\All Users"));
    // The folder of all profiles.
    folders.push_back(folders.back() + "\\..");
  }
  for (const char* below : {"", "\\..", "\\Desktop", "\\Documents", "\\My Documents", "\\Favorites", "\\Downloads",
                            "\\Start Menu", "\\Application Data", "\\Local Settings\\Application Data"}) {
    folders.push_back(folderOf("USERPROFILE", "C:\\Documents and Settings\\Default User", below));
  }
  for (const char* variable : {"APPDATA", "LOCALAPPDATA"}) {
    folders.push_back(folderOf(variable, "C:\\Documents and Settings\\Default User\\Application Data"));
  }
  return folders;
}

// `path` in capitals, in full, with long names where it exists, and with a closing backslash: one text for one folder.
std::string comparable(const std::string& path) {
  platform::FileSystem& files = platform::machine().files();
  const std::string full = platform::withoutClosingBackslash(files.getFullPathName(path).value_or(path));
  std::string result = full.substr(0, platform::rootLength(full));
  if (!result.ends_with('\\')) result += '\\';
  std::string_view rest = std::string_view(full).substr(platform::rootLength(full));
  for (std::string_view name = takeName(rest); !name.empty(); name = takeName(rest)) {
    platform::FindRecord record;
    const std::string entry = result + std::string(name);
    const platform::Handle enumeration = files.findFirstFile(entry, record);
    if (enumeration == platform::kInvalidHandle) {
      result = entry + '\\';
      continue;
    }
    files.findClose(enumeration);
    result += std::string(record.name.data()) + '\\';
  }
  return platform::machine().environment().upperCase(result);
}

bool holdsProtectedFolder(const std::string& folder) {
  const std::string emptied = comparable(folder);
  return std::ranges::any_of(protectedFolders(), [&emptied](const std::string& one) {
    return !one.empty() && comparable(one).starts_with(emptied);
  });
}

}  // namespace

bool isBelowRoot(std::string_view path) {
  if (!takeRoot(path)) return false;
  std::size_t depth = 0;
  for (std::string_view name = takeName(path); !name.empty(); name = takeName(path)) {
    if (!isOnlyDots(name)) {
      ++depth;
      continue;
    }
    // One dot is the folder itself, and each further dot one folder up: "..." is two up on Windows 95.
    const auto dots = static_cast<std::size_t>(std::ranges::count(name, '.'));
    if (dots > 1) depth -= std::min(depth, dots - 1);
  }
  return depth > 0;
}

std::vector<std::string> fixedFolders() {
  std::vector<std::string> folders(std::begin(kFixedFolders), std::end(kFixedFolders));
  const std::string user = platform::machine().environment().getEnvironmentVariable("username");
  if (platform::isUsableName(user) && !isOnlyDots(user))
    folders.push_back("C:\\Documents and Settings\\" + user + "\\Cookies");
  std::erase_if(folders, [](const std::string& folder) { return !finder::isFolder(folder) || !mayBeEmptied(folder); });
  return folders;
}

std::string tempFolder(const std::string& variable) {
  std::string folder = platform::machine().environment().getEnvironmentVariable(variable);
  if (!isBelowRoot(folder)) return {};
  while (isSeparator(folder.back())) folder.pop_back();
  // Calls cut these off, so that the path would be that of another folder.
  if (folder.ends_with(' ') || folder.ends_with('.')) return {};
  return mayBeEmptied(folder) && !holdsProtectedFolder(folder) ? folder + '\\' : std::string();
}

bool countsAsReadOnlyInFixedFolders(std::uint32_t attributes) {
  constexpr std::uint32_t kIgnored = platform::kHidden | platform::kArchive;
  return (attributes & ~kIgnored) == platform::kReadOnly;
}

void deleteTempFile(const std::string& path, bool (*countsAsReadOnly)(std::uint32_t),
                    const std::function<bool(const std::string&)>& mayDeleteReadOnly) {
  platform::FileObjects& objects = platform::machine().fileObjects();
  const platform::Result<platform::FileObject> file = objects.getFile(path);
  if (!file) return;
  const bool force = countsAsReadOnly(file->attributes);
  if (force && !mayDeleteReadOnly(file->path)) return;
  // While the question was open, the path may have become something else.
  if (!finder::isDeletable(path) || finder::isLocked(path)) return;
  static_cast<void>(objects.deleteFile(path, force));
}

platform::Result<void> deleteTree(const std::string& path) {
  return platform::machine().fileObjects().deleteFolder(path, true);
}

}  // namespace cleaners
