#include "platform/memory/MemoryFileSystem.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace platform::memory {
namespace {

// The machine keeps no file times; every file is of 1 January 2004.
constexpr FileTime kFileTime{0x32F20000, 0x01C3CFFA};

constexpr std::uint32_t kSettable = kReadOnly | kHidden | kSystem | kArchive;
constexpr int kLastFileNumber = 511;

template <std::size_t kSize>
void setText(std::array<char, kSize>& buffer, std::string_view text) {
  buffer.fill('\0');
  std::ranges::copy(text.substr(0, kSize - 1), buffer.begin());
}

// The name under which an entry can be reached by a path; empty when there is none.
std::string_view reachableName(const Node& node) {
  if (node.unspeakable) return node.alias;
  return withoutTrail(node.name) == node.name ? std::string_view(node.name) : std::string_view();
}

FindRecord recordOf(const Node& node, std::string_view name) {
  FindRecord record;
  record.attributes = node.reportedAttributes();
  record.created = record.accessed = record.written = kFileTime;
  const std::uint64_t size = node.listedSize.value_or(node.bytes.size());
  record.sizeHigh = static_cast<std::uint32_t>(size >> 32);
  record.sizeLow = static_cast<std::uint32_t>(size);
  setText(record.name, name);
  setText(record.alternateName, node.alias);
  return record;
}

bool isDriveError(DiskError error) { return error == DiskError::kInvalidDrive || error == DiskError::kNotReady; }

// The classic number of a refused opening.
std::int32_t openingFailure(DiskError error) {
  switch (error) {
    case DiskError::kSharingViolation:
      return kPermissionDenied;
    case DiskError::kPathNotFound:
    case DiskError::kInvalidDrive:
      return kPathNotFound;
    case DiskError::kNotReady:
      return kDeviceUnavailable;
    case DiskError::kInvalidName:
      return kBadFileNumber;
    default:
      return kPathFileAccess;
  }
}

// The classic number of a refused renaming or removal.
std::int32_t changeFailure(DiskError error) {
  if (error == DiskError::kFileNotFound) return kFileNotFound;
  if (error == DiskError::kAlreadyExists) return kFileAlreadyExists;
  return openingFailure(error);
}

}  // namespace

// --- Enumerations

std::optional<MemoryFileSystem::Enumeration> MemoryFileSystem::startEnumeration(const std::string& pattern) const {
  const MemoryDisk::Split split = MemoryDisk::split(pattern);
  const DiskResult<NodePtr> folder = disk_.findFolder(split.folder);
  if (!folder) return std::nullopt;
  const std::string folderPath = disk_.fullPath(split.folder)->text();
  Enumeration enumeration{*folder, Wildcards(split.name), folderPath.back() == '\\', 0, false, {}};
  const bool tooLong = folderPath.size() + 1 + split.name.size() >= kMaxPath;
  if (tooLong || enumeration.wildcards.impossible()) return std::nullopt;
  return enumeration;
}

NodePtr MemoryFileSystem::nextNode(Enumeration& enumeration) {
  const FolderEntries& entries = *enumeration.folder->entries;
  if (!enumeration.wildcards.single()) return entries.next(enumeration.cursor);
  if (std::exchange(enumeration.singleGiven, true)) return nullptr;
  return entries.find(enumeration.wildcards.pattern());
}

bool MemoryFileSystem::next(Enumeration& enumeration, FindRecord& record) {
  while (!enumeration.isRoot && enumeration.dotsGiven < 2) {
    const std::string_view dots = ++enumeration.dotsGiven == 1 ? "." : "..";
    if (!enumeration.wildcards.matches(dots)) continue;
    record = recordOf(*enumeration.folder, dots);
    setText(record.alternateName, "");
    return true;
  }
  while (const NodePtr node = nextNode(enumeration)) {
    const std::string_view name = reachableName(*node);
    const bool matches =
        enumeration.wildcards.matches(name) || (!node->alias.empty() && enumeration.wildcards.matches(node->alias));
    if (name.empty() || !matches) continue;
    record = recordOf(*node, name);
    return true;
  }
  return false;
}

