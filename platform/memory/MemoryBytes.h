// The bytes of one file of the in-memory machine.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace platform::memory {

// Holds only what has been written; the rest reads as zeros, so that a file of many gigabytes takes no room.
class MemoryBytes {
 public:
  std::uint64_t size() const { return size_; }
  // Cuts the file or extends it with zeros.
  void resize(std::uint64_t size);
  // Writes at the 0-based position `at` and extends the file when it ends before the last byte written.
  void write(std::uint64_t at, std::string_view bytes);
  // The whole file, zeros and all.
  std::string all() const;

 private:
  static constexpr std::uint64_t kChunk = 4096;

  std::map<std::uint64_t, std::string> chunks_;  // by position / kChunk; each at most kChunk long
  std::uint64_t size_ = 0;
};

}  // namespace platform::memory
