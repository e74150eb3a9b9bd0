#include "platform/memory/MemoryBytes.h"

#include <algorithm>

namespace platform::memory {

void MemoryBytes::resize(std::uint64_t size) {
  size_ = size;
  chunks_.erase(chunks_.lower_bound((size + kChunk - 1) / kChunk), chunks_.end());
  const auto last = chunks_.find(size / kChunk);
  if (last != chunks_.end() && last->second.size() > size % kChunk) last->second.resize(size % kChunk);
}

void MemoryBytes::write(std::uint64_t at, std::string_view bytes) {
  while (!bytes.empty()) {
    const std::uint64_t start = at % kChunk;
    const std::string_view part = bytes.substr(0, kChunk - start);
    std::string& chunk = chunks_[at / kChunk];
    chunk.resize(std::max<std::size_t>(chunk.size(), start + part.size()));
    std::ranges::copy(part, chunk.begin() + static_cast<std::ptrdiff_t>(start));
    at += part.size();
    bytes.remove_prefix(part.size());
    size_ = std::max(size_, at);
  }
}

std::string MemoryBytes::all() const {
  std::string result(size_, '\0');
  for (const auto& [index, chunk] : chunks_) {
    std::ranges::copy(chunk, result.begin() + static_cast<std::ptrdiff_t>(index * kChunk));
  }
  return result;
}

}  // namespace platform::memory
