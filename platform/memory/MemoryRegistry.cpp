#include "platform/memory/MemoryRegistry.h"

#include <algorithm>
#include <initializer_list>
#include <iterator>
#include <stdexcept>
#include <utility>

#include "platform/memory/MemoryNames.h"

namespace platform::memory {
namespace {

constexpr std::int32_t kBadPath = 161;
constexpr std::int32_t kKeyDeleted = 1018;
constexpr std::uint32_t kNtFamily = 2;

// The classes are a part of the machine's own root.
constexpr const char* kClassesBelowMachine = "Software\\Classes\\";

struct RootName {
  std::string_view name;
  RegistryKey key;
};

constexpr RootName kRootNames[] = {{"HKCR", kClassesRoot}, {"HKCU", kCurrentUser},   {"HKLM", kLocalMachine},
                                   {"HKU", kUsers},        {"HKCC", kCurrentConfig}, {"HKDD", kDynamicData}};

std::string nameOf(RegistryKey key) {
  const auto* found = std::ranges::find(kRootNames, key, &RootName::key);
  return found == std::end(kRootNames) ? std::string() : std::string(found->name) + " ";
}

std::string line(const char* call, const std::string& text, std::initializer_list<std::size_t> numbers) {
  std::string result = std::string(call) + ' ' + text;
  for (const std::size_t number : numbers) result += ' ' + std::to_string(number);
  return result;
}

std::string hexadecimal(const std::string& bytes) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string digits;
  for (const char byte : bytes) {
    const auto value = static_cast<unsigned char>(byte);
    digits += {kDigits[value >> 4], kDigits[value & 15]};
  }
  return digits;
}

// Backslashes at the end, and more than one in a row, make no difference.
std::vector<std::string> partsOf(std::string_view path) {
  std::vector<std::string> parts;
  while (!path.empty()) {
    const std::size_t end = std::min(path.find('\\'), path.size());
    if (end > 0) parts.emplace_back(path.substr(0, end));
    path.remove_prefix(std::min(end + 1, path.size()));
  }
  return parts;
}

// A root and the path below it.
std::pair<RegistryKey, std::string> split(const std::string& path) {
  const std::size_t end = std::min(path.find('\\'), path.size());
  const auto* found = std::ranges::find(kRootNames, std::string_view(path).substr(0, end), &RootName::name);
  if (found == std::end(kRootNames)) throw std::logic_error("in-memory machine: there is no such root: " + path);
  const std::string below = path.substr(std::min(end + 1, path.size()));
  if (found->key == kClassesRoot) return {kLocalMachine, kClassesBelowMachine + below};
  return {found->key, below};
}

// The key at `path` below `key`, null when there is none.
auto walk(auto key, const std::string& path) {
  for (const std::string& part : partsOf(path)) {
    const auto next = key->keys.find(part);
    if (next == key->keys.end()) return decltype(key)();
    key = next->second;
  }
  return key;
}

auto walkAndMake(auto key, const std::string& path) {
  for (const std::string& part : partsOf(path)) {
    auto& next = key->keys[part];
    if (next == nullptr) next = std::make_shared<std::remove_cvref_t<decltype(*key)>>();
    key = next;
  }
  return key;
}

std::string asStored(const std::string& data, std::uint32_t type, bool isNt) {
  if (type != kRegistryText && type != kRegistryExpandableText) return data;
  // The 95 family stores a text up to its NUL, whatever size was passed.
  if (!isNt) return data.substr(0, data.find('\0')) + '\0';
  // The NT line looks behind the last byte passed, where a NUL stands, and counts it in.
  return data.empty() || data.back() == '\0' ? data : data + '\0';
}

}  // namespace

bool MemoryRegistry::WithoutCase::operator()(const std::string& a, const std::string& b) const {
  return compareNames(a, b) < 0;
}

// --- What another program does

void MemoryRegistry::set(const std::string& path, const std::string& name, RegistryValue value) {
  make(path)->values[name] = std::move(value);
}

