#include "platform/win32/ui/CommonControls.h"

#include <windows.h>

// Kept apart: the common controls' header needs <windows.h> before it.
#include <commctrl.h>

namespace platform::win32 {
namespace {

using InitCommonControlsExFunction = BOOL(WINAPI*)(const INITCOMMONCONTROLSEX*);

// Null before version 4.70 of the library, which also introduced LVS_OWNERDATA.
InitCommonControlsExFunction initCommonControlsEx() {
  const HMODULE library = GetModuleHandleA("comctl32.dll");
  return reinterpret_cast<InitCommonControlsExFunction>(GetProcAddress(library, "InitCommonControlsEx"));
}

}  // namespace

void startCommonControls() {
  InitCommonControls();
  const InitCommonControlsExFunction start = initCommonControlsEx();
  if (start == nullptr) return;
  const INITCOMMONCONTROLSEX classes = {sizeof(classes), ICC_LISTVIEW_CLASSES | ICC_BAR_CLASSES};
  start(&classes);
}

bool supportsOwnerDataLists() { return initCommonControlsEx() != nullptr; }

}  // namespace platform::win32
