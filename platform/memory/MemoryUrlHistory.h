// The history of visited pages on the in-memory machine.
#pragma once

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/UrlHistory.h"
#include "platform/memory/MemoryFaults.h"

namespace platform::memory {

class MemoryUrlHistory final : public UrlHistory {
 public:
  explicit MemoryUrlHistory(MemoryFaults& faults) : faults_(faults) {}

  void visit(std::string url) { visited_.push_back(std::move(url)); }
  const std::vector<std::string>& visited() const { return visited_; }
  // A machine without the browser does not know the class.
  void unregister() { registered_ = false; }
  std::size_t liveObjects() const { return objects_.size(); }

  std::int32_t coCreateInstance(const Guid& classId, std::uint32_t context, const Guid& interfaceId,
                                Handle& object) override {
    if (const auto fault = faults_.nextFault("coCreateInstance", kNotRegistered)) return *fault;
    if (!registered_ || (context & kInProcess) == 0 || classId != kClass) return kNotRegistered;
    if (interfaceId != kSecondInterface) return kNoInterface;
    object = ++lastObject_;
    objects_.insert(object);
    return 0;
  }
  std::int32_t dispCallFunc(Handle object, std::uint32_t slot) override {
    const bool isLive = objects_.contains(object);
    if (slot == kRelease) objects_.erase(object);  // one that fails too
    if (const auto fault = faults_.nextFault("dispCallFunc", kNotImplemented)) return *fault;
    if (!isLive) return kBadPointer;
    if (slot == kClearHistory) visited_.clear();
    return slot == kClearHistory || slot == kRelease ? 0 : kNotImplemented;
  }

 private:
  static constexpr auto kNotImplemented = static_cast<std::int32_t>(0x80004001);
  static constexpr auto kNoInterface = static_cast<std::int32_t>(0x80004002);
  static constexpr auto kBadPointer = static_cast<std::int32_t>(0x80004003);
  static constexpr auto kNotRegistered = static_cast<std::int32_t>(0x80040154);
  static constexpr Guid kClass{0x3C374A40, 0xBAE4, 0x11CF, {0xBF, 0x7D, 0x00, 0xAA, 0x00, 0x69, 0x46, 0xEE}};
  static constexpr Guid kSecondInterface{0xAFA0DC11, 0xC313, 0x11D0, {0x83, 0x1A, 0x00, 0xC0, 0x4F, 0xD5, 0xAE, 0x38}};
  // The places of the second interface's methods that do something here.
  static constexpr std::uint32_t kRelease = 2;
  static constexpr std::uint32_t kClearHistory = 9;

  MemoryFaults& faults_;
  std::vector<std::string> visited_;
  bool registered_ = true;
  std::set<Handle> objects_;
  Handle lastObject_ = 0;
};

}  // namespace platform::memory
