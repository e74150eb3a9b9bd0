#include "settings/pagefile.h"

#include "settings/modRegistry.h"

namespace settings {
namespace {

// Reading and writing spell the first name differently, and writing closes the path; both name one key.
constexpr const char* kKeyBelowSystem = "\\CurrentControlSet\\Control\\Session Manager\\Memory Management";
constexpr const char* kValue = "ClearPageFileAtShutdown";

}  // namespace

std::string readClearPagefile() { return readNumberText("HKLM", std::string("SYSTEM") + kKeyBelowSystem, kValue); }

void writeClearPagefile(std::int32_t value) {
  static_cast<void>(WriteRegistryValue("HKLM", std::string("System") + kKeyBelowSystem + '\\', kValue, "D", value));
}

}  // namespace settings
