#include "platform/Conversions.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>

#include "platform/Paths.h"

namespace platform {
namespace {

// The value as a number, of whatever size.
Result<double> numberOf(const Variant& value) {
  if (const auto* truth = std::get_if<bool>(&value)) return *truth ? -1.0 : 0.0;
  if (const auto* number = std::get_if<std::int32_t>(&value)) return *number;
  std::string_view text = trimmed(std::get<std::string>(value));
  if (equalsWithoutCase(text, "true")) return -1.0;
  if (equalsWithoutCase(text, "false")) return 0.0;
  if (text.starts_with('+')) text.remove_prefix(1);
  double number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error == std::errc::result_out_of_range) return failure(kOverflow);
  if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(number)) return failure(kTypeMismatch);
  return number;
}

}  // namespace

std::string textOf(const Variant& value) {
  if (const auto* truth = std::get_if<bool>(&value)) return *truth ? "True" : "False";
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

Result<bool> booleanOf(const Variant& value) {
  const Result<double> number = numberOf(value);
  if (!number) return std::unexpected(number.error());
  return *number != 0;
}

Result<std::int16_t> shortOf(const Variant& value) {
  const Result<double> number = numberOf(value);
  if (!number) return std::unexpected(number.error());
  // Beyond these the rounded number leaves the range, and a much larger one could not even be rounded.
  using Limits = std::numeric_limits<std::int16_t>;
  if (*number < Limits::min() - 0.5 || *number >= Limits::max() + 0.5) return failure(kOverflow);
  return static_cast<std::int16_t>(roundedHalfEven(*number));
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
