#include "finder/tree_walk.h"

#include <optional>

#include "finder/modFind.h"
#include "platform/Conversions.h"
#include "platform/Enumeration.h"
#include "platform/Paths.h"
#include "platform/Platform.h"

namespace finder {
namespace {

constexpr std::uint32_t kHiddenAndSystem = platform::kHidden | platform::kSystem;

// A pattern with a separator would search another folder.
bool isSearchable(const std::string& pattern) {
  return !platform::trimmed(pattern).empty() && pattern.find_first_of("\\/") == std::string::npos;
}

class Walker {
 public:
  Walker(const TreeWalk& walk, std::int32_t& dirCount) : walk_(walk), dirCount_(dirCount) {}

  std::int64_t total() const { return total_; }

  // `folder` ends in a backslash.
  void walkFolder(const std::string& folder) {
    const std::optional<std::vector<std::string>> subfolders = subfoldersToEnter(folder);
    if (!subfolders) return processPendingMessages();
    if (walk_.onFilesBegin) walk_.onFilesBegin();
    std::string lastFile;
    for (const std::string& pattern : walk_.patterns) {
      if (stops(StopTest::kBeforeEachPattern)) return processPendingMessages();
      if (isSearchable(pattern)) visitFiles(folder, pattern, lastFile);
    }
    if (walk_.onFolderDone) walk_.onFolderDone(folder + (subfolders->empty() ? "" : subfolders->back()) + lastFile);
    for (const std::string& name : *subfolders) {
      if (walk_.stopTest != StopTest::kNever && walk_.stopRequested()) return;
      walkFolder(folder + name + '\\');
    }
  }

 private:
  static void processPendingMessages() { platform::machine().ui().serveEvents(); }

  bool stops(StopTest here) const { return walk_.stopTest == here && walk_.stopRequested(); }

  // The names of the subfolders that the walk enters; nothing when it has been stopped.
  std::optional<std::vector<std::string>> subfoldersToEnter(const std::string& folder) {
    std::vector<std::string> names;
    const auto visit = [&](const std::string& entry, const platform::FindRecord&) {
      if (stops(StopTest::kBeforeEachFolderEntry)) return false;
      const std::string name = TrimAtNul(entry);
      if (platform::isDotEntry(name) || !isEntered(folder + name)) return true;
      names.push_back(name);
      ++dirCount_;
      if (walk_.onSubfolder) walk_.onSubfolder(folder + name);
      return true;
    };
    if (!forEachEntry(platform::machine().files(), folder + "*", visit, processPendingMessages)) return std::nullopt;
    return names;
  }

  bool isEntered(const std::string& folder) const {
    const std::uint32_t attributes = platform::machine().files().getFileAttributes(folder);
    if (!platform::isOwnFolder(attributes)) return false;
    return walk_.entersHiddenSystemFolders || (attributes & kHiddenAndSystem) != kHiddenAndSystem;
  }

  void visitFiles(const std::string& folder, const std::string& pattern, std::string& lastFile) {
    const auto visit = [&](const std::string& entry, const platform::FindRecord& record) {
      const std::string name = TrimAtNul(entry);
      const std::string file = folder + name;
      // The attributes answer where the file-system object cannot be created.
      if (platform::isDotEntry(name) || platform::isDirectory(record.attributes) || isFolder(file)) return true;
      lastFile = name;
      total_ += countedSize(record);
      walk_.onFile({file, name, record});
      return true;
    };
    forEachEntry(platform::machine().files(), folder + pattern, visit);
  }

  const TreeWalk& walk_;
  std::int32_t& dirCount_;
  std::int64_t total_ = 0;
};

}  // namespace

std::int64_t walkTree(std::string& path, std::int32_t& DirCount, const TreeWalk& walk) {
  // With a backslash appended, an empty path would be the root of the current drive.
  if (path.empty()) return 0;
  if (path.back() != '\\') path += '\\';
  Walker walker(walk, DirCount);
  walker.walkFolder(path);
  return walker.total();
}

std::vector<std::string> subfoldersOf(const std::string& folder) {
  std::vector<std::string> paths;
  platform::FileSystem& files = platform::machine().files();
  forEachEntry(files, folder + "*", [&](const std::string& entry, const platform::FindRecord&) {
    const std::string name = TrimAtNul(entry);
    const bool isDot = platform::isDotEntry(name);
    if (!isDot && platform::isOwnFolder(files.getFileAttributes(folder + name))) paths.push_back(folder + name);
    return true;
  });
  return paths;
}

bool isFolder(const std::string& path) { return platform::machine().fileObjects().folderExists(path); }

std::int64_t countedSize(const platform::FindRecord& record) {
  return std::int64_t{static_cast<std::int32_t>(record.sizeLow)} - std::int64_t{record.sizeHigh};
}

}  // namespace finder
