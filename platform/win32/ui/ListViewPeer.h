// The native report list, with LVS_OWNERDATA: it stores no rows and requests those that it draws (LVN_GETDISPINFO).
// Versions of the common controls before 4.70 lack that style; there the rows are stored, without their texts. The
// native list keeps the selection as the user makes it, and the control follows; an item is a place of the order shown.
#pragma once

#include <array>
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
  // The whole text of a cell that is cut under the pointer, else the control's tooltip.
  std::string toolTip() const override;

 protected:
  void showValue() override;

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM first, LPARAM second);
  LRESULT mouseDown(UINT message, WPARAM first, LPARAM second);
  bool keyDown(WPARAM key);
  LRESULT paint(WPARAM first, LPARAM second);
  void tickFocused();
  // `where` is that of WM_CONTEXTMENU: the pointer's place on the screen, or -1 for the keyboard.
  void openRowMenu(LPARAM where);
  POINT placeOfMenu(LPARAM where) const;

  void addColumns();
  void distributeColumnWidths();
  void showRowCount();
  void showEmptyText();
  void drawEmptyText() const;
  void storeRows(int count);
  void showSelection();
  void deselectAll();
  void showOrder();
  int widthOf(const controls::Column& column) const;
  void fillItem(LVITEMA& item);
  const std::string& drawnText(const std::string& text, std::size_t column);
  std::string shortenedInMiddle(const std::string& text, int width) const;
  // LVIR_BOUNDS or LVIR_LABEL of an item. LVM_GETITEMRECT.
  RECT partOf(int item, int part) const;
  // The width that a cell has for its text.
  int textRoom(int item, int column) const;
  void itemChanged(const NMLISTVIEW& change);
  void itemsChanged(const NMLVODSTATECHANGE& change);
  // Selects in the control what is selected in the native list, if the numbers of rows differ.
  void readSelection();
  int focusedItem() const;
  // The control's row for the native item `item`; rowCount() when there is none. Both are 0-based.
  std::size_t rowOf(int item) const;

  controls::ListView& list_;
  bool ownerData_;  // the native list has LVS_OWNERDATA
  WNDPROC nativeProcedure_ = nullptr;
  HIMAGELIST tickPictures_ = nullptr;
  std::vector<int> columnWidths_;  // in pixels, as last set by this object
  std::vector<int> paintedRooms_;  // textRoom() of the columns while the list is painted
  std::string shownEmptyText_;     // empty while there are rows
  std::size_t rowsSeen_ = 0;       // row count at the last change
  std::optional<controls::SortOrder> shownOrder_;
  std::array<std::string, 4> drawnTexts_;  // a text must outlive two more requests
  std::size_t nextDrawn_ = 0;
  int lastSelected_ = 0;           // the item of the native list that was selected last
  bool onlyGrown_ = true;          // only rows appended since the last flush
  bool emptied_ = false;           // the list was empty at some time since the last flush
  bool selectionChanged_ = false;  // by code since the last flush
  bool inMouseDown_ = false;
  bool painting_ = false;
  bool applying_ = false;  // the native list is being brought up to date
};

}  // namespace platform::win32
