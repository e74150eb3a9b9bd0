#include "platform/win32/ui/TextDrawing.h"

#include <cwchar>

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

std::wstring shortenedText(HDC target, const std::string& text, int width) {
  constexpr std::size_t kRoomForEllipsis = 4;
  std::wstring wide = wideText(text);
  const std::size_t length = wide.size();
  wide.resize(length + kRoomForEllipsis);
  RECT place = {0, 0, width, 0};
  DrawTextW(target, wide.data(), static_cast<int>(length), &place,
            DT_CALCRECT | DT_MODIFYSTRING | DT_PATH_ELLIPSIS | DT_SINGLELINE | DT_NOPREFIX);
  wide.resize(wcsnlen(wide.c_str(), wide.size()));
  return wide;
}

}  // namespace platform::win32
