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
  // holds, or one that ends in a blank or a dot.
  static std::optional<NamePattern> of(std::string_view pattern);

  // Whether a file's long or short name matches. `upperCaseName` is in the upper case of the machine's code page.
  bool matches(std::string_view upperCaseName) const;

 private:
  // The literal parts between the stars, in upper case; the first one begins the name and the last one ends it.
  std::vector<std::string> parts_;
};

}  // namespace finder
