#include "platform/memory/MemoryDisk.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "platform/Paths.h"

namespace platform::memory {
namespace {

// The most characters that a path has in a call, with its closing NUL.
constexpr std::size_t kMaxPath = 260;

NodePtr put(Node* parent, std::string_view name, bool folder) {
  auto node = std::make_shared<Node>(Node{.name = std::string(name), .parent = parent});
  if (folder) {
    node->attributes = kDirectory;
    node->entries = std::make_shared<Entries>();
  }
  if (parent != nullptr) parent->entries->emplace(name, node);
  return node;
}

void takeOut(Node& node) {
  Node* const parent = std::exchange(node.parent, nullptr);
  parent->entries->erase(node.name);  // may destroy the node
}

void setSettable(Node& node, std::uint32_t attributes) {
  constexpr std::uint32_t kKind = kDirectory | kReparsePoint;
  node.attributes = (node.attributes & kKind) | (attributes & ~(kKind | kNormal));
}

std::string pathOf(const Node& node) {
  std::string path = node.name;
  for (const Node* above = node.parent; above != nullptr; above = above->parent) path.insert(0, above->name + '\\');
  return path;
}

void appendFiles(const Node& folder, std::vector<std::string>& paths) {
  for (const auto& [name, entry] : *folder.entries) {
    if (!entry->isFolder()) paths.push_back(pathOf(*entry));
    if (entry->isFolder() && !entry->isLink()) appendFiles(*entry, paths);
  }
}

// The name up to the next backslash, which is taken off `path`.
std::string_view takeName(std::string_view& path) {
  const std::string_view name = path.substr(0, path.find('\\'));
  path.remove_prefix(std::min(name.size() + 1, path.size()));
  return name;
}

}  // namespace

void Contents::write(std::uint64_t at, std::string_view bytes) {
  size = std::max(size, at + bytes.size());
  written.resize(std::max<std::size_t>(written.size(), at + bytes.size()));
  std::ranges::copy(bytes, written.begin() + static_cast<std::ptrdiff_t>(at));
}

// --- What the user or another program does

void MemoryDisk::addDrive(char letter, const std::string& label, bool ready) {
  DriveState& drive = drives_[letter];
  drive.label = label;
  drive.ready = ready;
  if (drive.root != nullptr) return;
  drive.root = put(nullptr, std::string{letter, ':'}, true);
  drive.currentFolder = std::string{letter, ':', '\\'};
}

NodePtr MemoryDisk::made(const std::string& path, bool folder) {
  const std::string full = fullPath(path).value();
  const Result<NodePtr> found = walk(full);
  if (!found && found.error().number == kDeviceUnavailable) throw std::logic_error("no such drive: " + full);
  if (found && (*found)->isFolder() != folder) throw std::logic_error("there is something else: " + full);
  if (found) return *found;
  const Split parts = split(full);
  return put(made(parts.folder, true).get(), parts.name, folder);
}

NodePtr MemoryDisk::addFolder(const std::string& path, std::uint32_t attributes) {
  NodePtr folder = made(path, true);
  setSettable(*folder, attributes);
  return folder;
}

NodePtr MemoryDisk::addFile(const std::string& path, const std::string& contents, std::uint32_t attributes) {
  NodePtr file = addSizedFile(path, contents.size(), attributes);
  file->contents.write(0, contents);
  return file;
}

NodePtr MemoryDisk::addSizedFile(const std::string& path, std::uint64_t size, std::uint32_t attributes) {
  NodePtr file = made(path, false);
  file->contents = {.written = {}, .size = size};
  setSettable(*file, attributes);
  return file;
}

void MemoryDisk::addLink(const std::string& path, const std::string& target) {
  const NodePtr link = addFolder(path);
  link->attributes |= kReparsePoint;
  const NodePtr folder = made(target, true);
  link->entries = {folder, folder->entries.get()};  // the link also owns the folder, which its entries name as parent
}

void MemoryDisk::setCurrentFolder(const std::string& path) {
  const std::string full = fullPath(path).value();
  if (!existing(full)->isFolder()) throw std::logic_error("that is no folder: " + full);
  currentDrive_ = full.front();
  drives_.at(currentDrive_).currentFolder = full;
}

bool MemoryDisk::takeAway(const std::string& path) {
  const Result<NodePtr> node = walk(fullPath(path).value());
  if (!node || isOpen(**node)) return false;
  takeOut(**node);
  return true;
}

bool MemoryDisk::isOpen(const Node& node) {
  if (node.openings > 0 || node.isExclusive) return true;
  return node.isFolder() && !node.isLink() &&
         std::ranges::any_of(*node.entries, [](const auto& entry) { return isOpen(*entry.second); });
}

// --- What is there

std::optional<std::string> MemoryDisk::contents(const std::string& path) const {
  const Result<NodePtr> node = walk(fullPath(path).value());
  return node && !(*node)->isFolder() ? std::optional((*node)->contents.all()) : std::nullopt;
}

std::vector<std::string> MemoryDisk::filesBelow(const std::string& folder) const {
  std::vector<std::string> paths;
  appendFiles(*existing(folder), paths);
  std::ranges::sort(paths);
  return paths;
}

std::vector<std::string> MemoryDisk::namesIn(const std::string& folder) const {
  std::vector<std::string> names;
  for (const auto& [name, entry] : *existing(folder)->entries) names.push_back(name);
  std::ranges::sort(names);
  return names;
}

// --- Drives

std::vector<Drive> MemoryDisk::drives() const {
  std::vector<Drive> result;
  for (const auto& [letter, state] : drives_) result.push_back(Drive{letter, state.ready ? state.label : ""});
  return result;
}

Result<std::string> MemoryDisk::currentFolderOf(char letter) const {
  const auto drive = drives_.find(upper(letter));
  if (drive == drives_.end() || !drive->second.ready) return failure(kDeviceUnavailable);
  return drive->second.currentFolder;
}

// --- Paths

Result<std::string> MemoryDisk::fullPath(std::string_view path) const {
  std::string text(path);
  std::ranges::replace(text, '/', '\\');
  if (text.empty() || text.starts_with("\\\\")) return failure(kPathNotFound);
  char letter = currentDrive_;
  if (text.size() > 1 && text[1] == ':') {
    letter = upper(text[0]);
    text.erase(0, 2);
  }
  const auto drive = drives_.find(letter);
  if (drive != drives_.end() && !text.starts_with('\\')) text = drive->second.currentFolder.substr(2) + '\\' + text;
  // Calls cut blanks and dots off the end of a path.
  if (text.substr(text.rfind('\\') + 1) != "..") text.resize(text.find_last_not_of(" .") + 1);

  std::vector<std::string_view> names;
  for (std::string_view rest = text; !rest.empty();) {
    const std::string_view name = takeName(rest);
    if (name.find_first_of("*?\"<>|:") != std::string_view::npos) return failure(kBadFileNumber);
    if (name == ".." && !names.empty()) names.pop_back();
    if (!name.empty() && !isDotEntry(name)) names.push_back(name);
  }
  std::string full{letter, ':'};
  for (const std::string_view name : names) full.append("\\").append(name);
  if (names.empty()) full += '\\';
  if (full.size() >= kMaxPath) return failure(kPathNotFound);
  return full;
}

Result<NodePtr> MemoryDisk::walk(std::string_view fullPath) const {
  const auto drive = drives_.find(fullPath.front());
  if (drive == drives_.end()) return failure(kDeviceUnavailable);
  NodePtr node = drive->second.root;
  for (std::string_view rest = fullPath.substr(3); !rest.empty();) {
    if (!node->isFolder()) return failure(kPathNotFound);
    const auto entry = node->entries->find(takeName(rest));
    if (entry == node->entries->end()) return failure(rest.empty() ? kFileNotFound : kPathNotFound);
    node = entry->second;
  }
  return node;
}

Result<NodePtr> MemoryDisk::find(std::string_view path) const {
  const Result<std::string> full = fullPath(path);
  if (!full) return std::unexpected(full.error());
  const auto drive = drives_.find(full->front());
  if (drive == drives_.end() || !drive->second.ready) return failure(kDeviceUnavailable);
  return walk(*full);
}

MemoryDisk::Split MemoryDisk::split(std::string_view path) {
  const std::size_t separator = path.find_last_of("\\/:");
  if (separator == std::string_view::npos) return Split{".", std::string(path)};
  return Split{std::string(path.substr(0, separator + 1)), std::string(path.substr(separator + 1))};
}

std::vector<NodePtr> MemoryDisk::matches(std::string_view path) const {
  if (const Result<NodePtr> node = find(path)) return {*node};
  const Split parts = split(path);
  const Result<NodePtr> folder = find(parts.folder);
  if (!folder || !(*folder)->isFolder() || parts.name.find_first_of("*?") == std::string::npos) return {};
  std::vector<NodePtr> nodes;
  for (const auto& [name, entry] : *(*folder)->entries) {
    if (matchesPattern(parts.name, name)) nodes.push_back(entry);
  }
  return nodes;
}

// --- Open files

Result<NodePtr> MemoryDisk::create(std::string_view path) {
  const Result<std::string> full = fullPath(path);
  if (!full) return std::unexpected(full.error());
  const Split parts = split(*full);
  const Result<NodePtr> folder = find(parts.folder);
  if (!folder || !(*folder)->isFolder()) return failure(kPathNotFound);
  NodePtr file = put(folder->get(), parts.name, false);
  file->attributes = kArchive;
  return file;
}

Result<Handle> MemoryDisk::open(const NodePtr& file, std::uint32_t access, std::uint32_t share) {
  const bool refusesWriting = (file->attributes & kReadOnly) != 0;
  if (file->isFolder() || ((access & kGenericWrite) != 0 && refusesWriting)) return failure(kPathFileAccess);
  if (file->isExclusive || (share == kShareNone && file->openings > 0)) return failure(kPermissionDenied);
  ++file->openings;
  file->isExclusive = share == kShareNone;
  return open_.emplace(newHandle(), OpenFile{file}).first->first;
}

bool MemoryDisk::close(Handle handle) {
  const auto found = open_.find(handle);
  if (found == open_.end()) return false;
  Node& file = *found->second.file;
  --file.openings;
  file.isExclusive = false;
  open_.erase(found);
  return true;
}

void MemoryDisk::write(Handle handle, std::optional<std::uint64_t> position, std::string_view bytes) {
  OpenFile& opened = open_.at(handle);
  opened.position = position.value_or(opened.position);
  if (bytes.empty()) return;
  Contents& contents = opened.file->contents;
  if (notesBytes_) {
    contents.write(opened.position, bytes);
  } else {
    contents.size = std::max(contents.size, opened.position + bytes.size());
  }
  writes_.push_back(Write{.path = pathOf(*opened.file),
                          .position = opened.position,
                          .size = bytes.size(),
                          .bytes = notesBytes_ ? std::string(bytes) : std::string()});
  opened.position += bytes.size();
}

// --- Renaming and removal

Result<void> MemoryDisk::move(const NodePtr& file, std::string_view path) {
  if (file->isFolder()) return failure(kPathFileAccess);
  if (const Result<void> may = mayGo(*file, true); !may) return may;
  const Result<NodePtr> there = find(path);
  // A file may be given its own name in other letters.
  if (there && *there != file) return failure(kFileAlreadyExists);
  if (!there && there.error().number != kFileNotFound) return std::unexpected(there.error());

  const Split parts = split(*fullPath(path));
  const NodePtr folder = find(parts.folder).value();
  takeOut(*file);
  file->name = parts.name;
  file->parent = folder.get();
  folder->entries->emplace(parts.name, file);
  return {};
}

Result<void> MemoryDisk::mayGo(const Node& node, bool readOnlyToo) const {
  if (node.parent == nullptr) return failure(kPathFileAccess);
  if (!readOnlyToo && (node.attributes & kReadOnly) != 0) return failure(kPathFileAccess);
  // The system keeps the process's current folder open.
  const bool isCurrent = node.isFolder() && upper(pathOf(node)) == upper(currentFolder());
  if (node.isExclusive || node.openings != 0 || isCurrent) return failure(kPermissionDenied);
  return {};
}

Result<void> MemoryDisk::remove(const NodePtr& node, bool readOnlyToo) {
  if (const Result<void> may = mayGo(*node, readOnlyToo); !may) return may;
  while (node->isFolder() && !node->isLink() && !node->entries->empty()) {
    const NodePtr entry = node->entries->begin()->second;
    if (const Result<void> removed = remove(entry, readOnlyToo); !removed) return removed;
  }
  takeOut(*node);
  return {};
}

Result<void> MemoryDisk::recycle(const NodePtr& node) {
  if (node->isFolder()) return failure(kPathFileAccess);
  if (const Result<void> may = mayGo(*node, true); !may) return may;
  recycleBin_.push_back(pathOf(*node));
  takeOut(*node);
  return {};
}

}  // namespace platform::memory
