// Conversion between text in the ANSI code page, which the whole program uses, and UTF-16.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace platform::win32 {

// `text` as UTF-16. MultiByteToWideChar.
std::wstring wideText(std::string_view text);

// Whether the wide calls work; the Windows 95 family has only stubs of most of them. GetVersion.
bool hasWideCalls();

// `wide` in the code page, or nothing when the code page lacks one of its characters: the system replaces such a
// character by a similar one ("a" for an "a" with an ogonek, a backslash for a full-width one), so that the text would
// be the path of another file. WideCharToMultiByte.
std::optional<std::string> exactText(std::wstring_view wide);

// The same for a path: nothing also when a double-byte character of it has the byte of the backslash, at which paths
// are split.
std::optional<std::string> exactPath(std::wstring_view wide);

// `path` by exactPath, or else its short form by exactPath; empty when there is none. GetShortPathNameW.
std::string reachablePath(const std::wstring& path);
// `path` itself, which a narrow call has returned; empty when it holds "?", the system's replacement for characters
// that the code page lacks, or is not exact.
std::string reachablePath(const std::string& path);

// The path that `call(size, buffer)` stores in a buffer of `size` characters; empty when it fails, or has no room.
template <typename Character, typename Call>
std::basic_string<Character> pathFrom(Call call) {
  // MAX_PATH, and what the UTF-8 code page needs for as many characters.
  constexpr std::uint32_t kSize = 260 * 3 + 1;
  std::basic_string<Character> path(kSize, Character{});
  const std::uint32_t length = call(kSize, path.data());
  path.resize(length < kSize ? length : 0);
  return path;
}

// `text` in upper case by the rules of the code page. CharUpperBuffW, CharUpperBuffA.
std::string upperCaseOf(std::string_view text);

}  // namespace platform::win32
