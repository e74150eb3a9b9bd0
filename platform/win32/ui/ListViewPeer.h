// The native report list. It stores no rows: it asks for those that it draws, so that a million rows cost nothing here.
// Library versions before 4.70 have no such lists; there the rows are stored, without their texts.
#pragma once

#include <cstddef>
#include <optional>
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
  void shareOutColumns();
  void showRowCount();
  void storeRows(int count);
  void showSelection();
  void answer(LVITEMA& question) const;
  void selectedByKeyboard(const NMLISTVIEW& change);
  void clickRow(std::size_t row);
  // The control's row for a native item; rowCount() when there is none.
  std::size_t rowOf(int item) const;

  controls::ListView& list_;
  bool asks_;  // the native list asks for its rows
  WNDPROC nativeProcedure_ = nullptr;
  HIMAGELIST tickPictures_ = nullptr;
  std::vector<int> sharedWidths_;              // the columns' widths as last shared out, in pixels
  std::size_t rowsSeen_ = 0;                   // rows at the last change
  std::optional<std::size_t> shownSelection_;  // as the native list has it
  bool onlyGrown_ = true;                      // nothing but new rows since the last flush
  bool emptied_ = false;                       // there was no row at some time since the last flush
  bool inMouseDown_ = false;
  bool showingSelection_ = false;
};

}  // namespace platform::win32
