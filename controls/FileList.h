// The list of the files in one folder. The process's current directory is never changed.
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
  // The names of its files, without hidden and system ones, sorted case-insensitively.
  const std::vector<std::string>& files() const { return files_; }

  // Lists the files of the folder `path`, with none selected. Fails with 68 (drive not ready) or 76 (no such folder);
  // path() is then `path` and the list is empty, so that it never shows another folder's files. FileSystem::filesIn.
  platform::Result<void> setPath(const std::string& path);

  // The 0-based index of the selected file, if any. Selecting an index that does not exist clears the selection.
  std::optional<std::size_t> selected() const { return selected_; }
  void select(std::optional<std::size_t> index);

  // A click by the user on the file at the 0-based `index`. Does nothing while the list does not accept input, or when
  // there is no such file.
  void click(std::size_t index);

 private:
  std::string path_;
  std::vector<std::string> files_;
  std::optional<std::size_t> selected_;
};

}  // namespace controls
