#include "controls/ListView.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "platform/Paths.h"

namespace controls {
namespace {

bool isBefore(const std::string& one, const std::string& other) {
  return std::ranges::lexicographical_compare(one, other, {}, platform::lowerLetter, platform::lowerLetter);
}

}  // namespace

void ListView::add(std::string text, std::vector<std::string> subItems) {
  add(Row{std::move(text), std::move(subItems), false});
}

void ListView::add(Row row) {
  if (keyOf_) keyHashes_.insert(std::hash<std::string>()(keyOf_(row.text)));
  const bool ticked = row.ticked;
  if (ticked) countTick(row, true);
  if (row.selected) ++selectedCount_;
  rows_.push_back(std::move(row));
  notify(Change::kRows);
  if (ticked) raiseItemCheck();
}

bool ListView::containsKey(const std::string& key) const {
  if (!keyHashes_.contains(std::hash<std::string>()(key))) return false;
  return std::ranges::any_of(rows_, [&](const Row& row) { return keyOf_(row.text) == key; });
}

void ListView::forget(const Row& row) {
  if (keyOf_) keyHashes_.erase(keyHashes_.find(std::hash<std::string>()(keyOf_(row.text))));
  if (row.ticked) countTick(row, false);
  if (row.selected) --selectedCount_;
}

void ListView::countTick(const Row& row, bool in) {
  if (in) {
    ++tickedCount_;
  } else {
    --tickedCount_;
  }
  if (weightOf_) tickedWeight_ += in ? weightOf_(row) : -weightOf_(row);
}

void ListView::removeRows(std::vector<std::size_t> indices) {
  if (indices.empty()) return;
  std::ranges::sort(indices);
  const std::size_t tickedBefore = tickedCount_;
  removeFromOrder(indices);
  for (const std::size_t index : indices) forget(rows_[index]);
  if (selected_) {
    const auto position = std::ranges::lower_bound(indices, *selected_);
    const bool removed = position != indices.end() && *position == *selected_;
    selected_ =
        removed ? std::nullopt : std::optional(*selected_ - static_cast<std::size_t>(position - indices.begin()));
  }
  // Each row that is kept moves once, to its final place.
  auto gap = indices.begin();
  std::size_t kept = indices.front();
  for (std::size_t i = kept; i < rows_.size(); ++i) {
    if (gap != indices.end() && *gap == i) {
      ++gap;
    } else {
      rows_[kept++] = std::move(rows_[i]);
    }
  }
  rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(kept), rows_.end());
  notify(Change::kRows);
  notify(Change::kValue);
  if (tickedCount_ != tickedBefore) raiseItemCheck();
}

void ListView::clear() {
  const bool hadTicks = tickedCount_ > 0;
  rows_.clear();
  keyHashes_.clear();
  tickedCount_ = 0;
  tickedWeight_ = 0;
  selected_.reset();
  selectedCount_ = 0;
  sortOrder_.reset();
  order_.clear();
  notify(Change::kRows);
  if (hadTicks) raiseItemCheck();
}

bool ListView::changeTick(std::size_t index, bool ticked) {
  Row& row = rows_[index];
  if (row.ticked == ticked) return false;
  row.ticked = ticked;
  countTick(row, ticked);
  return true;
}

void ListView::setTicked(std::size_t index, bool ticked) {
  if (!changeTick(index, ticked)) return;
  notify(Change::kRows);
  raiseItemCheck();
}

void ListView::setTicked(const std::vector<std::size_t>& indices, bool ticked) {
  bool changed = false;
  for (const std::size_t index : indices) changed = changeTick(index, ticked) || changed;
  if (!changed) return;
  notify(Change::kRows);
  raiseItemCheck();
}

// ---- Selection

void ListView::select(std::optional<std::size_t> index) {
  markAllSelected(false);
  if (index && *index < rowCount()) {
    markSelected(*index, true);
    selected_ = index;
  }
  notify(Change::kValue);
}

void ListView::markSelected(std::size_t index, bool selected) {
  if (index >= rowCount() || rows_[index].selected == selected) return;
  if (selected && !checkBoxes_) markAllSelected(false);
  rows_[index].selected = selected;
  if (selected) {
    ++selectedCount_;
  } else {
    --selectedCount_;
    if (selected_ == index) selected_.reset();
  }
}

