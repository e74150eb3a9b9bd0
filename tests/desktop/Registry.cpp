// These tests only ever run on a Windows that has the younger calls.
#undef _WIN32_WINNT
#define _WIN32_WINNT 0x0600
#include "tests/desktop/Registry.h"

#include <algorithm>
#include <array>

#include "tests/desktop/Input.h"

namespace desktop {
namespace {

HKEY rootOf(const std::string& path) { return path.starts_with("HKLM\\") ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER; }

std::string below(const std::string& path) { return path.substr(std::string("HKLM\\").size()); }

void set(const std::string& path, const std::string& name, DWORD type, const void* bytes, std::size_t size) {
  if (RegSetKeyValueA(rootOf(path), below(path).c_str(), name.c_str(), type, bytes, static_cast<DWORD>(size)) != 0) {
    throw Failed("cannot store " + path + "\\" + name);
  }
}

HKEY opened(const std::string& path) {
  HKEY key = nullptr;
  return RegOpenKeyExA(rootOf(path), below(path).c_str(), 0, KEY_READ, &key) == ERROR_SUCCESS ? key : nullptr;
}

}  // namespace

void setText(const std::string& path, const std::string& name, const std::string& text) {
  set(path, name, REG_SZ, text.c_str(), text.size() + 1);
}

void setNumber(const std::string& path, const std::string& name, DWORD number) {
  set(path, name, REG_DWORD, &number, sizeof(number));
}

std::string shown(const std::string& path, const std::string& name) {
  union {
    char text[1000];
    DWORD number;
  } data = {};
  DWORD size = sizeof(data);
  DWORD type = REG_NONE;
  const std::string key = below(path);
  if (RegGetValueA(rootOf(path), key.c_str(), name.c_str(), RRF_RT_ANY, &type, &data, &size) != ERROR_SUCCESS)
    return "";
  if (type == REG_DWORD) return "dword:" + std::to_string(data.number);
  return type == REG_SZ ? '"' + std::string(data.text) + '"' : "type " + std::to_string(type);
}

std::vector<std::string> contentsOf(const std::string& path) {
  const HKEY key = opened(path);
  std::vector<std::string> lines;
  std::array<char, 300> name{};
  DWORD length = name.size();
  for (DWORD i = 0; RegEnumValueA(key, i, name.data(), &length, nullptr, nullptr, nullptr, nullptr) == 0; ++i) {
    lines.push_back(std::string(name.data()) + " = " + shown(path, name.data()));
    length = name.size();
  }
  for (DWORD i = 0; RegEnumKeyA(key, i, name.data(), name.size()) == 0; ++i) {
    lines.push_back(std::string(name.data()) + "\\");
  }
  RegCloseKey(key);
  std::ranges::sort(lines);
  return lines;
}

void removeValue(const std::string& path, const std::string& name) {
  RegDeleteKeyValueA(rootOf(path), below(path).c_str(), name.c_str());
}

void removeKey(const std::string& path) {
  RegDeleteTreeA(rootOf(path), below(path).c_str());
  if (hasKey(path)) throw Failed("cannot remove " + path);
}

bool hasKey(const std::string& path) {
  const HKEY key = opened(path);
  return key != nullptr && RegCloseKey(key) == ERROR_SUCCESS;
}

ChangedText::ChangedText(std::string path, std::string name, const std::string& text)
    : path_(std::move(path)), name_(std::move(name)), before_(shown(path_, name_)) {
  before_ = before_.substr(1, before_.size() - 2);
  setText(path_, name_, text);
}

}  // namespace desktop
