#include "finder/modFind.h"

std::string TrimAtNul(std::string_view text) { return std::string(text.substr(0, text.find('\0'))); }