Handle MemoryFileSystem::findFirstFile(const std::string& pattern, FindRecord& record) {
  if (faults_.nextFault("findFirstFile")) return kInvalidHandle;
  std::optional<Enumeration> enumeration = startEnumeration(pattern);
  if (!enumeration || !next(*enumeration, record)) return kInvalidHandle;
  const Handle handle = disk_.newHandle();
  enumerations_.emplace(handle, std::move(*enumeration));
  return handle;
}

bool MemoryFileSystem::findNextFile(Handle enumeration, FindRecord& record) {
  if (faults_.nextFault("findNextFile")) return false;
  const auto found = enumerations_.find(enumeration);
  return found != enumerations_.end() && next(found->second, record);
}

bool MemoryFileSystem::findClose(Handle enumeration) {
  const bool fails = faults_.nextFault("findClose").has_value();
  return enumerations_.erase(enumeration) != 0 && !fails;
}

// --- Attributes and lengths

std::uint32_t MemoryFileSystem::getFileAttributes(const std::string& path) {
  if (faults_.nextFault("getFileAttributes")) return kInvalidAttributes;
  const DiskResult<NodePtr> node = disk_.find(path);
  return node ? (*node)->reportedAttributes() : kInvalidAttributes;
}

bool MemoryFileSystem::setFileAttributes(const std::string& path, std::uint32_t attributes) {
  if (faults_.nextFault("setFileAttributes")) return false;
  const DiskResult<NodePtr> node = disk_.find(path);
  if (!node || (*node)->deniesWriting) return false;
  (*node)->attributes = ((*node)->attributes & ~kSettable) | (attributes & kSettable);
  return true;
}

Result<std::int32_t> MemoryFileSystem::fileLength(const std::string& path) {
  if (const auto number = faults_.nextFault("fileLength", kFileNotFound)) return failure(*number);
  const DiskResult<NodePtr> node = disk_.find(path);
  if (!node || (*node)->isFolder()) return failure(kFileNotFound);
  return static_cast<std::int32_t>(static_cast<std::uint32_t>((*node)->bytes.size()));
}

bool MemoryFileSystem::anyFileMatches(const std::string& pattern, std::uint32_t mask) {
  if (faults_.nextFault("anyFileMatches")) return false;
  std::optional<Enumeration> enumeration = startEnumeration(pattern);
  constexpr std::uint32_t kTested = kReadOnly | kHidden | kSystem | kDirectory;
  FindRecord record;
  while (enumeration && next(*enumeration, record)) {
    if ((record.attributes & kTested & ~mask) == 0) return true;
  }
  return false;
}

// --- Handles

Handle MemoryFileSystem::createFile(const std::string& path, const OpenRequest& request) {
  if (faults_.nextFault("createFile")) return kInvalidHandle;
  const DiskResult<NodePtr> file = disk_.find(path);
  if (!file || request.disposition != kOpenExisting) return kInvalidHandle;
  return disk_.open(*file, request.access, request.share).value_or(kInvalidHandle);
}

bool MemoryFileSystem::closeHandle(Handle handle) {
  const bool fails = faults_.nextFault("closeHandle").has_value();
  const bool isNumbered =
      std::ranges::any_of(numbered_, [handle](const auto& entry) { return entry.second == handle; });
  return !isNumbered && disk_.close(handle).has_value() && !fails;
}

// --- File numbers

Result<void> MemoryFileSystem::openBinary(int number, const std::string& path) {
  if (const auto fault = faults_.nextFault("openBinary", kPathFileAccess)) return failure(*fault);
  if (number < 1 || number > kLastFileNumber) return failure(kBadFileNumber);
  if (numbered_.contains(number)) return failure(kFileAlreadyOpen);
  DiskResult<NodePtr> file = disk_.find(path);
  if (!file && file.error() == DiskError::kFileNotFound) file = disk_.create(path);
  if (!file) return failure(openingFailure(file.error()));
  const DiskResult<Handle> handle = disk_.open(*file, kGenericRead | kGenericWrite, kShareRead | kShareWrite);
  if (!handle) return failure(openingFailure(handle.error()));
  numbered_.emplace(number, *handle);
  return {};
}

