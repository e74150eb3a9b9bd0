// The flat push button.
#pragma once

#include "controls/ButtonLook.h"
#include "controls/Control.h"

namespace controls {

class FlatButton final : public Control {
 public:
  FlatButton(Parent parent, std::string name, ControlInit start)
      : Control(parent, Kind::kButton, std::move(name), std::move(start)) {}

  Event onClick;
  Event onPointerEnters;

  const ButtonLook& look() const { return look_; }
  // To be set before the button is shown. A caption that the button has already stays, and so does a disabled state. A
  // mark is told to screen readers.
  void setLook(ButtonLook look);

  // A click by the user: plays the click sound, opens the look's URL and raises onClick, or does nothing while the
  // button does not accept input. Ui::playSound, Shell::execute.
  void click();

  // The mouse pointer has entered the button: plays the hover sound and raises onPointerEnters, under the same
  // condition.
  void pointerEnters();

 private:
  ButtonLook look_;
};

}  // namespace controls
