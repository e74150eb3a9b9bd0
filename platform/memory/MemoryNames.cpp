#include "platform/memory/MemoryNames.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace platform::memory {
namespace {

constexpr std::size_t kShortBase = 8;
constexpr std::size_t kShortExtension = 3;
constexpr std::size_t kLongestName = 255;

// The system turns the two wildcards that people know into five, so that "*.*" and "*." keep their DOS meaning.
constexpr char kAny = '*';     // any characters
constexpr char kDosAny = '<';  // any characters, but never over the last dot
constexpr char kDosOne = '>';  // one character, or none before a dot and at the end
constexpr char kDosDot = '"';  // a dot, or nothing at the end
constexpr std::string_view kOptional = "*<>\"";

constexpr std::array<char, 256> makeUpperTable() {
  std::array<char, 256> table{};
  for (int code = 0; code < 256; ++code) {
    int to = code;
    if ((code >= 'a' && code <= 'z') || (code >= 0xE0 && code <= 0xFE && code != 0xF7)) to = code - 0x20;
    if (code == 0x9A || code == 0x9C || code == 0x9E) to = code - 0x10;
    if (code == 0xFF) to = 0x9F;
    table[static_cast<std::size_t>(code)] = static_cast<char>(to);
  }
  return table;
}

constexpr std::array<char, 256> kUpper = makeUpperTable();

bool isControl(char letter) { return static_cast<unsigned char>(letter) < ' '; }

bool isShortLetter(char letter) {
  return !isControl(letter) && std::string_view(" +,;=[].").find(letter) == std::string_view::npos;
}

// What remains of a part of a long name in an alias: no blanks and dots, and an underline for what DOS did not know.
std::string shortened(std::string_view part, std::size_t length) {
  std::string result;
  for (const char letter : part) {
    if (letter == ' ' || letter == '.') continue;
    result += isShortLetter(letter) ? upper(letter) : '_';
    if (result.size() == length) break;
  }
  return result;
}

std::string fourHexDigits(std::uint32_t number) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string result;
  for (int shift = 12; shift >= 0; shift -= 4) result += kDigits[(number >> shift) & 0xF];
  return result;
}

std::uint32_t checksum(std::string_view name) {
  std::uint32_t sum = 0;
  for (const char letter : name) sum = sum * 37 + static_cast<unsigned char>(upper(letter));
  return sum ^ (sum >> 16);
}

// The positions in a pattern that a name may have reached, in ascending order.
class Positions {
 public:
  void clear() { count_ = 0; }
  std::size_t count() const { return count_; }
  std::size_t operator[](std::size_t index) const { return at_[index]; }
  // Adds a position that is not below the last one.
  void append(std::size_t position) {
    if (count_ == 0 || at_[count_ - 1] != position) at_[count_++] = static_cast<std::uint16_t>(position);
  }
  // Adds the position that follows the one at `index`, which is thereby looked at next.
  void insertBehind(std::size_t index) {
    const auto position = static_cast<std::uint16_t>(at_[index] + 1);
    if (index + 1 < count_ && at_[index + 1] == position) return;
    std::copy_backward(at_.begin() + index + 1, at_.begin() + count_, at_.begin() + count_ + 1);
    at_[index + 1] = position;
    ++count_;
  }

 private:
  std::array<std::uint16_t, 272> at_;
  std::size_t count_ = 0;
};

}  // namespace

char upper(char letter) { return kUpper[static_cast<unsigned char>(letter)]; }

std::string upper(std::string_view text) {
  std::string result(text);
  std::ranges::transform(result, result.begin(), [](char letter) { return upper(letter); });
  return result;
}

int compareNames(std::string_view a, std::string_view b) {
  const char* left = a.data();
  const char* right = b.data();
  for (const char* const end = left + std::min(a.size(), b.size()); left != end; ++left, ++right) {
    if (*left == *right) continue;
    const int difference = static_cast<unsigned char>(upper(*left)) - static_cast<unsigned char>(upper(*right));
    if (difference != 0) return difference;
  }
  return static_cast<int>(a.size()) - static_cast<int>(b.size());
}

