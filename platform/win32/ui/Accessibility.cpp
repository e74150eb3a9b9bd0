#include "platform/win32/ui/Accessibility.h"

// Kept apart: these headers need <windows.h> before them. The first has the second define its identifiers.
#include <initguid.h>

#include <oleacc.h>

#include <string>
#include <utility>

#include "platform/win32/CodePage.h"
#include "platform/win32/RunTimeBinding.h"

namespace platform::win32 {
namespace {

// NotifyWinEvent is not in Windows 95.
constexpr DWORD kStateChanged = 0x800A;  // EVENT_OBJECT_STATECHANGE
constexpr LONG kClient = -4;             // OBJID_CLIENT

// Null where the system has none. It lives as long as the program.
IAccPropServices* services() {
  static IAccPropServices* const object = [] {
    void* made = nullptr;
    const HRESULT result =
        CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER, IID_IAccPropServices, &made);
    return SUCCEEDED(result) ? static_cast<IAccPropServices*>(made) : nullptr;
  }();
  return object;
}

bool hasAnnotations(const controls::Control& control) {
  return control.hasOwnAccessibleName() || !control.accessibleDescription().empty();
}

void set(HWND window, const GUID& property, const std::string& text) {
  services()->SetHwndPropStr(window, static_cast<DWORD>(kClient), CHILDID_SELF, property, wideText(text).c_str());
}

}  // namespace

void annotate(HWND window, const controls::Control& control) {
  if (!hasAnnotations(control) || services() == nullptr) return;
  if (control.hasOwnAccessibleName()) set(window, PROPID_ACC_NAME, control.accessibleName());
  if (!control.accessibleDescription().empty()) set(window, PROPID_ACC_DESCRIPTION, control.accessibleDescription());
}

void removeAnnotations(HWND window, const controls::Control& control) {
  if (!hasAnnotations(control) || services() == nullptr) return;
  const GUID properties[] = {PROPID_ACC_NAME, PROPID_ACC_DESCRIPTION};
  services()->ClearHwndProps(window, static_cast<DWORD>(kClient), CHILDID_SELF, properties, std::size(properties));
}

void announceState(HWND list, int item) {
  using Notify = void(WINAPI*)(DWORD, HWND, LONG, LONG);
  static const auto notify = boundAtRunTime<Notify>("user32.dll", "NotifyWinEvent");
  if (notify != nullptr) notify(kStateChanged, list, kClient, item + 1);
}

}  // namespace platform::win32
