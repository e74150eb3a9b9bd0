#include "platform/memory/MemoryDisk.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace platform::memory {
namespace {

// More links on one path than this are taken for a circle.
constexpr int kMaxLinks = 63;

std::unexpected<DiskError> refuse(DiskError error) { return std::unexpected(error); }

[[noreturn]] void mistake(const std::string& what, const std::string& path) {
  throw std::logic_error("in-memory machine: " + what + ": " + path);
}

NodePtr makeNode(std::string_view name, bool folder) {
  auto node = std::make_shared<Node>();
  node->name = name;
  if (!folder) return node;
  node->attributes = kDirectory;
  node->entries = std::make_unique<FolderEntries>();
  return node;
}

void setSettable(Node& node, std::uint32_t attributes) {
  constexpr std::uint32_t kKind = kDirectory | kReparsePoint;
  node.attributes = (node.attributes & kKind) | (attributes & ~(kKind | kNormal));
}

void appendFiles(const Node& folder, std::vector<std::string>& paths) {
  if (folder.isLink()) return;
  for (const NodePtr& entry : folder.entries->all()) {
    if (entry->isFolder()) {
      appendFiles(*entry, paths);
    } else {
      paths.push_back(MemoryDisk::pathOf(*entry));
    }
  }
}

// Works the names of `text` into `parts`. `trim` takes blanks and dots from the end of the last one, as calls do.
void appendParts(std::string_view text, bool trim, std::vector<std::string>& parts) {
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\\'), text.size());
    std::string_view name = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (name == "..") {
      if (!parts.empty()) parts.pop_back();
      continue;
    }
    if (name == ".") continue;
    if (trim && text.empty()) name = withoutTrail(name);
    if (!name.empty()) parts.emplace_back(name);
  }
}

}  // namespace

// --- FullPath

std::string FullPath::text() const {
  std::string result{drive, ':'};
  for (const std::string& part : parts) result += '\\' + part;
  return parts.empty() ? result + '\\' : result;
}

// --- FolderEntries

std::string_view FolderEntries::ByName::name(const NodePtr& node) { return node->name; }

NodePtr FolderEntries::find(std::string_view name) const {
  const auto byName = byName_.find(name);
  if (byName != byName_.end()) return *byName;
  if (byAlias_.empty()) return nullptr;
  const auto byAlias = byAlias_.find(upper(name));
  return byAlias == byAlias_.end() ? nullptr : byAlias->second;
}

NodePtr FolderEntries::next(Cursor& cursor) const {
  if (!cursor.started_) {
    cursor.at_ = byName_.begin();
  } else if (cursor.removals_ != removals_) {
    cursor.at_ = byName_.upper_bound(std::string_view(cursor.last_));
  } else if (cursor.at_ != byName_.end()) {
    ++cursor.at_;
  }
  cursor.started_ = true;
  cursor.removals_ = removals_;
  if (cursor.at_ == byName_.end()) return nullptr;
  cursor.last_ = (*cursor.at_)->name;
  return *cursor.at_;
}

void FolderEntries::add(const NodePtr& node) {
  if (!node->unspeakable && !isShortName(node->name)) node->alias = freeAlias(node->name);
  byName_.insert(node);
  if (!node->alias.empty()) byAlias_.emplace(node->alias, node);
}

std::string FolderEntries::freeAlias(std::string_view name) const {
  const ShortAliases aliases(name);
  for (int i = 0; i < ShortAliases::kCount; ++i) {
    std::string alias = aliases[i];
    if (!byAlias_.contains(alias) && !byName_.contains(std::string_view(alias))) return alias;
  }
  return {};
}

void FolderEntries::remove(const NodePtr& node) {
  ++removals_;
  byAlias_.erase(node->alias);
  byName_.erase(node);
}

// --- Set-up

void MemoryDisk::addDrive(char letter, const std::string& label, bool ready) {
  const char drive = upper(letter);
  DriveState& state = drives_[drive];
  state.label = label;
  state.ready = ready;
  if (state.root != nullptr) return;
  state.root = makeNode(std::string{drive, ':'}, true);
  currentFolders_[drive] = FullPath{drive, {}}.text();
}

