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
#include "platform/TreeReader.h"

namespace finder {
namespace {

constexpr std::uint32_t kMostMillisecondsWithoutMessages = 20;

using Entries = std::vector<platform::FolderEntry>;
using platform::TreeReader;

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
  void walk(const std::string& folder) {
    const auto reader = platform::machine().files().readTree(folder, walk_.entersHiddenSystemFolders);
    platform::FolderContents contents;
    for (;;) {
      const TreeReader::Step step = reader->next(contents);
      if (step == TreeReader::Step::kEnd) return;
      if (step == TreeReader::Step::kRead) walkFolder(contents);
      processPendingMessages();
      if (walk_.stopTest != StopTest::kNever && walk_.stopRequested()) return;
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

  void walkFolder(const platform::FolderContents& contents) {
    if (!passesEntries(contents.entries)) return;
    for (const std::string& name : contents.subfolders) {
      ++dirCount_;
      if (walk_.onSubfolder) walk_.onSubfolder(contents.folder + name);
    }
    if (walk_.onFolderRead) {
      walk_.onFolderRead(static_cast<std::size_t>(std::ranges::count_if(contents.entries, isFile)));
    }
    if (walk_.onFilesBegin) walk_.onFilesBegin();
    std::string lastFile;
    for (const Search& search : searches_) {
      if (stops(StopTest::kBeforeEachPattern)) return;
      if (search.own) {
        matchFiles(contents, *search.own, lastFile);
      } else if (isSearchable(search.pattern)) {
        enumerateFiles(contents.folder, search.pattern, lastFile);
      }
    }
    if (!walk_.onFolderDone) return;
    walk_.onFolderDone(contents.folder + (contents.subfolders.empty() ? "" : contents.subfolders.back()) + lastFile);
  }

  // Returns false when the walk is to be stopped.
  bool passesEntries(const Entries& entries) {
    for (std::size_t i = 0; i < entries.size(); ++i) {
      if (stops(StopTest::kBeforeEachFolderEntry)) return false;
      processPendingMessagesInTime();
    }
    return true;
  }

  void matchFiles(const platform::FolderContents& contents, const NamePattern& pattern, std::string& lastFile) {
    for (const platform::FolderEntry& entry : contents.entries) {
      processPendingMessagesInTime();
      if (platform::isDirectory(entry.attributes)) continue;
      const bool matches =
          pattern.matches(entry.name) || (!entry.shortName.empty() && pattern.matches(entry.shortName));
      if (matches) visitFile(contents.folder, entry.name, entry.size, lastFile);
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
  walker.walk(path);
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
