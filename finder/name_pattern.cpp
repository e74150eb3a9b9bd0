#include "finder/name_pattern.h"

#include "platform/Platform.h"

namespace finder {

std::optional<NamePattern> NamePattern::of(std::string_view pattern) {
  if (pattern.empty() || pattern.find_first_of("?\\/:\"<>|") != std::string_view::npos) return std::nullopt;
  if (pattern.ends_with(' ') || pattern.ends_with('.')) return std::nullopt;
  // A closing ".*" also matches a name without a dot.
  if (pattern.ends_with("*.*")) pattern.remove_suffix(2);
  if (pattern.ends_with(".*")) return std::nullopt;
  const std::string upper = platform::machine().environment().upperCase(pattern);
  NamePattern result;
  std::string_view rest = upper;
  for (std::size_t star = rest.find('*'); star != std::string_view::npos; star = rest.find('*')) {
    result.parts_.emplace_back(rest.substr(0, star));
    rest.remove_prefix(star + 1);
  }
  result.parts_.emplace_back(rest);
  return result;
}

bool NamePattern::matches(std::string_view upperCaseName) const {
  const std::string& first = parts_.front();
  if (parts_.size() == 1) return upperCaseName == first;
  const std::string& last = parts_.back();
  if (upperCaseName.size() < first.size() + last.size()) return false;
  if (!upperCaseName.starts_with(first) || !upperCaseName.ends_with(last)) return false;
  std::string_view middle = upperCaseName.substr(first.size(), upperCaseName.size() - first.size() - last.size());
  for (std::size_t i = 1; i + 1 < parts_.size(); ++i) {
    const std::size_t at = middle.find(parts_[i]);
    if (at == std::string_view::npos) return false;
    middle.remove_prefix(at + parts_[i].size());
  }
  return true;
}

}  // namespace finder
