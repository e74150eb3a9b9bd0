#include "platform/win32/ui/ButtonPeer.h"

#include <string>
#include <string_view>

#include "controls/Form.h"
#include "platform/win32/ui/Pictures.h"
#include "platform/win32/ui/Scheme.h"
#include "platform/win32/ui/TextDrawing.h"

namespace platform::win32 {
namespace {

using controls::ButtonLook;

constexpr int kFocusInset = 2;  // pixels from the border or bevel to the focus rectangle
// How much of the colour of selected items is in the ground of a button with the default colours.
constexpr int kHotPercent = 20;
constexpr int kPressedPercent = 40;

constexpr int kHelpPointer = 32651;  // IDC_HELP
// The system's pointers (IDC_ARROW is 32512) by ButtonLook::MousePointer; 0 is that of the window.
constexpr int kPointers[ButtonLook::kLastPointer + 1] = {0,     32512, 32515, 32513, 32512, 32646, 32643,        32645,
                                                         32642, 32644, 32516, 32514, 32648, 32650, kHelpPointer, 32646};

HCURSOR systemPointer(int number) { return number == 0 ? nullptr : LoadCursorA(nullptr, MAKEINTRESOURCEA(number)); }

// A pointer "icon:NAME" or "cursor:NAME"; null when the program has no such resource.
HCURSOR loadPointer(const std::string& name) {
  constexpr std::string_view kCursor = "cursor:";
  const std::string icon = iconResource(name);
  if (icon.empty() && !name.starts_with(kCursor)) return nullptr;
  const char* const resource = icon.empty() ? name.c_str() + kCursor.size() : icon.c_str();
  return static_cast<HCURSOR>(LoadImageA(GetModuleHandleA(nullptr), resource, icon.empty() ? IMAGE_CURSOR : IMAGE_ICON,
                                         0, 0, LR_DEFAULTSIZE | LR_SHARED));
}

COLORREF colourOf(controls::Color color) {
  const bool isSystem = color.value >= controls::Color::kSystem;
  return isSystem ? GetSysColor(static_cast<int>(color.value - controls::Color::kSystem)) : color.value;
}

COLORREF mixed(COLORREF one, COLORREF other, int percentOfOne) {
  const auto mix = [percentOfOne](int a, int b) { return (a * percentOfOne + b * (100 - percentOfOne)) / 100; };
  return RGB(mix(GetRValue(one), GetRValue(other)), mix(GetGValue(one), GetGValue(other)),
             mix(GetBValue(one), GetBValue(other)));
}

void fill(HDC target, const RECT& place, COLORREF colour) {
  const HBRUSH brush = CreateSolidBrush(colour);
  FillRect(target, &place, brush);
  DeleteObject(brush);
}

RECT shifted(const controls::Rect& part, int by) {
  return {part.x + by, part.y + by, part.right() + by, part.bottom() + by};
}

}  // namespace

ButtonPeer::ButtonPeer(const Host& host, controls::FlatButton& button)
    : ControlPeer(host, button, {.windowClass = "BUTTON", .style = BS_OWNERDRAW}),
      button_(button),
      ownPointer_(loadPointer(button.look().MouseIcon)) {
  replaceProcedure(handle(), *this, procedure, nativeProcedure_);
}

// Screen readers learn by WM_GETDLGCODE which button is the default one; an owner-drawn button cannot have the style.
LRESULT CALLBACK ButtonPeer::procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
  const auto& peer = peerOf<ButtonPeer>(window);
  if (message == WM_GETDLGCODE) return DLGC_BUTTON | (peer.isDefault() ? DLGC_DEFPUSHBUTTON : DLGC_UNDEFPUSHBUTTON);
  // The native button would paint itself at once, and again when it is invalid.
  if (message == WM_ENABLE) return 0;
  return CallWindowProcA(peer.nativeProcedure_, window, message, first, second);
}

bool ButtonPeer::isDefault() const { return button_.form().defaultButton() == &button_; }

// An owner-drawn button sends BN_DOUBLECLICKED instead of BN_CLICKED for the second of two quick clicks.
void ButtonPeer::onCommand(int code) {
  if (code == BN_CLICKED || code == BN_DOUBLECLICKED) button_.click();
}

bool ButtonPeer::press() {
  button_.click();
  return true;
}

bool ButtonPeer::clickByMnemonic() { return press(); }