void MemoryRegistry::setNumber(const std::string& path, const std::string& name, std::uint32_t number) {
  std::string bytes;
  for (int shift = 0; shift < 32; shift += 8) bytes += static_cast<char>(number >> shift & 0xFF);  // lowest byte first
  set(path, name, {kRegistryNumber, bytes});
}

std::optional<RegistryValue> MemoryRegistry::value(const std::string& path, const std::string& name) const {
  const KeyPtr key = peek(path);
  if (key == nullptr || !key->values.contains(name)) return std::nullopt;
  return key->values.at(name);
}

std::vector<std::string> MemoryRegistry::contents(const std::string& path) const {
  std::vector<std::string> lines;
  if (const KeyPtr key = peek(path)) list(*key, "", lines);
  return lines;
}

void MemoryRegistry::list(const Key& key, const std::string& prefix, std::vector<std::string>& lines) {
  for (const auto& [name, value] : key.values) {
    lines.push_back(prefix + name + '=' + std::to_string(value.type) + ':' + hexadecimal(value.data));
  }
  for (const auto& [name, sub] : key.keys) {
    lines.push_back(prefix + name + '\\');
    list(*sub, prefix + name + '\\', lines);
  }
}

MemoryRegistry::KeyPtr MemoryRegistry::make(const std::string& path) {
  const auto [key, below] = split(path);
  KeyPtr& top = roots_[key];
  if (top == nullptr) top = std::make_shared<Key>();
  return walkAndMake(top, below);
}

MemoryRegistry::KeyPtr MemoryRegistry::peek(const std::string& path) const {
  const auto [key, below] = split(path);
  const auto top = roots_.find(key);
  return top == roots_.end() ? nullptr : walk(top->second, below);
}

// --- Keys

bool MemoryRegistry::isNtLine() const { return version_.record().platformId == kNtFamily; }

MemoryRegistry::KeyPtr MemoryRegistry::root(RegistryKey key) {
  if (nameOf(key).empty()) return nullptr;
  // Only the 95 family has this root.
  if (key == kDynamicData && isNtLine()) return nullptr;
  if (key == kClassesRoot) return make("HKCR");
  KeyPtr& top = roots_[key];
  if (top == nullptr) top = std::make_shared<Key>();
  return top;
}

std::int32_t MemoryRegistry::find(RegistryKey handle, std::uint32_t access, KeyPtr& key) {
  key = root(handle);
  if (key != nullptr) return kRegistryDone;
  const auto opened = open_.find(handle);
  if (opened == open_.end()) return kRegistryInvalidHandle;
  // The 95 family does not mind what a key was opened for.
  if (isNtLine() && (opened->second.access & access) != access) return kRegistryAccessDenied;
  key = opened->second.key;
  return key->deleted ? kKeyDeleted : kRegistryDone;
}

std::int32_t MemoryRegistry::findParent(RegistryKey handle, const std::string& path, KeyPtr& parent) {
  const std::int32_t code = find(handle, 0, parent);
  return code == kRegistryDone && path.starts_with('\\') ? kBadPath : code;
}

RegistryKey MemoryRegistry::open(const KeyPtr& key, std::uint32_t access) {
  lastHandle_ += 4;
  open_.emplace(lastHandle_, OpenKey{key, access});
  return lastHandle_;
}

std::int32_t MemoryRegistry::openKey(RegistryKey key, const std::string& path, std::uint32_t access,
                                     RegistryKey& opened) {
  calls_.push_back(line("openKey", nameOf(key) + path, {access}));
  if (const auto fault = faults_.nextFault("openKey", kRegistryAccessDenied)) return *fault;
  KeyPtr parent;
  if (const auto code = findParent(key, path, parent); code != kRegistryDone) return code;
  const KeyPtr found = walk(parent, path);
  if (found == nullptr) return kRegistryNotFound;
  opened = open(found, access);
  return kRegistryDone;
}

