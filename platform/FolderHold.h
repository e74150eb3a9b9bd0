// Keeps the folders above a file in place while the file is deleted: a folder that everyone may write to could
// otherwise be replaced by a link to another place between the look at the file and its deletion.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/FileSystem.h"

namespace platform {

class FolderHold {
 public:
  // `root` is the folder that the user has chosen, or a fixed one; it may be a link itself only when `rootMayBeLink`.
  explicit FolderHold(std::string root, bool rootMayBeLink = false);
  ~FolderHold();
  FolderHold(const FolderHold&) = delete;
  FolderHold& operator=(const FolderHold&) = delete;

  // Holds the folders from the root down to the one that contains `path`, and releases those held for an earlier path
  // that are not among them. Returns false when `path` is not below the root, or when one of the folders is gone, is a
  // link, or cannot be held. FileSystem::holdFolder.
  bool holdAbove(const std::string& path);

 private:
  bool push(std::string folder, bool mayBeLink);
  void releaseDownTo(std::size_t count);

  std::string root_;  // with a closing backslash
  bool rootMayBeLink_;
  // From the root down, each with a closing backslash.
  std::vector<std::pair<std::string, Handle>> held_;
};

// Whether one of the folders above the last name of `path` is a link to another place. GetFileAttributesA.
bool hasLinkAbove(std::string_view path);

}  // namespace platform
