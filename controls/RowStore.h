// The rows of a list. Adding, removing and reading rows one after the other, in either direction, costs the same
// whether the list holds ten rows or a million.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace controls {

struct Row {
  std::string text;                   // the first column
  std::vector<std::string> subItems;  // the columns behind it
  bool ticked = false;
};

// Rows lie in short blocks. The block used last is remembered, so that a walk needs no search.
class RowStore {
 public:
  std::size_t size() const { return size_; }

  // `index` is 0-based and below size().
  Row& at(std::size_t index);
  const Row& at(std::size_t index) const;

  void append(Row row);
  void remove(std::size_t index);
  void clear();

 private:
  static constexpr std::size_t kBlockRows = 256;
  using Block = std::vector<std::unique_ptr<Row>>;

  // Makes `current_` the block that holds row `index`.
  void seek(std::size_t index) const;

  std::vector<Block> blocks_;  // none is empty
  std::size_t size_ = 0;
  mutable std::size_t current_ = 0;       // block used last
  mutable std::size_t currentFirst_ = 0;  // index of its first row
};

}  // namespace controls
