#include "tests/desktop/Registry.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "tests/desktop/Input.h"

namespace desktop {
namespace {

struct Place {
  HKEY root;
  std::string path;
};

Place placeOf(const std::string& path) {
  const std::string root = path.substr(0, path.find('\\'));
  if (root != "HKCU" && root != "HKLM") throw Failed("no root of the registry: " + path);
  return {root == "HKCU" ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE, path.substr(root.size() + 1)};
}

// An open key; null when there is none.
class Key {
 public:
  explicit Key(const std::string& path, REGSAM access = KEY_READ) {
    const Place place = placeOf(path);
    if (RegOpenKeyExA(place.root, place.path.c_str(), 0, access, &key_) != ERROR_SUCCESS) key_ = nullptr;
  }
  ~Key() {
    if (key_ != nullptr) RegCloseKey(key_);
  }
  Key(const Key&) = delete;
  Key& operator=(const Key&) = delete;

  HKEY handle() const { return key_; }
  explicit operator bool() const { return key_ != nullptr; }

 private:
  HKEY key_ = nullptr;
};

struct Value {
  DWORD type = REG_NONE;
  std::string bytes;

  std::string text() const { return bytes.substr(0, bytes.find('\0')); }
  DWORD number() const {
    DWORD number = 0;
    std::memcpy(&number, bytes.data(), std::min(sizeof(number), bytes.size()));
    return number;
  }
};

std::optional<Value> valueOf(const Key& key, const std::string& name) {
  Value value{REG_NONE, std::string(1000, '\0')};
  DWORD size = value.bytes.size();
  if (!key || RegQueryValueExA(key.handle(), name.c_str(), nullptr, &value.type,
                               reinterpret_cast<BYTE*>(value.bytes.data()), &size) != ERROR_SUCCESS) {
    return std::nullopt;
  }
  value.bytes.resize(size);
  return value;
}

void set(const std::string& path, const std::string& name, DWORD type, const void* bytes, DWORD size) {
  const Place place = placeOf(path);
  HKEY key = nullptr;
  LONG code = RegCreateKeyA(place.root, place.path.c_str(), &key);
  if (code == ERROR_SUCCESS) {
    code = RegSetValueExA(key, name.c_str(), 0, type, static_cast<const BYTE*>(bytes), size);
    RegCloseKey(key);
  }
  if (code != ERROR_SUCCESS) throw Failed("cannot store " + path + "\\" + name);
}

}  // namespace

void setText(const std::string& path, const std::string& name, const std::string& text) {
  set(path, name, REG_SZ, text.c_str(), text.size() + 1);
}

void setNumber(const std::string& path, const std::string& name, DWORD number) {
  set(path, name, REG_DWORD, &number, sizeof(number));
}

std::optional<std::string> textOf(const std::string& path, const std::string& name) {
  const std::optional<Value> value = valueOf(Key(path), name);
  return value && value->type == REG_SZ ? std::optional(value->text()) : std::nullopt;
}

std::optional<DWORD> numberOf(const std::string& path, const std::string& name) {
  const std::optional<Value> value = valueOf(Key(path), name);
  return value && value->type == REG_DWORD ? std::optional(value->number()) : std::nullopt;
}

bool hasKey(const std::string& path) { return static_cast<bool>(Key(path)); }

std::vector<std::string> contentsOf(const std::string& path) {
  const Key key(path);
  std::vector<std::string> lines;
  std::array<char, 300> name{};
  for (DWORD i = 0; key; ++i) {
    DWORD length = name.size();
    if (RegEnumValueA(key.handle(), i, name.data(), &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS)
      break;
    const Value value = valueOf(key, name.data()).value();
    lines.push_back(std::string(name.data()) + " = " +
                    (value.type == REG_DWORD ? std::to_string(value.number()) : value.text()));
  }
  for (DWORD i = 0; key && RegEnumKeyA(key.handle(), i, name.data(), name.size()) == ERROR_SUCCESS; ++i) {
    lines.push_back(std::string(name.data()) + "\\");
  }
  std::ranges::sort(lines);
  return lines;
}

void removeValue(const std::string& path, const std::string& name) {
  const Key key(path, KEY_SET_VALUE);
  if (key) RegDeleteValueA(key.handle(), name.c_str());
}

void removeKey(const std::string& path) {
  for (const std::string& line : contentsOf(path)) {
    if (line.ends_with('\\')) removeKey(path + "\\" + line.substr(0, line.size() - 1));
  }
  const Place place = placeOf(path);
  RegDeleteKeyA(place.root, place.path.c_str());
  if (hasKey(path)) throw Failed("cannot remove " + path);
}

}  // namespace desktop
