#include "platform/memory/MemoryMachine.h"

#include <algorithm>
#include <stdexcept>

namespace platform::memory {
namespace {

constexpr const char* kProgramFolder = "C:\\Program Files\\Scrubhaven";

// Attributes that tell what an entry is, and are not for setting.
constexpr std::uint32_t kKind = kDirectory | kReparsePoint;

void setSettable(Node& node, std::uint32_t attributes) {
  node.attributes = (node.attributes & kKind) | (attributes & ~(kKind | kNormal));
}

// An empty file with these attributes, new or in the place of the one that was there.
Node& renewedFile(MemoryDisk& disk, const std::string& path, std::uint32_t attributes) {
  Node& file = *disk.addFile(path);
  file.bytes = MemoryBytes();
  setSettable(file, attributes);
  return file;
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

}  // namespace

MemoryMachine::MemoryMachine()
    : files_(disk_, faults_),
      fileObjects_(disk_, faults_),
      shell_(disk_, faults_),
      version_(faults_),
      registry_(version_, faults_),
      profiles_(disk_, faults_),
      scriptShell_(registry_, faults_),
      environment_(kProgramFolder, faults_),
      ui_(disk_, faults_),
      urlCache_(faults_),
      urlHistory_(faults_),
      calendar_(faults_) {
  addDrive('C');
  addFolder(kProgramFolder);
  setCurrentFolder(kProgramFolder);
}

NodePtr MemoryMachine::existing(const std::string& path) const {
  NodePtr node = disk_.peek(path);
  if (node == nullptr) throw std::logic_error("in-memory machine: there is no such file: " + path);
  return node;
}

NodePtr MemoryMachine::existingFolder(const std::string& path) const {
  NodePtr node = existing(path);
  if (!node->isFolder()) throw std::logic_error("in-memory machine: that is no folder: " + path);
  return node;
}

void MemoryMachine::addFolder(const std::string& path, std::uint32_t attributes) {
  setSettable(*disk_.addFolder(path), attributes);
}

void MemoryMachine::addFile(const std::string& path, const std::string& contents, std::uint32_t attributes) {
  renewedFile(disk_, path, attributes).bytes.write(0, contents);
}

void MemoryMachine::addSizedFile(const std::string& path, std::uint64_t size, std::uint32_t attributes) {
  renewedFile(disk_, path, attributes).bytes.resize(size);
}

std::optional<std::string> MemoryMachine::contents(const std::string& path) const {
  const NodePtr node = disk_.peek(path);
  if (node == nullptr || node->isFolder()) return std::nullopt;
  return node->bytes.all();
}

std::optional<std::uint32_t> MemoryMachine::attributes(const std::string& path) const {
  const NodePtr node = disk_.peek(path);
  if (node == nullptr) return std::nullopt;
  return node->reportedAttributes();
}

void MemoryMachine::setAttributes(const std::string& path, std::uint32_t attributes) {
  setSettable(*existing(path), attributes);
}

std::vector<std::string> MemoryMachine::filesBelow(const std::string& folder) const {
  std::vector<std::string> paths;
  appendFiles(*existingFolder(folder), paths);
  std::ranges::sort(paths);
  return paths;
}

std::vector<std::string> MemoryMachine::namesIn(const std::string& folder) const {
  std::vector<std::string> names;
  for (const NodePtr& entry : existingFolder(folder)->entries->all()) names.push_back(entry->name);
  std::ranges::sort(names);
  return names;
}

void MemoryMachine::lock(const std::string& path) {
  const NodePtr file = existing(path);
  const DiskResult<Handle> handle = disk_.open(file, kGenericRead, kShareNone);
  if (!handle) throw std::logic_error("in-memory machine: the file is already open: " + path);
  locks_.emplace(file, *handle);
}

void MemoryMachine::unlock(const std::string& path) {
  const auto held = locks_.find(existing(path));
  if (held == locks_.end()) throw std::logic_error("in-memory machine: nobody holds the file: " + path);
  static_cast<void>(disk_.close(held->second));
  locks_.erase(held);
}

void MemoryMachine::denyWriting(const std::string& path) { existing(path)->deniesWriting = true; }

// Numbers are stored lowest byte first.
void MemoryMachine::setRegistryNumber(const std::string& path, const std::string& name, std::uint32_t number) {
  std::string bytes;
  for (int shift = 0; shift < 32; shift += 8) bytes += static_cast<char>(number >> shift & 0xFF);
  registry_.set(path, name, {kRegistryNumber, bytes});
}

void MemoryMachine::failAt(const std::string& operation, int n, std::optional<std::int32_t> number) {
  faults_.failAt(operation, n, number);
}

}  // namespace platform::memory
