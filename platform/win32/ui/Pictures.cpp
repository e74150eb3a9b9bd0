#include "platform/win32/ui/Pictures.h"

#include <algorithm>
#include <span>

namespace platform::win32 {
namespace {

// The side of a picture in grid units.
constexpr int kGrid = 16;

constexpr COLORREF kGlass = RGB(214, 234, 248);
constexpr COLORREF kFolder = RGB(255, 217, 102);
constexpr COLORREF kFolderInside = RGB(255, 240, 190);
constexpr COLORREF kFolderLine = RGB(140, 100, 20);
constexpr COLORREF kNoPicture = RGB(255, 0, 255);  // transparent in state pictures

// Selects a pen and a brush for the lifetime of the object.
class Tools {
 public:
  Tools(HDC target, COLORREF line, int width, COLORREF fill)
      : target_(target),
        pen_(CreatePen(PS_SOLID, width, line)),
        brush_(CreateSolidBrush(fill)),
        penBefore_(SelectObject(target, pen_)),
        brushBefore_(SelectObject(target, brush_)) {}
  ~Tools() {
    SelectObject(target_, penBefore_);
    SelectObject(target_, brushBefore_);
    DeleteObject(pen_);
    DeleteObject(brush_);
  }
  Tools(const Tools&) = delete;
  Tools& operator=(const Tools&) = delete;

 private:
  HDC target_;
  HPEN pen_;
  HBRUSH brush_;
  HGDIOBJ penBefore_;
  HGDIOBJ brushBefore_;
};

// The largest centred square in a rectangle, divided into grid units.
class Square {
 public:
  explicit Square(const RECT& place)
      : side_(std::min(place.right - place.left, place.bottom - place.top)),
        left_((place.left + place.right - side_) / 2),
        top_((place.top + place.bottom - side_) / 2) {}

  // Converts a grid point to pixels.
  POINT at(int x, int y) const { return {left_ + MulDiv(x, side_, kGrid), top_ + MulDiv(y, side_, kGrid)}; }
  int length(int steps) const { return std::max(1, MulDiv(steps, side_, kGrid)); }

 private:
  LONG side_;
  LONG left_;
  LONG top_;
};

void drawPolygon(HDC target, const Square& square, std::span<const POINT> gridPoints) {
  POINT pixels[8];
  std::ranges::transform(gridPoints, pixels, [&square](POINT point) { return square.at(point.x, point.y); });
  Polygon(target, pixels, static_cast<int>(gridPoints.size()));
}

}  // namespace

void drawMagnifier(HDC target, const RECT& place, COLORREF line) {
  const Square square(place);
  const POINT from = square.at(10, 10);
  const POINT to = square.at(14, 14);
  const POINT leftTop = square.at(2, 2);
  const POINT rightBottom = square.at(12, 12);
  {
    const Tools handle(target, line, square.length(2), line);
    MoveToEx(target, from.x, from.y, nullptr);
    LineTo(target, to.x, to.y);
  }
  const Tools glass(target, line, square.length(1), kGlass);
  Ellipse(target, leftTop.x, leftTop.y, rightBottom.x, rightBottom.y);
}

void drawInvert(HDC target, const RECT& place, COLORREF line) {
  const Square square(place);
  const Tools tools(target, line, square.length(1), GetSysColor(COLOR_WINDOW));
  const POINT leftTop = square.at(2, 2);
  const POINT rightBottom = square.at(14, 14);
  Rectangle(target, leftTop.x, leftTop.y, rightBottom.x, rightBottom.y);
  const Tools filled(target, line, 1, line);
  const POINT half[] = {{14, 2}, {14, 14}, {2, 14}};
  drawPolygon(target, square, half);
}

void drawFolder(HDC target, const RECT& place, bool open) {
  const Square square(place);
  const POINT back[] = {{1, 13}, {1, 4}, {2, 3}, {6, 3}, {7, 5}, {13, 5}, {13, 13}};
  const POINT cover[] = {{1, 13}, {4, 7}, {15, 7}, {13, 13}};
  {
    const Tools tools(target, kFolderLine, 1, open ? kFolderInside : kFolder);
    drawPolygon(target, square, back);
  }
  if (!open) return;
  const Tools tools(target, kFolderLine, 1, kFolder);
  drawPolygon(target, square, cover);
}

HIMAGELIST makeTickPictures(int side) {
  const HDC screen = GetDC(nullptr);
  const HDC target = CreateCompatibleDC(screen);
  const HBITMAP bitmap = CreateCompatibleBitmap(screen, 2 * side, side);
  ReleaseDC(nullptr, screen);

  const HGDIOBJ bitmapBefore = SelectObject(target, bitmap);
  const HBRUSH noPicture = CreateSolidBrush(kNoPicture);
  const RECT all = {0, 0, 2 * side, side};
  FillRect(target, &all, noPicture);
  DeleteObject(noPicture);
  for (int ticked = 0; ticked < 2; ++ticked) {
    RECT box = {ticked * side + 1, 1, (ticked + 1) * side - 1, side - 1};
    DrawFrameControl(target, &box, DFC_BUTTON, DFCS_BUTTONCHECK | DFCS_FLAT | (ticked != 0 ? DFCS_CHECKED : 0));
  }
  SelectObject(target, bitmapBefore);
  DeleteDC(target);

  const HIMAGELIST pictures = ImageList_Create(side, side, ILC_COLOR24 | ILC_MASK, 2, 0);
  ImageList_AddMasked(pictures, bitmap, kNoPicture);
  DeleteObject(bitmap);
  return pictures;
}

}  // namespace platform::win32
