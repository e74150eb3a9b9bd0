#include "platform/win32/ui/DriveListPeer.h"

namespace platform::win32 {
namespace {

constexpr int kLinesDropped = 10;

}  // namespace

// The height of a combo box includes the list that drops down.
controls::Rect DriveListPeer::nativePlace(const controls::Rect& place) const {
  controls::Rect native = place;
  native.height += kLinesDropped * metrics().lineHeight();
  return native;
}

void DriveListPeer::onCommand(int code) {
  if (code == CBN_DROPDOWN) {
    list_.reload();
    flush();
  }
  // While the list is dropped, CBN_SELCHANGE only moves the highlight; CBN_SELENDOK ends the choice.
  const bool dropped = SendMessageA(handle(), CB_GETDROPPEDSTATE, 0, 0) != 0;
  if (code == CBN_SELENDOK || (code == CBN_SELCHANGE && !dropped)) {
    list_.choose(static_cast<std::size_t>(SendMessageA(handle(), CB_GETCURSEL, 0, 0)));
  }
}

// CB_SETCURSEL with an index out of range, as chosen() is when no drive is chosen, clears the selection.
void DriveListPeer::showValue() {
  SendMessageA(handle(), CB_RESETCONTENT, 0, 0);
  for (const std::string& item : list_.items()) {
    SendMessageA(handle(), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item.c_str()));
  }
  SendMessageA(handle(), CB_SETCURSEL, list_.chosen(), 0);
}

}  // namespace platform::win32
