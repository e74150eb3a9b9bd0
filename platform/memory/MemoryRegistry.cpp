#include "platform/memory/MemoryRegistry.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace platform::memory {
namespace {

constexpr std::int32_t kKeyDeleted = 1018;

// Null for a key that is no root. The double has no dynamic data.
const RootName* rootOf(RegistryKey key) {
  const auto* root = std::ranges::find(kRootNames, key, &RootName::key);
  return root == std::end(kRootNames) || key == kDynamicData ? nullptr : root;
}

std::string hexadecimal(const std::string& bytes) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string digits;
  for (const unsigned char byte : bytes) digits += {kDigits[byte >> 4], kDigits[byte & 15]};
  return digits;
}

// The path of a key below another. A backslash at the end makes no difference.
std::string joined(const std::string& key, std::string_view path) {
  if (path.ends_with('\\')) path.remove_suffix(1);
  return path.empty() ? key : key + '\\' + std::string(path);
}

bool isAtOrBelow(std::string_view path, std::string_view key) {
  return upper(path.substr(0, key.size())) == upper(key) && (path.size() == key.size() || path[key.size()] == '\\');
}

std::string asStored(const std::string& data, std::uint32_t type, bool isNt) {
  if (type != kRegistryText && type != kRegistryExpandableText) return data;
  // The 95 family stores a text up to its NUL, whatever size was passed.
  if (!isNt) return data.substr(0, data.find('\0')) + '\0';
  // The NT line looks at the byte that follows those passed, and includes it when it is a NUL.
  return data.empty() || data.back() == '\0' ? data : data + '\0';
}

}  // namespace

// --- What another program does

void MemoryRegistry::addKey(const std::string& path) {
  if (!keys_.contains(path.substr(0, path.find('\\')))) throw std::logic_error("there is no such root: " + path);
  for (std::size_t end = path.find('\\'); end != std::string::npos; end = path.find('\\', end + 1)) {
    keys_.try_emplace(path.substr(0, end));
  }
  keys_.try_emplace(path);
}

void MemoryRegistry::set(const std::string& path, const std::string& name, RegistryValue value) {
  addKey(path);
  keys_[path][name] = std::move(value);
}

void MemoryRegistry::setNumber(const std::string& path, const std::string& name, std::uint32_t number) {
  std::string bytes;
  for (int shift = 0; shift < 32; shift += 8) bytes += static_cast<char>(number >> shift & 0xFF);  // lowest byte first
  set(path, name, {kRegistryNumber, bytes});
}

std::optional<RegistryValue> MemoryRegistry::value(const std::string& path, const std::string& name) const {
  const auto key = keys_.find(path);
  if (key == keys_.end() || !key->second.contains(name)) return std::nullopt;
  return key->second.at(name);
}

std::vector<std::string> MemoryRegistry::contents(const std::string& path) const {
  std::vector<std::string> lines;
  for (auto key = keys_.find(path), end = endOf(path); key != end; ++key) {
    const std::string below = key->first.size() == path.size() ? "" : key->first.substr(path.size() + 1) + '\\';
    if (!below.empty()) lines.push_back(below);
    for (const auto& [name, value] : key->second) {
      lines.push_back(below + name + '=' + std::to_string(value.type) + ':' + hexadecimal(value.data));
    }
  }
  return lines;
}

// --- Keys

MemoryRegistry::Keys::const_iterator MemoryRegistry::endOf(const std::string& path) const {
  auto key = keys_.find(path);
  while (key != keys_.end() && isAtOrBelow(key->first, path)) ++key;
  return key;
}

std::int32_t MemoryRegistry::find(RegistryKey handle, std::uint32_t access, std::string& path) const {
  if (const RootName* root = rootOf(handle); root != nullptr) {
    path = root->shortName;
    return kRegistryDone;
  }
  const auto opened = open_.find(handle);
  if (opened == open_.end()) return kRegistryInvalidHandle;
  // The 95 family does not check what a key was opened for.
  if (version_.isNtLine() && (opened->second.access & access) != access) return kRegistryAccessDenied;
  path = opened->second.path;
  return keys_.contains(path) ? kRegistryDone : kKeyDeleted;
}

