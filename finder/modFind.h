// Small text routine of the drive walks.
#pragma once

#include <string>
#include <string_view>

// What stands left of the first NUL of `text`; all of it when it holds none.
std::string TrimAtNul(std::string_view text);