Result<void> MemoryFileSystem::write(int number, std::optional<std::uint64_t> position, std::string_view bytes) {
  const auto opened = numbered_.find(number);
  if (opened == numbered_.end()) return failure(kBadFileNumber);
  if (!disk_.write(opened->second, position, bytes)) return failure(kPermissionDenied);
  return {};
}

Result<void> MemoryFileSystem::putBytes(int number, std::string_view bytes) {
  if (const auto fault = faults_.nextFault("putBytes", kDiskFull)) return failure(*fault);
  return write(number, std::nullopt, bytes);
}

Result<void> MemoryFileSystem::putBytesAt(int number, std::uint32_t position, std::string_view bytes) {
  if (const auto fault = faults_.nextFault("putBytesAt", kDiskFull)) return failure(*fault);
  if (position == 0) return failure(kInvalidCall);
  return write(number, position - 1, bytes);
}

void MemoryFileSystem::closeFile(int number) {
  faults_.nextFault("closeFile");
  const auto opened = numbered_.find(number);
  if (opened == numbered_.end()) return;
  static_cast<void>(disk_.close(opened->second));
  numbered_.erase(opened);
}

Result<int> MemoryFileSystem::freeFile() {
  if (const auto fault = faults_.nextFault("freeFile", kTooManyFiles)) return failure(*fault);
  int number = 1;
  while (numbered_.contains(number)) ++number;
  if (number > kLastFileNumber) return failure(kTooManyFiles);
  return number;
}

bool MemoryFileSystem::flushFileBuffers(Handle handle) {
  return !faults_.nextFault("flushFileBuffers") && disk_.isOpen(handle);
}

// --- Renaming and removing

Result<std::string> MemoryFileSystem::getFullPathName(const std::string& path) {
  if (const auto fault = faults_.nextFault("getFullPathName", kPathNotFound)) return failure(*fault);
  const DiskResult<FullPath> full = disk_.fullPath(path);
  if (!full) return failure(kPathNotFound);
  return full->text();
}

Result<void> MemoryFileSystem::moveFile(const std::string& from, const std::string& to) {
  if (const auto fault = faults_.nextFault("moveFile", kPathFileAccess)) return failure(*fault);
  const DiskResult<NodePtr> node = disk_.find(from);
  if (!node) return failure(changeFailure(node.error()));
  const DiskResult<void> moved = disk_.move(*node, to);
  return moved ? Result<void>{} : failure(changeFailure(moved.error()));
}

Result<void> MemoryFileSystem::remove(const std::string& path) {
  if (const auto fault = faults_.nextFault("remove", kPathFileAccess)) return failure(*fault);
  const DiskResult<NodePtr> node = disk_.find(path);
  if (!node) return failure(changeFailure(node.error()));
  if ((*node)->isFolder()) return failure(kPathFileAccess);
  const DiskResult<void> removed = disk_.remove(*node, false);
  return removed ? Result<void>{} : failure(changeFailure(removed.error()));
}

// --- Drives and folders

std::vector<Drive> MemoryFileSystem::drives() {
  if (faults_.nextFault("drives")) return {};
  return disk_.drives();
}

std::string MemoryFileSystem::currentFolder() {
  if (faults_.nextFault("currentFolder")) return {};
  return disk_.currentFolder();
}

Result<std::string> MemoryFileSystem::currentFolderOf(char letter) {
  if (const auto fault = faults_.nextFault("currentFolderOf", kDeviceUnavailable)) return failure(*fault);
  const DiskResult<std::string> folder = disk_.currentFolderOf(letter);
  if (!folder) return failure(kDeviceUnavailable);
  return *folder;
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
  const DiskResult<NodePtr> node = disk_.findFolder(folder);
  if (!node) return failure(isDriveError(node.error()) ? kDeviceUnavailable : kPathNotFound);
  std::vector<std::string> names;
  for (const NodePtr& entry : (*node)->entries->all()) {
    const bool concealed = (entry->attributes & (kHidden | kSystem)) != 0;
    const std::string_view name = reachableName(*entry);
    if (entry->isFolder() == folders && !concealed && !name.empty()) names.emplace_back(name);
  }
  return names;
}

}  // namespace platform::memory
