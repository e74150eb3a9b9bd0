#include "controls/ListView.h"

#include <utility>

namespace controls {

void ListView::add(std::string text, std::vector<std::string> subItems) {
  add(Row{std::move(text), std::move(subItems), false});
}

void ListView::add(Row row) {
  if (keyOf_) ++keys_[keyOf_(row.text)];
  const bool ticked = row.ticked;
  if (ticked) ++tickedCount_;
  rows_.append(std::move(row));
  notify(Change::kRows);
  if (ticked) raiseItemCheck();
}

void ListView::forget(const Row& row) {
  if (!keyOf_) return;
  const auto found = keys_.find(keyOf_(row.text));
  if (--found->second == 0) keys_.erase(found);
}

void ListView::remove(std::size_t index) {
  const Row& row = rows_.at(index);
  const bool wasTicked = row.ticked;
  forget(row);
  rows_.remove(index);
  if (wasTicked) --tickedCount_;
  if (selected_ == index) {
    selected_.reset();
  } else if (selected_ && *selected_ > index) {
    selected_ = *selected_ - 1;
  }
  notify(Change::kRows);
  if (wasTicked) raiseItemCheck();
}

void ListView::clear() {
  const bool hadTicks = tickedCount_ > 0;
  rows_.clear();
  keys_.clear();
  tickedCount_ = 0;
  selected_.reset();
  notify(Change::kRows);
  if (hadTicks) raiseItemCheck();
}

void ListView::setTicked(std::size_t index, bool ticked) {
  Row& row = rows_.at(index);
  if (row.ticked == ticked) return;
  row.ticked = ticked;
  if (ticked) {
    ++tickedCount_;
  } else {
    --tickedCount_;
  }
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
