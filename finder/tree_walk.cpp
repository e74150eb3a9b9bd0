#include "finder/tree_walk.h"

#include <optional>

#include "finder/modFind.h"
#include "platform/Conversions.h"
#include "platform/Paths.h"
#include "platform/Platform.h"

namespace finder {
namespace {

constexpr std::uint32_t kHiddenAndSystem = platform::kHidden | platform::kSystem;

bool neverStops() { return false; }
void doNothing() {}

// Calls `visit(name, record)` for each entry that matches `pattern`, except "." and "..", and `afterEntry()` after each
// step of the enumeration. `stops()` is asked before each entry. Returns false when it has stopped the enumeration. A
// folder that cannot be read has no entries.
template <typename Visit, typename Stops, typename AfterEntry>
bool forEachEntry(const std::string& pattern, Visit visit, Stops stops, AfterEntry afterEntry) {
  platform::FileSystem& files = platform::machine().files();
  platform::FindRecord record;
  const platform::Handle enumeration = files.findFirstFile(pattern, record);
  if (enumeration == platform::kInvalidHandle) return true;
  bool stopped = false;
  for (bool more = true; more;) {
    stopped = stops();
    if (stopped) break;
    const std::string name = TrimAtNul({record.name.data(), record.name.size()});
    if (!platform::isDotEntry(name)) visit(name, record);
    more = files.findNextFile(enumeration, record);
    afterEntry();
  }
  files.findClose(enumeration);
  return !stopped;
}

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
    const auto visit = [&](const std::string& name, const platform::FindRecord&) {
      const std::uint32_t attributes = platform::machine().files().getFileAttributes(folder + name);
      if (!platform::isOwnFolder(attributes)) return;
      if (!walk_.entersHiddenSystemFolders && (attributes & kHiddenAndSystem) == kHiddenAndSystem) return;
      names.push_back(name);
      ++dirCount_;
      if (walk_.onSubfolder) walk_.onSubfolder(folder + name);
    };
    const auto stopped = [this] { return stops(StopTest::kBeforeEachFolderEntry); };
    if (!forEachEntry(folder + "*", visit, stopped, processPendingMessages)) return std::nullopt;
    return names;
  }

  void visitFiles(const std::string& folder, const std::string& pattern, std::string& lastFile) {
    const auto visit = [&](const std::string& name, const platform::FindRecord& record) {
      const std::string file = folder + name;
      // The attributes answer where the file-system object cannot be created.
      if (platform::isDirectory(record.attributes) || isFolder(file)) return;
      lastFile = name;
      total_ += countedSize(record);
      walk_.onFile({file, name, record});
    };
    forEachEntry(folder + pattern, visit, neverStops, doNothing);
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
  const auto visit = [&](const std::string& name, const platform::FindRecord&) {
    if (platform::isOwnFolder(platform::machine().files().getFileAttributes(folder + name))) {
      paths.push_back(folder + name);
    }
  };
  forEachEntry(folder + "*", visit, neverStops, doNothing);
  return paths;
}

bool isFolder(const std::string& path) { return platform::machine().fileObjects().folderExists(path); }

std::int64_t countedSize(const platform::FindRecord& record) {
  return std::int64_t{static_cast<std::int32_t>(record.sizeLow)} - std::int64_t{record.sizeHigh};
}

}  // namespace finder
