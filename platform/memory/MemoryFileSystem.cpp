#include "platform/memory/MemoryFileSystem.h"

#include <algorithm>
#include <utility>

#include "platform/TreeReader.h"

namespace platform::memory {

// --- Enumerations

bool MemoryFileSystem::giveNext(Enumeration& enumeration, FindRecord& record) {
  while (enumeration.next < enumeration.found.size()) {
    const auto& [name, node] = enumeration.found[enumeration.next++];
    if (node->parent == nullptr) continue;
    const std::uint64_t size = node->listedSize.value_or(node->contents.size);
    record = FindRecord{.attributes = node->reportedAttributes(),
                        .sizeHigh = static_cast<std::uint32_t>(size >> 32),
                        .sizeLow = static_cast<std::uint32_t>(size)};
    std::ranges::copy(name, record.name.begin());
    return true;
  }
  return false;
}

Handle MemoryFileSystem::findFirstFile(const std::string& pattern, FindRecord& record) {
  if (faults_.nextFault("findFirstFile")) return kInvalidHandle;
  Enumeration enumeration;
  const MemoryDisk::Split parts = MemoryDisk::split(pattern);
  const Result<NodePtr> folder = disk_.find(parts.folder);
  // A root has no entries for itself and the folder above.
  for (const char* dots : {".", ".."}) {
    const bool isBelowRoot = folder && (*folder)->isFolder() && (*folder)->parent != nullptr;
    if (isBelowRoot && matchesPattern(parts.name, dots)) enumeration.found.push_back({dots, *folder});
  }
  for (const NodePtr& node : disk_.matches(pattern)) enumeration.found.push_back({node->name, node});
  if (!giveNext(enumeration, record)) return kInvalidHandle;
  return enumerations_.emplace(disk_.newHandle(), std::move(enumeration)).first->first;
}

bool MemoryFileSystem::findNextFile(Handle enumeration, FindRecord& record) {
  if (faults_.nextFault("findNextFile")) return false;
  const auto found = enumerations_.find(enumeration);
  return found != enumerations_.end() && giveNext(found->second, record);
}

bool MemoryFileSystem::findClose(Handle enumeration) {
  const bool fails = faults_.nextFault("findClose").has_value();
  return enumerations_.erase(enumeration) != 0 && !fails;
}

bool MemoryFileSystem::readFolder(const std::string& folder, const std::function<bool(FolderEntry&)>& visit) {
  if (faults_.nextFault("readFolder")) return true;
  for (const NodePtr& node : disk_.matches(folder + "*")) {
    if (node->parent == nullptr) continue;
    FolderEntry entry{.name = node->name,
                      .shortName = {},
                      .attributes = node->reportedAttributes(),
                      .size = node->listedSize.value_or(node->contents.size)};
    if (!visit(entry)) return false;
  }
  return true;
}

namespace {

class HesitantReader final : public TreeReader {
 public:
  explicit HesitantReader(DirectTreeReader tree) : tree_(std::move(tree)) {}

  Step next(FolderContents& contents) override {
    hesitates_ = !hesitates_;
    return hesitates_ ? Step::kNotYet : tree_.next(contents);
  }

