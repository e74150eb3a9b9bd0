// Texts in the ANSI code page, measured and drawn by the wide calls where they work: GDI's narrow calls do not draw
// every character of the UTF-8 code page.
#pragma once

#include <windows.h>

#include <string>

namespace platform::win32 {

// DrawTextW, DrawTextA. `format` is that of DrawText.
void drawText(HDC target, const std::string& text, RECT place, UINT format);

// The width in pixels of a one-line text. GetTextExtentPoint32W, GetTextExtentPoint32A.
int textExtent(HDC target, const std::string& text);

// `text` with an ellipsis in its middle where it would be wider than `width` pixels. Where the wide calls work.
// DrawTextW.
std::wstring shortenedText(HDC target, const std::string& text, int width);

}  // namespace platform::win32
