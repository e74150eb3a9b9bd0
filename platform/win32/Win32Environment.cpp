#include "platform/win32/Win32Environment.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <vector>

#include "platform/win32/CodePage.h"

namespace platform::win32 {
namespace {

// The groups of the process's user, as a TOKEN_GROUPS; empty where they cannot be asked.
std::vector<std::byte> groupsOfProcess() {
  HANDLE token = nullptr;
  if (OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &token) == FALSE) return {};
  DWORD size = 0;
  GetTokenInformation(token, TokenGroups, nullptr, 0, &size);
  std::vector<std::byte> groups(size);
  if (GetTokenInformation(token, TokenGroups, groups.data(), size, &size) == FALSE) groups.clear();
  CloseHandle(token);
  return groups;
}

bool isAdministrators(PSID group) {
  struct {
    SID head = {SID_REVISION, 2, SECURITY_NT_AUTHORITY, {SECURITY_BUILTIN_DOMAIN_RID}};
    DWORD last = DOMAIN_ALIAS_RID_ADMINS;
  } administrators;
  return EqualSid(group, &administrators.head) != FALSE;
}

}  // namespace

std::uint32_t Win32Environment::getTickCount() { return GetTickCount(); }

std::string Win32Environment::programFolder() {
  const auto narrow = [](DWORD size, char* out) { return GetModuleFileNameA(nullptr, out, size); };
  const auto wide = [](DWORD size, wchar_t* out) { return GetModuleFileNameW(nullptr, out, size); };
  const std::string path =
      hasWideCalls() ? reachablePath(pathFrom<wchar_t>(wide)) : reachablePath(pathFrom<char>(narrow));
  const std::size_t end = path.rfind('\\');
  if (end == std::string::npos) return path;
  const bool isRoot = end > 0 && path[end - 1] == ':';
  return path.substr(0, isRoot ? end + 1 : end);
}

std::string Win32Environment::windowsFolder() {
  const auto narrow = [](DWORD size, char* out) { return GetWindowsDirectoryA(out, size); };
  const auto wide = [](DWORD size, wchar_t* out) { return GetWindowsDirectoryW(out, size); };
  return hasWideCalls() ? reachablePath(pathFrom<wchar_t>(wide)) : reachablePath(pathFrom<char>(narrow));
}

std::string Win32Environment::getEnvironmentVariable(const std::string& name) {
  // The first call returns the length with the terminating NUL, the second one without.
  if (hasWideCalls()) {
    const std::wstring wideName = wideText(name);
    std::wstring value(GetEnvironmentVariableW(wideName.c_str(), nullptr, 0), L'\0');
    value.resize(GetEnvironmentVariableW(wideName.c_str(), value.data(), static_cast<DWORD>(value.size())));
    return exactPath(value).value_or("");
  }
  std::string value(GetEnvironmentVariableA(name.c_str(), nullptr, 0), '\0');
  value.resize(GetEnvironmentVariableA(name.c_str(), value.data(), static_cast<DWORD>(value.size())));
  return reachablePath(value);
}

std::string Win32Environment::resourceText(const std::string& name) {
  const HRSRC found = FindResourceA(nullptr, name.c_str(), RT_RCDATA);
  if (found == nullptr) return {};
  const auto* const text = static_cast<const char*>(LockResource(LoadResource(nullptr, found)));
  return {text, SizeofResource(nullptr, found)};
}

std::string Win32Environment::upperCase(std::string_view text) { return upperCaseOf(text); }

bool Win32Environment::isAdministrator() {
  const std::vector<std::byte> bytes = groupsOfProcess();
  if (bytes.empty()) return true;
  const auto* const groups = reinterpret_cast<const TOKEN_GROUPS*>(bytes.data());
  // A group without the bit only denies.
  return std::ranges::any_of(std::span(groups->Groups, groups->GroupCount), [](const SID_AND_ATTRIBUTES& group) {
    return (group.Attributes & SE_GROUP_ENABLED) != 0 && isAdministrators(group.Sid);
  });
}

std::string Win32Environment::dateText() {
  std::array<char, 256> text{};
  GetDateFormatA(LOCALE_USER_DEFAULT, DATE_SHORTDATE, nullptr, nullptr, text.data(), text.size());
  return text.data();
}

std::string Win32Environment::timeText() {
  std::array<char, 256> text{};
  GetTimeFormatA(LOCALE_USER_DEFAULT, 0, nullptr, nullptr, text.data(), text.size());
  return text.data();
}

float Win32Environment::secondsSinceMidnight() {
  SYSTEMTIME now;
  GetLocalTime(&now);
  const int milliseconds = ((now.wHour * 60 + now.wMinute) * 60 + now.wSecond) * 1000 + now.wMilliseconds;
  return static_cast<float>(milliseconds / 1000.0);
}

}  // namespace platform::win32
