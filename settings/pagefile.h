// The setting that clears the page file at shutdown.
#pragma once

#include <cstdint>
#include <string>

namespace settings {

// The setting as text: "0", "1" or another number; empty when it cannot be read.
std::string readClearPagefile();

// Stores the setting. A failure is not reported.
void writeClearPagefile(std::int32_t value);

}  // namespace settings
