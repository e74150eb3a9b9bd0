#include "platform/memory/MemoryUrlHistory.h"

#include <array>
#include <cstdio>
#include <string_view>

namespace platform::memory {
namespace {

constexpr std::int32_t kNotImplemented = static_cast<std::int32_t>(0x80004001);
constexpr std::int32_t kNoInterface = static_cast<std::int32_t>(0x80004002);
constexpr std::int32_t kBadPointer = static_cast<std::int32_t>(0x80004003);
constexpr std::int32_t kNotRegistered = static_cast<std::int32_t>(0x80040154);

constexpr std::string_view kClass = "{3C374A40-BAE4-11CF-BF7D-00AA006946EE}";
constexpr std::string_view kSecondInterface = "{AFA0DC11-C313-11D0-831A-00C04FD5AE38}";

// The places of the second interface's methods that do something here.
constexpr std::uint32_t kRelease = 2;
constexpr std::uint32_t kClearHistory = 9;

// As the registry writes it.
std::string textOf(const Guid& guid) {
  std::array<char, 40> text{};
  const auto& rest = guid.rest;
  std::snprintf(text.data(), text.size(), "{%08X-%04X-%04X-%02X%02X-%02X%02X%02X%02X%02X%02X}", guid.first, guid.second,
                guid.third, rest[0], rest[1], rest[2], rest[3], rest[4], rest[5], rest[6], rest[7]);
  return text.data();
}

}  // namespace

std::int32_t MemoryUrlHistory::coCreateInstance(const Guid& classId, std::uint32_t context, const Guid& interfaceId,
                                                Handle& object) {
  if (const auto fault = faults_.nextFault("coCreateInstance", kNotRegistered)) return *fault;
  const bool inProcess = (context & kInProcess) != 0;
  if (!registered_ || !inProcess || textOf(classId) != kClass) return kNotRegistered;
  if (textOf(interfaceId) != kSecondInterface) return kNoInterface;
  object = ++lastObject_;
  objects_.insert(object);
  return 0;
}

std::int32_t MemoryUrlHistory::dispCallFunc(Handle object, std::uint32_t slot) {
  if (const auto fault = faults_.nextFault("dispCallFunc", kNotImplemented)) return *fault;
  if (!objects_.contains(object)) return kBadPointer;
  if (slot == kClearHistory) {
    visited_.clear();
    return 0;
  }
  if (slot != kRelease) return kNotImplemented;
  objects_.erase(object);
  return 0;
}

}  // namespace platform::memory
