#include "platform/win32/ui/Scheme.h"

#include "platform/win32/RunTimeBinding.h"

namespace platform::win32 {
namespace {

int brightnessOf(int systemColour) {
  const COLORREF colour = GetSysColor(systemColour);
  return GetRValue(colour) * 3 + GetGValue(colour) * 6 + GetBValue(colour);
}

}  // namespace

bool isHighContrast() {
  HIGHCONTRASTA contrast = {};
  contrast.cbSize = sizeof(contrast);
  return SystemParametersInfoA(SPI_GETHIGHCONTRAST, sizeof(contrast), &contrast, 0) &&
         (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

void followScheme(HWND control) {
  using Function = HRESULT(WINAPI*)(HWND, const wchar_t*, const wchar_t*);
  static const auto setTheme = boundAtRunTime<Function>("uxtheme.dll", "SetWindowTheme");
  if (setTheme == nullptr) return;
  const bool isPlain = isHighContrast() || brightnessOf(COLOR_BTNTEXT) > brightnessOf(COLOR_BTNFACE);
  const wchar_t* const theme = isPlain ? L"" : nullptr;
  setTheme(control, theme, theme);
}

}  // namespace platform::win32
