#include "platform/win32/ui/ScreenMetrics.h"

#include "platform/win32/ui/TextDrawing.h"

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
  lettersWidth_ = textWidth("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
  TEXTMETRICA metrics = {};
  GetTextMetricsA(screen_, &metrics);
  baseHeight_ = metrics.tmHeight;
}

ScreenMetrics::~ScreenMetrics() {
  SelectObject(screen_, fontBefore_);
  DeleteDC(screen_);
  DeleteObject(font_);
}

// From the average width of the 52 letters. Rounded to whole pixels, as the dialog manager does, it would make windows
// in some fonts wider than their texts are.
int ScreenMetrics::pixelsX(int dialogUnits) const { return MulDiv(dialogUnits, lettersWidth_, 52 * 4); }

int ScreenMetrics::pixelsY(int dialogUnits) const { return MulDiv(dialogUnits, baseHeight_, 8); }

int ScreenMetrics::textWidth(const std::string& text) const { return textExtent(screen_, text); }

}  // namespace platform::win32
