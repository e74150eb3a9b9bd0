#include "platform/win32/ui/PicturePeer.h"

#include <string>

namespace platform::win32 {
namespace {

// The pictures are bitmap resources NAME.PERCENT: the control's name, and the size in percent of that for 96 dots per
// inch.
constexpr int kPercents[] = {200, 150, 100, 75};
constexpr int kPictureFocusInset = 2;  // pixels

HBITMAP loadPicture(const std::string& name, int percent) {
  const std::string resource = name + "." + std::to_string(percent);
  return static_cast<HBITMAP>(
      LoadImageA(GetModuleHandleA(nullptr), resource.c_str(), IMAGE_BITMAP, 0, 0, LR_DEFAULTCOLOR));
}

SIZE sizeOf(HBITMAP bitmap) {
  BITMAP info = {};
  GetObjectA(bitmap, sizeof(info), &info);
  return {info.bmWidth, info.bmHeight};
}

// The largest picture that fits into `room`, else the smallest one; null when there is none.
HBITMAP loadFitting(const std::string& name, const RECT& room) {
  HBITMAP found = nullptr;
  for (const int percent : kPercents) {
    const HBITMAP bitmap = loadPicture(name, percent);
    if (bitmap == nullptr) continue;
    DeleteObject(found);
    found = bitmap;
    const SIZE size = sizeOf(found);
    if (size.cx <= room.right && size.cy <= room.bottom) break;
  }
  return found;
}

}  // namespace

PicturePeer::PicturePeer(const Host& host, controls::PictureBox& picture)
    : ControlPeer(host, picture, {.windowClass = "BUTTON", .style = BS_OWNERDRAW}), picture_(picture) {}

PicturePeer::~PicturePeer() { DeleteObject(bitmap_); }

void PicturePeer::placed() {
  RECT room;
  GetClientRect(handle(), &room);
  DeleteObject(bitmap_);
  bitmap_ = loadFitting(picture_.name(), room);
}

void PicturePeer::onCommand(int code) {
  if (code == BN_CLICKED || code == BN_DOUBLECLICKED) picture_.click();
}

bool PicturePeer::press() {
  picture_.click();
  return true;
}

HCURSOR PicturePeer::cursor() const { return LoadCursorA(nullptr, MAKEINTRESOURCEA(kHandPointer)); }

void PicturePeer::draw(const DRAWITEMSTRUCT& item) {
  RECT room = item.rcItem;
  FillRect(item.hDC, &room, GetSysColorBrush(COLOR_BTNFACE));
  if (bitmap_ != nullptr) drawBitmap(item.hDC, room);
  if ((item.itemState & ODS_FOCUS) == 0) return;
  InflateRect(&room, -kPictureFocusInset, -kPictureFocusInset);
  DrawFocusRect(item.hDC, &room);
}

// Draws the picture in the centre and fills the rest with the colour of its top left pixel.
void PicturePeer::drawBitmap(HDC target, const RECT& room) const {
  const HDC source = CreateCompatibleDC(target);
  const HGDIOBJ bitmapBefore = SelectObject(source, bitmap_);
  const HBRUSH ground = CreateSolidBrush(GetPixel(source, 0, 0));
  FillRect(target, &room, ground);
  DeleteObject(ground);
  const SIZE size = sizeOf(bitmap_);
  BitBlt(target, (room.left + room.right - size.cx) / 2, (room.top + room.bottom - size.cy) / 2, size.cx, size.cy,
         source, 0, 0, SRCCOPY);
  SelectObject(source, bitmapBefore);
  DeleteDC(source);
}

}  // namespace platform::win32
