// Conversion of system error codes to run-time error numbers.
#pragma once

#include <cstdint>

namespace platform::win32 {

// The run-time error number with which opening, writing or renaming a file fails for the system error `code`, as
// returned by GetLastError; 75 (path/file access) for a code that has no number of its own.
std::int32_t runTimeErrorNumber(std::uint32_t code);

}  // namespace platform::win32
