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

// `text` without its leading and trailing blanks. Tabs and other white space stay.
std::string_view trimmed(std::string_view text);

// The nearest whole number; halves go to the even one.
std::int32_t roundedHalfEven(double value);

}  // namespace platform
