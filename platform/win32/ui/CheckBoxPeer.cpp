#include "platform/win32/ui/CheckBoxPeer.h"

namespace platform::win32 {

CheckBoxPeer::CheckBoxPeer(const Host& host, controls::CheckBox& box)
    : ControlPeer(host, box, {.windowClass = "BUTTON", .style = BS_CHECKBOX}), box_(box) {
  replaceProcedure(handle(), *this, procedure, nativeProcedure_);
}

// The native check box would paint itself at once, and again when it is invalid.
LRESULT CALLBACK CheckBoxPeer::procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
  if (message == WM_ENABLE) return 0;
  return CallWindowProcA(peerOf<CheckBoxPeer>(window).nativeProcedure_, window, message, first, second);
}

}  // namespace platform::win32
