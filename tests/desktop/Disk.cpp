#include "tests/desktop/Disk.h"

// Kept apart: the shell's header needs <windows.h> before it.
#include <shellapi.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "tests/desktop/Input.h"

namespace desktop {
namespace {

namespace fs = std::filesystem;

void require(bool done, const std::string& deed, const std::string& path) {
  if (!done) throw Failed("cannot " + deed + " \"" + path + "\" (error " + std::to_string(GetLastError()) + ")");
}

}  // namespace

void makeFile(const std::string& path, const std::string& bytes) {
  fs::create_directories(fs::path(path).parent_path());
  std::ofstream file(path, std::ios::binary);
  file << bytes << std::flush;
  require(file.good(), "fill", path);
}

std::string sampleBytes(const std::string& name, std::size_t size) {
  const std::string line = "Sample content of " + name + ".\n";
  std::string bytes;
  while (bytes.size() < size) bytes += line;
  bytes.resize(size);
  return bytes;
}

std::string readFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  require(file.good(), "read", path);
  std::string bytes(fs::file_size(path), '\0');
  file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  return bytes;
}

bool exists(const std::string& path) { return GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES; }

std::vector<std::string> namesIn(const std::string& folder) {
  std::vector<std::string> names;
  if (!exists(folder)) return names;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
    names.push_back(entry.path().filename().string());
  }
  std::ranges::sort(names);
  return names;
}

void removeTree(const std::string& folder) {
  for (const std::string& name : namesIn(folder)) {
    const std::string path = folder + "\\" + name;
    setAttributes(path, FILE_ATTRIBUTE_NORMAL);
    fs::is_directory(path) ? removeTree(path) : require(DeleteFileA(path.c_str()) != FALSE, "delete", path);
  }
  require(RemoveDirectoryA(folder.c_str()) != FALSE || !exists(folder), "remove", folder);
}

void setAttributes(const std::string& path, DWORD attributes) {
  require(SetFileAttributesA(path.c_str(), attributes) != FALSE, "set the attributes of", path);
}

std::size_t recycledItems() {
  SHQUERYRBINFO info = {};
  info.cbSize = sizeof(info);
  require(SUCCEEDED(SHQueryRecycleBinA(nullptr, &info)), "count", "Recycle Bin");
  return static_cast<std::size_t>(info.i64NumItems);
}

Lock::Lock(const std::string& path)
    : file_(CreateFileA(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr)) {
  require(file_ != INVALID_HANDLE_VALUE, "hold", path);
}

}  // namespace desktop