 private:
  DirectTreeReader tree_;
  bool hesitates_ = true;
};

}  // namespace

std::unique_ptr<TreeReader> MemoryFileSystem::readTree(const std::string& folder, bool entersHiddenSystemFolders) {
  return std::make_unique<HesitantReader>(DirectTreeReader(*this, folder, entersHiddenSystemFolders));
}

// --- Attributes and lengths

std::uint32_t MemoryFileSystem::getFileAttributes(const std::string& path) {
  if (faults_.nextFault("getFileAttributes")) return kInvalidAttributes;
  const Result<NodePtr> node = disk_.find(path);
  return node ? (*node)->reportedAttributes() : kInvalidAttributes;
}

Result<std::uint64_t> MemoryFileSystem::fileSize(const std::string& path) {
  if (const auto number = faults_.nextFault("fileSize", kFileNotFound)) return failure(*number);
  const Result<NodePtr> node = disk_.find(path);
  if (!node || (*node)->isFolder()) return failure(kFileNotFound);
  return (*node)->contents.size;
}

bool MemoryFileSystem::anyFileMatches(const std::string& pattern, std::uint32_t mask) {
  if (faults_.nextFault("anyFileMatches")) return false;
  constexpr std::uint32_t kTested = kReadOnly | kHidden | kSystem | kDirectory;
  return std::ranges::any_of(disk_.matches(pattern),
                             [mask](const NodePtr& node) { return (node->attributes & kTested & ~mask) == 0; });
}

// --- Handles

Handle MemoryFileSystem::createFile(const std::string& path, const OpenRequest& request) {
  if (faults_.nextFault("createFile")) return kInvalidHandle;
  const Result<NodePtr> file = disk_.find(path);
  return file ? disk_.open(*file, request.access, request.share).value_or(kInvalidHandle) : kInvalidHandle;
}

bool MemoryFileSystem::closeHandle(Handle handle) {
  const bool fails = faults_.nextFault("closeHandle").has_value();
  return disk_.close(handle) && !fails;
}

bool MemoryFileSystem::flushFileBuffers(Handle handle) {
  return !faults_.nextFault("flushFileBuffers") && disk_.isOpen(handle);
}

Result<Handle> MemoryFileSystem::holdFolder(const std::string& folder, bool mayBeLink) {
  if (const auto fault = faults_.nextFault("holdFolder", kPermissionDenied)) return failure(*fault);
  const Result<NodePtr> node = disk_.find(folder);
  if (!node || !(*node)->isFolder() || ((*node)->isLink() && !mayBeLink)) return failure(kPathNotFound);
  ++(*node)->openings;
  return held_.emplace(disk_.newHandle(), *node).first->first;
}

void MemoryFileSystem::releaseFolder(Handle held) {
  const auto found = held_.find(held);
  if (found == held_.end()) return;
  --found->second->openings;
  held_.erase(found);
}

// --- File numbers

Result<void> MemoryFileSystem::openBinary(int number, const std::string& path) {
  if (const auto fault = faults_.nextFault("openBinary", kPathFileAccess)) return failure(*fault);
  if (numbered_.contains(number)) return failure(kFileAlreadyOpen);
  Result<NodePtr> file = disk_.find(path);
  if (!file && file.error().number == kFileNotFound) file = disk_.create(path);
  if (!file) return std::unexpected(file.error());
  if ((*file)->isLink()) return failure(kPathFileAccess);
  const Result<Handle> handle = disk_.open(*file, kGenericRead | kGenericWrite, kShareRead | kShareWrite);
  if (!handle) return std::unexpected(handle.error());
  numbered_.emplace(number, *handle);
  return {};
}

Result<void> MemoryFileSystem::write(int number, std::optional<std::uint64_t> position, std::string_view bytes) {
  const auto opened = numbered_.find(number);
  if (opened == numbered_.end()) return failure(kBadFileNumber);
  disk_.write(opened->second, position, bytes);
  return {};
}

Result<void> MemoryFileSystem::putBytes(int number, std::string_view bytes) {
  if (const auto fault = faults_.nextFault("putBytes", kDiskFull)) return failure(*fault);
  return write(number, std::nullopt, bytes);
}

Result<void> MemoryFileSystem::putBytesAt(int number, std::uint64_t position, std::string_view bytes) {
  if (const auto fault = faults_.nextFault("putBytesAt", kDiskFull)) return failure(*fault);
  return position == 0 ? failure(kInvalidCall) : write(number, position - 1, bytes);
}

void MemoryFileSystem::closeFile(int number) {
  faults_.nextFault("closeFile");
  const auto opened = numbered_.find(number);
  if (opened == numbered_.end()) return;
  disk_.close(opened->second);
  numbered_.erase(opened);
}

Result<int> MemoryFileSystem::freeFile() {
  if (const auto fault = faults_.nextFault("freeFile", kTooManyFiles)) return failure(*fault);
  int number = 1;
  while (numbered_.contains(number)) ++number;
  return number;
}

// --- Renaming and removing

Result<std::string> MemoryFileSystem::getFullPathName(const std::string& path) {
  if (const auto fault = faults_.nextFault("getFullPathName", kPathNotFound)) return failure(*fault);
  return disk_.fullPath(path);
}

Result<void> MemoryFileSystem::moveFile(const std::string& from, const std::string& to) {
  if (const auto fault = faults_.nextFault("moveFile", kPathFileAccess)) return failure(*fault);
  const Result<NodePtr> file = disk_.find(from);
  return file ? disk_.move(*file, to) : std::unexpected(file.error());
}

Result<void> MemoryFileSystem::remove(const std::string& path) {
  if (const auto fault = faults_.nextFault("remove", kPathFileAccess)) return failure(*fault);
  const Result<NodePtr> node = disk_.find(path);
  if (!node) return std::unexpected(node.error());
  return (*node)->isFolder() ? failure(kPathFileAccess) : disk_.remove(*node, false);
}

// --- Drives and folders

std::vector<Drive> MemoryFileSystem::drives() {
  return faults_.nextFault("drives") ? std::vector<Drive>() : disk_.drives();
}

std::string MemoryFileSystem::currentFolder() {
  return faults_.nextFault("currentFolder") ? std::string() : disk_.currentFolder();
}

Result<std::string> MemoryFileSystem::currentFolderOf(char letter) {
  if (const auto fault = faults_.nextFault("currentFolderOf", kDeviceUnavailable)) return failure(*fault);
  return disk_.currentFolderOf(letter);
}

Result<std::vector<std::string>> MemoryFileSystem::subfolders(const std::string& folder) {
  if (const auto fault = faults_.nextFault("subfolders", kDeviceUnavailable)) return failure(*fault);
  return shownNames(folder, true);
}

Result<std::vector<std::string>> MemoryFileSystem::filesIn(const std::string& folder) {
  if (const auto fault = faults_.nextFault("filesIn", kDeviceUnavailable)) return failure(*fault);
  return shownNames(folder, false);
}

Result<std::vector<std::string>> MemoryFileSystem::shownNames(const std::string& folder, bool folders) const {
  const Result<NodePtr> node = disk_.find(folder);
  if (!node && node.error().number == kDeviceUnavailable) return std::unexpected(node.error());
  if (!node || !(*node)->isFolder()) return failure(kPathNotFound);
  std::vector<std::string> names;
  for (const auto& [name, entry] : *(*node)->entries) {
    const bool isConcealed = (entry->attributes & (kHidden | kSystem)) != 0;
    if (entry->isFolder() == folders && !isConcealed) names.push_back(name);
  }
  return names;
}

}  // namespace platform::memory
