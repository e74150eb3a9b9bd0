// A report list, with check boxes or without. It counts its ticked rows and can tell whether a text is among its rows
// without walking them. Rows keep the order in which they were added; sorting changes only the order in which they are
// shown. In a list with check boxes several rows can be selected, in any other one.
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
#include "controls/Menu.h"

namespace controls {

struct Row {
  std::string text;                   // the first column
  std::vector<std::string> subItems;  // the columns behind it
  bool ticked = false;
  bool selected = false;
};

struct Column {
  std::string title;
  int share = 1;  // of the width that the columns with a sample leave
  bool rightAligned = false;
  std::string sample = {};  // when not empty, the column is as wide as this text, or as its title
  bool shortened = false;   // a text that does not fit loses its middle instead of its end
  // The number by which a text of the column is sorted. When it is not set, texts are compared, A to Z without case.
  std::function<double(const std::string&)> numberOf = {};
};

// The column by which the rows are shown sorted.
struct SortOrder {
  std::size_t column = 0;
  bool descending = false;
  bool operator==(const SortOrder&) const = default;
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
  // The user has pressed Del in the list.
  Event onDelete;
  // Builds the menu of the selected rows.
  std::function<Menu()> onMenu;

  const std::vector<Column>& columns() const { return columns_; }
  bool checkBoxes() const { return checkBoxes_; }

  // All indices are 0-based and below rowCount().
  std::size_t rowCount() const { return rows_.size(); }
  bool empty() const { return rows_.empty(); }
  // References are good until the next call that adds or removes rows.
  const Row& row(std::size_t index) const { return rows_[index]; }
  const std::string& text(std::size_t index) const { return rows_[index].text; }
  // The text in a column; empty when the row has none there.
  const std::string& cell(std::size_t index, std::size_t column) const;
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
  // The same for several rows; item-check is raised once when one of them has changed.
  void setTicked(const std::vector<std::size_t>& indices, bool ticked);

  // The selected row that was clicked last, if any. Selecting one by code deselects all others; an index that is not
  // there deselects all.
  std::optional<std::size_t> selected() const { return selected_; }
  void select(std::optional<std::size_t> index);
  bool isSelected(std::size_t index) const { return rows_[index].selected; }
  std::size_t selectedCount() const { return selectedCount_; }
  // All selected rows, in the order shown.
  std::vector<std::size_t> selectedRows() const;

  // What the user does; nothing happens while the list takes no input. clickRow selects the row and deselects all
  // others. clickTick toggles the tick of one row. toggleTicks gives the row `focused`, and all selected rows if it is
  // one of them, the opposite of its tick.
  void clickTick(std::size_t index);
  void clickRow(std::size_t index);
  void toggleTicks(std::size_t focused);
  void pressDelete();
  // The menu of the selected rows; empty when no row is selected.
  Menu menu() const;

  // What the user does in the native list, which keeps a selection of its own: a row is selected or deselected beside
  // others, all are, one of the selected ones is clicked.
  void markSelected(std::size_t index, bool selected);
  void markAllSelected(bool selected);
  void clickSelected(std::size_t index);

  // ---- The order in which the rows are shown; a place is 0-based and below rowCount() ----

  std::size_t rowAt(std::size_t place) const { return place < order_.size() ? order_[place] : place; }
  std::size_t placeOf(std::size_t index) const;
  // Empty while the rows are shown in their own order.
  std::optional<SortOrder> sortOrder() const { return sortOrder_; }
  // A click on a column's title: shows the rows sorted by that column, rows that are equal in their own order; the
  // second click reverses that. Rows that are added later are shown at the end.
  void clickColumn(std::size_t column);
  // Sorts rows that were added since into the order shown. Fast when there are none.
  void sortAgain();

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
  bool changeTick(std::size_t index, bool ticked);
  void sort();
  // Takes these rows, in ascending order, out of order_.
  void removeFromOrder(const std::vector<std::size_t>& indices);
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
  std::size_t selectedCount_ = 0;
  std::optional<SortOrder> sortOrder_;
  std::vector<std::uint32_t> order_;  // the rows in the order shown; those that are not in it follow in their own
  std::function<std::string(std::string_view)> keyOf_;
  std::unordered_multiset<std::size_t> keyHashes_;  // takes less memory than the keys
};

}  // namespace controls
