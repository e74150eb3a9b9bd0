// The native check box: BS_CHECKBOX, not BS_AUTOCHECKBOX, so that its tick follows the control.
#pragma once

#include "controls/CheckBox.h"
#include "platform/win32/ui/ControlPeer.h"

namespace platform::win32 {

class CheckBoxPeer final : public ControlPeer {
 public:
  CheckBoxPeer(const Host& host, controls::CheckBox& box)
      : ControlPeer(host, box, {.windowClass = "BUTTON", .style = BS_CHECKBOX}), box_(box) {}

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
  controls::CheckBox& box_;
};

}  // namespace platform::win32
