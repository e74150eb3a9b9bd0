// The tests only run on a Windows that has the newer registry functions.
#undef _WIN32_WINNT
#define _WIN32_WINNT 0x0600
#include "tests/desktop/Machine.h"

#include <algorithm>
#include <array>

namespace desktop {
namespace {

HKEY rootOf(const std::string& path) { return path.starts_with("HKLM\\") ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER; }

std::string below(const std::string& path) { return path.substr(std::string("HKLM\\").size()); }

void set(const std::string& path, const std::string& name, DWORD type, const void* bytes, std::size_t size) {
  SetLastError(static_cast<DWORD>(
      RegSetKeyValueA(rootOf(path), below(path).c_str(), name.c_str(), type, bytes, static_cast<DWORD>(size))));
  require(GetLastError() == ERROR_SUCCESS, "store " + path);
}

}  // namespace

std::string sampleBytes(const std::string& path, std::size_t size) {
  std::string bytes;
  while (bytes.size() < size) bytes += "Sample content of " + path + ".\n";
  bytes.resize(size);
  return bytes;
}

bool exists(const std::string& path) { return GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES; }

void lock(const std::string& path) {
  require(CreateFileA(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr) != INVALID_HANDLE_VALUE,
          "lock " + path);
}

void setText(const std::string& path, const std::string& name, const std::string& text) {
  set(path, name, REG_SZ, text.c_str(), text.size() + 1);
}

void setNumber(const std::string& path, const std::string& name, DWORD number) {
  set(path, name, REG_DWORD, &number, sizeof(number));
}

Texts contentsOf(const std::string& path) {
  HKEY key = nullptr;
  if (RegOpenKeyExA(rootOf(path), below(path).c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return kNoKey;
  Texts lines;
  std::array<char, 300> name{};
  std::array<BYTE, 1000> data{};
  for (DWORD i = 0;; ++i) {
    DWORD nameLength = name.size();
    DWORD size = data.size();
    DWORD type = REG_NONE;
    if (RegEnumValueA(key, i, name.data(), &nameLength, nullptr, &type, data.data(), &size) != ERROR_SUCCESS) break;
    const std::string value = type == REG_DWORD ? "dword:" + std::to_string(*reinterpret_cast<DWORD*>(data.data()))
                                                : '"' + std::string(reinterpret_cast<char*>(data.data())) + '"';
    lines.push_back(name.data() + (" = " + value));
  }
  for (DWORD i = 0; RegEnumKeyA(key, i, name.data(), name.size()) == ERROR_SUCCESS; ++i) {
    lines.push_back(std::string(name.data()) + '\\');
  }
  RegCloseKey(key);
  std::ranges::sort(lines);
  return lines;
}

}  // namespace desktop
