// The list of the files in one folder. The process's own current folder is never touched.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "controls/Control.h"
#include "platform/RuntimeError.h"

namespace controls {

class FileList final : public Control {
 public:
  FileList(Parent parent, std::string name, ControlInit start)
      : Control(parent, Kind::kFileList, std::move(name), std::move(start)) {}

  // The folder whose files are listed; empty before the first setPath.
  const std::string& path() const { return path_; }
  // The names of its files, without hidden and system ones, sorted without regard to case.
  const std::vector<std::string>& files() const { return files_; }

  // Shows the files of the folder `path`. Fails with 68 (drive not ready) or 76 (no such folder); the list is then
  // that folder's all the same, and empty, so that it never offers the files of another one.
  platform::Result<void> setPath(const std::string& path);

  // The 0-based index of the selected file, if any. Selecting one that is not there takes the selection away.
  std::optional<std::size_t> selected() const { return selected_; }
  void select(std::optional<std::size_t> index);

  // What a person does: clicks the file at `index`. Nothing happens while the list takes no input.
  void click(std::size_t index);

 private:
  std::string path_;
  std::vector<std::string> files_;
  std::optional<std::size_t> selected_;
};

}  // namespace controls
