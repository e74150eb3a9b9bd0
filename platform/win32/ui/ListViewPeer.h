// The native report list, with LVS_OWNERDATA: it stores no rows and requests those that it draws (LVN_GETDISPINFO).
// Versions of the common controls before 4.70 lack that style; there the rows are stored, without their texts.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "controls/ListView.h"
#include "platform/win32/ui/ControlPeer.h"
#include "platform/win32/ui/Pictures.h"

namespace platform::win32 {

class ListViewPeer final : public ControlPeer {
 public:
  ListViewPeer(const Host& host, controls::ListView& list);
  ~ListViewPeer() override;

  void changed(controls::Change change) override;
  void placed() override;
  LRESULT onNotify(NMHDR& header) override;

 protected:
  void showValue() override;

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM first, LPARAM second);
  LRESULT mouseDown(UINT message, WPARAM first, LPARAM second);
  LRESULT tickFocused();

  void addColumns();
  void distributeColumnWidths();
  void showRowCount();
  void showEmptyText();
  void drawEmptyText() const;
  void storeRows(int count);
  void showSelection();
  void fillItem(LVITEMA& item) const;
  void selectedByKeyboard(const NMLISTVIEW& change);
  void clickRow(std::size_t row);
  // The control's row for the native item `item`; rowCount() when there is none. Both are 0-based.
  std::size_t rowOf(int item) const;

  controls::ListView& list_;
  bool ownerData_;  // the native list has LVS_OWNERDATA
  WNDPROC nativeProcedure_ = nullptr;
  HIMAGELIST tickPictures_ = nullptr;
  std::vector<int> columnWidths_;              // in pixels, as last set by this object
  std::string shownEmptyText_;                 // empty while there are rows
  std::size_t rowsSeen_ = 0;                   // row count at the last change
  std::optional<std::size_t> shownSelection_;  // the selected row of the native list
  bool onlyGrown_ = true;                      // only rows appended since the last flush
  bool emptied_ = false;                       // the list was empty at some time since the last flush
  bool inMouseDown_ = false;
  bool showingSelection_ = false;
};

}  // namespace platform::win32
