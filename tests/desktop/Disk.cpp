#include "tests/desktop/Disk.h"

// Kept apart: the shell's header needs <windows.h> before it.
#include <shellapi.h>

#include "tests/desktop/Input.h"

namespace desktop {
namespace {

constexpr DWORD kSettable =
    FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE;

void require(bool done, const std::string& deed, const std::string& path) {
  if (!done) throw Failed("cannot " + deed + " \"" + path + "\" (error " + std::to_string(GetLastError()) + ")");
}

std::string parentOf(const std::string& path) { return path.substr(0, path.rfind('\\')); }

HANDLE open(const std::string& path, DWORD access, DWORD share, DWORD disposition) {
  const HANDLE file = CreateFileA(path.c_str(), access, share, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
  require(file != INVALID_HANDLE_VALUE, "open", path);
  return file;
}

}  // namespace

void makeFile(const std::string& path, const std::string& bytes) {
  makeFolders(parentOf(path));
  const HANDLE file = open(path, GENERIC_WRITE, 0, CREATE_ALWAYS);
  DWORD written = 0;
  WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
  CloseHandle(file);
  require(written == bytes.size(), "fill", path);
}

void makeEmptyFile(const std::string& path) { CloseHandle(open(path, GENERIC_WRITE, 0, CREATE_ALWAYS)); }

std::string sampleBytes(const std::string& name, std::size_t size) {
  const std::string line = "Sample content of " + name + ".\n";
  std::string bytes;
  while (bytes.size() < size) bytes += line;
  bytes.resize(size);
  return bytes;
}

std::string readFile(const std::string& path) {
  const HANDLE file = open(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, OPEN_EXISTING);
  std::string bytes(GetFileSize(file, nullptr), '\0');
  DWORD read = 0;
  ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr);
  CloseHandle(file);
  require(read == bytes.size(), "read", path);
  return bytes;
}

bool exists(const std::string& path) { return GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES; }

void makeFolders(const std::string& path) {
  constexpr std::size_t kDriveRoot = 3;
  for (std::size_t end = path.find('\\', kDriveRoot); end != std::string::npos; end = path.find('\\', end + 1)) {
    CreateDirectoryA(path.substr(0, end).c_str(), nullptr);
  }
  CreateDirectoryA(path.c_str(), nullptr);
  require(exists(path) && (attributesOf(path) & FILE_ATTRIBUTE_DIRECTORY) != 0, "make the folder", path);
}

void removeTree(const std::string& folder) {
  if (!exists(folder)) return;
  WIN32_FIND_DATAA found;
  const HANDLE enumeration = FindFirstFileA((folder + "\\*").c_str(), &found);
  require(enumeration != INVALID_HANDLE_VALUE, "list", folder);
  do {
    const std::string name = found.cFileName;
    if (name == "." || name == "..") continue;
    const std::string path = folder + "\\" + name;
    if ((found.dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0)
      SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL);
    if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
      removeTree(path);
    } else {
      require(DeleteFileA(path.c_str()) != FALSE, "delete", path);
    }
  } while (FindNextFileA(enumeration, &found) != FALSE);
  FindClose(enumeration);
  require(RemoveDirectoryA(folder.c_str()) != FALSE, "remove", folder);
}

void setAttributes(const std::string& path, DWORD attributes) {
  require(SetFileAttributesA(path.c_str(), attributes) != FALSE, "set the attributes of", path);
  const DWORD wanted = attributes & kSettable & ~FILE_ATTRIBUTE_ARCHIVE;
  require((attributesOf(path) & wanted) == wanted, "keep the attributes of", path);
}

DWORD attributesOf(const std::string& path) {
  const DWORD attributes = GetFileAttributesA(path.c_str());
  require(attributes != INVALID_FILE_ATTRIBUTES, "ask the attributes of", path);
  return attributes;
}

std::size_t recycledItems() {
  SHQUERYRBINFO info = {};
  info.cbSize = sizeof(info);
  require(SUCCEEDED(SHQueryRecycleBinA(nullptr, &info)), "count", "Recycle Bin");
  return static_cast<std::size_t>(info.i64NumItems);
}

Lock::Lock(const std::string& path) : file_(open(path, GENERIC_READ, 0, OPEN_EXISTING)) {}

Lock::~Lock() { CloseHandle(file_); }

}  // namespace desktop