void MemoryDisk::setReady(char letter, bool ready) {
  const auto drive = drives_.find(upper(letter));
  if (drive == drives_.end()) mistake("no such drive", std::string(1, letter));
  drive->second.ready = ready;
}

NodePtr MemoryDisk::addNode(FullPath path, bool folder) {
  DiskResult<NodePtr> found = walk(path, Last::kAsItIs, Ready::kNoMatter, kMaxLinks);
  if (found) {
    if ((*found)->isFolder() != folder) mistake("there is something else", path.text());
    return *found;
  }
  if (path.parts.empty()) mistake("no such drive", path.text());
  NodePtr node = makeNode(path.parts.back(), folder);
  path.parts.pop_back();
  DiskResult<NodePtr> parent = walk(path, Last::kFollowLink, Ready::kNoMatter, kMaxLinks);
  if (!parent) parent = addNode(path, true);
  if (!(*parent)->isFolder()) mistake("that is no folder", path.text());
  node->parent = parent->get();
  (*parent)->entries->add(node);
  return node;
}

NodePtr MemoryDisk::addFolder(const std::string& path, std::uint32_t attributes) {
  NodePtr folder = addNode(parse(path, Reading::kLiteral), true);
  setSettable(*folder, attributes);
  return folder;
}

NodePtr MemoryDisk::renewedFile(const std::string& path, std::uint32_t attributes) {
  NodePtr file = addNode(parse(path, Reading::kLiteral), false);
  file->bytes = MemoryBytes();
  setSettable(*file, attributes);
  return file;
}

NodePtr MemoryDisk::addFile(const std::string& path, const std::string& contents, std::uint32_t attributes) {
  NodePtr file = renewedFile(path, attributes);
  file->bytes.write(0, contents);
  return file;
}

NodePtr MemoryDisk::addSizedFile(const std::string& path, std::uint64_t size, std::uint32_t attributes) {
  NodePtr file = renewedFile(path, attributes);
  file->bytes.resize(size);
  return file;
}

void MemoryDisk::setAttributes(const std::string& path, std::uint32_t attributes) {
  setSettable(*existing(path), attributes);
}

void MemoryDisk::addLink(const std::string& path, const std::string& target) {
  const NodePtr node = addFolder(path);
  if (!node->entries->empty()) mistake("only an empty folder can become a link", path);
  node->attributes |= kReparsePoint;
  node->linkTarget = std::make_unique<std::string>(parse(target, Reading::kLiteral).text());
}

void MemoryDisk::addUnspeakable(const std::string& folder, const std::string& alias) {
  const NodePtr parent = addFolder(folder);
  const NodePtr node = makeNode('?' + std::to_string(++unspeakables_), false);
  node->unspeakable = true;
  node->attributes = kArchive;
  node->alias = upper(alias);
  node->parent = parent.get();
  parent->entries->add(node);
}

void MemoryDisk::setCurrentFolder(const std::string& path) {
  const FullPath full = parse(path, Reading::kLiteral);
  const NodePtr node = peek(path);
  if (node == nullptr || !node->isFolder()) mistake("no such folder", path);
  currentDrive_ = full.drive;
  currentFolders_[full.drive] = full.text();
}

NodePtr MemoryDisk::peek(const std::string& path) const {
  return walk(parse(path, Reading::kLiteral), Last::kAsItIs, Ready::kNoMatter, kMaxLinks).value_or(nullptr);
}

NodePtr MemoryDisk::existing(const std::string& path) const {
  NodePtr node = peek(path);
  if (node == nullptr) mistake("there is no such file", path);
  return node;
}

NodePtr MemoryDisk::existingFolder(const std::string& path) const {
  NodePtr node = existing(path);
  if (!node->isFolder()) mistake("that is no folder", path);
  return node;
}

std::optional<std::string> MemoryDisk::contents(const std::string& path) const {
  const NodePtr node = peek(path);
  if (node == nullptr || node->isFolder()) return std::nullopt;
  return node->bytes.all();
}

std::optional<std::uint32_t> MemoryDisk::attributes(const std::string& path) const {
  const NodePtr node = peek(path);
  if (node == nullptr) return std::nullopt;
  return node->reportedAttributes();
}

