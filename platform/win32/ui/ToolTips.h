// The tooltips of one form. The texts are asked for when one is about to show, so a text that changes costs nothing.
#pragma once

#include <windows.h>

namespace platform::win32 {

class ToolTips {
 public:
  // The tooltip window goes away with its owner.
  explicit ToolTips(HWND owner);

  void add(HWND control);
  // Whether a notification is the question for a text; `control` is then the window that it is about.
  bool asksFor(const NMHDR& header, HWND& control) const;
  // Answers the question. `text` must live until the next message.
  static void answer(NMHDR& header, const char* text);

 private:
  HWND owner_;
  HWND handle_;
};

}  // namespace platform::win32
