// A scheme of white on black: every text of the console must be seen on its ground.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "driver/Driver.h"

namespace desktop {
namespace {

// The scheme of programs that are started while the object lives.
class WhiteOnBlack {
 public:
  WhiteOnBlack() {
    for (const int colour : kColours) before_.push_back(GetSysColor(colour));
    set({0, 0, RGB(255, 255, 255), RGB(255, 255, 255), RGB(0, 255, 0)});
  }
  ~WhiteOnBlack() { set(before_); }
  WhiteOnBlack(const WhiteOnBlack&) = delete;
  WhiteOnBlack& operator=(const WhiteOnBlack&) = delete;

 private:
  static constexpr int kColours[] = {COLOR_BTNFACE, COLOR_WINDOW, COLOR_BTNTEXT, COLOR_WINDOWTEXT, COLOR_GRAYTEXT};

  static void set(const std::vector<COLORREF>& colours) {
    require(SetSysColors(std::size(kColours), kColours, colours.data()) != FALSE, "set the colours");
  }

  std::vector<COLORREF> before_;
};

// Of 0xRRGGBB.
int brightnessOf(DWORD colour) {
  return static_cast<int>((colour >> 16 & 255) * 3 + (colour >> 8 & 255) * 6 + (colour & 255)) / 10;
}

// How often each colour is on that place of the screen.
std::map<DWORD, int> coloursAt(const RECT& place) {
  BITMAPINFO info = {};
  BITMAPINFOHEADER& header = info.bmiHeader;
  header.biSize = sizeof(header);
  header.biWidth = place.right - place.left;
  header.biHeight = place.bottom - place.top;
  header.biPlanes = 1;
  header.biBitCount = 32;
  const HDC screen = GetDC(nullptr);
  const HDC copy = CreateCompatibleDC(screen);
  void* bits = nullptr;
  const HBITMAP bitmap = CreateDIBSection(copy, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
  const HGDIOBJ before = SelectObject(copy, bitmap);
  BitBlt(copy, 0, 0, header.biWidth, header.biHeight, screen, place.left, place.top, SRCCOPY);
  GdiFlush();
  std::map<DWORD, int> colours;
  const auto* pixel = static_cast<const DWORD*>(bits);
  for (LONG n = header.biWidth * header.biHeight; n > 0; --n) ++colours[*pixel++ & 0xFFFFFF];
  SelectObject(copy, before);
  DeleteObject(bitmap);
  DeleteDC(copy);
  ReleaseDC(nullptr, screen);
  return colours;
}

// Where a control has nothing but its text and its ground; empty when that cannot be said.
RECT textPlace(const Control& control) {
  constexpr LONG kHighest = 60;
  RECT place = control.place();
  const bool isButton = (SendMessageA(control.handle(), WM_GETDLGCODE, 0, 0) & (DLGC_BUTTON | DLGC_STATIC)) != 0;
  const LONG_PTR kind = isButton ? GetWindowLongPtrA(control.handle(), GWL_STYLE) & BS_TYPEMASK : 0;
  if (kind == BS_CHECKBOX) place.left += 18;
  if (kind == BS_GROUPBOX) {
    place.left += 12;
    place.right = place.left + 4 * static_cast<LONG>(control.text().size());
    place.bottom = place.top + 14;
  }
  return place.bottom - place.top > kHighest ? RECT{} : place;
}

TEST(Contrast, EveryTextStandsOutFromItsDarkGround) {
  const WhiteOnBlack scheme;
  const Program program;
  waitUntil("the console to be drawn", [&] { return program.console().focused().handle() != nullptr; });
  Sleep(500);
  int texts = 0;
  for (const Control& control : program.console().controls()) {
    const RECT place = textPlace(control);
    if (!control.visible() || control.text().empty() || place.right == 0) continue;
    const std::map<DWORD, int> colours = coloursAt(place);
    const auto ground = std::ranges::max_element(colours, {}, [](const auto& entry) { return entry.second; });
    const auto lightest = std::ranges::max_element(colours, {}, [](auto& entry) { return brightnessOf(entry.first); });
    EXPECT_LT(brightnessOf(ground->first), 100) << control.text();
    EXPECT_GT(brightnessOf(lightest->first), 128) << control.text();
    ++texts;
  }
  EXPECT_GT(texts, 40);
}

}  // namespace
}  // namespace desktop
