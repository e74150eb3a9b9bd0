// An in-memory machine as the shredder finds it after the program has started, and an RC4 of the tests' own.
#pragma once

#include <array>
#include <cstdint>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

#include "shredder/modMain.h"
#include "tests/support/MachineTest.h"

// RC4 as it is published, on bytes, apart from the program's.
class ReferenceRc4 {
 public:
  // A new key; the indices of the output go on.
  void seed(const std::string& key) {
    std::iota(s_.begin(), s_.end(), std::uint8_t{0});
    std::uint8_t y = 0;
    for (std::size_t x = 0; x < s_.size(); ++x) {
      y = static_cast<std::uint8_t>(y + s_[x] + static_cast<std::uint8_t>(key[x % key.length()]));
      std::swap(s_[x], s_[y]);
    }
  }

  std::uint8_t byte() {
    ++i_;
    j_ = static_cast<std::uint8_t>(j_ + s_[i_]);
    std::swap(s_[i_], s_[j_]);
    return s_[static_cast<std::uint8_t>(s_[i_] + s_[j_])];
  }

  std::string bytes(std::size_t count) {
    std::string result;
    while (result.size() < count) result += static_cast<char>(byte());
    return result;
  }

  // In whole numbers: a byte's share of the 65 letters, rounded. The two highest bytes come to one letter too many.
  std::string name() {
    const std::string letters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ1234567890-_ ";
    std::string result;
    for (int draw = 0; draw < 101; ++draw) {
      const std::size_t index = (byte() * 65U * 2 + 255) / 510;
      if (index < letters.size()) result += letters[index];
    }
    return result + ".tmp";
  }

 private:
  std::array<std::uint8_t, 256> s_{};
  std::uint8_t i_ = 0;
  std::uint8_t j_ = 0;
};

class ShredderTest : public MachineTest {
 protected:
  static constexpr int kRounds = 28;
  static constexpr const char* kHere = "C:\\Here";

  ShredderTest() {
    keystream() = {};
    machine.addFolder(kHere);
    machine.setCurrentFolder(kHere);
    machine.setDay("21/11/2026", "12:34:56", 45296.12F);
  }

  // The key of the run's first file: the drawn character is always 0.7055475 of 255.
  static std::string firstKey() { return "21/11/2026 45296.1212:34:56\xB4"; }
};
