// The classic conversions that the program's messages and sizes rely on.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

#include "platform/RuntimeError.h"

namespace platform {

// A value that may be a text, a number or a truth value.
using Variant = std::variant<std::string, std::int32_t, bool>;

// The value as text: a text as it is, a number in decimal, a truth value as "True" or "False".
std::string textOf(const Variant& value);

// A number as text with its sign's place in front, a blank when it is not negative; up to seven digits, a point, and no
// zero before the point: 45296.12 gives " 45296.12", 0.5 gives " .5".
std::string signedText(float number);

// The value as a truth value: every number but 0 is true, and so is its text. Fails with 13 for a text that is neither
// a number nor "True" or "False" in any case.
Result<bool> booleanOf(const Variant& value);

// The value as a signed 16-bit number: halves go to the even one, true is -1. Fails with 6 when it is out of range, 13
// for a text that is neither a number nor a truth value.
Result<std::int16_t> shortOf(const Variant& value);

// `text` without its leading and trailing blanks. Tabs and other white space stay.
std::string_view trimmed(std::string_view text);

// The nearest whole number; halves go to the even one.
std::int32_t roundedHalfEven(double value);

}  // namespace platform
