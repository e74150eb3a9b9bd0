// The classic conversions that the program's messages and sizes rely on.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace platform {

// A value that may be a text or a number.
using Variant = std::variant<std::string, std::int32_t>;

// The value as text: a text as it is, a number in decimal.
std::string textOf(const Variant& value);

// A number as text with its sign's place in front, a blank when it is not negative; up to seven digits, a point, and no
// zero before the point: 45296.12 gives " 45296.12", 0.5 gives " .5".
std::string signedText(float number);

// `text` without its leading and trailing blanks. Tabs and other white space stay.
std::string_view trimmed(std::string_view text);

// The nearest whole number; halves go to the even one.
std::int32_t roundedHalfEven(double value);

}  // namespace platform