std::vector<std::string> MemoryDisk::filesBelow(const std::string& folder) const {
  std::vector<std::string> paths;
  appendFiles(*existingFolder(folder), paths);
  std::ranges::sort(paths);
  return paths;
}

std::vector<std::string> MemoryDisk::namesIn(const std::string& folder) const {
  std::vector<std::string> names;
  for (const NodePtr& entry : existingFolder(folder)->entries->all()) names.push_back(entry->name);
  std::ranges::sort(names);
  return names;
}

// --- Drives

std::vector<Drive> MemoryDisk::drives() const {
  std::vector<Drive> result;
  result.reserve(drives_.size());
  for (const auto& [letter, state] : drives_) result.push_back(Drive{letter, state.ready ? state.label : ""});
  return result;
}

DiskResult<std::string> MemoryDisk::currentFolderOf(char letter) const {
  const auto drive = drives_.find(upper(letter));
  if (drive == drives_.end() || !drive->second.ready) return refuse(DiskError::kNotReady);
  return currentFolders_.at(drive->first);
}

// --- Paths

FullPath MemoryDisk::parse(std::string_view path, Reading reading) const {
  std::string text(path);
  std::ranges::replace(text, '/', '\\');
  std::string_view rest = text;
  FullPath full{currentDrive_, {}};
  if (rest.size() >= 2 && rest[1] == ':') {
    full.drive = upper(rest[0]);
    rest.remove_prefix(2);
  }
  const auto current = currentFolders_.find(full.drive);
  if (!rest.starts_with('\\') && current != currentFolders_.end()) {
    appendParts(std::string_view(current->second).substr(2), false, full.parts);
  }
  appendParts(rest, reading == Reading::kAsCallsDo, full.parts);
  return full;
}

DiskResult<FullPath> MemoryDisk::fullPath(std::string_view path) const {
  const bool server = path.starts_with("\\\\") || path.starts_with("//");
  if (path.empty() || server) return refuse(DiskError::kPathNotFound);
  FullPath full = parse(path, Reading::kAsCallsDo);
  if (!std::ranges::all_of(full.parts, isPlainName)) return refuse(DiskError::kInvalidName);
  if (full.text().size() >= kMaxPath) return refuse(DiskError::kPathNotFound);
  return full;
}

DiskResult<NodePtr> MemoryDisk::walk(const FullPath& path, Last last, Ready ready, int linksLeft) const {
  const auto drive = drives_.find(path.drive);
  if (drive == drives_.end()) return refuse(DiskError::kInvalidDrive);
  if (ready == Ready::kMustBe && !drive->second.ready) return refuse(DiskError::kNotReady);

  NodePtr node = drive->second.root;
  for (std::size_t i = 0; i <= path.parts.size(); ++i) {
    const bool atEnd = i == path.parts.size();
    if (node->isLink() && (!atEnd || last == Last::kFollowLink)) {
      if (linksLeft == 0) return refuse(DiskError::kPathNotFound);
      const FullPath target = parse(*node->linkTarget, Reading::kLiteral);
      const DiskResult<NodePtr> followed = walk(target, Last::kFollowLink, ready, linksLeft - 1);
      if (!followed) return refuse(DiskError::kPathNotFound);
      node = *followed;
    }
    if (atEnd) break;
    if (!node->isFolder()) return refuse(DiskError::kPathNotFound);
    node = node->entries->find(path.parts[i]);
    if (node == nullptr) {
      return refuse(i + 1 == path.parts.size() ? DiskError::kFileNotFound : DiskError::kPathNotFound);
    }
  }
  return node;
}

DiskResult<NodePtr> MemoryDisk::find(std::string_view path) const {
  const DiskResult<FullPath> full = fullPath(path);
  if (!full) return refuse(full.error());
  return walk(*full, Last::kAsItIs, Ready::kMustBe, kMaxLinks);
}

DiskResult<NodePtr> MemoryDisk::findFolder(std::string_view path) const {
  const DiskResult<FullPath> full = fullPath(path);
  if (!full) return refuse(full.error());
  DiskResult<NodePtr> node = walk(*full, Last::kFollowLink, Ready::kMustBe, kMaxLinks);
  if (node && !(*node)->isFolder()) return refuse(DiskError::kPathNotFound);
  return node;
}

