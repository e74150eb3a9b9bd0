// Operations on the text of a path.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace platform {

// `letter` in lower case when it is one of A to Z, such as a drive's.
constexpr char lowerLetter(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

// Whether the texts differ at most in the case of A to Z.
bool equalsWithoutCase(std::string_view a, std::string_view b);

// The number of characters that name the root of a full path: "X:\", or "\\server\share".
std::size_t rootLength(std::string_view path);

// `path` without backslashes at its end, except that of a root.
std::string withoutClosingBackslash(std::string path);

// Whether an entry of that name is the enumerated folder itself or the one above it.
bool isDotEntry(std::string_view name);

}  // namespace platform
