#include "platform/memory/MemoryNames.h"

#include <algorithm>

namespace platform::memory {
namespace {

unsigned char rank(char letter) { return letter == '\\' ? 0 : static_cast<unsigned char>(upper(letter)); }

bool matchesPlainly(std::string_view pattern, std::string_view name) {
  if (pattern.empty()) return name.empty();
  if (pattern.front() == '*') {
    return matchesPlainly(pattern.substr(1), name) || (!name.empty() && matchesPlainly(pattern, name.substr(1)));
  }
  const bool matches = !name.empty() && (pattern.front() == '?' || upper(pattern.front()) == upper(name.front()));
  return matches && matchesPlainly(pattern.substr(1), name.substr(1));
}

}  // namespace

char upper(char letter) {
  const auto code = static_cast<unsigned char>(letter);
  const bool isAccented = code >= 0xE0 && code != 0xF7 && code != 0xFF;
  if ((code >= 'a' && code <= 'z') || isAccented) return static_cast<char>(code - 0x20);
  if (code == 0x9A || code == 0x9C || code == 0x9E) return static_cast<char>(code - 0x10);
  return code == 0xFF ? '\x9F' : letter;
}

std::string upper(std::string_view text) {
  std::string result(text);
  std::ranges::transform(result, result.begin(), [](char letter) { return upper(letter); });
  return result;
}

bool NameOrder::operator()(std::string_view a, std::string_view b) const {
  return std::ranges::lexicographical_compare(a, b, {}, rank, rank);
}

bool matchesPattern(std::string_view pattern, std::string_view name) {
  pattern = pattern.substr(0, pattern.find_last_not_of(' ') + 1);
  if (pattern.ends_with("*.*")) {
    pattern.remove_suffix(2);
  } else if (!name.contains('.')) {
    if (pattern.ends_with(".*")) pattern.remove_suffix(2);
    if (pattern.ends_with('.')) pattern.remove_suffix(1);
  }
  return !pattern.empty() && matchesPlainly(pattern, name);
}

}  // namespace platform::memory
