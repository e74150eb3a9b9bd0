// The native flat push button, owner-drawn: a thin border that darkens under the pointer, a picture or caption that
// moves by a pixel when pressed.
#pragma once

#include "controls/FlatButton.h"
#include "platform/win32/ui/ControlPeer.h"

namespace platform::win32 {

class ButtonPeer final : public ControlPeer {
 public:
  ButtonPeer(const Host& host, controls::FlatButton& button);

  void onCommand(int code) override;
  void draw(const DRAWITEMSTRUCT& item) override;
  void pointerEnters() override;
  void pointerLeaves() override;
  bool press() override;
  bool clickByMnemonic() override;

 private:
  void drawFace(HDC target, RECT place, UINT state) const;
  void drawContent(HDC target, RECT place, bool disabled) const;

  controls::FlatButton& button_;
  bool hot_ = false;  // the pointer is on the button
};

}  // namespace platform::win32
