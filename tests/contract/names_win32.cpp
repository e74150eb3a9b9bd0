// Names that the code page cannot hold, or that later calls would cut: only the real file system has them, because only
// there do other programs make them with wide calls.
#include <windows.h>

#include <array>

#include "tests/contract/ContractTest.h"

namespace contract {
namespace {

class ForeignNames : public ContractTest {
 protected:
  // Makes a file in the working folder; the prefix keeps every character of the name as it is.
  void makeForeign(const std::wstring& name) {
    const std::string root = testMachine().root();
    const std::wstring path = L"\\\\?\\" + std::wstring(root.begin(), root.end()) + L"\\" + name;
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    CloseHandle(file);
    made_.push_back(path);
  }

  void TearDown() override {
    for (const std::wstring& path : made_) DeleteFileW(path.c_str());
  }

  // Whether the working folder's volume gives files short names.
  bool hasShortNames() {
    const std::string probe = makeFile("probe.longextension");
    std::array<char, MAX_PATH> shortName{};
    GetShortPathNameA(probe.c_str(), shortName.data(), shortName.size());
    DeleteFileA(probe.c_str());
    return probe != shortName.data();
  }

  std::vector<std::wstring> made_;
};

TEST_F(ForeignNames, AnEntryThatTheCodePageCannotHoldNeverPassesForAnother) {
  std::vector<const wchar_t*> foreign = {
      L"\x0430\x0431.bak",         // Cyrillic, of which nothing looks like a Latin letter
      L"inner\xFF3Cown.bak",       // a broad backslash
      L"..\xFF3C..\xFF3Cwin.bak",  // and two that would lead out of the folder
  };
  // An "a" with a hook, which the narrow calls of the older family cannot tell from one without.
  const bool hasWideCalls = (GetVersion() & 0x80000000) == 0;
  if (hasWideCalls) foreign.push_back(L"\x0105.bak");
  makeForeign(L"a.bak");
  makeFile("inner\\own.bak");
  for (const wchar_t* name : foreign) makeForeign(name);

  std::vector<std::string> names = find(at("*.bak"));
  EXPECT_EQ(std::erase(names, "a.bak"), 1);
  EXPECT_EQ(names.size(), hasShortNames() ? foreign.size() : 0);
  for (const std::string& name : names) {
    EXPECT_EQ(name.find_first_of("?\\"), std::string::npos) << name;
    EXPECT_TRUE(fileObjects().deleteFile(at(name), true)) << name;
  }
  EXPECT_EQ(find(at("*.bak")), std::vector<std::string>{"a.bak"});
  EXPECT_TRUE(exists(at("inner\\own.bak")));
}

TEST_F(ForeignNames, RemovingATreeRemovesNothingBesideIt) {
  makeFile("own.bak");
  makeFolder("tree");
  makeForeign(L"tree\\..\xFF3Cown.bak");
  const bool gone = fileObjects().deleteFolder(at("tree"), true).has_value();
  EXPECT_EQ(gone, hasShortNames());
  EXPECT_TRUE(exists(at("own.bak")));
}

TEST_F(ForeignNames, AnEntryThatLaterCallsWouldTakeForItsNeighbourIsLeftOut) {
  makeForeign(L"note.bak");
  makeForeign(L"note.bak ");
  makeForeign(L"note.bak.");
  EXPECT_EQ(find(at("*")), (Names{".", "..", "note.bak"}));
  DeleteFileW(made_[0].c_str());
  EXPECT_EQ(find(at("*")), (Names{".", ".."}));
}

}  // namespace
}  // namespace contract
