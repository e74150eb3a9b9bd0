#include "platform/win32/ui/ToolTips.h"

// Kept apart: the common controls' header needs <windows.h> before it.
#include <commctrl.h>

namespace platform::win32 {

ToolTips::ToolTips(HWND owner)
    : owner_(owner),
      handle_(CreateWindowExA(WS_EX_TOPMOST, TOOLTIPS_CLASSA, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0, 0, 0,
                              0, owner, nullptr, GetModuleHandleA(nullptr), nullptr)) {
  // A maximum width enables tooltips with several lines.
  SendMessageA(handle_, TTM_SETMAXTIPWIDTH, 0, GetSystemMetrics(SM_CXSCREEN));
}

void ToolTips::add(HWND control) {
  TTTOOLINFOA tool = {};
  tool.cbSize = TTTOOLINFOA_V1_SIZE;
  tool.uFlags = TTF_IDISHWND;
  tool.hwnd = owner_;
  tool.uId = reinterpret_cast<UINT_PTR>(control);
  tool.lpszText = LPSTR_TEXTCALLBACKA;
  SendMessageA(handle_, TTM_ADDTOOLA, 0, reinterpret_cast<LPARAM>(&tool));
}

void ToolTips::relay(MSG message) {
  const bool isMouse = message.message >= WM_MOUSEFIRST && message.message <= WM_MOUSELAST;
  if (isMouse) SendMessageA(handle_, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&message));
}

bool ToolTips::isTextRequest(const NMHDR& header, HWND& control) const {
  if (header.hwndFrom != handle_ || header.code != TTN_NEEDTEXTA) return false;
  control = reinterpret_cast<HWND>(header.idFrom);
  return true;
}

void ToolTips::setText(NMHDR& header, std::string text) {
  text_ = std::move(text);
  reinterpret_cast<NMTTDISPINFOA&>(header).lpszText = text_.data();
}

void ToolTips::follow(const std::string& text) {
  if (text == text_) return;
  text_.clear();
  SendMessageA(handle_, TTM_POP, 0, 0);
}

}  // namespace platform::win32
