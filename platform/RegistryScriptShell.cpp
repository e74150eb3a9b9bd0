#include "platform/RegistryScriptShell.h"

#include <cstring>
#include <optional>
#include <string_view>

namespace platform {
namespace {

constexpr std::int32_t kSystemErrorBase = static_cast<std::int32_t>(0x80070000);

// What a script path comes to.
struct Place {
  RegistryKey root = 0;
  std::string key;
  std::string value;  // empty for the key itself
};

std::optional<Place> placeOf(std::string_view path) {
  const std::string_view name = path.substr(0, path.find('\\'));
  if (name.empty() || name.size() == path.size()) return std::nullopt;
  for (const RootName& root : kRootNames) {
    if (name != root.longName && !(root.isShortInScripts && name == root.shortName)) continue;
    const std::string_view rest = path.substr(name.size() + 1);
    const std::size_t end = rest.rfind('\\');
    if (end == std::string_view::npos) return Place{root.key, "", std::string(rest)};
    return Place{root.key, std::string(rest.substr(0, end)), std::string(rest.substr(end + 1))};
  }
  return std::nullopt;
}

std::unexpected<RuntimeError> systemFailure(std::int32_t code) {
  return failure(code == kRegistryAccessDenied ? kPermissionDenied : kSystemErrorBase | code);
}

Result<void> resultOf(std::int32_t code) { return code == kRegistryDone ? Result<void>{} : systemFailure(code); }

std::string untilNul(const std::string& text) { return text.substr(0, text.find('\0')); }

}  // namespace

Result<std::string> RegistryScriptShell::regRead(const std::string& path) {
  const std::optional<Place> place = placeOf(path);
  if (!place) return failure(kScriptPathNotFound);
  RegistryKey key = 0;
  if (const auto code = registry_.openKey(place->root, place->key, kQueryValue, key); code != kRegistryDone) {
    return systemFailure(code);
  }
  Result<std::string> text = readValue(key, place->value);
  registry_.closeKey(key);
  return text;
}

Result<std::string> RegistryScriptShell::readValue(RegistryKey key, const std::string& name) {
  std::uint32_t type = 0;
  std::uint32_t size = 0;
  // An empty buffer asks for the size; another program may lengthen the value before it is read.
  std::string bytes(1, '\0');
  std::int32_t code = registry_.queryValue(key, name, type, std::span(bytes).first(0), size);
  while (code == kRegistryMoreData) {
    bytes.assign(size, '\0');
    code = registry_.queryValue(key, name, type, bytes, size);
  }
  if (code != kRegistryDone) return systemFailure(code);
  bytes.resize(size);
  if (type == kRegistryText || type == kRegistryExpandableText) return untilNul(bytes);
  std::int32_t number = 0;
  if (type != kRegistryNumber || bytes.size() != sizeof(number)) return failure(kTypeMismatch);
  std::memcpy(&number, bytes.data(), sizeof(number));
  return std::to_string(number);
}

Result<void> RegistryScriptShell::regWrite(const std::string& path, const std::string& text) {
  const std::optional<Place> place = placeOf(path);
  if (!place) return failure(kScriptPathNotFound);
  RegistryKey key = 0;
  if (const auto code = registry_.createKey(place->root, place->key, kSetValue, key); code != kRegistryDone) {
    return systemFailure(code);
  }
  const std::int32_t code = registry_.setValue(key, place->value, kRegistryText, text + '\0');
  registry_.closeKey(key);
  return resultOf(code);
}

Result<void> RegistryScriptShell::regDelete(const std::string& path) {
  const std::optional<Place> place = placeOf(path);
  if (!place) return failure(kScriptPathNotFound);
  if (place->value.empty() && place->key.empty()) return failure(kPermissionDenied);  // a root is never deleted
  if (place->value.empty()) return resultOf(registry_.deleteKey(place->root, place->key));
  RegistryKey key = 0;
  if (const auto code = registry_.openKey(place->root, place->key, kSetValue, key); code != kRegistryDone) {
    return systemFailure(code);
  }
  const std::int32_t code = registry_.deleteValue(key, place->value);
  registry_.closeKey(key);
  return resultOf(code);
}

}  // namespace platform
