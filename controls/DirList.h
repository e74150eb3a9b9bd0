// The list of folders: the root and the folders down to the current one, then the subfolders of the current one.
// Opening an entry makes it the current one. The process's current directory is never changed.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "controls/Control.h"
#include "platform/RuntimeError.h"

namespace controls {

// One line of the list.
struct DirEntry {
  std::string text;  // as shown: "C:\" for the root, else the folder's name
  std::string path;  // full path, without a trailing backslash except for the root
  int depth = 0;     // level of indentation; 0 for the root
};

class DirList final : public Control {
 public:
  DirList(Parent parent, std::string name, ControlInit start)
      : Control(parent, Kind::kDirList, std::move(name), std::move(start)) {}

  // Raised after the current folder has changed, by the user or by code.
  Event onChange;
  // Raised with the error of setPath() when the user opened an entry that cannot be read; the list is unchanged.
  std::function<void(const platform::RuntimeError&)> onFailure;

  // The full path of the current folder, without a trailing backslash except for a root ("C:\").
  const std::string& path() const { return path_; }
  const std::vector<DirEntry>& entries() const { return entries_; }
  // 0-based index of the current folder in entries().
  std::size_t current() const { return current_; }

  // Makes the folder `path` the current one; a drive ("c:", "c: [LABEL]") means the current folder of that drive.
  // Fails with 68 (drive not ready) or 76 (no such folder) and then leaves the list unchanged.
  // FileSystem::currentFolderOf, FileSystem::subfolders.
  platform::Result<void> setPath(const std::string& path);

  // 0-based index of the line that the user has highlighted without opening it, else current().
  std::size_t highlighted() const { return highlighted_; }

  // A double click or Enter by the user: opens the entry at the 0-based `index`. Does nothing while the list does not
  // accept input, or when there is no such entry.
  void open(std::size_t index);
  // Backspace by the user: opens the folder above the current one, if there is one.
  void openParent();
  // A click or an arrow key by the user: highlights the entry at the 0-based `index`.
  void highlight(std::size_t index);
  // The list has lost the keyboard: opens the highlighted entry, because that is the folder that the user sees chosen.
  void leave();

 private:
  std::string path_;
  std::vector<DirEntry> entries_;
  std::size_t current_ = 0;
  std::size_t highlighted_ = 0;
};

}  // namespace controls
