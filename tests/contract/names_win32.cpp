// Names that the code page cannot hold, or that later calls would cut: only the real file system has them, because only
// there do other programs make them with wide calls.
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/contract/Bed.h"

namespace {

class ForeignNames : public testing::Test {
 protected:
  // Makes a file in the working folder; the prefix keeps every character of the name as it is.
  void makeFile(const std::wstring& name) {
    const std::string root = bed_->root();
    const std::wstring path = L"\\\\?\\" + std::wstring(root.begin(), root.end()) + L"\\" + name;
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    CloseHandle(file);
    made_.push_back(path);
  }

  void TearDown() override {
    for (const std::wstring& path : made_) {
      DeleteFileW(path.c_str());
    }
  }

  std::vector<std::string> walk(const std::string& pattern) {
    std::vector<std::string> names;
    platform::FindRecord record;
    platform::FileSystem& files = bed_->machine().files();
    const platform::Handle enumeration = files.findFirstFile(bed_->root() + "\\" + pattern, record);
    for (bool more = enumeration != platform::kInvalidHandle; more; more = files.findNextFile(enumeration, record)) {
      names.emplace_back(record.name.data());
    }
    files.findClose(enumeration);
    std::ranges::sort(names);
    return names;
  }

  std::unique_ptr<contract::Bed> bed_ = contract::makeBed();
  std::vector<std::wstring> made_;
};

TEST_F(ForeignNames, AnEntryThatTheCodePageCannotHoldIsReachedUnderItsAlias) {
  makeFile(L"\x0430\x0431.bak");
  if (!bed_->hasShortNames()) {
    EXPECT_TRUE(walk("*.bak").empty());
    return;
  }
  const std::vector<std::string> names = walk("*.bak");
  ASSERT_EQ(names.size(), 1u);
  EXPECT_EQ(names[0].find('?'), std::string::npos) << names[0];
  EXPECT_TRUE(bed_->machine().fileObjects().deleteFile(bed_->root() + "\\" + names[0], true));
  EXPECT_TRUE(walk("*.bak").empty());
}

TEST_F(ForeignNames, AnEntryThatLaterCallsWouldTakeForItsNeighbourIsLeftOut) {
  makeFile(L"note.bak");
  makeFile(L"note.bak ");
  makeFile(L"note.bak.");
  EXPECT_EQ(walk("*"), (std::vector<std::string>{".", "..", "note.bak"}));
  DeleteFileW(made_[0].c_str());
  EXPECT_EQ(walk("*"), (std::vector<std::string>{".", ".."}));
}

}  // namespace
