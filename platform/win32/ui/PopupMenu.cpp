#include "platform/win32/ui/PopupMenu.h"

#include <cstddef>

namespace platform::win32 {

void openMenu(HWND owner, POINT at, const controls::Menu& menu) {
  if (menu.empty()) return;
  const HMENU native = CreatePopupMenu();
  for (std::size_t i = 0; i < menu.size(); ++i) {
    const UINT kind = menu[i].caption.empty() ? MF_SEPARATOR : MF_STRING;
    AppendMenuA(native, kind | (menu[i].enabled ? MF_ENABLED : MF_GRAYED), i + 1, menu[i].caption.c_str());
  }
  const int chosen = TrackPopupMenu(native, TPM_RETURNCMD | TPM_RIGHTBUTTON, at.x, at.y, 0, owner, nullptr);
  DestroyMenu(native);
  if (chosen > 0) menu[static_cast<std::size_t>(chosen) - 1].choose();
}

}  // namespace platform::win32
