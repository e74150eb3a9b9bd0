#include "platform/FolderHold.h"

#include "platform/Paths.h"

namespace platform {

Links linksOnTheWayTo(FileSystem& files, const std::string& folder) {
  return hasLinkAbove(files, folder + '\\') ? Links::kAll : Links::kNone;
}

FolderHold::FolderHold(FileSystem& files, std::string root, Links allowed)
    : files_(files), root_(std::move(root)), allowed_(allowed) {
  if (!root_.ends_with('\\')) root_ += '\\';
}

FolderHold::~FolderHold() { releaseDownTo(0); }

bool FolderHold::holdAbove(const std::string& path) {
  const std::size_t end = path.rfind('\\') + 1;
  const std::string folder = path.substr(0, end);
  if (!folder.starts_with(root_)) return false;
  std::size_t kept = 0;
  while (kept < held_.size() && folder.starts_with(held_[kept].first)) ++kept;
  releaseDownTo(kept);
  if (held_.empty() && !pushRoot()) return false;
  for (std::size_t from = held_.back().first.size(); from < end; from = held_.back().first.size()) {
    if (!push(folder.substr(0, folder.find('\\', from) + 1), false)) return false;
  }
  return true;
}

bool FolderHold::pushRoot() {
  if (!push(root_, allowed_ == Links::kAll)) return false;
  // Looked at while the root is held: then the folders above it can no longer be replaced.
  if (allowed_ != Links::kNone || !hasLinkAbove(files_, root_)) return true;
  releaseDownTo(0);
  return false;
}

bool FolderHold::push(std::string folder, bool mayBeLink) {
  const Result<Handle> held = files_.holdFolder(withoutClosingBackslash(folder), mayBeLink);
  if (!held) return false;
  held_.emplace_back(std::move(folder), *held);
  return true;
}

void FolderHold::releaseDownTo(std::size_t count) {
  while (held_.size() > count) {
    files_.releaseFolder(held_.back().second);
    held_.pop_back();
  }
}

bool hasLinkAbove(FileSystem& files, std::string_view path) {
  for (std::size_t end = path.find('\\', rootLength(path)); end != std::string_view::npos;
       end = path.find('\\', end + 1)) {
    const std::uint32_t attributes = files.getFileAttributes(std::string(path.substr(0, end)));
    if (attributes != kInvalidAttributes && (attributes & kReparsePoint) != 0) return true;
  }
  return false;
}

}  // namespace platform
