// The fixture of the contract tests: a test machine, its services installed, and short words for what most tests do.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tests/contract/TestMachine.h"

namespace contract {

class ContractTest : public testing::Test {
 protected:
  TestMachine& testMachine() { return *testMachine_; }
  platform::FileSystem& files() { return testMachine_->machine().files(); }
  platform::FileObjects& fileObjects() { return testMachine_->machine().fileObjects(); }
  platform::Shell& shell() { return testMachine_->machine().shell(); }

  // The full path of something in the working folder.
  std::string at(const std::string& name) const { return testMachine_->root() + '\\' + name; }

  std::string makeFile(const std::string& name, const std::string& bytes = "") {
    testMachine_->makeFile(at(name), bytes);
    return at(name);
  }

  std::string makeFolder(const std::string& name) {
    testMachine_->makeFolder(at(name));
    return at(name);
  }

  // The names that an enumeration gives, and nothing left open behind it.
  std::vector<std::string> find(const std::string& pattern) {
    std::vector<std::string> names;
    platform::FindRecord record;
    const platform::Handle enumeration = files().findFirstFile(pattern, record);
    if (enumeration == platform::kInvalidHandle) return names;
    do {
      names.emplace_back(record.name.data());
    } while (files().findNextFile(enumeration, record));
    EXPECT_TRUE(files().findClose(enumeration));
    return names;
  }

  // The record of one file; fails the test when there is not exactly one.
  platform::FindRecord recordOf(const std::string& path) {
    platform::FindRecord record;
    const platform::Handle enumeration = files().findFirstFile(path, record);
    EXPECT_NE(enumeration, platform::kInvalidHandle) << path;
    platform::FindRecord further;
    EXPECT_FALSE(files().findNextFile(enumeration, further)) << path;
    files().findClose(enumeration);
    return record;
  }

  // Whether the path can be opened for reading with these sharing bits now. Leaves nothing open.
  bool opensForReading(const std::string& path, std::uint32_t share) {
    const platform::Handle handle = files().createFile(path, {.access = platform::kGenericRead, .share = share});
    return handle != platform::kInvalidHandle && files().closeHandle(handle);
  }

 private:
  std::unique_ptr<TestMachine> testMachine_ = makeTestMachine();
};

// The failure's number, 0 for success.
template <typename T>
std::int32_t numberOf(const platform::Result<T>& result) {
  return result ? 0 : result.error().number;
}

// Attributes without the archive bit: some machines set it on every file, some only after a write.
constexpr std::uint32_t withoutArchive(std::uint32_t attributes) { return attributes & ~platform::kArchive; }

}  // namespace contract
