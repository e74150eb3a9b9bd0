#include "finder/tree_walk.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "finder/modFind.h"
#include "finder/name_pattern.h"
#include "platform/Conversions.h"
#include "platform/Enumeration.h"
#include "platform/Paths.h"
#include "platform/Platform.h"

namespace finder {
namespace {

constexpr std::uint32_t kHiddenAndSystem = platform::kHidden | platform::kSystem;
constexpr std::uint32_t kMostMillisecondsWithoutMessages = 20;

using Entries = std::vector<platform::FolderEntry>;

// A search pattern, and how to match it when that is ours to do.
struct Search {
  const std::string& pattern;
  std::optional<NamePattern> own;
};

// A pattern with a separator would search another folder.
bool isSearchable(const std::string& pattern) {
  return !platform::trimmed(pattern).empty() && pattern.find_first_of("\\/") == std::string::npos;
}

bool isFile(const platform::FolderEntry& entry) { return !platform::isDirectory(entry.attributes); }

std::uint32_t tickCount() { return platform::machine().environment().getTickCount(); }

class Walker {
 public:
  Walker(const TreeWalk& walk, std::int32_t& dirCount) : walk_(walk), dirCount_(dirCount) {
    for (const std::string& pattern : walk.patterns) {
      searches_.push_back({pattern, isSearchable(pattern) ? NamePattern::of(pattern) : std::nullopt});
    }
  }

  std::int64_t total() const { return total_; }

  // `folder` ends in a backslash.
  void walkFolder(const std::string& folder) {
    Entries entries;
    if (!readEntries(folder, entries)) return processPendingMessages();
    const std::vector<std::string> subfolders = subfoldersToEnter(folder, entries);
    if (walk_.onFolderRead) walk_.onFolderRead(static_cast<std::size_t>(std::ranges::count_if(entries, isFile)));
    if (walk_.onFilesBegin) walk_.onFilesBegin();
    std::string lastFile;
    for (const Search& search : searches_) {
      if (stops(StopTest::kBeforeEachPattern)) return processPendingMessages();
      if (search.own) {
        matchFiles(folder, entries, *search.own, lastFile);
      } else if (isSearchable(search.pattern)) {
        enumerateFiles(folder, search.pattern, lastFile);
      }
    }
    if (walk_.onFolderDone) walk_.onFolderDone(folder + (subfolders.empty() ? "" : subfolders.back()) + lastFile);
    processPendingMessages();
    Entries().swap(entries);
    for (const std::string& name : subfolders) {
      if (walk_.stopTest != StopTest::kNever && walk_.stopRequested()) return;
      walkFolder(folder + name + '\\');
    }
  }

 private:
  void processPendingMessages() {
    platform::machine().ui().serveEvents();
    processedAt_ = tickCount();
  }

  // Asking for the time takes longer than a step, so only some steps ask.
  void processPendingMessagesInTime() {
    constexpr std::uint32_t kStepsBetween = 64;
    if (++steps_ % kStepsBetween != 0) return;
    if (tickCount() - processedAt_ >= kMostMillisecondsWithoutMessages) processPendingMessages();
  }

  bool stops(StopTest here) const { return walk_.stopTest == here && walk_.stopRequested(); }

  // Returns false when the walk has been stopped.
  bool readEntries(const std::string& folder, Entries& entries) {
    return platform::machine().files().readFolder(folder, [&](platform::FolderEntry& entry) {
      if (stops(StopTest::kBeforeEachFolderEntry)) return false;
      entries.push_back(std::move(entry));
      processPendingMessagesInTime();
      return true;
    });
  }

  // Only what the folder calls a folder is asked for its attributes.
  std::vector<std::string> subfoldersToEnter(const std::string& folder, const Entries& entries) {
    std::vector<std::string> names;
    for (const platform::FolderEntry& entry : entries) {
      if (!platform::isDirectory(entry.attributes) || !isEntered(folder + entry.name)) continue;
      names.push_back(entry.name);
      ++dirCount_;
      if (walk_.onSubfolder) walk_.onSubfolder(folder + entry.name);
    }
    return names;
  }

  bool isEntered(const std::string& folder) const {
    const std::uint32_t attributes = platform::machine().files().getFileAttributes(folder);
    if (!platform::isOwnFolder(attributes)) return false;
    return walk_.entersHiddenSystemFolders || (attributes & kHiddenAndSystem) != kHiddenAndSystem;
  }

  void matchFiles(const std::string& folder, const Entries& entries, const NamePattern& pattern,
                  std::string& lastFile) {
    for (const platform::FolderEntry& entry : entries) {
      processPendingMessagesInTime();
      if (platform::isDirectory(entry.attributes)) continue;
      const bool matches =
          pattern.matches(entry.name) || (!entry.shortName.empty() && pattern.matches(entry.shortName));
      if (matches) visitFile(folder, entry.name, entry.size, lastFile);
    }
  }

  void enumerateFiles(const std::string& folder, const std::string& pattern, std::string& lastFile) {
    const auto visit = [&](const std::string& entry, const platform::FindRecord& record) {
      const std::uint64_t size = (std::uint64_t{record.sizeHigh} << 32) | record.sizeLow;
      if (!platform::isDirectory(record.attributes)) visitFile(folder, TrimAtNul(entry), size, lastFile);
      return true;
    };
    forEachEntry(platform::machine().files(), folder + pattern, visit);
  }

  void visitFile(const std::string& folder, const std::string& name, std::uint64_t size, std::string& lastFile) {
    const std::string path = folder + name;
    lastFile = name;
    total_ += countedSize(size);
    walk_.onFile({path, name, size});
  }

  const TreeWalk& walk_;
  std::int32_t& dirCount_;
  std::vector<Search> searches_;
  std::int64_t total_ = 0;
  std::uint32_t processedAt_ = tickCount();
  std::uint32_t steps_ = 0;
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
  files.readFolder(folder, [&](platform::FolderEntry& entry) {
    if (platform::isOwnFolder(files.getFileAttributes(folder + entry.name))) paths.push_back(folder + entry.name);
    return true;
  });
  return paths;
}

bool isFolder(const std::string& path) { return platform::machine().fileObjects().folderExists(path); }

std::int64_t countedSize(std::uint64_t size) {
  return std::int64_t{static_cast<std::int32_t>(size)} - static_cast<std::int64_t>(size >> 32);
}

}  // namespace finder
