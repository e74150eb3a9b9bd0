// Conversion between text in the ANSI code page, which the whole program uses, and UTF-16.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace platform::win32 {

// `text` as UTF-16. MultiByteToWideChar.
std::wstring wideText(std::string_view text);

// `wide` in the code page, or nothing when the code page lacks one of its characters: the system replaces such a
// character by a similar one ("a" for an "a" with an ogonek, a backslash for a full-width one), so that the text would
// be the path of another file. WideCharToMultiByte.
std::optional<std::string> exactText(std::wstring_view wide);

// `text` in upper case. CharUpperBuffA.
std::string upperCaseOf(std::string_view text);

}  // namespace platform::win32