MemoryDisk::Split MemoryDisk::split(std::string_view path) {
  const std::size_t separator = path.find_last_of("\\/:");
  if (separator == std::string_view::npos) return Split{".", std::string(path)};
  return Split{std::string(path.substr(0, separator + 1)), std::string(path.substr(separator + 1))};
}

std::vector<NodePtr> MemoryDisk::matches(std::string_view path) const {
  if (const DiskResult<NodePtr> node = find(path)) return {*node};
  const Split parts = split(path);
  const DiskResult<NodePtr> folder = findFolder(parts.folder);
  const Wildcards wildcards(parts.name);
  if (!folder || wildcards.impossible() || wildcards.single()) return {};
  std::vector<NodePtr> nodes = (*folder)->entries->all();
  std::erase_if(nodes, [&](const NodePtr& node) {
    const bool byAlias = !node->alias.empty() && wildcards.matches(node->alias);
    return !byAlias && (node->unspeakable || !wildcards.matches(node->name));
  });
  return nodes;
}

std::string MemoryDisk::pathOf(const Node& node) {
  if (node.parent == nullptr) return node.name + '\\';
  std::string path = node.name;
  for (const Node* above = node.parent; above != nullptr; above = above->parent) path.insert(0, above->name + '\\');
  return path;
}

// --- Open files

DiskResult<NodePtr> MemoryDisk::create(std::string_view path) {
  const DiskResult<FullPath> full = fullPath(path);
  if (!full) return refuse(full.error());
  FullPath above = *full;
  if (above.parts.empty()) return refuse(DiskError::kAccessDenied);
  above.parts.pop_back();
  const DiskResult<NodePtr> parent = walk(above, Last::kFollowLink, Ready::kMustBe, kMaxLinks);
  if (!parent || !(*parent)->isFolder()) return refuse(DiskError::kPathNotFound);
  NodePtr file = makeNode(full->parts.back(), false);
  file->attributes = kArchive;
  file->parent = parent->get();
  (*parent)->entries->add(file);
  return file;
}

bool MemoryDisk::sharingForbids(const Node& file, std::uint32_t access, std::uint32_t share) const {
  if (file.locked) return true;
  if (file.openings == 0) return false;
  const auto allows = [](std::uint32_t sharing, std::uint32_t wanted) {
    return ((wanted & kGenericRead) == 0 || (sharing & kShareRead) != 0) &&
           ((wanted & kGenericWrite) == 0 || (sharing & kShareWrite) != 0);
  };
  return std::ranges::any_of(open_, [&](const auto& entry) {
    const OpenFile& other = entry.second;
    return other.file.get() == &file && !(allows(other.share, access) && allows(share, other.access));
  });
}

DiskResult<Handle> MemoryDisk::open(const NodePtr& file, std::uint32_t access, std::uint32_t share) {
  if (file->isFolder()) return refuse(DiskError::kAccessDenied);
  const bool writing = (access & kGenericWrite) != 0;
  const bool isProtected = (file->attributes & kReadOnly) != 0 || file->deniesWriting;
  if (writing && isProtected) return refuse(DiskError::kAccessDenied);
  if (sharingForbids(*file, access, share)) return refuse(DiskError::kSharingViolation);
  const Handle handle = newHandle();
  open_.emplace(handle, OpenFile{file, access, share, 0});
  ++file->openings;
  return handle;
}

DiskResult<void> MemoryDisk::close(Handle handle) {
  const auto found = open_.find(handle);
  if (found == open_.end()) return refuse(DiskError::kInvalidHandle);
  --found->second.file->openings;
  open_.erase(found);
  return {};
}

DiskResult<void> MemoryDisk::write(Handle handle, std::optional<std::uint64_t> position, std::string_view bytes) {
  const auto found = open_.find(handle);
  if (found == open_.end()) return refuse(DiskError::kInvalidHandle);
  OpenFile& opened = found->second;
  if ((opened.access & kGenericWrite) == 0) return refuse(DiskError::kAccessDenied);
  opened.position = position.value_or(opened.position);
  if (bytes.empty()) return {};
  opened.file->bytes.write(opened.position, bytes);
  if (notesWrites_) writes_.push_back(Write{pathOf(*opened.file), opened.position, std::string(bytes)});
  opened.position += bytes.size();
  return {};
}

