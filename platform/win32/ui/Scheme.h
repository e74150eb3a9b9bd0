// The user's colour scheme.
#pragma once

#include <windows.h>

namespace platform::win32 {

// Whether the user has turned on high contrast. SystemParametersInfoA.
bool isHighContrast();

// Lets the native controls in `window` use the system colours instead of those of the visual style, which ignores them,
// when the scheme is a dark or a high-contrast one, and the visual style otherwise. To be called again when the scheme
// changes. SetWindowTheme where it exists.
void followScheme(HWND window);

}  // namespace platform::win32
