#include "platform/win32/CodePage.h"

#include <windows.h>

#include <algorithm>
#include <type_traits>

namespace platform::win32 {

namespace {

// All code pages agree on these, and almost every name consists of them.
template <typename Character>
bool isAscii(Character character) {
  return static_cast<std::make_unsigned_t<Character>>(character) < 0x80;
}

}  // namespace

std::wstring wideText(std::string_view text) {
  const int bytes = static_cast<int>(text.size());
  std::wstring wide(MultiByteToWideChar(CP_ACP, 0, text.data(), bytes, nullptr, 0), L'\0');
  MultiByteToWideChar(CP_ACP, 0, text.data(), bytes, wide.data(), static_cast<int>(wide.size()));
  return wide;
}

bool hasWideCalls() {
  constexpr DWORD kWindows95Family = 0x80000000;
  return (GetVersion() & kWindows95Family) == 0;
}

std::optional<std::string> exactText(std::wstring_view wide) {
  if (std::ranges::all_of(wide, isAscii<wchar_t>)) return std::string(wide.begin(), wide.end());
  const int length = static_cast<int>(wide.size());
  std::string text(WideCharToMultiByte(CP_ACP, 0, wide.data(), length, nullptr, 0, nullptr, nullptr), '\0');
  WideCharToMultiByte(CP_ACP, 0, wide.data(), length, text.data(), static_cast<int>(text.size()), nullptr, nullptr);
  return wideText(text) == wide ? std::optional(text) : std::nullopt;
}

std::optional<std::string> exactPath(std::wstring_view wide) {
  std::optional<std::string> exact = exactText(wide);
  if (exact && std::ranges::count(*exact, '\\') != std::ranges::count(wide, L'\\')) exact.reset();
  return exact;
}

std::string reachablePath(const std::wstring& path) {
  if (const std::optional<std::string> exact = exactPath(path)) return *exact;
  const auto shortForm = [&path](DWORD size, wchar_t* out) { return GetShortPathNameW(path.c_str(), out, size); };
  return exactPath(pathFrom<wchar_t>(shortForm)).value_or("");
}

std::string reachablePath(const std::string& path) {
  return path.contains('?') ? "" : exactPath(wideText(path)).value_or("");
}

std::string upperCaseOf(std::string_view text) {
  if (std::ranges::all_of(text, isAscii<char>)) {
    std::string upper(text);
    for (char& letter : upper) {
      if (letter >= 'a' && letter <= 'z') letter = static_cast<char>(letter - 'a' + 'A');
    }
    return upper;
  }
  if (hasWideCalls()) {
    // In the UTF-8 code page, upper case can change the number of bytes, which the narrow call cannot do.
    std::wstring wide = wideText(text);
    CharUpperBuffW(wide.data(), static_cast<DWORD>(wide.size()));
    return exactText(wide).value_or(std::string(text));
  }
  std::string result(text);
  CharUpperBuffA(result.data(), static_cast<DWORD>(result.size()));
  return result;
}

}  // namespace platform::win32
