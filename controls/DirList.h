// The list of folders: the root and the folders down to the current one, then the current one's subfolders. Opening an
// entry makes it the current one. The process's own current folder is never touched.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "controls/Control.h"
#include "platform/RuntimeError.h"

namespace controls {

// One line of the list.
struct DirEntry {
  std::string text;  // as shown: "C:\" for the root, else the folder's own name
  std::string path;  // full path, without a closing backslash except for the root
  int depth = 0;     // 0 for the root: how far the line is indented
};

class DirList final : public Control {
 public:
  DirList(Parent parent, std::string name, ControlInit start)
      : Control(parent, Kind::kDirList, std::move(name), std::move(start)) {}

  // The current folder has changed, by the user or by code.
  Event onChange;
  // An entry that the user opened could not be read; the list is as it was.
  std::function<void(const platform::RuntimeError&)> onFailure;

  // The current folder's full path, without a closing backslash except for a root ("C:\").
  const std::string& path() const { return path_; }
  const std::vector<DirEntry>& entries() const { return entries_; }
  // 0-based index of the current folder's own line.
  std::size_t current() const { return current_; }

  // Makes a folder the current one. A drive's text ("c:", "c: [LABEL]") stands for that drive's current folder. Fails,
  // leaving the list as it was, with 68 (drive not ready) or 76 (no such folder).
  platform::Result<void> setPath(const std::string& path);

  // What a person does: opens the entry at `index` (double click, Enter). Nothing happens while the list takes no
  // input.
  void open(std::size_t index);

 private:
  std::string path_;
  std::vector<DirEntry> entries_;
  std::size_t current_ = 0;
};

}  // namespace controls
