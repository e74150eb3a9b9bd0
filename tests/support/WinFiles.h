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

}  // namespace support
