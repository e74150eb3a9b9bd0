// The fixture of the contract tests: a test machine, and short forms of what most tests do.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "tests/contract/TestMachine.h"

namespace contract {

using namespace platform;  // what is under test

using Names = std::vector<std::string>;

class ContractTest : public testing::Test {
 protected:
  TestMachine& testMachine() { return *testMachine_; }
  Machine& machine() { return testMachine_->machine(); }
  FileSystem& files() { return machine().files(); }
  FileObjects& fileObjects() { return machine().fileObjects(); }

  // The full path of something in the working folder.
  std::string at(const std::string& name) const { return testMachine_->root() + '\\' + name; }

  std::string makeFile(const std::string& name, const std::string& bytes = "", std::uint32_t attributes = 0) {
    testMachine_->makeFile(at(name), bytes);
    if (attributes != 0) testMachine_->setAttributes(at(name), attributes);
    return at(name);
  }

  std::string makeFolder(const std::string& name, std::uint32_t attributes = 0) {
    testMachine_->makeFolder(at(name));
    if (attributes != 0) testMachine_->setAttributes(at(name), attributes);
    return at(name);
  }

  bool exists(const std::string& path) { return files().getFileAttributes(path) != kInvalidAttributes; }

  // The names in the working folder, or in a folder of it.
  Names namesIn(const std::string& folder = ".") { return testMachine_->namesIn(at(folder)); }

  // The names that an enumeration gives, sorted bytewise.
  Names find(const std::string& pattern) {
    Names names;
    FindRecord record;
    const Handle enumeration = files().findFirstFile(pattern, record);
    if (enumeration == kInvalidHandle) return names;
    do {
      names.emplace_back(record.name.data());
    } while (files().findNextFile(enumeration, record));
    EXPECT_TRUE(files().findClose(enumeration));
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
