#include "platform/win32/ui/LabelPeer.h"

#include "platform/win32/ui/TextDrawing.h"

#include <string>

namespace platform::win32 {
namespace {

constexpr int kBeforeLine = 3;  // dialog units between a heading and its line

int colourOf(controls::Ground ground) {
  switch (ground) {
    case controls::Ground::kTrack:
      return COLOR_BTNSHADOW;
    case controls::Ground::kFilled:
      return COLOR_HIGHLIGHT;
    case controls::Ground::kWindow:
    case controls::Ground::kHeading:
      break;
  }
  return COLOR_BTNFACE;
}

}  // namespace

void LabelPeer::draw(const DRAWITEMSTRUCT& item) {
  RECT place = item.rcItem;
  FillRect(item.hDC, &place, GetSysColorBrush(colourOf(label_.ground())));
  const HGDIOBJ fontBefore = SelectObject(item.hDC, metrics().font());
  SetBkMode(item.hDC, TRANSPARENT);
  SetTextColor(item.hDC, GetSysColor((item.itemState & ODS_DISABLED) != 0 ? COLOR_GRAYTEXT : COLOR_BTNTEXT));
  const std::string text = withMnemonic(control().caption(), control().mnemonic());
  const bool wraps = place.bottom - place.top >= 2 * metrics().lineHeight();
  drawText(item.hDC, text, place, wraps ? DT_WORDBREAK : DT_SINGLELINE | DT_VCENTER | DT_PATH_ELLIPSIS);
  if (label_.ground() == controls::Ground::kHeading) {
    place.left += textExtent(item.hDC, text) + metrics().pixelsX(kBeforeLine);
    place.top = (place.top + place.bottom) / 2;
    DrawEdge(item.hDC, &place, EDGE_ETCHED, BF_TOP);
  }
  SelectObject(item.hDC, fontBefore);
}

void LabelPeer::placed() {
  RECT whole;
  GetWindowRect(handle(), &whole);
  place_.width = whole.right - whole.left;
  place_.height = whole.bottom - whole.top;
  showValue();
}

void LabelPeer::showValue() {
  const controls::Rect covered = label_.covered(place_);
  SetWindowPos(handle(), nullptr, 0, 0, covered.width, covered.height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace platform::win32
