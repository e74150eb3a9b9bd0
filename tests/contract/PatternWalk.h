// A tree walk that leaves the matching of names to the system: it enumerates every folder once for its subfolders and
// once for each pattern. The finders' own walk must list the same files in the same order.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "finder/junk_types.h"
#include "finder/tree_walk.h"
#include "platform/Conversions.h"
#include "platform/Enumeration.h"
#include "platform/Platform.h"

namespace contract {

struct WalkResult {
  std::vector<std::string> rows;  // "path|size"
  std::int32_t folders = 0;
  bool operator==(const WalkResult&) const = default;
};

inline std::string walkRow(const std::string& path, std::uint64_t size) { return path + '|' + std::to_string(size); }

// `folder` ends in a backslash.
inline void walkByPatterns(const std::string& folder, std::span<const std::string> patterns, bool entersHiddenSystem,
                           WalkResult& result) {
  platform::FileSystem& files = platform::machine().files();
  std::vector<std::string> subfolders;
  platform::forEachEntry(files, folder + '*', [&](const std::string& name, const platform::FindRecord&) {
    const std::uint32_t attributes = files.getFileAttributes(folder + name);
    constexpr std::uint32_t kBoth = platform::kHidden | platform::kSystem;
    const bool isEntered = entersHiddenSystem || (attributes & kBoth) != kBoth;
    if (name != "." && name != ".." && platform::isOwnFolder(attributes) && isEntered) subfolders.push_back(name);
    return true;
  });
  for (const std::string& pattern : patterns) {
    if (platform::trimmed(pattern).empty()) continue;
    platform::forEachEntry(files, folder + pattern, [&](const std::string& name, const platform::FindRecord&) {
      const std::string path = folder + name;
      if (!platform::machine().fileObjects().folderExists(path)) {
        result.rows.push_back(walkRow(path, files.fileSize(path).value_or(0)));
      }
      return true;
    });
  }
  result.folders += static_cast<std::int32_t>(subfolders.size());
  for (const std::string& name : subfolders) {
    walkByPatterns(folder + name + '\\', patterns, entersHiddenSystem, result);
  }
}

// Compares both walks below `folder`, for the junk scan's patterns and for "*.*". Returns how many rows they gave.
inline std::size_t compareWalks(std::string folder, const finder::CustomExtensions& extensions) {
  std::bitset<finder::kFileTypes> all;
  const finder::ScanPatterns junk = finder::scanPatterns(all.set(), extensions);
  const std::vector<std::string> everything = {"*.*"};
  std::size_t rows = 0;
  for (const bool isJunk : {true, false}) {
    const std::span<const std::string> patterns = isJunk ? std::span<const std::string>(junk) : everything;
    WalkResult expected;
    walkByPatterns(folder + '\\', patterns, !isJunk, expected);
    WalkResult actual;
    std::string path = folder;
    finder::walkTree(
        path, actual.folders,
        {.patterns = patterns, .entersHiddenSystemFolders = !isJunk, .onFile = [&](const finder::FoundFile& file) {
           actual.rows.push_back(walkRow(file.path, file.size));
         }});
    EXPECT_EQ(actual.folders, expected.folders);
    EXPECT_EQ(actual.rows.size(), expected.rows.size());
    for (std::size_t i = 0; i < std::min(actual.rows.size(), expected.rows.size()); ++i) {
      EXPECT_EQ(actual.rows[i], expected.rows[i]);
      if (actual.rows[i] != expected.rows[i]) break;
    }
    rows += actual.rows.size();
  }
  return rows;
}

}  // namespace contract
