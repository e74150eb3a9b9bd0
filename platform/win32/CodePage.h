// Text in the machine's ANSI code page, which the whole program speaks, beside the system's wide characters.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace platform::win32 {

std::wstring wideText(std::string_view text);

// `wide` in the code page; nothing when the code page lacks one of its characters. The system puts a similar character
// in such a one's place ("a" for an "a" with a hook, a backslash for a broad one), which makes another file's path.
std::optional<std::string> exactText(std::wstring_view wide);

// `text` in capitals. CharUpperBuffA.
std::string upperCaseOf(std::string_view text);

}  // namespace platform::win32
