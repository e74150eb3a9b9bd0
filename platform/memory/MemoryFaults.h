// Failures to order: every operation of the in-memory machine that can fail counts its calls, and fails at the n-th
// next one when a test orders that.
#pragma once

#include <algorithm>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace platform::memory {

class MemoryFaults {
 public:
  // Orders the n-th next call (1-based) of the operation, named as in its interface, to fail once. `number` is the
  // failure it then gives where it gives one; without it the operation's usual one. A closing that fails still closes.
  void failAt(std::string_view operation, int n, std::optional<std::int32_t> number = std::nullopt) {
    Operation& ordered = operations_[std::string(operation)];
    ordered.failures[ordered.calls + n] = number;
  }
  // Orders the n-th next call (1-based) of any operation to fail, as above, and `count` calls in a row.
  void failCall(int n, std::optional<std::int32_t> number = std::nullopt, int count = 1) {
    failing_ = {calls_ + n, calls_ + n + count, number};
  }
  // The name of the operation that has failed last.
  const std::string& lastFailed() const { return lastFailed_; }
  // How often the operation has been called.
  int calls(std::string_view operation) const {
    const auto found = operations_.find(operation);
    return found == operations_.end() ? 0 : found->second.calls;
  }
  // Whether an ordered failure has not happened yet.
  bool left() const {
    return failing_.first > calls_ ||
           std::ranges::any_of(operations_, [](const auto& entry) { return !entry.second.failures.empty(); });
  }
  // Takes back what was ordered and has not happened.
  void clear() {
    failing_ = {};
    for (auto& [name, operation] : operations_) operation.failures.clear();
  }

  // For the operations: counts a call, and gives the number to fail with when this call has been ordered to fail.
  std::optional<std::int32_t> nextFault(std::string_view operation, std::int32_t usual = 0) {
    auto found = operations_.find(operation);
    if (found == operations_.end()) found = operations_.emplace(operation, Operation{}).first;
    Operation& called = found->second;
    const auto failure = called.failures.extract(++called.calls);
    const bool isNth = ++calls_ >= failing_.first && calls_ < failing_.end;
    if (failure.empty() && !isNth) return std::nullopt;
    lastFailed_ = operation;
    return (isNth ? failing_.number : failure.mapped()).value_or(usual);
  }

 private:
  struct Operation {
    int calls = 0;
    std::map<int, std::optional<std::int32_t>> failures;  // by number of the call
  };

  struct Failing {
    int first = 0;
    int end = 0;
    std::optional<std::int32_t> number = {};
  };

  std::map<std::string, Operation, std::less<>> operations_;
  int calls_ = 0;
  Failing failing_;
  std::string lastFailed_;
};

}  // namespace platform::memory
