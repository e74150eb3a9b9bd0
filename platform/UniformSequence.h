// Evenly spread numbers that are the same in every run.
#pragma once

#include <cstdint>

namespace platform {

// A linear congruential generator of 24 bits that always starts with the same seed.
class UniformSequence {
 public:
  // From 0 up to but not including 1.
  double next() {
    constexpr std::uint32_t kFactor = 0x43FD43FD;
    constexpr std::uint32_t kSummand = 0xC39EC3;
    constexpr std::uint32_t kModulus = 1U << 24;
    state_ = (state_ * kFactor + kSummand) % kModulus;
    return static_cast<double>(state_) / kModulus;
  }

 private:
  std::uint32_t state_ = 0x50000;
};

}  // namespace platform
