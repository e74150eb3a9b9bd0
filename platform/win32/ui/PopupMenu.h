// The native menu that opens at a control.
#pragma once

#include <windows.h>

#include "controls/Menu.h"

namespace platform::win32 {

// Opens the menu at the point `at` of the screen and carries out what the user chooses. Returns when the menu has been
// closed; at once when the menu is empty. TrackPopupMenu.
void openMenu(HWND owner, POINT at, const controls::Menu& menu);

}  // namespace platform::win32
