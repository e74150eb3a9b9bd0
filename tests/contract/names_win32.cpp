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

TEST_F(ForeignNames, AnEntryThatTheCodePageCannotHoldNeverPassesForAnother) {
  constexpr const wchar_t* kForeign[] = {
      L"\x0430\x0431.bak",  // Cyrillic, of which nothing looks like a Latin letter
      L"\x0105.bak",        // an "a" with a hook
      L"inner\xFF3C"
      L"b.bak",                    // a broad backslash
      L"..\xFF3C..\xFF3Cwin.bak",  // and two that would lead out of the folder
  };
  makeFile(L"a.bak");
  bed_->makeFile(bed_->root() + "\\inner\\b.bak");
  for (const wchar_t* name : kForeign) makeFile(name);

  std::vector<std::string> names = walk("*.bak");
  EXPECT_EQ(std::erase(names, "a.bak"), 1);
  EXPECT_EQ(names.size(), bed_->hasShortNames() ? std::size(kForeign) : 0);
  for (const std::string& name : names) {
    EXPECT_EQ(name.find_first_of("?\\"), std::string::npos) << name;
    EXPECT_TRUE(bed_->machine().fileObjects().deleteFile(bed_->root() + "\\" + name, true)) << name;
  }
  EXPECT_EQ(walk("*.bak"), std::vector<std::string>{"a.bak"});
  EXPECT_TRUE(bed_->exists(bed_->root() + "\\inner\\b.bak"));
}

TEST_F(ForeignNames, RemovingATreeRemovesNothingBesideIt) {
  bed_->makeFile(bed_->root() + "\\a.bak");
  bed_->makeFolder(bed_->root() + "\\tree");
  makeFile(
      L"tree\\..\xFF3C"
      L"a.bak");
  const bool gone = bed_->machine().fileObjects().deleteFolder(bed_->root() + "\\tree", true).has_value();
  EXPECT_EQ(gone, bed_->hasShortNames());
  EXPECT_TRUE(bed_->exists(bed_->root() + "\\a.bak"));
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
