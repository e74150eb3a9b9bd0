#include "platform/win32/ui/FramePeer.h"

namespace platform::win32 {

FramePeer::FramePeer(const Host& host, controls::Frame& frame)
    : ControlPeer(host, frame, {.windowClass = "BUTTON", .style = BS_GROUPBOX | WS_CLIPSIBLINGS}) {
  replaceProcedure(handle(), *this, procedure, nativeProcedure_);
}

// The native frame leaves its ground to the window below, which does not paint under its children.
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
