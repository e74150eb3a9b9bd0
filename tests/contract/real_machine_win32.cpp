// What the machine in memory cannot show. First of all names that the code page cannot hold, or that later calls would
// take for something else: only on the real one do other programs make them with wide calls.
#include <windows.h>

#include <algorithm>
#include <array>
#include <map>
#include <sstream>
#include <thread>

#include "platform/Enumeration.h"
#include "platform/Paths.h"
#include "platform/win32/Win32Environment.h"
#include "platform/win32/ui/Win32Ui.h"
#include "shredder/modMain.h"
#include "tests/contract/ContractTest.h"

namespace contract {
namespace {

using WideNames = std::vector<std::wstring>;

// The Windows 95 family has narrow calls only, which give a letter without its accent for one that the code page lacks.
bool hasWideCalls() { return (GetVersion() & 0x80000000) == 0; }

// The parts of a text between its "|".
WideNames wideParts(const std::wstring& text) {
  WideNames all;
  std::wistringstream in(text);
  for (std::wstring part; std::getline(in, part, L'|');) all.push_back(part);
  return all;
}

// Names that no byte of the code page's text may make a path, a device, a pattern or another file of. In code page 932
// the second bytes of \x8868 and \x30DD are those of the backslash and the bar.
WideNames foreignNames() {
  WideNames names = wideParts(
      L"\x0430\x0431.bak|\x8868.bak|\x30DD.bak|\xD83D\xDE00.bak|sub\xFF3Cown.bak|sub\xFF3C..\xFF3Cown.bak|"
      L"\x00A5own.bak|\x2215own.bak|C\xFF1Aown.bak|\xFF0A.bak|tw\xFF1Fn.bak|\xFF1C\xFF1E\xFF5C\xFF02.bak|"
      L"twin.bak |twin.bak.|\x0431.bak  |con|nul.bak|Aux.x.bak|com1.bak|LPT9 .bak|com\x00B9.bak|CONIN$");
  for (const wchar_t last : {L'1', L'2'}) names.push_back(std::wstring(250, L'n') + last + L".bak");
  names.push_back(std::wstring(120, L'\x0431') + L".bak");
  // An "a" with an ogonek, a broad one, a dotless "i", and the sign of the kelvin.
  for (const std::wstring& name : wideParts(L"\x0105.bak|\xFF41.bak|\x0131.bak|\x212A.bak")) {
    if (hasWideCalls()) names.push_back(name);
  }
  return names;
}

const WideNames kTwins = wideParts(L"a.bak|i.bak|k.bak|own.bak|twin.bak|sub\\own.bak");

class ForeignNames : public ContractTest {
 protected:
  static constexpr std::uint64_t kForeignSize = 2;

  // The path with a prefix that keeps every character as it is.
  std::wstring wideAt(const std::wstring& name) {
    const std::string root = testMachine().root();
    return L"\\\\?\\" + std::wstring(root.begin(), root.end()) + L'\\' + name;
  }

  void makeForeignFolder(const std::wstring& name) {
    made_.push_back(wideAt(name));
    ASSERT_TRUE(CreateDirectoryW(made_.back().c_str(), nullptr)) << made_.size();
  }

