// The native flat push button: a BUTTON that the program draws, by its look.
#pragma once

#include "controls/FlatButton.h"
#include "platform/win32/ui/ControlPeer.h"

namespace platform::win32 {

class ButtonPeer final : public ControlPeer {
 public:
  ButtonPeer(const Host& host, controls::FlatButton& button);

  void onCommand(int code) override;
  void draw(const DRAWITEMSTRUCT& item) override;
  HCURSOR cursor() const override;
  void pointerEnters() override;
  void pointerLeaves() override;
  bool press() override;
  bool clickByMnemonic() override;

 private:
  struct State {
    bool pressed;
    bool disabled;
    bool focused;
    bool isDefault;
    bool hot;
    bool highContrast;
  };

  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM first, LPARAM second);
  bool isDefault() const;
  void drawButton(HDC target, const RECT& place, const controls::ButtonLook& look, const State& state) const;
  void fillGround(HDC target, const RECT& place, const controls::ButtonLook& look, const State& state) const;
  // Leaves in `place` what is inside the bevel.
  void drawBevel(HDC target, RECT& place, const controls::ButtonLook& look, bool pressed) const;
  void drawContent(HDC target, const RECT& place, const controls::ButtonLook& look, const State& state) const;

  controls::FlatButton& button_;
  WNDPROC nativeProcedure_ = nullptr;
  HCURSOR ownPointer_;  // null when the look has none
  bool hot_ = false;    // the pointer is on the button
};

}  // namespace platform::win32
