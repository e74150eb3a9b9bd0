#include "platform/win32/ui/Scheme.h"

#include "platform/win32/RunTimeBinding.h"

namespace platform::win32 {
namespace {

int brightnessOf(int systemColour) {
  const COLORREF colour = GetSysColor(systemColour);
  return GetRValue(colour) * 3 + GetGValue(colour) * 6 + GetBValue(colour);
}

BOOL CALLBACK setStyle(HWND control, LPARAM isPlain) {
  using Function = HRESULT(WINAPI*)(HWND, const wchar_t*, const wchar_t*);
  static const auto setTheme = boundAtRunTime<Function>("uxtheme.dll", "SetWindowTheme");
  // No style has a part of this name.
  const wchar_t* const style = isPlain != 0 ? L" " : nullptr;
  if (setTheme != nullptr) setTheme(control, style, style);
  return setTheme != nullptr;
}

}  // namespace

bool isHighContrast() {
  HIGHCONTRASTA contrast = {};
  contrast.cbSize = sizeof(contrast);
  return SystemParametersInfoA(SPI_GETHIGHCONTRAST, sizeof(contrast), &contrast, 0) &&
         (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

void Scheme::follow(HWND window) {
  const bool isPlain = isHighContrast() || brightnessOf(COLOR_BTNTEXT) > brightnessOf(COLOR_BTNFACE);
  if (isPlain != isPlain_) EnumChildWindows(window, setStyle, isPlain ? 1 : 0);
  isPlain_ = isPlain;
}

}  // namespace platform::win32
