// Controls of one class, accessed by a 0-based index, such as the file-type check boxes.
#pragma once

#include <cstddef>
#include <deque>
#include <utility>

namespace controls {

template <typename C>
class ControlArray {
 public:
  // Appends a control, constructed from `arguments`, and returns it.
  template <typename... Arguments>
  C& add(Arguments&&... arguments) {
    return items_.emplace_back(std::forward<Arguments>(arguments)...);
  }

  C& operator[](std::size_t index) { return items_[index]; }
  const C& operator[](std::size_t index) const { return items_[index]; }
  std::size_t size() const { return items_.size(); }

  auto begin() { return items_.begin(); }
  auto end() { return items_.end(); }
  auto begin() const { return items_.begin(); }
  auto end() const { return items_.end(); }

 private:
  std::deque<C> items_;  // a deque, because forms and peers keep the controls' addresses
};

}  // namespace controls
