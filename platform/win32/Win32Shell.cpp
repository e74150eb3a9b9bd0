#include "platform/win32/Win32Shell.h"

#include <windows.h>

// Kept apart: the shell's headers need <windows.h> before them.
#include <shellapi.h>
#include <shlobj.h>

#include <array>

#include "platform/win32/RunTimeBinding.h"

namespace platform::win32 {
namespace {

// The shell expects the record without padding.
static_assert(sizeof(void*) != 4 || sizeof(SHFILEOPSTRUCTA) == 30);

// Commands of HtmlHelpA.
constexpr UINT kDisplayTopic = 0;
constexpr UINT kCloseAll = 18;
using HtmlHelpFunction = HWND WINAPI(HWND caller, const char* file, UINT command, DWORD_PTR data);

// With a closing backslash.
std::string systemFolder() {
  std::array<char, MAX_PATH + 1> folder{};
  GetSystemDirectoryA(folder.data(), MAX_PATH);
  return std::string(folder.data()) + '\\';
}

// Null where Windows lacks it. By its full path: a name alone is searched for in the current folder too.
HtmlHelpFunction* htmlHelp() {
  static const auto function = boundAtRunTime<HtmlHelpFunction*>((systemFolder() + "hhctrl.ocx").c_str(), "HtmlHelpA");
  return function;
}

const char* orNull(const std::optional<std::string>& text) { return text ? text->c_str() : nullptr; }

}  // namespace

std::int32_t Win32Shell::fileOperation(const FileOperation& operation) {
  SHFILEOPSTRUCTA record = {};
  record.wFunc = operation.operation;
  // The NUL that c_str() appends is the second one that ends the list.
  record.pFrom = operation.sourceList.c_str();
  record.fFlags = operation.flags;
  return SHFileOperationA(&record);
}

std::int32_t Win32Shell::execute(const ShellCommand& command) {
  const HWND owner = command.owner == ShellOwner::kDesktopWindow ? GetDesktopWindow() : nullptr;
  const HINSTANCE result = ShellExecuteA(owner, orNull(command.verb), command.file.c_str(), orNull(command.parameters),
                                         orNull(command.folder), command.showCommand);
  return static_cast<std::int32_t>(reinterpret_cast<std::intptr_t>(result));
}

Result<void> Win32Shell::launchHidden(const std::string& commandLine) {
  STARTUPINFOA start = {};
  start.cb = sizeof(start);
  start.dwFlags = STARTF_USESHOWWINDOW;
  start.wShowWindow = SW_HIDE;
  PROCESS_INFORMATION process = {};
  // Without a path, CreateProcessA would also search the current folder.
  const std::string program = systemFolder() + commandLine.substr(0, commandLine.find(' ')) + ".exe";
  // CreateProcessA may write to the command line.
  std::string writable = commandLine;
  if (CreateProcessA(program.c_str(), writable.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                     &process) == FALSE) {
    return failure(kFileNotFound);
  }
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return {};
}

bool Win32Shell::showHelp(const std::string& file, const std::string& topic) {
  // Windows 95 and NT 4 have it only with Internet Explorer 4.
  if (htmlHelp() == nullptr || GetFileAttributesA(file.c_str()) == INVALID_FILE_ATTRIBUTES) return false;
  const std::string page = file + "::/" + topic;
  helpShown_ = htmlHelp()(nullptr, page.c_str(), kDisplayTopic, 0) != nullptr;
  return helpShown_;
}

void Win32Shell::closeHelp() {
  if (helpShown_) htmlHelp()(nullptr, nullptr, kCloseAll, 0);
  helpShown_ = false;
}

std::int32_t Win32Shell::emptyRecycleBin(const std::string& root, std::uint32_t flags) {
  // Windows 95 and NT 4 have it only with the desktop update of Internet Explorer 4.
  static const auto empty = boundAtRunTime<decltype(&SHEmptyRecycleBinA)>("shell32.dll", "SHEmptyRecycleBinA");
  return empty == nullptr ? E_NOTIMPL : empty(nullptr, root.c_str(), flags);
}

void Win32Shell::addToRecentDocs(std::uint32_t flags, const std::optional<std::string>& path) {
  SHAddToRecentDocs(flags, orNull(path));
}

}  // namespace platform::win32
