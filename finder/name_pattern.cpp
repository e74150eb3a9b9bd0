#include "finder/name_pattern.h"

#include <algorithm>

#include "platform/Paths.h"
#include "platform/Platform.h"

namespace finder {
namespace {

bool isAscii(std::string_view text) {
  return std::ranges::all_of(text, [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
}

std::string upperCase(std::string_view text) { return platform::machine().environment().upperCase(text); }

bool isSame(std::string_view name, std::string_view part) {
  return std::ranges::equal(name, part, {}, platform::lowerLetter, platform::lowerLetter);
}

}  // namespace

std::optional<NamePattern> NamePattern::of(std::string_view pattern) {
  if (pattern.empty() || pattern.find_first_of("?\\/:\"<>|") != std::string_view::npos) return std::nullopt;
  if (pattern.ends_with(' ') || pattern.ends_with('.')) return std::nullopt;
  // After a star, a closing ".*" also matches a name without a dot.
  if (pattern.ends_with("*.*")) pattern.remove_suffix(2);
  if (pattern.ends_with(".*")) return std::nullopt;
  NamePattern result;
  result.isAscii_ = isAscii(pattern);
  const std::string text = result.isAscii_ ? std::string(pattern) : upperCase(pattern);
  std::string_view rest = text;
  for (std::size_t star = rest.find('*'); star != std::string_view::npos; star = rest.find('*')) {
    result.parts_.emplace_back(rest.substr(0, star));
    rest.remove_prefix(star + 1);
  }
  result.parts_.emplace_back(rest);
  return result;
}

bool NamePattern::matches(std::string_view name) const {
  return isAscii_ ? matchesInOneCase(name) : matchesInOneCase(upperCase(name));
}

bool NamePattern::matchesInOneCase(std::string_view name) const {
  const std::string& first = parts_.front();
  const std::string& last = parts_.back();
  if (parts_.size() == 1) return isSame(name, first);
  if (name.size() < first.size() + last.size()) return false;
  // The end first: most patterns have nothing before it.
  if (!isSame(name.substr(name.size() - last.size()), last) || !isSame(name.substr(0, first.size()), first)) {
    return false;
  }
  std::string_view middle = name.substr(first.size(), name.size() - first.size() - last.size());
  for (std::size_t i = 1; i + 1 < parts_.size(); ++i) {
    const auto found = std::ranges::search(middle, parts_[i], {}, platform::lowerLetter, platform::lowerLetter);
    if (found.empty() && !parts_[i].empty()) return false;
    middle = std::string_view(found.end(), middle.end());
  }
  return true;
}

}  // namespace finder
