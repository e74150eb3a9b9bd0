#include "controls/FileList.h"

#include <utility>

#include "platform/Platform.h"

namespace controls {

platform::Result<void> FileList::setPath(const std::string& path) {
  platform::Result<std::vector<std::string>> names = platform::machine().files().filesIn(path);
  path_ = path;
  files_ = names ? std::move(*names) : std::vector<std::string>();
  selected_.reset();
  notify(Change::kRows);
  return names ? platform::Result<void>{} : std::unexpected(names.error());
}

void FileList::select(std::optional<std::size_t> index) {
  selected_ = index && *index < files_.size() ? index : std::nullopt;
  notify(Change::kValue);
}

void FileList::click(std::size_t index) {
  if (acceptsInput() && index < files_.size()) select(index);
}

}  // namespace controls
