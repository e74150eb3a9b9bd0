// The pictures on buttons and in lists, drawn for any size and resolution.
#pragma once

#include <windows.h>

// Kept apart: the common controls' header needs <windows.h> before it.
#include <commctrl.h>

namespace platform::win32 {

// Each draws into the largest centred square in `place`.
void drawMagnifier(HDC target, const RECT& place, COLORREF line);
// The picture for inverting a selection: a square with one half filled.
void drawInvert(HDC target, const RECT& place, COLORREF line);
void drawFolder(HDC target, const RECT& place, bool open);

// Creates the state images of a list view with check boxes: the empty box, then the ticked one. `side` is in pixels.
// The caller owns the image list. ImageList_Create.
HIMAGELIST makeTickPictures(int side);

}  // namespace platform::win32
