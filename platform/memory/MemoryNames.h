// Names on the in-memory machine: case by code page 1252, and wildcards.
#pragma once

#include <string>
#include <string_view>

namespace platform::memory {

// `letter` in upper case.
char upper(char letter);
std::string upper(std::string_view text);

// Orders names and paths without regard to case. A backslash comes before everything else, so that what is below a
// path follows it directly.
struct NameOrder {
  using is_transparent = void;
  bool operator()(std::string_view a, std::string_view b) const;
};

// Whether a file name matches a pattern with the wildcards * and ?. As on DOS, a closing ".*" also matches a name
// without a dot, a closing "*.*" also one without a further dot, and a closing dot only a name without a dot.
bool matchesPattern(std::string_view pattern, std::string_view name);

}  // namespace platform::memory
