// The font of all windows, and how large its text is on this screen.
#pragma once

#include <windows.h>

#include <string>

#include "controls/Layout.h"

namespace platform::win32 {

// Measures in the font that the user's settings name for messages, so that size and resolution follow the screen's.
class ScreenMetrics final : public controls::Metrics {
 public:
  ScreenMetrics();
  ~ScreenMetrics() override;
  ScreenMetrics(const ScreenMetrics&) = delete;
  ScreenMetrics& operator=(const ScreenMetrics&) = delete;

  int pixelsX(int dialogUnits) const override;
  int pixelsY(int dialogUnits) const override;
  int textWidth(const std::string& text) const override;

  HFONT font() const { return font_; }
  // Pixels from line to line.
  int lineHeight() const { return baseHeight_; }

 private:
  HFONT font_;
  HDC screen_;  // holds font_ for measuring
  HGDIOBJ fontBefore_;
  int baseWidth_ = 0;   // pixels of four dialog units across
  int baseHeight_ = 0;  // pixels of eight dialog units down
};

}  // namespace platform::win32
