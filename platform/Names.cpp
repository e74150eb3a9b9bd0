#include "platform/Names.h"

#include <algorithm>
#include <array>

#include "platform/Paths.h"

namespace platform {
namespace {

constexpr std::string_view kMeaningInPaths = "\\/:*?\"<>|";
constexpr std::array<std::string_view, 6> kDevices = {"con", "prn", "aux", "nul", "conin$", "conout$"};
constexpr std::array<std::string_view, 2> kNumberedDevices = {"com", "lpt"};

bool hasMeaningInPaths(char byte) { return static_cast<unsigned char>(byte) < ' ' || kMeaningInPaths.contains(byte); }

// A device has any extension, and blanks before it.
bool isDevice(std::string_view name) {
  std::string_view stem = name.substr(0, name.find('.'));
  stem = stem.substr(0, stem.find_last_not_of(' ') + 1);
  const auto isNumbered = [stem](std::string_view device) {
    return stem.size() == device.size() + 1 && stem.back() >= '1' && stem.back() <= '9' &&
           equalsWithoutCase(stem.substr(0, device.size()), device);
  };
  return std::ranges::any_of(kDevices, [stem](std::string_view device) { return equalsWithoutCase(stem, device); }) ||
         std::ranges::any_of(kNumberedDevices, isNumbered);
}

}  // namespace

bool isUsableName(std::string_view name) {
  if (isDotEntry(name)) return true;
  return !name.empty() && !name.ends_with(' ') && !name.ends_with('.') &&
         std::ranges::none_of(name, hasMeaningInPaths) && !isDevice(name);
}

}  // namespace platform
