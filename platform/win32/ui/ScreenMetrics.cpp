#include "platform/win32/ui/ScreenMetrics.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

#include "platform/win32/ui/Dpi.h"
#include "platform/win32/ui/TextDrawing.h"

namespace platform::win32 {
namespace {

// The message font of the user's settings, whose size is that for the system's resolution.
LOGFONTA messageFont(int dpi) {
  NONCLIENTMETRICSA settings = {};
  settings.cbSize = sizeof(settings);
  if (!SystemParametersInfoA(SPI_GETNONCLIENTMETRICS, sizeof(settings), &settings, 0)) {
    GetObjectA(GetStockObject(DEFAULT_GUI_FONT), sizeof(settings.lfMessageFont), &settings.lfMessageFont);
  }
  settings.lfMessageFont.lfHeight = MulDiv(settings.lfMessageFont.lfHeight, dpi, systemDpi());
  return settings.lfMessageFont;
}

bool isSame(const LOGFONTA& one, const LOGFONTA& other) {
  return std::memcmp(&one, &other, offsetof(LOGFONTA, lfFaceName)) == 0 &&
         lstrcmpA(one.lfFaceName, other.lfFaceName) == 0;
}

}  // namespace

ScreenMetrics::ScreenMetrics()
    : screen_(CreateCompatibleDC(nullptr)), fontBefore_(GetCurrentObject(screen_, OBJ_FONT)) {
  update(systemDpi());
}

ScreenMetrics::~ScreenMetrics() {
  SelectObject(screen_, fontBefore_);
  DeleteDC(screen_);
  DeleteObject(font_);
  deleteOtherFonts();
}

void ScreenMetrics::deleteOtherFonts() {
  for (const auto& [wanted, font] : otherFonts_) DeleteObject(font);
  otherFonts_.clear();
}

bool ScreenMetrics::update(int dpi) {
  const LOGFONTA settings = messageFont(dpi);
  if (dpi == dpi_ && isSame(settings, settings_)) return false;
  settings_ = settings;
  dpi_ = dpi;
  const HFONT before = font_;
  font_ = CreateFontIndirectA(&settings_);
  // Deleting a stock object does nothing.
  if (font_ == nullptr) font_ = static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
  SelectObject(screen_, font_);
  DeleteObject(before);
  deleteOtherFonts();
  measure();
  return true;
}

void ScreenMetrics::measure() {
  lettersWidth_ = textWidth("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
  TEXTMETRICA metrics = {};
  GetTextMetricsA(screen_, &metrics);
  baseHeight_ = metrics.tmHeight;
}

// From the average width of the 52 letters. Rounded to whole pixels, as the dialog manager does, it would make windows
// in some fonts wider than their texts are.
int ScreenMetrics::pixelsX(int dialogUnits) const { return MulDiv(dialogUnits, lettersWidth_, 52 * 4); }

int ScreenMetrics::pixelsY(int dialogUnits) const { return MulDiv(dialogUnits, baseHeight_, 8); }

int ScreenMetrics::textWidth(const std::string& text) const { return textExtent(screen_, text); }

int ScreenMetrics::pixels(int at96) const { return MulDiv(at96, dpi_, 96); }

controls::Size ScreenMetrics::textSize(const std::string& text, const controls::TextFont& font) const {
  if (font == controls::TextFont()) return {textWidth(text), baseHeight_};
  SelectObject(screen_, this->font(font));
  TEXTMETRICA metrics = {};
  GetTextMetricsA(screen_, &metrics);
  const controls::Size size = {textWidth(text), static_cast<int>(metrics.tmHeight)};
  SelectObject(screen_, font_);
  return size;
}

HFONT ScreenMetrics::font(const controls::TextFont& font) const {
  if (font == controls::TextFont()) return font_;
  const auto known = std::ranges::find(otherFonts_, font, [](const auto& entry) { return entry.first; });
  if (known != otherFonts_.end()) return known->second;
  return otherFonts_.emplace_back(font, makeFont(font)).second;
}

HFONT ScreenMetrics::makeFont(const controls::TextFont& font) const {
  LOGFONTA wanted = {};
  GetObjectA(font_, sizeof(wanted), &wanted);
  if (!font.name.empty()) lstrcpynA(wanted.lfFaceName, font.name.c_str(), LF_FACESIZE);
  if (font.points != 0) wanted.lfHeight = -MulDiv(font.points, dpi_, 72);
  if (font.bold) wanted.lfWeight = FW_BOLD;
  if (font.italic) wanted.lfItalic = TRUE;
  if (font.underline) wanted.lfUnderline = TRUE;
  return CreateFontIndirectA(&wanted);
}

}  // namespace platform::win32
