// A report list, with check boxes or without. It counts its ticked rows and can tell whether a text is among its rows
// without walking them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "controls/Control.h"

namespace controls {

struct Row {
  std::string text;                   // the first column
  std::vector<std::string> subItems;  // the columns behind it
  bool ticked = false;
};

struct Column {
  std::string title;
  int share = 1;  // of the list's width, beside the other columns
  bool rightAligned = false;
};

class ListView final : public Control {
 public:
  ListView(Parent parent, std::string name, ControlInit start, std::vector<Column> columns, bool checkBoxes = true)
      : Control(parent, Kind::kListView, std::move(name), std::move(start)),
        columns_(std::move(columns)),
        checkBoxes_(checkBoxes) {}

  // A row's tick has changed, by the user or by code, or ticked rows have left the list. Raised before the call that
  // caused it returns.
  Event onItemCheck;
  // The user has clicked a row; it is the selected one.
  Event onItemClick;

  const std::vector<Column>& columns() const { return columns_; }
  bool checkBoxes() const { return checkBoxes_; }

  // All indices are 0-based and below rowCount().
  std::size_t rowCount() const { return rows_.size(); }
  bool empty() const { return rows_.empty(); }
  // References are good until the next call that adds or removes rows.
  const Row& row(std::size_t index) const { return rows_[index]; }
  const std::string& text(std::size_t index) const { return rows_[index].text; }
  bool ticked(std::size_t index) const { return rows_[index].ticked; }
  std::size_t tickedCount() const { return tickedCount_; }
  // The sum of the weights of the ticked rows, 0 without weighBy.
  std::int64_t tickedWeight() const { return tickedWeight_; }

  // Adds a row at the end.
  void add(std::string text, std::vector<std::string> subItems = {});
  void add(Row row);
  // Removes one row. Takes time in proportion to the rows behind it; removeRows is for many.
  void remove(std::size_t index) { removeRows({index}); }
  // Removes the rows with these indices, given in any order, each once. Item-check is raised once at the end when one
  // of them was ticked.
  void removeRows(std::vector<std::size_t> indices);
  void clear();
  void setTicked(std::size_t index, bool ticked);

  // The selected row, if any. Selecting a row that is not there takes the selection away.
  std::optional<std::size_t> selected() const { return selected_; }
  void select(std::optional<std::size_t> index);

  // What the user does: toggles a row's tick; clicks a row. Nothing happens while the list takes no input.
  void clickTick(std::size_t index);
  void clickRow(std::size_t index);

  // Files rows under `keyOf(text)` from now on, so that `containsKey` knows without walking whether a row with a key
  // is listed. To be called while the list is empty.
  void indexBy(std::function<std::string(std::string_view)> keyOf) { keyOf_ = std::move(keyOf); }
  bool containsKey(const std::string& key) const;

  // Gives every row a weight from now on. To be called while the list is empty.
  void weighBy(std::function<std::int64_t(const Row&)> weightOf) { weightOf_ = std::move(weightOf); }

  // What the list shows in its middle while it has no rows.
  const std::string& emptyText() const { return emptyText_; }
  void setEmptyText(std::string text) {
    if (emptyText_ == text) return;
    emptyText_ = std::move(text);
    notify(Change::kValue);
  }

 private:
  // Takes a row that is about to go out of the counts.
  void forget(const Row& row);
  // Takes the row's tick into the counts, or out of them.
  void countTick(const Row& row, bool in);
  void raiseItemCheck() {
    if (onItemCheck) onItemCheck();
  }

  std::vector<Column> columns_;
  bool checkBoxes_;
  std::vector<Row> rows_;
  std::size_t tickedCount_ = 0;
  std::int64_t tickedWeight_ = 0;
  std::function<std::int64_t(const Row&)> weightOf_;
  std::string emptyText_;
  std::optional<std::size_t> selected_;
  std::function<std::string(std::string_view)> keyOf_;
  std::unordered_multiset<std::size_t> keyHashes_;  // takes less memory than the keys
};

}  // namespace controls
