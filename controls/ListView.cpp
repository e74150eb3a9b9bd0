#include "controls/ListView.h"

#include <algorithm>
#include <utility>

namespace controls {

void ListView::add(std::string text, std::vector<std::string> subItems) {
  add(Row{std::move(text), std::move(subItems), false});
}

void ListView::add(Row row) {
  if (keyOf_) keyHashes_.insert(std::hash<std::string>()(keyOf_(row.text)));
  const bool ticked = row.ticked;
  if (ticked) countTick(row, true);
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
  if (tickedCount_ != tickedBefore) raiseItemCheck();
}

void ListView::clear() {
  const bool hadTicks = tickedCount_ > 0;
  rows_.clear();
  keyHashes_.clear();
  tickedCount_ = 0;
  tickedWeight_ = 0;
  selected_.reset();
  notify(Change::kRows);
  if (hadTicks) raiseItemCheck();
}

void ListView::setTicked(std::size_t index, bool ticked) {
  Row& row = rows_[index];
  if (row.ticked == ticked) return;
  row.ticked = ticked;
  countTick(row, ticked);
  notify(Change::kRows);
  raiseItemCheck();
}

void ListView::select(std::optional<std::size_t> index) {
  selected_ = index && *index < rowCount() ? index : std::nullopt;
  notify(Change::kValue);
}

void ListView::clickTick(std::size_t index) {
  if (acceptsInput() && index < rowCount()) setTicked(index, !ticked(index));
}

void ListView::clickRow(std::size_t index) {
  if (!acceptsInput() || index >= rowCount()) return;
  select(index);
  if (onItemClick) onItemClick();
}

}  // namespace controls
