// The drive walk that all finders share.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "platform/FileSystem.h"

namespace finder {

// Where a walk asks whether to stop.
enum class StopTest { kNever, kBeforeEachPattern, kBeforeEachFolderEntry };

// A file that a walk has found. The references are valid during the callback.
struct FoundFile {
  const std::string& path;  // full path
  const std::string& name;
  std::uint64_t size;  // bytes, as the folder has them
};

// What distinguishes one walk from another. Callbacks that are not set are not called.
struct TreeWalk {
  std::span<const std::string> patterns;  // searched one after the other in each folder; blank ones are skipped
  bool entersHiddenSystemFolders = true;
  StopTest stopTest = StopTest::kNever;
  std::function<bool()> stopRequested = {};  // required unless stopTest is kNever
  std::function<void(const std::string& folder)> onSubfolder = {};
  // After each folder has been read, with the number of files in it.
  std::function<void(std::size_t files)> onFolderRead = {};
  std::function<void()> onFilesBegin = {};
  std::function<void(const FoundFile&)> onFile = {};
  // After a folder's files and before its subfolders. `progress` is the folder's path followed by the names of the last
  // subfolder and the last file found in it.
  std::function<void(const std::string& progress)> onFolderDone = {};
};

// Walks the tree below `path`, depth first, a folder's files before its subfolders; links to folders are not entered. A
// closing backslash is appended to `path` when it has none; an empty path names no folder. Adds the number of folders
// to enter to `DirCount`. Returns the sum of the files' sizes, see countedSize. Folders that cannot be read are
// skipped. Each folder is read once; only a pattern whose rules are the system's own (NamePattern) is enumerated
// again. Processes pending messages after each folder, and every 20 ms within one.
// FileSystem::readTree, FindFirstFileA, FindNextFileA, FindClose.
std::int64_t walkTree(std::string& path, std::int32_t& DirCount, const TreeWalk& walk);

// The full paths of the folders directly in `folder`, which ends in a backslash; links are left out.
std::vector<std::string> subfoldersOf(const std::string& folder);

// Whether a folder of that path exists. FileSystemObject.FolderExists.
bool isFolder(const std::string& path);

// A size in bytes as the totals count it: the low half as a signed number minus the high half. Sizes of 2 GB and more
// count wrongly.
std::int64_t countedSize(std::uint64_t size);

}  // namespace finder