HCURSOR ButtonPeer::cursor() const {
  const ButtonLook& look = button_.look();
  if (look.DefCurHand) return systemPointer(kHandPointer);
  return look.MousePointer == ButtonLook::kOwnPointer ? ownPointer_ : systemPointer(kPointers[look.MousePointer]);
}

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
  const bool disabled = (item.itemState & ODS_DISABLED) != 0;
  const State state = {.pressed = (item.itemState & ODS_SELECTED) != 0,
                       .disabled = disabled,
                       .focused = (item.itemState & ODS_FOCUS) != 0,
                       .isDefault = isDefault() && !disabled,
                       .hot = hot_ && !disabled,
                       .highContrast = isHighContrast()};
  const ButtonLook look = state.highContrast ? button_.look().inSystemColors() : button_.look();
  const int width = item.rcItem.right - item.rcItem.left;
  const int height = item.rcItem.bottom - item.rcItem.top;
  const HDC target = CreateCompatibleDC(item.hDC);
  const HBITMAP bitmap = CreateCompatibleBitmap(item.hDC, width, height);
  const HGDIOBJ bitmapBefore = SelectObject(target, bitmap);
  const HGDIOBJ fontBefore = SelectObject(target, metrics().font(look.Font));

  drawButton(target, {0, 0, width, height}, look, state);
  BitBlt(item.hDC, item.rcItem.left, item.rcItem.top, width, height, target, 0, 0, SRCCOPY);

  SelectObject(target, fontBefore);
  SelectObject(target, bitmapBefore);
  DeleteObject(bitmap);
  DeleteDC(target);
}

void ButtonPeer::drawButton(HDC target, const RECT& place, const ButtonLook& look, const State& state) const {
  fillGround(target, place, look, state);
  const bool active = !state.disabled && (state.hot || state.pressed || state.focused || state.isDefault);
  RECT inside = place;
  if (active || look.XPShowBorderAlways) {
    const bool isSelected = look.ButtonStyle == ButtonLook::Style::kXp && look.XPDefaultColors && !state.highContrast;
    const HBRUSH border = GetSysColorBrush(!active ? COLOR_BTNSHADOW : isSelected ? COLOR_HIGHLIGHT : COLOR_3DDKSHADOW);
    FrameRect(target, &inside, border);
    InflateRect(&inside, -1, -1);
    if (state.isDefault) FrameRect(target, &inside, border);
  }
  drawBevel(target, inside, look, state.pressed);
  drawContent(target, place, look, state);
  if (!state.focused || !look.ShowFocusRect) return;
  // DrawFocusRect inverts the pixels that have the text colour in its pattern.
  SetTextColor(target, RGB(0, 0, 0));
  InflateRect(&inside, -kFocusInset, -kFocusInset);
  DrawFocusRect(target, &inside);
}

void ButtonPeer::fillGround(HDC target, const RECT& place, const ButtonLook& look, const State& state) const {
  if (look.ButtonStyle == ButtonLook::Style::kXp && (state.hot || state.pressed)) {
    const int percent = state.highContrast ? 0 : state.pressed ? kPressedPercent : kHotPercent;
    const COLORREF standard = mixed(GetSysColor(COLOR_HIGHLIGHT), colourOf(look.BackColor), percent);
    const COLORREF own = colourOf(state.pressed ? look.XPColor_Pressed : look.XPColor_Hover);
    return fill(target, place, look.XPDefaultColors ? standard : own);
  }
  if (!look.TransparentBG) return fill(target, place, colourOf(look.BackColor));
  const LRESULT brush = SendMessageA(GetParent(handle()), WM_CTLCOLORBTN, reinterpret_cast<WPARAM>(target),
                                     reinterpret_cast<LPARAM>(handle()));
  FillRect(target, &place, reinterpret_cast<HBRUSH>(brush));
}

void ButtonPeer::drawBevel(HDC target, RECT& place, const ButtonLook& look, bool pressed) const {
  if (look.BEVEL == ButtonLook::Bevel::kNone) return;
  const bool isRaised = look.BEVEL == ButtonLook::Bevel::kRaised && !pressed;
  for (int depth = metrics().pixels(look.BEVELDEPTH); depth > 0; --depth) {
    DrawEdge(target, &place, isRaised ? BDR_RAISEDINNER : BDR_SUNKENOUTER, BF_RECT | BF_ADJUST);
  }
}

void ButtonPeer::drawContent(HDC target, const RECT& place, const ButtonLook& look, const State& state) const {
  const std::string& caption = button_.caption();
  const controls::ButtonParts parts =
      controls::arrangeButton(look, metrics().textSize(caption, look.Font), {place.right, place.bottom}, metrics());
  const int shift = state.pressed ? 1 : 0;
  const COLORREF colour = state.disabled ? GetSysColor(COLOR_GRAYTEXT) : colourOf(look.ForeColor);
  if (parts.picture.width > 0) {
    const std::string& picture = state.hot && !look.PictureHover.empty() ? look.PictureHover : look.Picture;
    drawPicture(target, shifted(parts.picture, shift), picture,
                {.line = colour, .mask = colourOf(look.MaskColor), .greyed = state.disabled});
  }
  if (look.Mark) drawMark(target, shifted(parts.mark, shift), colour);
  SetBkMode(target, TRANSPARENT);
  SetTextColor(target, colour);
  drawText(target, withMnemonic(caption, button_.mnemonic()), shifted(parts.caption, shift),
           DT_VCENTER | DT_SINGLELINE | DT_NOCLIP);
}

}  // namespace platform::win32
