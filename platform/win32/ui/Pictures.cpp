#include "platform/win32/ui/Pictures.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <span>
#include <string_view>
#include <tuple>

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

constexpr std::string_view kBitmap = "bitmap:";

SIZE sizeOf(const RECT& place) { return {place.right - place.left, place.bottom - place.top}; }

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

// Loaded once for the life of the program; null when there is no such resource.
HICON iconOfSize(const std::string& name, SIZE size) {
  static std::map<std::tuple<std::string, LONG, LONG>, HICON> loaded;
  const auto [entry, isNew] = loaded.try_emplace({name, size.cx, size.cy});
  if (isNew) {
    entry->second = static_cast<HICON>(
        LoadImageA(GetModuleHandleA(nullptr), name.c_str(), IMAGE_ICON, size.cx, size.cy, LR_DEFAULTCOLOR));
  }
  return entry->second;
}

void drawIcon(HDC target, const RECT& place, const std::string& name) {
  const SIZE size = sizeOf(place);
  DrawIconEx(target, place.left, place.top, iconOfSize(name, size), size.cx, size.cy, 0, nullptr, DI_NORMAL);
}

void drawBitmap(HDC target, const RECT& place, const char* name) {
  const HANDLE bitmap = LoadImageA(GetModuleHandleA(nullptr), name, IMAGE_BITMAP, 0, 0, LR_DEFAULTCOLOR);
  if (bitmap == nullptr) return;
  BITMAP info = {};
  GetObjectA(bitmap, sizeof(info), &info);
  const HDC source = CreateCompatibleDC(target);
  const HGDIOBJ bitmapBefore = SelectObject(source, bitmap);
  const SIZE size = sizeOf(place);
  // Mixed colours at the edges would be like the mask without being it.
  SetStretchBltMode(target, COLORONCOLOR);
  StretchBlt(target, place.left, place.top, size.cx, size.cy, source, 0, 0, info.bmWidth, info.bmHeight, SRCCOPY);
  SelectObject(source, bitmapBefore);
  DeleteDC(source);
  DeleteObject(bitmap);
}

void drawSolid(HDC target, const RECT& place, const std::string& name, COLORREF line) {
  const std::string icon = iconResource(name);
  if (!icon.empty()) return drawIcon(target, place, icon);
  if (name.starts_with(kBitmap)) return drawBitmap(target, place, name.c_str() + kBitmap.size());
  if (name == "drawn:magnifier") return drawMagnifier(target, place, line);
  if (name == "drawn:invert") return drawInvert(target, place, line);
}

// A copy of a part of a device context, with access to its pixels, 0x00RRGGBB.
class Copy {
 public:
  Copy(HDC from, const RECT& place) : size_(sizeOf(place)), context_(CreateCompatibleDC(from)) {
    BITMAPINFO info = {};
    info.bmiHeader = {.biSize = sizeof(info.bmiHeader),
                      .biWidth = size_.cx,
                      .biHeight = size_.cy,
                      .biPlanes = 1,
                      .biBitCount = 32,
                      .biCompression = BI_RGB,
                      .biSizeImage = 0,
                      .biXPelsPerMeter = 0,
                      .biYPelsPerMeter = 0,
                      .biClrUsed = 0,
                      .biClrImportant = 0};
    void* pixels = nullptr;
    bitmap_ = CreateDIBSection(from, &info, DIB_RGB_COLORS, &pixels, nullptr, 0);
    if (bitmap_ != nullptr)
      pixels_ = {static_cast<std::uint32_t*>(pixels), static_cast<std::size_t>(size_.cx * size_.cy)};
    bitmapBefore_ = SelectObject(context_, bitmap_);
    BitBlt(context_, 0, 0, size_.cx, size_.cy, from, place.left, place.top, SRCCOPY);
  }
  ~Copy() {
    SelectObject(context_, bitmapBefore_);
    DeleteObject(bitmap_);
    DeleteDC(context_);
  }
  Copy(const Copy&) = delete;
  Copy& operator=(const Copy&) = delete;

  HDC context() const { return context_; }
  RECT place() const { return {0, 0, size_.cx, size_.cy}; }
  // Empty when there was no memory.
  std::span<std::uint32_t> pixels() const {
    GdiFlush();
    return pixels_;
  }

 private:
  SIZE size_;
  HDC context_;
  HBITMAP bitmap_;
  HGDIOBJ bitmapBefore_;
  std::span<std::uint32_t> pixels_;
};

// Half the brightness of `pixel` and half of `ground`.
std::uint32_t greyed(std::uint32_t pixel, std::uint32_t ground) {
  const std::uint32_t grey = ((pixel >> 16 & 0xFF) * 3 + (pixel >> 8 & 0xFF) * 6 + (pixel & 0xFF)) / 10;
  return (ground >> 1 & 0x7F7F7F) + (grey >> 1) * 0x010101;
}

}  // namespace

std::string iconResource(const std::string& picture) {
  constexpr std::string_view kIcon = "icon:";
  return picture.starts_with(kIcon) ? "ICON_" + picture.substr(kIcon.size()) : std::string();
}

void drawPicture(HDC target, const RECT& place, const std::string& name, const PictureInk& ink) {
  const bool isMasked = name.starts_with(kBitmap);
  if (!isMasked && !ink.greyed) return drawSolid(target, place, name, ink.line);
  constexpr std::uint32_t kColour = 0xFFFFFF;
  const std::uint32_t mask = RGB(GetBValue(ink.mask), GetGValue(ink.mask), GetRValue(ink.mask));
  const Copy ground(target, place);
  const Copy picture(target, place);
  drawSolid(picture.context(), picture.place(), name, ink.line);
  const std::span<const std::uint32_t> under = ground.pixels();
  const std::span<std::uint32_t> pixels = picture.pixels();
  for (std::size_t i = 0; i < std::min(pixels.size(), under.size()); ++i) {
    const bool isGround = ((pixels[i] ^ under[i]) & kColour) == 0;
    if (isGround || (isMasked && (pixels[i] & kColour) == mask)) {
      pixels[i] = under[i];
    } else if (ink.greyed) {
      pixels[i] = greyed(pixels[i], under[i]);
    }
  }
  const SIZE size = sizeOf(place);
  BitBlt(target, place.left, place.top, size.cx, size.cy, picture.context(), 0, 0, SRCCOPY);
}

void drawMark(HDC target, const RECT& place, COLORREF colour) {
  const SIZE size = sizeOf(place);
  const auto at = [&](int x, int y) { return POINT{place.left + size.cx * x / 7, place.top + size.cy * y / 10}; };
  const Tools tools(target, colour, 1, colour);
  const POINT flash[] = {at(4, 0), at(0, 5), at(3, 5), at(2, 9), at(6, 4), at(3, 4)};
  Polygon(target, flash, static_cast<int>(std::size(flash)));
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