void ListView::markAllSelected(bool selected) {
  if (selectedCount_ == (selected ? rowCount() : 0)) return;
  if (!selected) selected_.reset();
  for (Row& row : rows_) row.selected = selected;
  selectedCount_ = selected ? rowCount() : 0;
}

std::vector<std::size_t> ListView::selectedRows() const {
  std::vector<std::size_t> selected;
  selected.reserve(selectedCount_);
  for (std::size_t place = 0; place < rowCount() && selected.size() < selectedCount_; ++place) {
    const std::size_t row = rowAt(place);
    if (rows_[row].selected) selected.push_back(row);
  }
  return selected;
}

void ListView::clickTick(std::size_t index) {
  if (acceptsInput() && index < rowCount()) setTicked(index, !ticked(index));
}

void ListView::clickRow(std::size_t index) {
  if (!acceptsInput() || index >= rowCount()) return;
  select(index);
  if (onItemClick) onItemClick();
}

void ListView::clickSelected(std::size_t index) {
  if (!acceptsInput() || index >= rowCount() || !rows_[index].selected) return;
  selected_ = index;
  if (onItemClick) onItemClick();
}

void ListView::toggleTicks(std::size_t focused) {
  if (!acceptsInput() || focused >= rowCount()) return;
  setTicked(rows_[focused].selected ? selectedRows() : std::vector{focused}, !rows_[focused].ticked);
}

void ListView::pressDelete() {
  if (acceptsInput() && onDelete) onDelete();
}

Menu ListView::menu() const { return acceptsInput() && selectedCount_ > 0 && onMenu ? onMenu() : Menu(); }

// ---- Order

std::size_t ListView::placeOf(std::size_t index) const {
  if (index >= order_.size()) return index;
  return static_cast<std::size_t>(std::ranges::find(order_, index) - order_.begin());
}

void ListView::clickColumn(std::size_t column) {
  if (!acceptsInput() || column >= columns_.size()) return;
  const bool again = sortOrder_ && sortOrder_->column == column;
  sortOrder_ = SortOrder{column, again && !sortOrder_->descending};
  sort();
}

void ListView::sortAgain() {
  if (sortOrder_ && order_.size() != rows_.size()) sort();
}

void ListView::sort() {
  order_.resize(rows_.size());
  std::iota(order_.begin(), order_.end(), std::uint32_t{0});
  const Column& column = columns_[sortOrder_->column];
  const auto sortBy = [this](auto less) {
    const auto reversed = [&less](std::uint32_t one, std::uint32_t other) { return less(other, one); };
    sortOrder_->descending ? std::ranges::stable_sort(order_, reversed) : std::ranges::stable_sort(order_, less);
  };
  if (column.numberOf) {
    std::vector<double> numbers;
    numbers.reserve(rows_.size());
    for (std::size_t i = 0; i < rows_.size(); ++i) numbers.push_back(column.numberOf(cell(i, sortOrder_->column)));
    sortBy([&](std::uint32_t one, std::uint32_t other) { return numbers[one] < numbers[other]; });
  } else {
    sortBy([this](std::uint32_t one, std::uint32_t other) {
      return isBefore(cell(one, sortOrder_->column), cell(other, sortOrder_->column));
    });
  }
  notify(Change::kRows);
  notify(Change::kValue);
}

void ListView::removeFromOrder(const std::vector<std::size_t>& indices) {
  if (order_.empty()) return;
  std::vector<bool> gone(rows_.size());
  for (const std::size_t index : indices) gone[index] = true;
  std::vector<std::uint32_t> newIndex(order_.size());
  std::uint32_t kept = 0;
  for (std::size_t i = 0; i < newIndex.size(); ++i) newIndex[i] = gone[i] ? kept : kept++;
  std::erase_if(order_, [&gone](std::uint32_t row) { return gone[row]; });
  for (std::uint32_t& row : order_) row = newIndex[row];
}

const std::string& ListView::cell(std::size_t index, std::size_t column) const {
  static const std::string kNothing;
  const Row& row = rows_[index];
  if (column == 0) return row.text;
  return column <= row.subItems.size() ? row.subItems[column - 1] : kNothing;
}

}  // namespace controls
