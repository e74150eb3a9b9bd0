// The test machine on the Windows that the tests run on, made with direct system calls.
#include <windows.h>

// Kept apart: the shell's headers need <windows.h> before them.
#include <shellapi.h>
#include <wininet.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "platform/win32/Win32Machine.h"
#include "tests/contract/TestMachine.h"
#include "tests/support/HostLink.h"

namespace contract {
namespace {

constexpr const char* kRoot = "C:\\contract";
constexpr const char* kKeyRoot = "Software\\Contract";
constexpr const char* kOnOtherDrive = "D:\\contract";

// Ends the program when `done` is false.
void require(bool done, const char* deed, const std::string& path) {
  if (!done) {
    std::fprintf(stderr, "contract tests: cannot %s \"%s\" (error %lu)\n", deed, path.c_str(), GetLastError());
    std::exit(EXIT_FAILURE);
  }
}

bool isThere(const std::string& path) { return GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES; }

void removeTree(const std::string& folder) {
  std::error_code error;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
    std::filesystem::permissions(entry.path(), std::filesystem::perms::all, error);
  std::filesystem::remove_all(folder, error);
  require(!isThere(folder), "remove", folder);
}

void makeFolders(const std::string& path) {
  std::error_code error;
  std::filesystem::create_directories(path, error);
  require(std::filesystem::is_directory(path, error), "make", path);
}

void removeKeys(HKEY parent, const std::string& path) {
  HKEY key = nullptr;
  if (RegOpenKeyExA(parent, path.c_str(), 0, KEY_ALL_ACCESS, &key) != ERROR_SUCCESS) return;
  std::array<char, MAX_PATH + 1> name{};
  while (RegEnumKeyA(key, 0, name.data(), name.size()) == ERROR_SUCCESS) removeKeys(key, name.data());
  RegCloseKey(key);
  require(RegDeleteKeyA(parent, path.c_str()) == ERROR_SUCCESS, "remove the key", path);
}

// How many values the list has, without the one that keeps their order.
std::size_t recentValues() {
  HKEY key = nullptr;
  constexpr const char* kList = "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\RecentDocs";
  DWORD values = 0;
  RegOpenKeyExA(HKEY_CURRENT_USER, kList, 0, KEY_READ, &key);
  RegQueryInfoKeyA(key, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &values, nullptr, nullptr, nullptr,
                   nullptr);
  RegCloseKey(key);
  return values == 0 ? 0 : values - 1;
}

class Win32TestMachine final : public TestMachine {
 public:
  Win32TestMachine() : machine_(nullptr), firstFolder_(std::filesystem::current_path().string()) {
    if (isThere(kRoot)) removeTree(kRoot);
    makeFolders(kRoot);
    removeKeys(HKEY_CURRENT_USER, kKeyRoot);
  }

  ~Win32TestMachine() override {
    for (const std::string& url : usedPages_) UnlockUrlCacheEntryFileA(url.c_str(), 0);
    for (const std::string& url : pages_) DeleteUrlCacheEntryA(url.c_str());
    SetCurrentDirectoryA(firstFolder_.c_str());
    for (const std::string& link : links_) {
      const std::size_t end = link.rfind('\\');
      require(support::removeFolderLink(link.substr(0, end), link.substr(end + 1)), "remove the link", link);
    }
    if (isThere(kOnOtherDrive)) removeTree(kOnOtherDrive);
    removeTree(kRoot);
    removeKeys(HKEY_CURRENT_USER, kKeyRoot);
  }

  platform::Machine& machine() override { return machine_; }

  std::string root() const override { return kRoot; }

  std::string onOtherDrive() override {
    makeFolders(kOnOtherDrive);
    return kOnOtherDrive;
  }

  void makeFolder(const std::string& path) override { makeFolders(path); }

  void makeFile(const std::string& path, const std::string& bytes) override {
    makeFolders(path.substr(0, path.rfind('\\')));
    std::ofstream file(path, std::ios::binary);
    require((file << bytes).good(), "make", path);
  }

  void makeLongFile(const std::string& path, std::uint64_t size) override {
    makeFile(path, "");
    const HANDLE file = CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
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

  std::string readBack(const std::string& path) const override {
    std::ifstream file(path, std::ios::binary);
    require(file.is_open(), "read", path);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  std::vector<std::string> namesIn(const std::string& folder) const override {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
      names.push_back(entry.path().filename().string());
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

  void makeFolderLink(const std::string& path, const std::string& target) override {
    const std::size_t end = path.rfind('\\');
    const std::string folder = path.substr(0, end);
    makeFolders(folder);
    // One step up for each folder between the working folder and the link.
    std::string way;
    for (std::size_t i = std::strlen(kRoot); i < folder.size(); ++i) way += folder[i] == '\\' ? "..\\" : "";
    way += target.substr(std::strlen(kRoot) + 1);
    require(support::makeFolderLink(folder, path.substr(end + 1), way), "make the link", path);
    links_.push_back(path);
  }

  // Wine opens what the link points to, whatever it is asked for.
  bool letsLinksGo() const override { return GetProcAddress(GetModuleHandleA("ntdll"), "wine_get_version") == nullptr; }

  void setVariable(const std::string& name, const std::string& value) override {
    require(SetEnvironmentVariableA(name.c_str(), value.c_str()) != FALSE, "set the variable", name);
  }

  void cachePage(const std::string& url, const platform::FileTime& expires) override {
    std::array<char, MAX_PATH + 1> file{};
    require(CreateUrlCacheEntryA(url.c_str(), 4, "htm", file.data(), 0) != FALSE, "cache", url);
    makeFile(file.data(), "page");
    const BOOL done = CommitUrlCacheEntryA(url.c_str(), file.data(), {expires.low, expires.high}, {},
                                           NORMAL_CACHE_ENTRY, nullptr, 0, nullptr, nullptr);
    require(done != FALSE, "cache", url);
    pages_.push_back(url);
  }

  void useCachedPage(const std::string& url) override {
    std::vector<char> block(1 << 16);
    auto size = static_cast<DWORD>(block.size());
    const BOOL done =
        RetrieveUrlCacheEntryFileA(url.c_str(), reinterpret_cast<INTERNET_CACHE_ENTRY_INFOA*>(block.data()), &size, 0);
    require(done != FALSE, "read", url);
    usedPages_.push_back(url);
  }

  std::size_t recentDocuments() const override { return recentValues(); }

  std::string keyRoot() const override { return kKeyRoot; }

 private:
  platform::win32::Win32Machine machine_;
  std::string firstFolder_;
  std::vector<std::string> links_;
  std::vector<std::string> pages_;
  std::vector<std::string> usedPages_;
};

}  // namespace

std::unique_ptr<TestMachine> makeTestMachine() { return std::make_unique<Win32TestMachine>(); }

}  // namespace contract
