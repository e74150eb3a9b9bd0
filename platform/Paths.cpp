#include "platform/Paths.h"

#include <algorithm>

namespace platform {

bool equalsWithoutCase(std::string_view a, std::string_view b) {
  return std::ranges::equal(a, b, {}, lowerLetter, lowerLetter);
}

std::size_t rootLength(std::string_view path) {
  constexpr std::size_t kDriveRoot = 3;
  if (path.size() >= 2 && path[1] == ':') return std::min(kDriveRoot, path.size());
  const std::size_t share = path.find('\\', 2);
  if (share == std::string_view::npos) return path.size();
  return std::min(path.find('\\', share + 1), path.size());
}

std::string withoutClosingBackslash(std::string path) {
  while (path.size() > rootLength(path) && path.back() == '\\') path.pop_back();
  return path;
}

bool isDotEntry(std::string_view name) { return name == "." || name == ".."; }

}  // namespace platform