std::int32_t MemoryRegistry::createKey(RegistryKey key, const std::string& path, std::uint32_t access,
                                       RegistryKey& opened) {
  calls_.push_back(line("createKey", nameOf(key) + path, {access}));
  if (const auto fault = faults_.nextFault("createKey", kRegistryAccessDenied)) return *fault;
  KeyPtr parent;
  if (const auto code = findParent(key, path, parent); code != kRegistryDone) return code;
  opened = open(walkAndMake(parent, path), access);
  return kRegistryDone;
}

std::int32_t MemoryRegistry::deleteKey(RegistryKey key, const std::string& path) {
  calls_.push_back(line("deleteKey", nameOf(key) + path, {}));
  if (const auto fault = faults_.nextFault("deleteKey", kRegistryAccessDenied)) return *fault;
  KeyPtr parent;
  if (const auto code = find(key, 0, parent); code != kRegistryDone) return code;
  std::vector<std::string> parts = partsOf(path);
  if (parts.empty()) return kRegistryAccessDenied;
  const std::string name = parts.back();
  parts.pop_back();
  for (const std::string& part : parts) {
    const auto next = parent->keys.find(part);
    if (next == parent->keys.end()) return kRegistryNotFound;
    parent = next->second;
  }
  const auto found = parent->keys.find(name);
  if (found == parent->keys.end()) return kRegistryNotFound;
  if (isNtLine() && !found->second->keys.empty()) return kRegistryAccessDenied;
  markDeleted(*found->second);
  parent->keys.erase(found);
  return kRegistryDone;
}

void MemoryRegistry::markDeleted(Key& key) {
  key.deleted = true;
  for (const auto& [name, sub] : key.keys) markDeleted(*sub);
}

std::int32_t MemoryRegistry::closeKey(RegistryKey key) {
  const auto fault = faults_.nextFault("closeKey", kRegistryInvalidHandle);
  const bool isOpen = root(key) != nullptr || open_.erase(key) != 0;
  if (fault) return *fault;
  return isOpen ? kRegistryDone : kRegistryInvalidHandle;
}

// --- Values

std::int32_t MemoryRegistry::queryValue(RegistryKey key, const std::string& name, std::uint32_t& type,
                                        std::span<char> buffer, std::uint32_t& size) {
  calls_.push_back(line("queryValue", name, {buffer.size()}));
  if (const auto fault = faults_.nextFault("queryValue", kRegistryAccessDenied)) return *fault;
  KeyPtr opened;
  if (const auto code = find(key, kQueryValue, opened); code != kRegistryDone) return code;
  const auto found = opened->values.find(name);
  if (found == opened->values.end()) return kRegistryNotFound;
  const RegistryValue& value = found->second;
  type = value.type;
  size = static_cast<std::uint32_t>(value.data.size());
  if (value.data.size() > buffer.size()) return kRegistryMoreData;
  std::ranges::copy(value.data, buffer.begin());
  return kRegistryDone;
}

std::int32_t MemoryRegistry::setValue(RegistryKey key, const std::string& name, std::uint32_t type,
                                      const std::string& data) {
  calls_.push_back(line("setValue", name, {type, data.size()}));
  if (const auto fault = faults_.nextFault("setValue", kRegistryAccessDenied)) return *fault;
  KeyPtr opened;
  if (const auto code = find(key, kSetValue, opened); code != kRegistryDone) return code;
  opened->values[name] = {type, asStored(data, type, isNtLine())};
  return kRegistryDone;
}

std::int32_t MemoryRegistry::deleteValue(RegistryKey key, const std::string& name) {
  calls_.push_back(line("deleteValue", name, {}));
  if (const auto fault = faults_.nextFault("deleteValue", kRegistryAccessDenied)) return *fault;
  KeyPtr opened;
  if (const auto code = find(key, kSetValue, opened); code != kRegistryDone) return code;
  return opened->values.erase(name) != 0 ? kRegistryDone : kRegistryNotFound;
}

}  // namespace platform::memory
