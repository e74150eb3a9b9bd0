// The font of all windows and its measurements.
#pragma once

#include <windows.h>

#include <string>
#include <utility>
#include <vector>

#include "controls/ButtonLook.h"
#include "controls/Layout.h"

namespace platform::win32 {

// Uses the message font of the user's settings (SystemParametersInfoA), so that windows follow its size and the
// screen's resolution. Both may change while the program runs.
class ScreenMetrics final : public controls::Metrics {
 public:
  ScreenMetrics();
  ~ScreenMetrics() override;
  ScreenMetrics(const ScreenMetrics&) = delete;
  ScreenMetrics& operator=(const ScreenMetrics&) = delete;

  // Takes over the user's settings for a screen of `dpi` dots per inch. Returns whether anything has changed: font()
  // is then another one, and the former one is deleted.
  bool update(int dpi);
  int dpi() const { return dpi_; }

  int pixelsX(int dialogUnits) const override;
  int pixelsY(int dialogUnits) const override;
  int textWidth(const std::string& text) const override;
  int pixels(int at96) const override;
  controls::Size textSize(const std::string& text, const controls::TextFont& font) const override;

  // Owned by this object.
  HFONT font() const { return font_; }
  // `font` for this screen, made once and owned by this object. CreateFontIndirectA.
  HFONT font(const controls::TextFont& font) const;
  // The height of a line in pixels.
  int lineHeight() const { return baseHeight_; }

 private:
  void measure();
  HFONT makeFont(const controls::TextFont& font) const;
  void deleteOtherFonts();

  LOGFONTA settings_ = {};  // of font_
  HFONT font_ = nullptr;
  mutable std::vector<std::pair<controls::TextFont, HFONT>> otherFonts_;
  int dpi_ = 0;
  HDC screen_;  // memory device context with font_ selected
  HGDIOBJ fontBefore_;
  int lettersWidth_ = 0;  // pixels of 52 times four horizontal dialog units
  int baseHeight_ = 0;    // pixels of eight vertical dialog units
};

}  // namespace platform::win32
