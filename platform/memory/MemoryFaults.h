// Failures to order: every operation of the in-memory machine that can fail counts its calls, and fails at the n-th
// next one when a test orders that.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string_view>
#include <utility>

namespace platform::memory {

class MemoryFaults {
 public:
  // Orders the n-th next call (1-based) of the operation, named as in its interface, to fail once, with its usual
  // number. A closing that fails still closes. The name must live as long as the machine.
  void failAt(std::string_view operation, int n) { ordered_.emplace(operation, calls(operation) + n); }
  // Orders the n-th next call (1-based) of any operation to fail, and `count` calls in a row. `number` is the failure
  // that they then give where they give one; without it the operation's usual one.
  void failCall(int n, std::optional<std::int32_t> number = std::nullopt, int count = 1) {
    failing_ = {total_ + n, total_ + n + count, number};
  }
  // Runs the action with the name of the operation at each call from now on.
  void onCall(std::function<void(std::string_view)> action) { onCall_ = std::move(action); }
  // How often the operation has been called.
  int calls(std::string_view operation) const { return calls_.contains(operation) ? calls_.at(operation) : 0; }
  // The name of the operation that has failed last.
  std::string_view lastFailed() const { return lastFailed_; }
  // Whether an ordered failure has not happened yet.
  bool left() const { return failing_.first > total_ || !ordered_.empty(); }
  // Takes back what was ordered and has not happened.
  void clear() {
    failing_ = {};
    ordered_.clear();
  }

  // For the operations: counts a call, and gives the number to fail with when this call has been ordered to fail.
  std::optional<std::int32_t> nextFault(std::string_view operation, std::int32_t usual = 0) {
    if (onCall_) onCall_(operation);
    const bool isOrdered = ordered_.erase({operation, ++calls_[operation]}) > 0;
    const bool isNth = ++total_ >= failing_.first && total_ < failing_.end;
    if (!isOrdered && !isNth) return std::nullopt;
    lastFailed_ = operation;
    return isNth ? failing_.number.value_or(usual) : usual;
  }

 private:
  struct Failing {
    int first = 0;
    int end = 0;
    std::optional<std::int32_t> number = {};
  };

  std::function<void(std::string_view)> onCall_;
  std::map<std::string_view, int> calls_;
  int total_ = 0;
  std::set<std::pair<std::string_view, int>> ordered_;  // by the number of the operation's call
  Failing failing_;
  std::string_view lastFailed_;
};

}  // namespace platform::memory
