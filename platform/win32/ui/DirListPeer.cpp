#include "platform/win32/ui/DirListPeer.h"

#include <algorithm>

#include "platform/win32/ui/Pictures.h"
#include "platform/win32/ui/TextDrawing.h"

namespace platform::win32 {
namespace {

// Dialog units.
constexpr int kLineHeight = 10;
constexpr int kIndent = 6;
constexpr int kMargin = 2;
constexpr int kPictureWidth = 10;

}  // namespace

DirListPeer::DirListPeer(const Host& host, controls::DirList& list)
    : ControlPeer(
          host, list,
          {.windowClass = "LISTBOX",
           .style = LBS_NOTIFY | LBS_OWNERDRAWFIXED | LBS_HASSTRINGS | LBS_NOINTEGRALHEIGHT | WS_VSCROLL | WS_HSCROLL,
           .extendedStyle = WS_EX_CLIENTEDGE}),
      list_(list) {
  SendMessageA(handle(), LB_SETITEMHEIGHT, 0, MAKELPARAM(lineHeight(), 0));
}

void DirListPeer::metricsChanged() {
  ControlPeer::metricsChanged();
  SendMessageA(handle(), LB_SETITEMHEIGHT, 0, MAKELPARAM(lineHeight(), 0));
}

int DirListPeer::lineHeight() const { return metrics().pixelsY(kLineHeight); }

int DirListPeer::textLeft(const controls::DirEntry& entry) const {
  return metrics().pixelsX(kMargin + kIndent * entry.depth + kPictureWidth + kMargin);
}

void DirListPeer::onCommand(int code) {
  if (code == LBN_SELCHANGE) list_.highlight(selected());
  if (code == LBN_DBLCLK) openSelected();
  if (code == LBN_KILLFOCUS) list_.leave();
}

bool DirListPeer::press() {
  openSelected();
  return true;
}

void DirListPeer::openSelected() { list_.open(selected()); }

std::size_t DirListPeer::selected() const {
  return static_cast<std::size_t>(SendMessageA(handle(), LB_GETCURSEL, 0, 0));
}

void DirListPeer::showValue() {
  SendMessageA(handle(), WM_SETREDRAW, FALSE, 0);
  SendMessageA(handle(), LB_RESETCONTENT, 0, 0);
  int widest = 0;
  for (const controls::DirEntry& entry : list_.entries()) {
    SendMessageA(handle(), LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(entry.text.c_str()));
    widest = std::max(widest, textLeft(entry) + metrics().textWidth(entry.text) + metrics().pixelsX(kMargin));
  }
  SendMessageA(handle(), LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(widest), 0);
  SendMessageA(handle(), LB_SETCURSEL, list_.current(), 0);
  SendMessageA(handle(), WM_SETREDRAW, TRUE, 0);
  InvalidateRect(handle(), nullptr, TRUE);
}

void DirListPeer::draw(const DRAWITEMSTRUCT& item) {
  const bool selected = (item.itemState & ODS_SELECTED) != 0;
  FillRect(item.hDC, &item.rcItem, GetSysColorBrush(selected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
  if (item.itemID < list_.entries().size()) {
    const controls::DirEntry& entry = list_.entries()[item.itemID];
    RECT text = item.rcItem;
    text.left += textLeft(entry);
    RECT picture = item.rcItem;
    picture.right = text.left - metrics().pixelsX(kMargin);
    picture.left = picture.right - metrics().pixelsX(kPictureWidth);
    drawFolder(item.hDC, picture, item.itemID <= list_.current());

    const bool disabled = (item.itemState & ODS_DISABLED) != 0;
    SetBkMode(item.hDC, TRANSPARENT);
    SetTextColor(item.hDC, GetSysColor(disabled ? COLOR_GRAYTEXT : selected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
    drawText(item.hDC, entry.text, text, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_NOCLIP);
  }
  if ((item.itemState & ODS_FOCUS) != 0) DrawFocusRect(item.hDC, &item.rcItem);
}

}  // namespace platform::win32
