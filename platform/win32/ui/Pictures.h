// The pictures on buttons and in lists, drawn for any size and resolution.
#pragma once

#include <windows.h>

// Kept apart: the common controls' header needs <windows.h> before it.
#include <commctrl.h>

#include <string>

namespace platform::win32 {

struct PictureInk {
  COLORREF line;  // of drawn pictures
  COLORREF mask;  // of the pixels of a bitmap that are not drawn
  bool greyed;
};

// Draws the picture `name` of a button (controls::ButtonLook::Picture), scaled to `place`; nothing when the program has
// no such picture.
void drawPicture(HDC target, const RECT& place, const std::string& name, const PictureInk& ink);
// The name of the icon resource of a picture "icon:zero": "ICON_zero", as case does not matter; empty for other
// pictures.
std::string iconResource(const std::string& picture);
// A lightning flash: the mark of buttons that act at once.
void drawMark(HDC target, const RECT& place, COLORREF colour);
// Draws into the largest centred square in `place`.
void drawFolder(HDC target, const RECT& place, bool open);

// Creates the state images of a list view with check boxes: the empty box, then the ticked one. `side` is in pixels.
// The caller owns the image list. ImageList_Create.
HIMAGELIST makeTickPictures(int side);

}  // namespace platform::win32
