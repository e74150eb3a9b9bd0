// What the finders know about files by their names and sizes: the junk types, the names that are never listed, and the
// size text of a row.
#pragma once

#include <array>
#include <bitset>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace finder {

inline constexpr std::size_t kFileTypes = 20;
inline constexpr std::size_t kCustomExtensions = 5;

// One built-in type of junk files.
struct FileType {
  const char* caption;
  const char* pattern;  // null: "*" followed by the caption
  const char* toolTip;
};

// In the order of the file-type boxes.
extern const std::array<FileType, kFileTypes> kJunkTypes;

// The user's own extensions, without the dot; blank entries are unused.
using CustomExtensions = std::array<std::string, kCustomExtensions>;

// The search patterns of one junk scan, such as "*.bak". Entry i below kFileTypes belongs to type i, the later ones to
// the custom extensions. An unused entry is empty.
using ScanPatterns = std::array<std::string, kFileTypes + kCustomExtensions>;

// The patterns of the chosen types and of all custom extensions that are not blank.
ScanPatterns scanPatterns(const std::bitset<kFileTypes>& chosen, const CustomExtensions& extensions);

// Whether a pattern is set in `patterns`.
bool anyPattern(const ScanPatterns& patterns);

// Whether a file of this name is a backup that Windows or a mail program still needs; the junk scan leaves it out.
bool isProtected(const std::string& name);

// Whether Windows keeps an empty file of this name; the zero-byte finder leaves it out.
bool isKeptEmpty(std::string_view name);

// The size column of the junk list. A length of exactly 1024 bytes is neither below nor above the limit of " Kb" and
// keeps the number and unit of the file before it in the same folder.
class SizeText {
 public:
  // `length` in bytes.
  void update(std::int32_t length);
  std::int32_t number() const { return number_; }
  std::string text() const { return std::to_string(number_) + unit_; }

 private:
  std::int32_t number_ = 0;
  const char* unit_ = "";
};

// The bytes that a text of the size column stands for; 0 for any other text. Lengths between 2 and 4 GB have a negative
// number of bytes in the column.
std::int64_t bytesOf(std::string_view sizeText);

}  // namespace finder