RegistryKey MemoryRegistry::open(const std::string& path, std::uint32_t access) {
  lastHandle_ += 4;
  open_.emplace(lastHandle_, OpenKey{path, access});
  return lastHandle_;
}

std::int32_t MemoryRegistry::openKey(RegistryKey key, const std::string& path, std::uint32_t access,
                                     RegistryKey& opened) {
  if (const auto fault = faults_.nextFault("openKey", kRegistryAccessDenied)) return *fault;
  std::string parent;
  if (const auto code = find(key, 0, parent); code != kRegistryDone) return code;
  const std::string full = joined(parent, path);
  if (!keys_.contains(full)) return kRegistryNotFound;
  opened = open(full, access);
  return kRegistryDone;
}

std::int32_t MemoryRegistry::createKey(RegistryKey key, const std::string& path, std::uint32_t access,
                                       RegistryKey& opened) {
  if (const auto fault = faults_.nextFault("createKey", kRegistryAccessDenied)) return *fault;
  std::string parent;
  if (const auto code = find(key, 0, parent); code != kRegistryDone) return code;
  addKey(joined(parent, path));
  opened = open(joined(parent, path), access);
  return kRegistryDone;
}

std::int32_t MemoryRegistry::deleteKey(RegistryKey key, const std::string& path) {
  if (const auto fault = faults_.nextFault("deleteKey", kRegistryAccessDenied)) return *fault;
  std::string parent;
  if (const auto code = find(key, 0, parent); code != kRegistryDone) return code;
  const std::string full = joined(parent, path);
  const auto found = keys_.find(full);
  if (found == keys_.end()) return kRegistryNotFound;
  const bool hasSubkeys = std::next(found) != endOf(full);
  if (full == parent || (version_.isNtLine() && hasSubkeys)) return kRegistryAccessDenied;
  keys_.erase(found, endOf(full));
  return kRegistryDone;
}

std::int32_t MemoryRegistry::closeKey(RegistryKey key) {
  const auto fault = faults_.nextFault("closeKey", kRegistryInvalidHandle);
  const bool wasOpen = rootOf(key) != nullptr || open_.erase(key) != 0;
  if (fault) return *fault;
  return wasOpen ? kRegistryDone : kRegistryInvalidHandle;
}

// --- Values

std::int32_t MemoryRegistry::queryValue(RegistryKey key, const std::string& name, std::uint32_t& type,
                                        std::span<char> buffer, std::uint32_t& size) {
  if (const auto fault = faults_.nextFault("queryValue", kRegistryAccessDenied)) return *fault;
  std::string path;
  if (const auto code = find(key, kQueryValue, path); code != kRegistryDone) return code;
  const std::optional<RegistryValue> found = value(path, name);
  if (!found) return kRegistryNotFound;
  type = found->type;
  size = static_cast<std::uint32_t>(found->data.size());
  if (size > buffer.size()) return kRegistryMoreData;
  std::ranges::copy(found->data, buffer.begin());
  return kRegistryDone;
}

std::int32_t MemoryRegistry::setValue(RegistryKey key, const std::string& name, std::uint32_t type,
                                      const std::string& data) {
  if (const auto fault = faults_.nextFault("setValue", kRegistryAccessDenied)) return *fault;
  std::string path;
  if (const auto code = find(key, kSetValue, path); code != kRegistryDone) return code;
  keys_[path][name] = {type, asStored(data, type, version_.isNtLine())};
  return kRegistryDone;
}

std::int32_t MemoryRegistry::deleteValue(RegistryKey key, const std::string& name) {
  if (const auto fault = faults_.nextFault("deleteValue", kRegistryAccessDenied)) return *fault;
  std::string path;
  if (const auto code = find(key, kSetValue, path); code != kRegistryDone) return code;
  return keys_[path].erase(name) != 0 ? kRegistryDone : kRegistryNotFound;
}

}  // namespace platform::memory
