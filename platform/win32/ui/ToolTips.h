// The tooltips of one form. The tooltip control requests a text when it shows it (TTN_NEEDTEXT).
#pragma once

#include <windows.h>

#include <string>

namespace platform::win32 {

class ToolTips {
 public:
  // Creates the tooltip window, which is destroyed with its owner.
  explicit ToolTips(HWND owner);

  // Adds a tooltip for a child window of the owner. TTM_ADDTOOL.
  void add(HWND control);
  // To be called with each message for such a child window before it is dispatched. A native tooltip that intercepted
  // them itself (TTF_SUBCLASS) would slow down every message of every control. TTM_RELAYEVENT.
  void relay(MSG message);
  // Whether `header` requests a text; `control` is then set to the window whose text it is.
  bool isTextRequest(const NMHDR& header, HWND& control) const;
  // Replies to such a request.
  void setText(NMHDR& header, std::string text);
  // Whether a tooltip has been requested that follow() has not hidden.
  bool hasText() const { return !text_.empty(); }
  // The tooltip for the place where the pointer is; the one shown goes when it is another. TTM_POP.
  void follow(const std::string& text);

 private:
  HWND owner_;
  HWND handle_;
  std::string text_;  // of the tooltip shown
};

}  // namespace platform::win32
