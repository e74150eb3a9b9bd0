#include "platform/win32/ui/TextBoxPeer.h"

namespace platform::win32 {

void TextBoxPeer::onCommand(int code) {
  if (code == EN_CHANGE) box_.type(nativeText());
}

// Setting the text that the user has just typed would move the caret.
void TextBoxPeer::showValue() {
  if (nativeText() != box_.text()) SetWindowTextA(handle(), box_.text().c_str());
}

std::string TextBoxPeer::nativeText() const {
  std::string text(static_cast<std::size_t>(GetWindowTextLengthA(handle())), '\0');
  GetWindowTextA(handle(), text.data(), static_cast<int>(text.size()) + 1);
  return text;
}

}  // namespace platform::win32
