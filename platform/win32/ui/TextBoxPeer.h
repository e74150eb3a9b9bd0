// The native one-line text box.
#pragma once

#include "controls/TextBox.h"
#include "platform/win32/ui/ControlPeer.h"

namespace platform::win32 {

class TextBoxPeer final : public ControlPeer {
 public:
  TextBoxPeer(const Host& host, controls::TextBox& box)
      : ControlPeer(host, box,
                    {.windowClass = "EDIT", .style = ES_AUTOHSCROLL | ES_LEFT, .extendedStyle = WS_EX_CLIENTEDGE}),
        box_(box) {}

  void onCommand(int code) override;

 protected:
  void showValue() override;

 private:
  std::string nativeText() const;

  controls::TextBox& box_;
};

}  // namespace platform::win32
