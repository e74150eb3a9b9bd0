#include "platform/win32/ui/TextDrawing.h"

#include "platform/win32/CodePage.h"

namespace platform::win32 {

void drawText(HDC target, const std::string& text, RECT place, UINT format) {
  if (hasWideCalls()) {
    DrawTextW(target, wideText(text).c_str(), -1, &place, format);
  } else {
    DrawTextA(target, text.c_str(), -1, &place, format);
  }
}

int textExtent(HDC target, const std::string& text) {
  SIZE size = {};
  if (hasWideCalls()) {
    const std::wstring wide = wideText(text);
    GetTextExtentPoint32W(target, wide.data(), static_cast<int>(wide.size()), &size);
  } else {
    GetTextExtentPoint32A(target, text.data(), static_cast<int>(text.size()), &size);
  }
  return size.cx;
}

}  // namespace platform::win32
