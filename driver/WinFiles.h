// What the tests on Windows prepare and check by direct system calls: what the program did must not be judged by its
// own code. Paths are full Windows paths. Whatever cannot be done throws Failed.
#pragma once

#include <windows.h>

// Kept apart: these headers need <windows.h> before them.
#include <shellapi.h>
#include <wininet.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

namespace support {

// A step did not have its expected result; the text says which.
class Failed : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Throws Failed with the system's error number when `done` is false.
inline void require(bool done, const std::string& what) {
  if (!done) throw Failed("cannot " + what + " (error " + std::to_string(GetLastError()) + ")");
}

// Makes or replaces a file, and makes its missing parent folders.
inline void makeFile(const std::string& path, const std::string& bytes, DWORD attributes = FILE_ATTRIBUTE_NORMAL) {
  std::filesystem::create_directories(std::filesystem::path(path).parent_path());
  std::ofstream file(path, std::ios::binary);
  file << bytes;
  file.close();
  require(file && SetFileAttributesA(path.c_str(), attributes), "make " + path);
}

inline std::string readFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  require(file.is_open(), "read " + path);
  return {std::istreambuf_iterator<char>(file), {}};
}

// The names in a folder, sorted bytewise.
inline std::vector<std::string> namesIn(const std::string& folder) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    names.push_back(entry.path().filename().string());
  }
  std::ranges::sort(names);
  return names;
}

// The number of items in the Recycle Bin.
inline std::size_t recycledItems() {
  SHQUERYRBINFO info = {};
  info.cbSize = sizeof(info);
  require(SUCCEEDED(SHQueryRecycleBinA(nullptr, &info)), "count the items in the Recycle Bin");
  return static_cast<std::size_t>(info.i64NumItems);
}

// Puts a page with a file of its own into the Internet cache. Returns the file's path.
inline std::string cachePage(const std::string& url, const FILETIME& expires) {
  std::array<char, MAX_PATH + 1> file{};
  require(CreateUrlCacheEntryA(url.c_str(), 4, "htm", file.data(), 0), "cache " + url);
  makeFile(file.data(), "page");
  require(CommitUrlCacheEntryA(url.c_str(), file.data(), expires, {}, NORMAL_CACHE_ENTRY, nullptr, 0, nullptr, nullptr),
          "cache " + url);
  return file.data();
}

inline bool exists(const std::string& path) { return GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES; }

// Opens a file without sharing, as another program would, until the test program ends.
inline void lock(const std::string& path) {
  require(CreateFileA(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr) != INVALID_HANDLE_VALUE,
          "lock " + path);
}

// ---- The registry. Paths begin with HKCU\ or HKLM\. An empty name is the key's default value

// The key, made if it is missing and `make` is set; null when it is not there.
inline HKEY openKey(const std::string& path, bool make) {
  const HKEY root = path.starts_with("HKLM\\") ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
  HKEY key = nullptr;
  (make ? RegCreateKeyA : RegOpenKeyA)(root, path.c_str() + std::size("HKLM"), &key);
  return key;
}

inline void setValue(const std::string& path, const std::string& name, DWORD type, const void* bytes, DWORD size) {
  const HKEY key = openKey(path, true);
  const LSTATUS status = RegSetValueExA(key, name.c_str(), 0, type, static_cast<const BYTE*>(bytes), size);
  require(status == ERROR_SUCCESS && RegCloseKey(key) == ERROR_SUCCESS, "store " + path);
}

inline void setText(const std::string& path, const std::string& name, const std::string& text) {
  setValue(path, name, REG_SZ, text.c_str(), static_cast<DWORD>(text.size() + 1));
}

inline void setNumber(const std::string& path, const std::string& name, DWORD number) {
  setValue(path, name, REG_DWORD, &number, sizeof(number));
}

inline const std::vector<std::string> kNoKey = {"no key"};

// The values (NAME = "TEXT", NAME = dword:10) and subkeys (Sub\) of a key, sorted; kNoKey when there is no such key.
inline std::vector<std::string> contentsOf(const std::string& path) {
  const HKEY key = openKey(path, false);
  if (key == nullptr) return kNoKey;
  std::vector<std::string> lines;
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

// ---- Folder links: Windows of that age has no call that makes one, and Wine shows the host's own links as such

// Runs a program of the host, which Wine reaches under this prefix, in `folder`. Does not wait for it. Wine stores no
// handles for such a program but whatever its memory holds, so that closing them would close some other object.
inline bool startHostProgram(const std::string& folder, const std::string& program, const std::string& arguments) {
  STARTUPINFOA start = {};
  start.cb = sizeof(start);
  PROCESS_INFORMATION process = {};
  std::string command = program + ' ' + arguments;
  const std::string path = "\\\\?\\unix\\bin\\" + program;
  return CreateProcessA(path.c_str(), command.data(), nullptr, nullptr, FALSE, 0, nullptr, folder.c_str(), &start,
                        &process) != FALSE;
}

// Waits until a path is there, or is not; false when that takes too long.
inline bool waitForPath(const std::string& path, bool there) {
  for (int tries = 200; tries > 0 && exists(path) != there; --tries) Sleep(25);
  return exists(path) == there;
}

// Makes `link` a link to the folder `target`, both paths relative to `folder`, and so that it never leads out of the
// machine that the tests run on. Names hold no blanks.
inline bool makeFolderLink(const std::string& folder, const std::string& link, const std::string& target) {
  std::string arguments = "-s -r " + target + ' ' + link;
  std::ranges::replace(arguments, '\\', '/');
  return startHostProgram(folder, "ln", arguments) && waitForPath(folder + '\\' + link, true);
}

// Takes the link away without what it points to.
inline bool removeFolderLink(const std::string& folder, std::string link) {
  const std::string path = folder + '\\' + link;
  std::ranges::replace(link, '\\', '/');
  return startHostProgram(folder, "rm", link) && waitForPath(path, false);
}

}  // namespace support