bool isShortName(std::string_view name) {
  const std::size_t dot = name.find('.');
  const std::string_view base = name.substr(0, dot);
  const std::string_view extension = dot == std::string_view::npos ? std::string_view() : name.substr(dot + 1);
  if (base.empty() || base.size() > kShortBase || extension.size() > kShortExtension) return false;
  if (dot != std::string_view::npos && extension.empty()) return false;
  return std::ranges::all_of(base, isShortLetter) && std::ranges::all_of(extension, isShortLetter);
}

ShortAliases::ShortAliases(std::string_view longName) : checksum_(checksum(longName)) {
  longName.remove_prefix(std::min(longName.find_first_not_of(" ."), longName.size()));
  const std::size_t dot = longName.rfind('.');
  base_ = shortened(longName.substr(0, dot), kShortBase - 2);
  if (dot != std::string_view::npos) extension_ = '.' + shortened(longName.substr(dot + 1), kShortExtension);
  if (extension_ == ".") extension_.clear();
}

std::string ShortAliases::operator[](int index) const {
  constexpr int kPlain = 4;
  constexpr int kDigits = 9;
  if (index < kPlain) return base_ + '~' + std::to_string(index + 1) + extension_;
  const int further = index - kPlain;
  const std::uint32_t number = checksum_ + static_cast<std::uint32_t>(further / kDigits);
  return base_.substr(0, 2) + fourHexDigits(number) + '~' + std::to_string(further % kDigits + 1) + extension_;
}

bool isPlainName(std::string_view name) {
  return std::ranges::none_of(
      name, [](char letter) { return isControl(letter) || std::string_view("*?\"<>|:/\\").contains(letter); });
}

std::string_view withoutTrail(std::string_view name) {
  const std::size_t last = name.find_last_not_of(" .");
  return name.substr(0, last == std::string_view::npos ? 0 : last + 1);
}

Wildcards::Wildcards(std::string_view pattern) {
  const std::string_view kept = withoutTrail(pattern);
  const bool closedByDot = pattern.substr(kept.size()).contains('.');
  const bool forbidden = std::ranges::any_of(kept, isControl) || kept.find_first_of("|:") != std::string_view::npos;
  if (forbidden || kept.size() > kLongestName) return;
  pattern_ = upper(kept);
  single_ = pattern_.find_first_of("*?<>\"") == std::string::npos;

  for (std::size_t i = 0; i < pattern_.size(); ++i) {
    char& letter = pattern_[i];
    char* const before = i == 0 ? nullptr : &pattern_[i - 1];
    if (letter == '.' && before != nullptr && *before == kAny) *before = kDosAny;
    if (letter != '?' && letter != kAny) continue;
    if (before != nullptr && *before == '.') *before = kDosDot;
    if (letter == '?') letter = kDosOne;
  }
  if (closedByDot && !pattern_.empty() && pattern_.back() == kAny) pattern_.back() = kDosAny;
}

// Walks the name once and keeps every place in the pattern that it may stand for: never slower than name times
// pattern, whatever the pattern.
bool Wildcards::matches(std::string_view name) const {
  if (impossible()) return false;
  if (pattern_.size() == 1 && pattern_[0] == kAny) return true;
  if (single_) return compareNames(pattern_, name) == 0;

  const std::size_t lastDot = name.rfind('.');
  const std::size_t end = pattern_.size();
  std::array<Positions, 2> sets;
  Positions* now = &sets[0];
  Positions* next = &sets[1];
  now->append(0);
  for (std::size_t at = 0; at < name.size() && now->count() != 0; ++at) {
    const char letter = upper(name[at]);
    next->clear();
    for (std::size_t i = 0; i < now->count(); ++i) {
      const std::size_t position = (*now)[i];
      if (position == end) break;
      const char wanted = pattern_[position];
      if (wanted == kAny || wanted == kDosAny) {
        if (wanted == kAny || at != lastDot) next->append(position);
        now->insertBehind(i);
      } else if (wanted == kDosOne && letter == '.') {
        now->insertBehind(i);
      } else if (wanted == kDosOne || wanted == letter || (wanted == kDosDot && letter == '.')) {
        next->append(position + 1);
      }
    }
    std::swap(now, next);
  }

  // What may stand for nothing at all is passed over at the end.
  const std::size_t lastDemand = pattern_.find_last_not_of(kOptional);
  const std::size_t enough = lastDemand == std::string::npos ? 0 : lastDemand + 1;
  return now->count() != 0 && (*now)[now->count() - 1] >= enough;
}

}  // namespace platform::memory
