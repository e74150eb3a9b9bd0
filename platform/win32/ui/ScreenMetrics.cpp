#include "platform/win32/ui/ScreenMetrics.h"

namespace platform::win32 {
namespace {

HFONT messageFont() {
  NONCLIENTMETRICSA settings = {};
  settings.cbSize = sizeof(settings);
  if (SystemParametersInfoA(SPI_GETNONCLIENTMETRICS, sizeof(settings), &settings, 0)) {
    const HFONT font = CreateFontIndirectA(&settings.lfMessageFont);
    if (font != nullptr) return font;
  }
  // Deleting a stock object does nothing.
  return static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
}

}  // namespace

ScreenMetrics::ScreenMetrics()
    : font_(messageFont()), screen_(CreateCompatibleDC(nullptr)), fontBefore_(SelectObject(screen_, font_)) {
  // As the dialog manager does: the average width of the 52 letters, rounded.
  const std::string letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
  baseWidth_ = (textWidth(letters) / 26 + 1) / 2;
  TEXTMETRICA metrics = {};
  GetTextMetricsA(screen_, &metrics);
  baseHeight_ = metrics.tmHeight;
}

ScreenMetrics::~ScreenMetrics() {
  SelectObject(screen_, fontBefore_);
  DeleteDC(screen_);
  DeleteObject(font_);
}

int ScreenMetrics::pixelsX(int dialogUnits) const { return MulDiv(dialogUnits, baseWidth_, 4); }

int ScreenMetrics::pixelsY(int dialogUnits) const { return MulDiv(dialogUnits, baseHeight_, 8); }

int ScreenMetrics::textWidth(const std::string& text) const {
  SIZE size = {};
  GetTextExtentPoint32A(screen_, text.data(), static_cast<int>(text.size()), &size);
  return size.cx;
}

}  // namespace platform::win32
