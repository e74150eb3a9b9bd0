// The small pictures on buttons and in lists, drawn to fit any size and resolution.
#pragma once

#include <windows.h>

// Kept apart: the common controls' header needs <windows.h> before it.
#include <commctrl.h>

namespace platform::win32 {

// Each draws into the largest square in the middle of `place`.
void drawMagnifier(HDC target, const RECT& place, COLORREF line);
// One half empty and one half filled: a selection turned round.
void drawInvert(HDC target, const RECT& place, COLORREF line);
void drawFolder(HDC target, const RECT& place, bool open);

// A row's tick as a list view's state pictures, the empty box first, then the ticked one. `side` in pixels. The caller
// owns the list.
HIMAGELIST makeTickPictures(int side);

}  // namespace platform::win32
