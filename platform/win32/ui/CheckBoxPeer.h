// The native check box: BS_CHECKBOX, not BS_AUTOCHECKBOX, so that its tick follows the control.
#pragma once

#include "controls/CheckBox.h"
#include "platform/win32/ui/ControlPeer.h"

namespace platform::win32 {

class CheckBoxPeer final : public ControlPeer {
 public:
  CheckBoxPeer(const Host& host, controls::CheckBox& box);

  void onCommand(int code) override {
    if (code == BN_CLICKED) box_.click();
  }

  bool clickByMnemonic() override {
    box_.click();
    return true;
  }

 protected:
  void showValue() override { SendMessageA(handle(), BM_SETCHECK, box_.ticked() ? BST_CHECKED : BST_UNCHECKED, 0); }

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM first, LPARAM second);

  controls::CheckBox& box_;
  WNDPROC nativeProcedure_ = nullptr;
};

}  // namespace platform::win32
