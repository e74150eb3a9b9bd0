// Resolution in dots per inch. Systems from Windows 8.1 on have one for each screen; elsewhere all windows have the
// system's.
#pragma once

#include <windows.h>

namespace platform::win32 {

// The resolution that the process was started with. GetDeviceCaps.
int systemDpi();
// That of the screen on which the window is. GetDpiForWindow or GetDpiForMonitor where they exist.
int dpiOf(HWND window);

// GetSystemMetrics for what the system draws of the window. GetSystemMetricsForDpi where it exists.
int systemMetric(int index, HWND window);
// AdjustWindowRectEx for a window without a menu. AdjustWindowRectExForDpi where it exists.
void adjustWindowRect(RECT& rectangle, DWORD style, DWORD extendedStyle, HWND window);

}  // namespace platform::win32
