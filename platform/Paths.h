// What a path says by its text alone.
#pragma once

#include <cstddef>
#include <string_view>

namespace platform {

// `letter` in lower case when it is one of A to Z, such as a drive's.
char lowerLetter(char letter);

// The number of characters that name the root of a full path: "X:\", or "\\server\share".
std::size_t rootLength(std::string_view path);

}  // namespace platform
