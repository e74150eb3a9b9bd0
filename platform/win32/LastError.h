// From the system's error codes to run-time error numbers.
#pragma once

#include <cstdint>

namespace platform::win32 {

// The run-time error number that opening, writing or renaming a file gives for the system error `code` (as GetLastError
// reports it). A code without a number of its own gives 75 (path/file access).
std::int32_t runTimeErrorNumber(std::uint32_t code);

}  // namespace platform::win32
