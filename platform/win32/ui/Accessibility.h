// What screen readers get beside the window texts, where the system offers active accessibility.
#pragma once

#include <windows.h>

#include "controls/Control.h"

namespace platform::win32 {

// Gives the window of `control` the control's accessible name, when it has one of its own, and its description.
// IAccPropServices::SetHwndPropStr.
void annotate(HWND window, const controls::Control& control);
// To be called before the window is destroyed. IAccPropServices::ClearHwndProps.
void removeAnnotations(HWND window, const controls::Control& control);

// Tells screen readers that the state of the row `item` of a list, 0-based, has changed. NotifyWinEvent.
void announceState(HWND list, int item);

}  // namespace platform::win32
