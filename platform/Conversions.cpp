#include "platform/Conversions.h"

#include <array>
#include <cmath>
#include <cstdio>

namespace platform {

std::string textOf(const Variant& value) {
  const auto* number = std::get_if<std::int32_t>(&value);
  return number == nullptr ? std::get<std::string>(value) : std::to_string(*number);
}

std::string signedText(float number) {
  std::array<char, 32> digits{};
  std::snprintf(digits.data(), digits.size(), "%.7g", std::fabs(number));
  std::string_view text = digits.data();
  if (text.starts_with("0.")) text.remove_prefix(1);
  return std::string(1, number < 0 ? '-' : ' ').append(text);
}

std::string_view trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::int32_t roundedHalfEven(double value) {
  const double below = std::floor(value);
  const double rest = value - below;
  const bool belowIsOdd = std::fmod(below, 2.0) != 0.0;
  return static_cast<std::int32_t>(rest > 0.5 || (rest == 0.5 && belowIsOdd) ? below + 1 : below);
}

}  // namespace platform
