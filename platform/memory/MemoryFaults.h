// Failures to order: every operation of the in-memory machine can be told to fail at its n-th next call.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace platform::memory {

class MemoryFaults {
 public:
  // Orders the n-th next call (1-based) of the operation to fail, once. `number` is the failure it then gives where it
  // gives one; without it the operation's usual one.
  void failAt(std::string_view operation, int n, std::optional<std::int32_t> number = std::nullopt);
  // How often the operation has been called.
  int calls(std::string_view operation) const;
  // Whether an ordered failure has not happened yet.
  bool left() const;
  // Takes back what was ordered and has not happened.
  void clear();

  // For the operations: counts a call, and gives the number to fail with when this call has been ordered to fail.
  std::optional<std::int32_t> nextFault(std::string_view operation, std::int32_t usual = 0);

 private:
  struct Operation {
    int calls = 0;
    std::map<int, std::optional<std::int32_t>> failures;  // by number of the call
  };

  std::map<std::string, Operation, std::less<>> operations_;
};

}  // namespace platform::memory
