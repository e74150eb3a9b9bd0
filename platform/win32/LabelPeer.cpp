#include "platform/win32/LabelPeer.h"

#include <string>

namespace platform::win32 {

void LabelPeer::draw(const DRAWITEMSTRUCT& item) {
  RECT place = item.rcItem;
  FillRect(item.hDC, &place, GetSysColorBrush(COLOR_BTNFACE));
  const HGDIOBJ fontBefore = SelectObject(item.hDC, metrics().font());
  SetBkMode(item.hDC, TRANSPARENT);
  SetTextColor(item.hDC, GetSysColor((item.itemState & ODS_DISABLED) != 0 ? COLOR_GRAYTEXT : COLOR_BTNTEXT));
  const std::string text = withMnemonic(control().caption(), control().mnemonic());
  const bool wraps = place.bottom - place.top >= 2 * metrics().lineHeight();
  DrawTextA(item.hDC, text.c_str(), -1, &place, wraps ? DT_WORDBREAK : DT_SINGLELINE | DT_VCENTER | DT_PATH_ELLIPSIS);
  SelectObject(item.hDC, fontBefore);
}

}  // namespace platform::win32
