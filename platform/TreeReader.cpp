#include "platform/TreeReader.h"

#include <utility>

namespace platform {

DirectTreeReader::DirectTreeReader(FileSystem& files, std::string folder, bool entersHiddenSystemFolders,
                                   std::function<bool()> isStopped)
    : files_(files),
      entersHiddenSystemFolders_(entersHiddenSystemFolders),
      isStopped_(std::move(isStopped)),
      waiting_{std::move(folder)} {}

TreeReader::Step DirectTreeReader::next(FolderContents& contents) {
  if (waiting_.empty()) return Step::kEnd;
  contents = {.folder = std::move(waiting_.back()), .entries = {}, .subfolders = {}};
  waiting_.pop_back();
  files_.readFolder(contents.folder, [this, &contents](FolderEntry& entry) {
    contents.entries.push_back(std::move(entry));
    return !isStopped_();
  });
  // Only what the folder calls a folder is asked for its attributes.
  for (const FolderEntry& entry : contents.entries) {
    if (isStopped_()) break;
    const bool isFolder = isDirectory(entry.attributes) && isEntered(contents.folder + entry.name);
    if (isFolder) contents.subfolders.push_back(entry.name);
  }
  for (std::size_t i = contents.subfolders.size(); i-- > 0;) {
    waiting_.push_back(contents.folder + contents.subfolders[i] + '\\');
  }
  return Step::kRead;
}

bool DirectTreeReader::isEntered(const std::string& folder) const {
  constexpr std::uint32_t kHiddenAndSystem = kHidden | kSystem;
  const std::uint32_t attributes = files_.getFileAttributes(folder);
  if (!isOwnFolder(attributes)) return false;
  return entersHiddenSystemFolders_ || (attributes & kHiddenAndSystem) != kHiddenAndSystem;
}

}  // namespace platform
