#include "controls/RowStore.h"

#include <utility>

namespace controls {

void RowStore::seek(std::size_t index) const {
  while (index < currentFirst_) {
    --current_;
    currentFirst_ -= blocks_[current_].size();
  }
  while (index >= currentFirst_ + blocks_[current_].size()) {
    currentFirst_ += blocks_[current_].size();
    ++current_;
  }
}

Row& RowStore::at(std::size_t index) {
  seek(index);
  return *blocks_[current_][index - currentFirst_];
}

const Row& RowStore::at(std::size_t index) const {
  seek(index);
  return *blocks_[current_][index - currentFirst_];
}

void RowStore::append(Row row) {
  if (blocks_.empty() || blocks_.back().size() == kBlockRows) {
    blocks_.emplace_back();
    blocks_.back().reserve(kBlockRows);
  }
  blocks_.back().push_back(std::make_unique<Row>(std::move(row)));
  ++size_;
}

void RowStore::remove(std::size_t index) {
  seek(index);
  Block& block = blocks_[current_];
  block.erase(block.begin() + static_cast<std::ptrdiff_t>(index - currentFirst_));
  --size_;
  if (!block.empty()) return;
  blocks_.erase(blocks_.begin() + static_cast<std::ptrdiff_t>(current_));
  if (current_ > 0 && current_ == blocks_.size()) {
    --current_;
    currentFirst_ -= blocks_[current_].size();
  }
}

void RowStore::clear() {
  blocks_.clear();
  size_ = 0;
  current_ = 0;
  currentFirst_ = 0;
}

}  // namespace controls
