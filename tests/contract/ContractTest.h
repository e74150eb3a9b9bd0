// The fixture of the contract tests, with short forms of what most tests do, and what the tests need from a machine
// besides its services: a place to work in, and a way to set up and to look at things that does not use the interfaces
// under test. Each machine has its own implementation.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/Enumeration.h"
#include "platform/Platform.h"

namespace contract {

using namespace platform;  // what is under test

using Names = std::vector<std::string>;

// A machine with one empty working folder. Paths are full Windows paths. Helpers that cannot do what they are asked
// end the test program: a contract test that could not be prepared must not look like one that passed.
class TestMachine {
 public:
  virtual ~TestMachine() = default;  // removes the working folder with all that is in it

  // The machine under test.
  virtual platform::Machine& machine() = 0;

  // The working folder, without a closing backslash. It exists and is empty when the test machine is made.
  static std::string root() { return "C:\\contract"; }
  // The same on another drive.
  static std::string onOtherDrive() { return "D:\\contract"; }
  // The working key below HKEY_CURRENT_USER. It does not exist when the test machine is made, and is removed with it.
  static std::string keyRoot() { return "Software\\Contract"; }

  // Makes a folder, hidden or system by its attributes, and its missing parents.
  virtual void makeFolder(const std::string& path, std::uint32_t attributes = 0) = 0;
  // Makes a file with these bytes and attributes (read-only, hidden, system, archive), and its missing parents.
  virtual void makeFile(const std::string& path, const std::string& bytes = "", std::uint32_t attributes = 0) = 0;
  // Makes a file of `size` bytes (over 4 GiB too) that takes no room for them: sparse, or with a length only set.
  virtual void makeLongFile(const std::string& path, std::uint64_t size) = 0;

  // The bytes of a file (a small one) that nobody has open without sharing.
  virtual std::string readBack(const std::string& path) const = 0;
  // The names in a folder, without "." and "..", sorted bytewise.
  virtual std::vector<std::string> namesIn(const std::string& folder) const = 0;

  // Makes the folder the process's current one, and its drive the current drive, until the test machine's end.
  virtual void setCurrentFolder(const std::string& folder) = 0;

  // How many items lie in the Recycle Bin now. SHQueryRecycleBinA.
  virtual std::size_t recycledItems() const = 0;

  // Makes a link to the folder `target`, and its missing parents. Both are paths below the working folder, without
  // blanks.
  virtual void makeFolderLink(const std::string& name, const std::string& target) = 0;
  // Whether a program can remove a link. Where the system can only follow links, it cannot.
  virtual bool letsLinksGo() const = 0;

  // Puts a page with a file of its own into the Internet cache, where it stays.
  virtual void cachePage(const std::string& url, const platform::FileTime& expires) = 0;
};

// A new test machine with a fresh working folder. One definition is linked into each test program.
std::unique_ptr<TestMachine> makeTestMachine();

class ContractTest : public testing::Test {
 protected:
  TestMachine& testMachine() { return *testMachine_; }
  Machine& machine() { return testMachine_->machine(); }
  FileSystem& files() { return machine().files(); }
  FileObjects& fileObjects() { return machine().fileObjects(); }

  // The full path of something in the working folder.
  std::string at(const std::string& name) const { return testMachine_->root() + '\\' + name; }

  std::string makeFile(const std::string& name, const std::string& bytes = "", std::uint32_t attributes = 0) {
    testMachine_->makeFile(at(name), bytes, attributes);
    return at(name);
  }

  std::string makeFolder(const std::string& name, std::uint32_t attributes = 0) {
    testMachine_->makeFolder(at(name), attributes);
    return at(name);
  }

  bool exists(const std::string& path) { return files().getFileAttributes(path) != kInvalidAttributes; }

  // The names in the working folder, or in a folder of it.
  Names namesIn(const std::string& folder = ".") { return testMachine_->namesIn(at(folder)); }

  // The names that an enumeration gives, sorted bytewise.
  Names find(const std::string& pattern) {
    Names names;
    forEachEntry(files(), pattern, [&](const std::string& name, const FindRecord&) {
      names.push_back(name);
      return true;
    });
    std::ranges::sort(names);
    return names;
  }

  // Whether the file can be opened for reading with these sharing bits now. Leaves nothing open.
  bool opensForReading(const std::string& path, std::uint32_t share) {
    const Handle handle = files().createFile(path, {.access = kGenericRead, .share = share});
    return handle != kInvalidHandle && files().closeHandle(handle);
  }

  // Opens the file as another program would, sharing nothing, until the test's end.
  void lock(const std::string& path) {
    locks_.push_back(files().createFile(path, {.access = kGenericRead, .share = kShareNone}));
    ASSERT_NE(locks_.back(), kInvalidHandle) << path;
  }

  void TearDown() override {
    for (const Handle handle : locks_) files().closeHandle(handle);
  }

 private:
  std::unique_ptr<TestMachine> testMachine_ = makeTestMachine();
  ScopedMachine use_{testMachine_->machine()};
  std::vector<Handle> locks_;
};

// The failure's number, 0 for success.
template <typename T>
std::int32_t numberOf(const Result<T>& result) {
  return result ? 0 : result.error().number;
}

// Attributes without the archive bit: some machines set it on every file, some only after a write.
constexpr std::uint32_t withoutArchive(std::uint32_t attributes) { return attributes & ~kArchive; }

}  // namespace contract