// --- Renaming

DiskResult<void> MemoryDisk::move(const NodePtr& node, std::string_view path) {
  if (const DiskResult<void> may = mayGo(*node, true); !may) return may;
  const DiskResult<FullPath> full = fullPath(path);
  if (!full) return refuse(full.error());
  if (full->parts.empty()) return refuse(DiskError::kAlreadyExists);
  const DiskResult<NodePtr> there = walk(*full, Last::kAsItIs, Ready::kMustBe, kMaxLinks);
  // A file may be given its own name in other letters.
  if (there && *there != node) return refuse(DiskError::kAlreadyExists);
  if (!there && there.error() != DiskError::kFileNotFound) return refuse(there.error());

  FullPath above = *full;
  above.parts.pop_back();
  const NodePtr parent = walk(above, Last::kFollowLink, Ready::kMustBe, kMaxLinks).value();
  if (!parent->isFolder()) return refuse(DiskError::kPathNotFound);
  for (const Node* folder = parent.get(); folder != nullptr; folder = folder->parent) {
    if (folder == node.get()) return refuse(DiskError::kSharingViolation);
  }
  // Only files are copied to another drive.
  const bool sameDrive = pathOf(*node).front() == pathOf(*parent).front();
  if (node->isFolder() && !sameDrive) return refuse(DiskError::kAccessDenied);

  takeOut(node);
  node->name = full->parts.back();
  node->alias.clear();
  node->unspeakable = false;
  node->parent = parent.get();
  parent->entries->add(node);
  return {};
}

// --- Removal

DiskResult<void> MemoryDisk::mayGo(const Node& node, bool readOnlyToo) const {
  if (node.parent == nullptr || node.deniesWriting) return refuse(DiskError::kAccessDenied);
  if (!readOnlyToo && (node.attributes & kReadOnly) != 0) return refuse(DiskError::kAccessDenied);
  if (node.locked || node.openings != 0) return refuse(DiskError::kSharingViolation);
  // The system keeps the process's current folder open.
  if (node.isFolder() && compareNames(pathOf(node), currentFolder()) == 0) return refuse(DiskError::kSharingViolation);
  return {};
}

DiskResult<void> MemoryDisk::mayGoWithAllInIt(const Node& node) const {
  DiskResult<void> may = mayGo(node, true);
  if (!node.isFolder() || node.isLink()) return may;
  for (const NodePtr& entry : node.entries->all()) {
    if (may) may = mayGoWithAllInIt(*entry);
  }
  return may;
}

void MemoryDisk::takeOut(const NodePtr& node) {
  node->parent->entries->remove(node);
  node->parent = nullptr;
}

DiskResult<void> MemoryDisk::remove(const NodePtr& node, bool readOnlyToo) {
  if (const DiskResult<void> may = mayGo(*node, readOnlyToo); !may) return may;
  if (node->isFolder() && !node->isLink()) {
    for (const NodePtr& entry : node->entries->all()) {
      if (const DiskResult<void> removed = remove(entry, readOnlyToo); !removed) return removed;
    }
  }
  takeOut(node);
  return {};
}

DiskResult<void> MemoryDisk::recycle(const NodePtr& node) {
  if (const DiskResult<void> may = mayGoWithAllInIt(*node); !may) return may;
  recycleBin_.push_back(Recycled{pathOf(*node), node});
  takeOut(node);
  return {};
}

std::vector<std::string> MemoryDisk::recycleBin() const {
  std::vector<std::string> origins;
  origins.reserve(recycleBin_.size());
  for (const Recycled& recycled : recycleBin_) origins.push_back(recycled.origin);
  return origins;
}

std::size_t MemoryDisk::emptyRecycleBin(std::string_view root) {
  return std::erase_if(recycleBin_, [root](const Recycled& recycled) {
    return root.empty() || upper(root.substr(0, 1)) == upper(recycled.origin.substr(0, 1));
  });
}

}  // namespace platform::memory
