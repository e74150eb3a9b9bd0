#include "platform/win32/ui/ButtonPeer.h"

#include <string>

#include "controls/Form.h"
#include "platform/win32/ui/Pictures.h"

namespace platform::win32 {
namespace {

constexpr int kPictureMargin = 2;  // dialog units around a picture
constexpr int kFocusInset = 3;     // pixels from the button's edge to the focus rectangle

void fill(HDC target, const RECT& place, int systemColour) { FillRect(target, &place, GetSysColorBrush(systemColour)); }

}  // namespace

ButtonPeer::ButtonPeer(const Host& host, controls::FlatButton& button)
    : ControlPeer(host, button, {.windowClass = "BUTTON", .style = BS_OWNERDRAW}), button_(button) {}

// An owner-drawn button sends BN_DOUBLECLICKED instead of BN_CLICKED for the second of two quick clicks.
void ButtonPeer::onCommand(int code) {
  if (code == BN_CLICKED || code == BN_DOUBLECLICKED) button_.click();
}

bool ButtonPeer::press() {
  button_.click();
  return true;
}

bool ButtonPeer::clickByMnemonic() { return press(); }

void ButtonPeer::pointerEnters() {
  hot_ = true;
  redraw();
  button_.pointerEnters();
}

void ButtonPeer::pointerLeaves() {
  hot_ = false;
  redraw();
}

// Draws into a bitmap first, so that a redrawn button does not flicker.
void ButtonPeer::draw(const DRAWITEMSTRUCT& item) {
  const int width = item.rcItem.right - item.rcItem.left;
  const int height = item.rcItem.bottom - item.rcItem.top;
  const HDC target = CreateCompatibleDC(item.hDC);
  const HBITMAP bitmap = CreateCompatibleBitmap(item.hDC, width, height);
  const HGDIOBJ bitmapBefore = SelectObject(target, bitmap);
  const HGDIOBJ fontBefore = SelectObject(target, metrics().font());

  drawFace(target, {0, 0, width, height}, item.itemState);
  BitBlt(item.hDC, item.rcItem.left, item.rcItem.top, width, height, target, 0, 0, SRCCOPY);

  SelectObject(target, fontBefore);
  SelectObject(target, bitmapBefore);
  DeleteObject(bitmap);
  DeleteDC(target);
}

void ButtonPeer::drawFace(HDC target, RECT place, UINT state) const {
  const bool pressed = (state & ODS_SELECTED) != 0;
  const bool disabled = (state & ODS_DISABLED) != 0;
  const bool focused = (state & ODS_FOCUS) != 0;
  const bool isDefault = button_.form().defaultButton() == &button_;
  const bool active = !disabled && (hot_ || focused || pressed || isDefault);

  fill(target, place, !disabled && hot_ && !pressed ? COLOR_3DLIGHT : COLOR_BTNFACE);
  FrameRect(target, &place, GetSysColorBrush(active ? COLOR_3DDKSHADOW : COLOR_BTNSHADOW));
  RECT content = place;
  if (pressed) OffsetRect(&content, 1, 1);
  drawContent(target, content, disabled);
  if (!focused) return;
  InflateRect(&place, -kFocusInset, -kFocusInset);
  DrawFocusRect(target, &place);
}

void ButtonPeer::drawContent(HDC target, RECT place, bool disabled) const {
  const COLORREF colour = GetSysColor(disabled ? COLOR_GRAYTEXT : COLOR_BTNTEXT);
  InflateRect(&place, -metrics().pixelsX(kPictureMargin), -metrics().pixelsY(kPictureMargin));
  if (button_.picture() == controls::Picture::kMagnifier) return drawMagnifier(target, place, colour);
  if (button_.picture() == controls::Picture::kInvert) return drawInvert(target, place, colour);
  SetBkMode(target, TRANSPARENT);
  SetTextColor(target, colour);
  DrawTextA(target, withMnemonic(button_.caption(), button_.mnemonic()).c_str(), -1, &place,
            DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOCLIP);
}

}  // namespace platform::win32
