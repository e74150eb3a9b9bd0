#include "platform/win32/ui/FramePeer.h"

namespace platform::win32 {

FramePeer::FramePeer(const Host& host, controls::Frame& frame)
    : ControlPeer(host, frame, {.windowClass = "BUTTON", .style = BS_GROUPBOX | WS_CLIPSIBLINGS}) {
  replaceProcedure(handle(), *this, procedure, nativeProcedure_);
}

// A group box does not erase its background, and the form's window has WS_CLIPCHILDREN.
LRESULT CALLBACK FramePeer::procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
  if (message == WM_ERASEBKGND) {
    RECT ground;
    GetClientRect(window, &ground);
    FillRect(reinterpret_cast<HDC>(first), &ground, GetSysColorBrush(COLOR_BTNFACE));
    return TRUE;
  }
  return CallWindowProcA(peerOf<FramePeer>(window).nativeProcedure_, window, message, first, second);
}

}  // namespace platform::win32
