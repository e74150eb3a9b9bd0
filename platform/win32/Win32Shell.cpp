#include "platform/win32/Win32Shell.h"

#include <windows.h>

// Kept apart: the shell's headers need <windows.h> before them.
#include <shellapi.h>
#include <shlobj.h>

#include "platform/win32/RunTimeBinding.h"

namespace platform::win32 {
namespace {

// The shell expects the record without padding.
static_assert(sizeof(void*) != 4 || sizeof(SHFILEOPSTRUCTA) == 30);

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
  // CreateProcessA may write to the command line.
  std::string writable = commandLine;
  if (CreateProcessA(nullptr, writable.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &process) ==
      FALSE) {
    return failure(kFileNotFound);
  }
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return {};
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
