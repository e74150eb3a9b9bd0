// Reads all folders of a tree, one after the other.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/FileSystem.h"

namespace platform {

struct FolderContents {
  std::string folder;                   // full path, ends in a backslash
  std::vector<FolderEntry> entries;     // as readFolder gives them
  std::vector<std::string> subfolders;  // the names of those among them that the reader enters
};

class TreeReader {
 public:
  enum class Step { kRead, kNotYet, kEnd };

  virtual ~TreeReader() = default;

  // Stores the next folder in `contents`: depth first, a folder before its subfolders. kNotYet, after a few
  // milliseconds, when it has still to be read.
  virtual Step next(FolderContents& contents) = 0;
};

// Reads a folder when it is asked for.
class DirectTreeReader final : public TreeReader {
 public:
  // See FileSystem::readTree. `files` must outlive the reader. `isStopped` is asked after each entry; when it returns
  // true, the rest of the folder is left out.
  DirectTreeReader(
      FileSystem& files, std::string folder, bool entersHiddenSystemFolders,
      std::function<bool()> isStopped = [] { return false; });

  Step next(FolderContents& contents) override;

 private:
  bool isEntered(const std::string& folder) const;

  FileSystem& files_;
  bool entersHiddenSystemFolders_;
  std::function<bool()> isStopped_;
  std::vector<std::string> waiting_;  // full paths; the last one is next
};

}  // namespace platform
