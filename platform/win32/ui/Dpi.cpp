#include "platform/win32/ui/Dpi.h"

#include "platform/win32/RunTimeBinding.h"

namespace platform::win32 {
namespace {

UINT dpiOfMonitor(HWND window) {
  using FromWindow = HANDLE(WINAPI*)(HWND, DWORD);
  using OfMonitor = HRESULT(WINAPI*)(HANDLE, int, UINT*, UINT*);
  constexpr DWORD kNearest = 2;  // MONITOR_DEFAULTTONEAREST
  static const auto fromWindow = boundAtRunTime<FromWindow>("user32.dll", "MonitorFromWindow");
  static const auto ofMonitor = boundAtRunTime<OfMonitor>("shcore.dll", "GetDpiForMonitor");
  UINT across = 0;
  UINT down = 0;
  if (fromWindow == nullptr || ofMonitor == nullptr) return 0;
  return SUCCEEDED(ofMonitor(fromWindow(window, kNearest), 0, &across, &down)) ? down : 0;
}

}  // namespace

int systemDpi() {
  const HDC screen = GetDC(nullptr);
  const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
  ReleaseDC(nullptr, screen);
  return dpi;
}

int dpiOf(HWND window) {
  using Function = UINT(WINAPI*)(HWND);
  static const auto ofWindow = boundAtRunTime<Function>("user32.dll", "GetDpiForWindow");
  const UINT dpi = ofWindow == nullptr ? dpiOfMonitor(window) : ofWindow(window);
  return dpi == 0 ? systemDpi() : static_cast<int>(dpi);
}

int systemMetric(int index, HWND window) {
  using Function = int(WINAPI*)(int, UINT);
  static const auto atDpi = boundAtRunTime<Function>("user32.dll", "GetSystemMetricsForDpi");
  return atDpi == nullptr ? GetSystemMetrics(index) : atDpi(index, static_cast<UINT>(dpiOf(window)));
}

void adjustWindowRect(RECT& rectangle, DWORD style, DWORD extendedStyle, HWND window) {
  using Function = BOOL(WINAPI*)(RECT*, DWORD, BOOL, DWORD, UINT);
  static const auto atDpi = boundAtRunTime<Function>("user32.dll", "AdjustWindowRectExForDpi");
  if (atDpi == nullptr) {
    AdjustWindowRectEx(&rectangle, style, FALSE, extendedStyle);
  } else {
    atDpi(&rectangle, style, FALSE, extendedStyle, static_cast<UINT>(dpiOf(window)));
  }
}

}  // namespace platform::win32
