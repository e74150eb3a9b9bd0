// Which names of files and folders the program may use.
#pragma once

#include <string_view>

namespace platform {

// Whether a name that an enumeration returned, in the machine's ANSI code page, reaches the same entry when it is used
// in a path: no byte of it has a meaning in a path (also not the second byte of a double-byte character), it is no
// device ("nul", "com1.txt"), and it does not end in a blank or a dot, which calls cut off. "." and ".." are usable.
bool isUsableName(std::string_view name);

}  // namespace platform
