// Keeps the folders above a file in place while the file is deleted: a folder that everyone may write to could
// otherwise be replaced by a link to another place between the look at the file and its deletion.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/FileSystem.h"

namespace platform {

// Which folders of a path may be links to another place: those above it only, none of them, or all.
enum class Links { kAbove, kNone, kAll };

// The rule for a folder that the user chooses now: links that come later do not lead to what was chosen.
// GetFileAttributesA.
Links linksOnTheWayTo(FileSystem& files, const std::string& folder);

class FolderHold {
 public:
  // `root` is the folder that the user has chosen, or a fixed one. `allowed` is for the root and the folders above it.
  explicit FolderHold(FileSystem& files, std::string root, Links allowed = Links::kAbove);
  ~FolderHold();
  FolderHold(const FolderHold&) = delete;
  FolderHold& operator=(const FolderHold&) = delete;

  // Holds the folders from the root down to the one that contains `path`, and releases those held for an earlier path
  // that are not among them. Returns false when `path` is not below the root, or when one of the folders is gone, is a
  // link that is not allowed, or cannot be held. FileSystem::holdFolder.
  bool holdAbove(const std::string& path);

 private:
  bool pushRoot();
  bool push(std::string folder, bool mayBeLink);
  void releaseDownTo(std::size_t count);

  FileSystem& files_;
  std::string root_;  // with a closing backslash
  Links allowed_;
  // From the root down, each with a closing backslash.
  std::vector<std::pair<std::string, Handle>> held_;
};

// Whether one of the folders above the last name of `path` is a link to another place. GetFileAttributesA.
bool hasLinkAbove(FileSystem& files, std::string_view path);

}  // namespace platform
