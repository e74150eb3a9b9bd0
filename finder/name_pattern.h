// Search patterns that the program can match itself, by the rules of the system's enumeration.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace finder {

// A pattern of the plain kind: literal text and "*". Case does not matter.
class NamePattern {
 public:
  // Nothing for any other pattern, whose rules are left to the system: one with "?", one with a character that no name
  // holds, one that ends in a blank or a dot, and one that ends in ".*" without a star before it.
  static std::optional<NamePattern> of(std::string_view pattern);

  // Whether a file's long or short name matches.
  bool matches(std::string_view name) const;

 private:
  bool matchesInOneCase(std::string_view name) const;

  // The literal parts between the stars, in upper case when one of them is not ASCII; the first one
  // begins the name and the last one ends it.
  std::vector<std::string> parts_;
  bool isAscii_ = true;
};

}  // namespace finder
