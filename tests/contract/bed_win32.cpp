// The bed on the Windows that the tests run on, made with direct system calls.
#include <windows.h>

// Kept apart: the shell's headers need <windows.h> before them.
#include <shellapi.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <map>

#include "platform/win32/Win32Machine.h"
#include "tests/contract/Bed.h"

namespace contract {
namespace {

constexpr const char* kRoot = "C:\\contract";
constexpr const char* kOnOtherDrive = "D:\\contract";

// Ends the program when `done` is false.
void require(bool done, const char* deed, const std::string& path) {
  if (!done) {
    std::fprintf(stderr, "contract bed: cannot %s \"%s\" (error %lu)\n", deed, path.c_str(), GetLastError());
    std::exit(EXIT_FAILURE);
  }
}

struct Entry {
  std::string name;
  std::string alias;
  DWORD attributes;
};

std::vector<Entry> entriesIn(const std::string& folder) {
  std::vector<Entry> entries;
  WIN32_FIND_DATAA found;
  const HANDLE enumeration = FindFirstFileA((folder + "\\*").c_str(), &found);
  require(enumeration != INVALID_HANDLE_VALUE, "list", folder);
  do {
    const std::string name = found.cFileName;
    if (name != "." && name != "..") {
      entries.push_back({name, found.cAlternateFileName, found.dwFileAttributes});
    }
  } while (FindNextFileA(enumeration, &found) != FALSE);
  FindClose(enumeration);
  return entries;
}

bool isThere(const std::string& path) { return GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES; }

void removeTree(const std::string& folder) {
  for (const Entry& entry : entriesIn(folder)) {
    const bool isNameUsable = entry.name.find('?') == std::string::npos;
    const std::string path = folder + "\\" + (isNameUsable ? entry.name : entry.alias);
    SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL);
    if ((entry.attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
      removeTree(path);
    } else {
      require(DeleteFileA(path.c_str()) != FALSE, "delete", path);
    }
  }
  require(RemoveDirectoryA(folder.c_str()) != FALSE, "remove", folder);
}

void makeFolders(const std::string& path) {
  constexpr std::size_t kDriveRoot = 3;
  for (std::size_t end = path.find('\\', kDriveRoot); end != std::string::npos; end = path.find('\\', end + 1)) {
    CreateDirectoryA(path.substr(0, end).c_str(), nullptr);
  }
  CreateDirectoryA(path.c_str(), nullptr);
  const DWORD attributes = GetFileAttributesA(path.c_str());
  require(attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0, "make", path);
}

HANDLE makeNew(const std::string& path) {
  makeFolders(path.substr(0, path.rfind('\\')));
  const HANDLE file =
      CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  require(file != INVALID_HANDLE_VALUE, "make", path);
  return file;
}

class Win32Bed final : public Bed {
 public:
  Win32Bed() : machine_(nullptr), firstFolder_(currentFolder()) {
    if (isThere(kRoot)) {
      removeTree(kRoot);
    }
    makeFolders(kRoot);
  }

  ~Win32Bed() override {
    for (const auto& [path, handle] : locks_) {
      CloseHandle(handle);
    }
    SetCurrentDirectoryA(firstFolder_.c_str());
    if (isThere(kOnOtherDrive)) {
      removeTree(kOnOtherDrive);
    }
    removeTree(kRoot);
  }

  platform::Machine& machine() override { return machine_; }

  std::string root() const override { return kRoot; }

  std::string onOtherDrive() override {
    makeFolders(kOnOtherDrive);
    return kOnOtherDrive;
  }

  void makeFolder(const std::string& path) override { makeFolders(path); }

  void makeFile(const std::string& path, const std::string& bytes) override {
    const HANDLE file = makeNew(path);
    DWORD written = 0;
    WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    CloseHandle(file);
    require(written == bytes.size(), "fill", path);
  }

  void makeLongFile(const std::string& path, std::uint64_t size) override {
    const HANDLE file = makeNew(path);
    LONG high = static_cast<LONG>(size >> 32);
    SetFilePointer(file, static_cast<LONG>(size), &high, FILE_BEGIN);
    const BOOL done = SetEndOfFile(file);
    CloseHandle(file);
    require(done != FALSE, "lengthen", path);
  }

  void setAttributes(const std::string& path, std::uint32_t attributes) override {
    const DWORD wanted = attributes == 0 ? FILE_ATTRIBUTE_NORMAL : attributes;
    require(SetFileAttributesA(path.c_str(), wanted) != FALSE, "set the attributes of", path);
  }

  void lock(const std::string& path) override {
    const HANDLE file = CreateFileA(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    require(file != INVALID_HANDLE_VALUE, "lock", path);
    locks_[path] = file;
  }

  void unlock(const std::string& path) override {
    const auto held = locks_.find(path);
    require(held != locks_.end(), "unlock", path);
    CloseHandle(held->second);
    locks_.erase(held);
  }

  bool exists(const std::string& path) const override { return isThere(path); }

  std::string readBack(const std::string& path) const override {
    const HANDLE file =
        CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr);
    require(file != INVALID_HANDLE_VALUE, "read", path);
    std::string bytes(GetFileSize(file, nullptr), '\0');
    DWORD read = 0;
    ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr);
    CloseHandle(file);
    require(read == bytes.size(), "read", path);
    return bytes;
  }

  std::uint32_t attributes(const std::string& path) const override {
    const DWORD attributes = GetFileAttributesA(path.c_str());
    require(attributes != INVALID_FILE_ATTRIBUTES, "ask the attributes of", path);
    return attributes;
  }

  std::vector<std::string> namesIn(const std::string& folder) const override {
    std::vector<std::string> names;
    for (const Entry& entry : entriesIn(folder)) {
      names.push_back(entry.name);
    }
    std::ranges::sort(names);
    return names;
  }

  void setCurrentFolder(const std::string& folder) override {
    require(SetCurrentDirectoryA(folder.c_str()) != FALSE, "enter", folder);
  }

  std::size_t recycledItems() const override {
    SHQUERYRBINFO info = {};
    info.cbSize = sizeof(info);
    const HRESULT code = SHQueryRecycleBinA(nullptr, &info);
    require(SUCCEEDED(code), "count", "Recycle Bin");
    return static_cast<std::size_t>(info.i64NumItems);
  }

  bool hasShortNames() const override {
    const std::string probe = std::string(kRoot) + "\\probe.longextension";
    CloseHandle(makeNew(probe));
    WIN32_FIND_DATAA found;
    const HANDLE enumeration = FindFirstFileA(probe.c_str(), &found);
    require(enumeration != INVALID_HANDLE_VALUE, "find", probe);
    FindClose(enumeration);
    require(DeleteFileA(probe.c_str()) != FALSE, "delete", probe);
    return found.cAlternateFileName[0] != '\0';
  }

 private:
  static std::string currentFolder() {
    std::array<char, MAX_PATH + 1> folder{};
    GetCurrentDirectoryA(folder.size(), folder.data());
    return folder.data();
  }

  platform::win32::Win32Machine machine_;
  std::string firstFolder_;
  std::map<std::string, HANDLE> locks_;
};

}  // namespace

std::unique_ptr<Bed> makeBed() { return std::make_unique<Win32Bed>(); }

}  // namespace contract
