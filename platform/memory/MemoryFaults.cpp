#include "platform/memory/MemoryFaults.h"

#include <algorithm>

namespace platform::memory {

void MemoryFaults::failAt(std::string_view operation, int n, std::optional<std::int32_t> number) {
  Operation& ordered = operations_[std::string(operation)];
  ordered.failures[ordered.calls + n] = number;
}

int MemoryFaults::calls(std::string_view operation) const {
  const auto found = operations_.find(operation);
  return found == operations_.end() ? 0 : found->second.calls;
}

bool MemoryFaults::left() const {
  return std::ranges::any_of(operations_, [](const auto& entry) { return !entry.second.failures.empty(); });
}

void MemoryFaults::clear() {
  for (auto& [name, operation] : operations_) operation.failures.clear();
}

std::optional<std::int32_t> MemoryFaults::nextFault(std::string_view operation, std::int32_t usual) {
  auto found = operations_.find(operation);
  if (found == operations_.end()) found = operations_.emplace(operation, Operation{}).first;
  Operation& called = found->second;
  const auto failure = called.failures.find(++called.calls);
  if (failure == called.failures.end()) return std::nullopt;
  const std::int32_t number = failure->second.value_or(usual);
  called.failures.erase(failure);
  return number;
}

}  // namespace platform::memory
