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

int ScreenMetrics::pixels(int at96) const { return MulDiv(at96, GetDeviceCaps(screen_, LOGPIXELSY), 96); }

controls::Size ScreenMetrics::textSize(const std::string& text, const controls::TextFont& font) const {
  const HFONT own = makeFont(font);
  SelectObject(screen_, own);
  TEXTMETRICA metrics = {};
  GetTextMetricsA(screen_, &metrics);
  const controls::Size size = {textWidth(text), static_cast<int>(metrics.tmHeight)};
  SelectObject(screen_, font_);
  DeleteObject(own);
  return size;
}

HFONT ScreenMetrics::makeFont(const controls::TextFont& font) const {
  LOGFONTA wanted = {};
  GetObjectA(font_, sizeof(wanted), &wanted);
  if (!font.name.empty()) lstrcpynA(wanted.lfFaceName, font.name.c_str(), LF_FACESIZE);
  if (font.points != 0) wanted.lfHeight = -MulDiv(font.points, GetDeviceCaps(screen_, LOGPIXELSY), 72);
  if (font.bold) wanted.lfWeight = FW_BOLD;
  if (font.italic) wanted.lfItalic = TRUE;
  if (font.underline) wanted.lfUnderline = TRUE;
  return CreateFontIndirectA(&wanted);
}

}  // namespace platform::win32
