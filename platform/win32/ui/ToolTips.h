// The tooltips of one form. The tooltip control requests a text when it shows it (TTN_NEEDTEXT).
#pragma once

#include <windows.h>

namespace platform::win32 {

class ToolTips {
 public:
  // Creates the tooltip window, which is destroyed with its owner.
  explicit ToolTips(HWND owner);

  // Adds a tooltip for a child window of the owner. TTM_ADDTOOL.
  void add(HWND control);
  // Whether `header` requests a text; `control` is then set to the window whose text it is.
  bool isTextRequest(const NMHDR& header, HWND& control) const;
  // Replies to such a request. `text` must remain valid until the next message.
  static void setText(NMHDR& header, const char* text);

 private:
  HWND owner_;
  HWND handle_;
};

}  // namespace platform::win32
