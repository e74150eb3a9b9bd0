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
                                Handle& object) override;
  std::int32_t dispCallFunc(Handle object, std::uint32_t slot) override;

 private:
  MemoryFaults& faults_;
  std::vector<std::string> visited_;
  bool registered_ = true;
  std::set<Handle> objects_;
  Handle lastObject_ = 0;
};

}  // namespace platform::memory
