#include "settings/modRegistry.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <span>

#include "platform/Platform.h"

using platform::kRegistryDone;
using platform::kRegistryNotFound;
using platform::RegistryKey;
using platform::Result;
using platform::Variant;

namespace {

constexpr std::size_t kProfileBufferSize = 255;
// More than a number needs: a value of another type up to this size is read too, and its first four bytes count.
constexpr std::size_t kNumberQuerySize = 32;

std::string upperCase(const std::string& text) { return platform::machine().environment().upperCase(text); }

template <typename Number>
Number fromBytes(std::span<const char> bytes) {
  Number number = 0;
  std::memcpy(&number, bytes.data(), sizeof(number));
  return number;
}

template <typename Number>
std::string asBytes(Number number) {
  std::string bytes(sizeof(number), '\0');
  std::memcpy(bytes.data(), &number, sizeof(number));
  return bytes;
}

void readProfile(const std::string& file, const std::string& section, const std::string& entry, const std::string& type,
                 const Variant& defaultValue, Variant& result) {
  platform::ProfileFile& profiles = platform::machine().profiles();
  if (type != "S") {
    // A number in an INI file is asked for and not used.
    profiles.getInt(section, entry, 0, file);
    return;
  }
  std::string buffer(kProfileBufferSize, ' ');
  const std::uint32_t length = profiles.getString(section, entry, platform::textOf(defaultValue), buffer, file);
  result = buffer.substr(0, length);
}

std::int32_t readText(RegistryKey key, const std::string& name, Variant& result) {
  platform::Registry& registry = platform::machine().registry();
  std::uint32_t type = platform::kRegistryText;
  std::uint32_t size = 0;
  // The system tells the size only to a buffer that has an address.
  std::string buffer(1, ' ');
  std::int32_t status = registry.queryValue(key, name, type, std::span(buffer).first(0), size);
  if (status == platform::kRegistryMoreData) {
    buffer.assign(size, ' ');
    status = registry.queryValue(key, name, type, buffer, size);
  }
  if (status == kRegistryDone) result = buffer.substr(0, size == 0 ? 0 : size - 1);
  return status;
}

std::int32_t readBoolean(RegistryKey key, const std::string& name, Variant& result) {
  std::array<char, sizeof(std::int16_t)> buffer{};
  std::uint32_t type = platform::kRegistryBinary;
  std::uint32_t size = 0;
  const std::int32_t status = platform::machine().registry().queryValue(key, name, type, buffer, size);
  if (status == kRegistryDone) result = fromBytes<std::int16_t>(buffer) != 0;
  return status;
}

std::int32_t readNumber(RegistryKey key, const std::string& name, Variant& result) {
  std::array<char, kNumberQuerySize> buffer{};
  std::uint32_t type = platform::kRegistryNumber;
  std::uint32_t size = 0;
  const std::int32_t status = platform::machine().registry().queryValue(key, name, type, buffer, size);
  if (status == kRegistryDone) result = fromBytes<std::int32_t>(buffer);
  return status;
}

std::int32_t readValue(RegistryKey key, const std::string& name, const std::string& type, Variant& result) {
  if (type == "S") return readText(key, name, result);
  if (type == "B") return readBoolean(key, name, result);
  if (type == "D") return readNumber(key, name, result);
  return kRegistryDone;
}

Result<std::int32_t> writeValue(RegistryKey key, const std::string& name, const std::string& type,
                                const Variant& value) {
  platform::Registry& registry = platform::machine().registry();
  if (type == "S") {
    // The size passed leaves the closing NUL out.
    return registry.setValue(key, name, platform::kRegistryText, platform::textOf(value));
  }
  if (type == "B") {
    const Result<bool> truth = platform::booleanOf(value);
    if (!truth) return std::unexpected(truth.error());
    return registry.setValue(key, name, platform::kRegistryBinary, asBytes(static_cast<std::int16_t>(*truth ? -1 : 0)));
  }
  if (type == "D") {
    const Result<std::int16_t> number = platform::shortOf(value);
    if (!number) return std::unexpected(number.error());
    // The high half stays 0, so that -1 is stored as 65535.
    const std::uint32_t stored = static_cast<std::uint16_t>(*number);
    return registry.setValue(key, name, platform::kRegistryNumber, asBytes(stored));
  }
  return kRegistryDone;
}

}  // namespace

RegistryKey GetRootKey(const std::string& hive) {
  const std::string name = upperCase(hive);
  const auto* found = std::ranges::find(platform::kRootNames, name, &platform::RootName::shortName);
  if (found != std::end(platform::kRootNames)) return found->key;
  return platform::machine().files().anyFileMatches(hive, platform::kReadOnly) ? ROOT_KEY_INI_FILE : 0;
}

std::int32_t ReadRegistryValue(const std::string& hive, const std::string& keyPath, const std::string& valueName,
                               const std::string& type, const Variant& defaultValue, Variant& result) {
  result = defaultValue;
  const RegistryKey root = GetRootKey(hive);
  if (root == 0) return kUnknownHive;
  const std::string letter = upperCase(type);
  if (root == ROOT_KEY_INI_FILE) {
    readProfile(hive, keyPath, valueName, letter, defaultValue, result);
    return kRegistryDone;
  }
  platform::Registry& registry = platform::machine().registry();
  RegistryKey key = 0;
  const std::int32_t opened = registry.openKey(root, keyPath, platform::kQueryValue, key);
  if (opened != kRegistryDone) return opened;
  const std::int32_t read = readValue(key, valueName, letter, result);
  return read == kRegistryDone ? registry.closeKey(key) : read;
}

std::string readNumberText(const std::string& hive, const std::string& keyPath, const std::string& valueName) {
  Variant value;
  // On failure the value is the default.
  static_cast<void>(ReadRegistryValue(hive, keyPath, valueName, "D", "", value));
  return platform::textOf(value);
}

Result<std::int32_t> WriteRegistryValue(const std::string& hive, const std::string& keyPath,
                                        const std::string& valueName, const std::string& type, const Variant& value) {
  const RegistryKey root = GetRootKey(hive);
  if (root == 0) return kUnknownHive;
  const std::string letter = upperCase(type);
  if (root == ROOT_KEY_INI_FILE) {
    if (letter != "S") return kUnknownHive;
    static_cast<void>(platform::machine().profiles().writeString(keyPath, valueName, platform::textOf(value), hive));
    return kRegistryDone;
  }
  platform::Registry& registry = platform::machine().registry();
  RegistryKey key = 0;
  const std::int32_t made = registry.createKey(root, keyPath, platform::kSetValue | platform::kCreateSubKey, key);
  if (made != kRegistryDone) return made;
  const Result<std::int32_t> written = writeValue(key, valueName, letter, value);
  return written == kRegistryDone ? registry.closeKey(key) : written;
}

std::int32_t DeleteRegistryKey(const std::string& hive, const std::string& parentPath, const std::string& subKey) {
  const RegistryKey root = GetRootKey(hive);
  if (root == 0) return kUnknownHive;
  platform::Registry& registry = platform::machine().registry();
  RegistryKey parent = 0;
  const std::int32_t opened = registry.openKey(root, parentPath, platform::kCreateSubKey, parent);
  if (opened != kRegistryDone) return opened == kRegistryNotFound ? kRegistryDone : opened;
  const std::int32_t deleted = registry.deleteKey(parent, subKey);
  return deleted == kRegistryNotFound ? kRegistryDone : deleted;
}
