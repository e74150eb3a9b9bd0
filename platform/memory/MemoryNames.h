// How this machine treats names: case, the 8.3 aliases that it gives to long names, and DOS wildcards.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace platform::memory {

// `letter` in upper case by code page 1252.
char upper(char letter);
std::string upper(std::string_view text);

// Below, at or above 0 as `a` sorts before, with or after `b`, without regard to case.
int compareNames(std::string_view a, std::string_view b);

// Whether the name is short enough, and of the letters, to be its own 8.3 name.
bool isShortName(std::string_view name);

// The 8.3 aliases that a long name may get, best first: NAME~1.EXT to NAME~4.EXT, then names with a checksum in them.
// Which one it gets depends on the names already there.
class ShortAliases {
 public:
  // How many are worth a try before a file goes without one.
  static constexpr int kCount = 256;

  explicit ShortAliases(std::string_view longName);
  // `index` from 0 to kCount - 1. In upper case.
  std::string operator[](int index) const;

 private:
  std::string base_;
  std::string extension_;  // with its dot
  std::uint32_t checksum_;
};

// Whether a name can be reached by a path: it holds no wildcard and no character that paths give a meaning to.
bool isPlainName(std::string_view name);

// The last part of a path as the system reads it: without the blanks and dots at its end.
std::string_view withoutTrail(std::string_view name);

// The name part of a find pattern, made ready for many comparisons.
class Wildcards {
 public:
  explicit Wildcards(std::string_view pattern);

  // Whether no name can ever match, because the pattern is empty or holds a forbidden character.
  bool impossible() const { return pattern_.empty(); }
  // Whether the pattern names one file, wildcards being absent.
  bool single() const { return single_; }
  const std::string& pattern() const { return pattern_; }
  bool matches(std::string_view name) const;

 private:
  std::string pattern_;  // upper case, in the file system's own five wildcards
  bool single_ = true;
};

}  // namespace platform::memory
