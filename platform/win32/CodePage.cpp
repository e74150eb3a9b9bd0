#include "platform/win32/CodePage.h"

#include <windows.h>

namespace platform::win32 {

std::wstring wideText(std::string_view text) {
  const int bytes = static_cast<int>(text.size());
  std::wstring wide(MultiByteToWideChar(CP_ACP, 0, text.data(), bytes, nullptr, 0), L'\0');
  MultiByteToWideChar(CP_ACP, 0, text.data(), bytes, wide.data(), static_cast<int>(wide.size()));
  return wide;
}

std::optional<std::string> exactText(std::wstring_view wide) {
  const int length = static_cast<int>(wide.size());
  std::string text(WideCharToMultiByte(CP_ACP, 0, wide.data(), length, nullptr, 0, nullptr, nullptr), '\0');
  WideCharToMultiByte(CP_ACP, 0, wide.data(), length, text.data(), static_cast<int>(text.size()), nullptr, nullptr);
  return wideText(text) == wide ? std::optional(text) : std::nullopt;
}

std::string upperCaseOf(std::string_view text) {
  std::string result(text);
  CharUpperBuffA(result.data(), static_cast<DWORD>(result.size()));
  return result;
}

}  // namespace platform::win32
