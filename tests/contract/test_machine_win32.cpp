// The test machine on the Windows that the tests run on, made with direct system calls.
// The tests only run on a Windows that has the newer registry functions.
#undef _WIN32_WINNT
#define _WIN32_WINNT 0x0600
#include <windows.h>

#include <filesystem>
#include <memory>

#include "driver/WinFiles.h"
#include "platform/win32/Win32Machine.h"
#include "platform/win32/ui/Win32Ui.h"
#include "tests/contract/ContractTest.h"

namespace contract {
namespace {

using support::require;

void removeTree(const std::string& folder) {
  std::error_code error;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder, error)) {
    std::filesystem::permissions(entry.path(), std::filesystem::perms::all, error);
  }
  // A host program that was started in the folder may hold it for a moment after it has ended.
  constexpr int kTries = 100;
  std::filesystem::remove_all(folder, error);
  for (int n = 1; n < kTries && std::filesystem::exists(folder); ++n) {
    Sleep(20);
    std::filesystem::remove_all(folder, error);
  }
  require(!std::filesystem::exists(folder), "remove " + folder);
}

class Win32TestMachine final : public TestMachine {
 public:
  Win32TestMachine() : machine_(std::make_unique<platform::win32::Win32Ui>()) {
    removeAll();
    for (const std::string& folder : {root(), onOtherDrive()}) std::filesystem::create_directories(folder);
  }

  ~Win32TestMachine() override {
    SetCurrentDirectoryA("C:\\");
    for (const std::string& link : links_) require(support::removeFolderLink(root(), link), "remove the link " + link);
    removeAll();
  }

  platform::Machine& machine() override { return machine_; }

  void makeFolder(const std::string& path, std::uint32_t attributes) override {
    std::filesystem::create_directories(path);
    require(attributes == 0 || SetFileAttributesA(path.c_str(), attributes), "set the attributes of " + path);
  }

  void makeFile(const std::string& path, const std::string& bytes, std::uint32_t attributes) override {
    support::makeFile(path, bytes, attributes);
  }

  void makeLongFile(const std::string& path, std::uint64_t size) override {
    support::makeFile(path, "");
    std::filesystem::resize_file(path, size);
  }

  std::string readBack(const std::string& path) const override { return support::readFile(path); }

  std::vector<std::string> namesIn(const std::string& folder) const override { return support::namesIn(folder); }

  void setCurrentFolder(const std::string& folder) override {
    require(SetCurrentDirectoryA(folder.c_str()) != FALSE, "enter " + folder);
  }

  std::size_t recycledItems() const override { return support::recycledItems(); }

  void makeFolderLink(const std::string& name, const std::string& target) override {
    std::filesystem::create_directories(std::filesystem::path(root() + '\\' + name).parent_path());
    require(support::makeFolderLink(root(), name, target), "make the link " + name);
    links_.push_back(name);
  }

  // Wine opens what the link points to, whatever it is asked for.
  bool letsLinksGo() const override { return GetProcAddress(GetModuleHandleA("ntdll"), "wine_get_version") == nullptr; }

  void cachePage(const std::string& url, const platform::FileTime& expires) override {
    support::cachePage(url, {expires.low, expires.high});
  }

 private:
  static void removeAll() {
    for (const std::string& folder : {root(), onOtherDrive()}) removeTree(folder);
    RegDeleteTreeA(HKEY_CURRENT_USER, keyRoot().c_str());
  }

  platform::win32::Win32Machine machine_;
  std::vector<std::string> links_;
};

}  // namespace

std::unique_ptr<TestMachine> makeTestMachine() { return std::make_unique<Win32TestMachine>(); }

}  // namespace contract
