#include "controls/DirList.h"

#include <algorithm>
#include <utility>

#include "platform/Paths.h"
#include "platform/Platform.h"

namespace controls {

using platform::rootLength;

namespace {

// Whether `text` is a drive as the drive list shows it: "c:" or "c: [LABEL]".
bool isDriveText(const std::string& text) {
  return text.size() >= 2 && text[1] == ':' && (text.size() == 2 || text[2] == ' ');
}

std::string joined(const std::string& folder, const std::string& name) {
  return folder.back() == '\\' ? folder + name : folder + '\\' + name;
}

// The entries from the root down to `path`.
std::vector<DirEntry> ancestors(const std::string& path) {
  std::size_t end = rootLength(path);
  std::string soFar = path.substr(0, end);
  std::vector<DirEntry> lines{DirEntry{soFar, soFar, 0}};
  while (end < path.size()) {
    if (path[end] == '\\') ++end;
    const std::size_t next = std::min(path.find('\\', end), path.size());
    const std::string name = path.substr(end, next - end);
    soFar = joined(soFar, name);
    lines.push_back(DirEntry{name, soFar, static_cast<int>(lines.size())});
    end = next;
  }
  return lines;
}

}  // namespace

platform::Result<void> DirList::setPath(const std::string& path) {
  platform::FileSystem& files = platform::machine().files();
  std::string folder = path;
  if (isDriveText(path)) {
    const platform::Result<std::string> onDrive = files.currentFolderOf(path[0]);
    if (!onDrive) return std::unexpected(onDrive.error());
    folder = *onDrive;
  }
  folder = platform::withoutClosingBackslash(std::move(folder));
  const platform::Result<std::vector<std::string>> names = files.subfolders(folder);
  if (!names) return std::unexpected(names.error());

  const bool moved = folder != path_;
  path_ = folder;
  entries_ = ancestors(folder);
  current_ = entries_.size() - 1;
  highlighted_ = current_;
  const int depth = static_cast<int>(entries_.size());
  for (const std::string& name : *names) entries_.push_back(DirEntry{name, joined(folder, name), depth});
  notify(Change::kValue);
  if (moved && onChange) onChange();
  return {};
}

void DirList::open(std::size_t index) {
  if (!acceptsInput() || index >= entries_.size()) return;
  const std::string target = entries_[index].path;
  const platform::Result<void> opened = setPath(target);
  if (!opened && onFailure) onFailure(opened.error());
}

void DirList::openParent() {
  if (current_ > 0) open(current_ - 1);
}

void DirList::highlight(std::size_t index) {
  if (acceptsInput() && index < entries_.size()) highlighted_ = index;
}

void DirList::leave() {
  if (highlighted_ == current_) return;
  open(std::exchange(highlighted_, current_));
  // After a failure the native list must show the current folder again.
  notify(Change::kValue);
}

}  // namespace controls