  void makeForeign(const std::wstring& name, std::size_t size = 1) {
    made_.push_back(wideAt(name));
    const HANDLE file = CreateFileW(made_.back().c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
    ASSERT_NE(file, INVALID_HANDLE_VALUE) << made_.size();
    DWORD written = 0;
    WriteFile(file, std::string(size, 'x').data(), static_cast<DWORD>(size), &written, nullptr);
    CloseHandle(file);
  }

  void TearDown() override {
    SetCurrentDirectoryA("C:\\");
    for (auto path = made_.rbegin(); path != made_.rend(); ++path) {
      if (!DeleteFileW(path->c_str())) RemoveDirectoryW(path->c_str());
    }
    ContractTest::TearDown();
  }

  // What is listed in a folder: the sizes by name.
  std::map<std::string, std::uint64_t> listed(const std::string& folder) {
    std::map<std::string, std::uint64_t> sizes;
    forEachEntry(files(), at(folder) + "\\*", [&](const std::string& name, const FindRecord& record) {
      if (!isDotEntry(name)) sizes[name] = record.sizeLow;
      return true;
    });
    return sizes;
  }

  // That the path of a foreign file, if there is one, leads to it, and every part of it up to a backslash to a folder.
  void expectExact(const std::string& path) {
    if (path == "\\own.bak") return;
    EXPECT_EQ(files().fileSize(path), kForeignSize) << path;
    for (std::size_t end = path.find('\\'); end != std::string::npos; end = path.find('\\', end + 1)) {
      EXPECT_TRUE(exists(path.substr(0, end))) << path;
    }
  }

  bool isThere(const std::wstring& name) { return GetFileAttributesW(wideAt(name).c_str()) != kInvalidAttributes; }

  WideNames made_;
};

// Each file has a size of its own, so that it shows which of them a name reaches.
TEST_F(ForeignNames, AListedNameReachesItsOwnFileAndNoOther) {
  makeFolder("sub");
  for (const std::wstring& name : kTwins) makeForeign(name, made_.size() + 1);
  const WideNames foreign = foreignNames();
  for (const std::wstring& name : foreign) makeForeign(name, made_.size() + 1);
  std::map<std::string, std::uint64_t> names = listed(".");
  names.erase("sub");
  Names shown = files().filesIn(at(".")).value();
  std::ranges::sort(shown);
  EXPECT_FALSE(hasWideCalls() && names.contains("com\xB9.bak")) << "a device on later systems";
  EXPECT_TRUE(std::ranges::equal(shown, names, {}, {}, [](const auto& entry) { return entry.first; }));
  for (std::size_t i = 0; i + 1 < kTwins.size(); ++i) {
    const std::string twin(kTwins[i].begin(), kTwins[i].end());
    EXPECT_EQ(names[twin], i + 1) << twin;
    names.erase(twin);
  }
  std::vector<bool> isListed(made_.size());
  for (const auto& [name, size] : names) {
    isListed.at(size - 1) = at(name).size() < MAX_PATH;  // a longer path reaches nothing
    EXPECT_EQ(files().fileSize(at(name)).value_or(0), isListed[size - 1] ? size : 0) << name;
    EXPECT_EQ(fileObjects().deleteFile(at(name), true).has_value(), isListed[size - 1]) << name;
  }
  for (std::size_t i = 0; i < made_.size(); ++i) {
    EXPECT_NE(GetFileAttributesW(made_[i].c_str()) != kInvalidAttributes, isListed[i]) << i;
  }
}

TEST_F(ForeignNames, AListedFolderReachesItsOwnFiles) {
  makeFolder("tree");
  for (const wchar_t* name : {L"a.bak", L"i.bak", L"k.bak", L"twin.bak"})
    makeForeignFolder(std::wstring(L"tree\\") + name);
  for (const std::wstring& name : foreignNames()) {
    makeForeignFolder(L"tree\\" + name);
    if (name.size() < 100) makeForeign(L"tree\\" + name + L"\\own" + std::to_wstring(made_.size()));
  }
  std::map<std::string, int> found;
  const Names folders = files().subfolders(at("tree")).value();
  for (const std::string& name : folders) {
    for (const std::string& file : find(at("tree\\" + name + "\\own*"))) ++found[file];
  }
  EXPECT_GE(found.size(), 3U);
  for (const auto& [file, times] : found) EXPECT_EQ(times, 1) << file;
}

TEST_F(ForeignNames, RemovingATreeRemovesNothingBesideIt) {
  makeFolder("sub");
  for (const std::wstring& name : kTwins) makeForeign(name);
  for (const std::wstring& name : foreignNames()) {
    makeForeignFolder(L"tree");
    makeForeign(L"tree\\" + name);
    const bool isListed = !listed("tree").empty() && at("tree").size() + name.size() < MAX_PATH;
    EXPECT_EQ(fileObjects().deleteFolder(at("tree"), true).has_value(), isListed) << made_.size();
    EXPECT_NE(exists(at("tree")), isListed) << made_.size();
    DeleteFileW(made_.back().c_str());
    RemoveDirectoryW(wideAt(L"tree").c_str());
  }
  for (const std::wstring& name : kTwins) EXPECT_TRUE(isThere(name)) << name.size();
}

// Types a path into the open-file dialog of this process and presses its button, as soon as it is there.
void answerDialog(const std::wstring& path) {
  constexpr int kNameList = 0x47C;
  constexpr int kName = 0x480;
  constexpr int kTries = 500;
  constexpr DWORD kPause = 20;  // milliseconds
  HWND dialog = nullptr;
  for (int i = 0; i < kTries && (dialog == nullptr || !IsWindowVisible(dialog)); ++i) {
    Sleep(kPause);
    dialog = FindWindowW(L"#32770", L"Foreign names");
  }
  for (const int name : {kNameList, kName}) SetDlgItemTextW(dialog, name, path.c_str());
  PostMessageW(dialog, WM_COMMAND, IDOK, 0);
}

Result<std::string> choose(const std::wstring& path) {
  std::thread person(answerDialog, path);
  win32::Win32Ui ui;
  Result<std::string> chosen = ui.openFileDialog({.title = "Foreign names", .filter = "All|*.*|"});
  person.join();
  return chosen;
}

TEST_F(ForeignNames, TextsThatComeInAreExactOrRefused) {
  const wchar_t* const foreign = hasWideCalls() ? L"\x8868|\x30BD\x0431|\x0105|sub\uFF3Ca" : L"\x8868|\x30BD\x0431";
  for (const char* name : {"a", "sub\\a"}) makeFile(std::string(name) + "\\own.bak");
  for (const std::wstring& name : wideParts(foreign)) {
    makeForeignFolder(name);
    makeForeign(name + L"\\own.bak", kForeignSize);
    const std::wstring folder = wideAt(name).substr(4);
    SetEnvironmentVariableW(L"FOREIGN", folder.c_str());
    const Result<std::string> chosen = choose(folder + L"\\own.bak");
    ASSERT_TRUE(SetCurrentDirectoryW(folder.c_str()));
    const std::string here = files().currentFolder();
    expectExact(here + "\\own.bak");
    expectExact(machine().environment().getEnvironmentVariable("FOREIGN") + "\\own.bak");
    if (chosen) expectExact(*chosen);
    EXPECT_TRUE(chosen || chosen.error().number == kBadFileName);
    EXPECT_EQ(files().currentFolderOf('C').value(), here.empty() ? "C:\\" : here);
  }
  EXPECT_EQ(numberOf(choose(L"C:\\contract\\nul.bak")), kBadFileName);
}

// ---- A hidden launch, rights, and the limits of a process of 32 bits

class Launch : public ContractTest {};

TEST_F(Launch, RunsTheCommandLineWithItsQuotedArguments) {
  const std::string file = at("made by a command.txt");
  EXPECT_TRUE(machine().shell().launchHidden("cmd /c echo x>\"" + file + "\""));
  constexpr int kPatience = 200;
  for (int i = 0; i < kPatience && !exists(file); ++i) Sleep(50);
  EXPECT_TRUE(exists(file));
  // The command may still hold its file open.
  for (int i = 0; i < kPatience && !opensForReading(file, kShareNone); ++i) Sleep(50);
  EXPECT_EQ(numberOf(machine().shell().launchHidden("no-such-program \"x\"")), kFileNotFound);
}

// The token of this process without the rights of the Administrators group, as Vista and later give it first.
HANDLE ordinaryToken() {
  HANDLE own = nullptr;
  HANDLE ordinary = nullptr;
  DWORD size = SECURITY_MAX_SID_SIZE;
  std::array<BYTE, SECURITY_MAX_SID_SIZE> administrators{};
  SID_AND_ATTRIBUTES denied = {administrators.data(), 0};
  CreateWellKnownSid(WinBuiltinAdministratorsSid, nullptr, administrators.data(), &size);
  OpenProcessToken(GetCurrentProcess(), TOKEN_ALL_ACCESS, &own);
  CreateRestrictedToken(own, 0, 1, &denied, 0, nullptr, 0, nullptr, &ordinary);
  return ordinary;
}

// The test starts itself once more with that token.
TEST(Rights, AnAdministratorHasThemAndLosesThemWithTheGroup) {
  const bool isOrdinary = GetEnvironmentVariableA("SCRUBHAVEN_ORDINARY", nullptr, 0) != 0;
  EXPECT_EQ(win32::Win32Environment().isAdministrator(), !isOrdinary);
  if (isOrdinary) return;
  SetEnvironmentVariableA("SCRUBHAVEN_ORDINARY", "1");
  std::string command = std::string(GetCommandLineA()) + " --gtest_filter=Rights.*";
  STARTUPINFOA startup = {};
  startup.cb = sizeof(startup);
  startup.dwFlags = STARTF_USESTDHANDLES;  // its closing line would be taken for that of the whole run
  PROCESS_INFORMATION process = {};
  ASSERT_TRUE(CreateProcessAsUserA(ordinaryToken(), nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr,
                                   nullptr, &startup, &process));
  WaitForSingleObject(process.hProcess, INFINITE);
  DWORD status = 1;
  EXPECT_TRUE(GetExitCodeProcess(process.hProcess, &status) && status == 0);
}

#ifndef _WIN64
// Two gigabytes in one piece are more than such a process can get.
TEST(MemoryLimit, RandomBytesThatDoNotFitLeaveTheKeystreamWhereItWas) {
  SeedKeystream("limit");
  const KeystreamState before = keystream();
  EXPECT_EQ(numberOf(RandomBytes(0x7F000000)), platform::kOutOfMemory);
  EXPECT_TRUE(keystream().S == before.S && keystream().i == before.i && keystream().j == before.j);
}
#endif

}  // namespace
}  // namespace contract
