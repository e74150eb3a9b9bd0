// The user's colour scheme.
#pragma once

#include <windows.h>

namespace platform::win32 {

// Whether the user has turned on high contrast. SystemParametersInfoA.
bool isHighContrast();

// What the native controls of one window are drawn with.
class Scheme {
 public:
  // Lets the controls in `window` use the system colours instead of those of the visual style, which ignores them, when
  // the scheme is a dark or a high-contrast one, and the visual style otherwise. To be called once all controls are
  // there and when the scheme changes. SetWindowTheme where it exists.
  void follow(HWND window);

 private:
  bool isPlain_ = false;  // without the visual style, which a new control has
};

}  // namespace platform::win32
