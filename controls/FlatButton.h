// The flat push button.
#pragma once

#include "controls/Control.h"

namespace controls {

// The pictures that a button without a caption may show.
enum class Picture { kNone, kMagnifier, kInvert };

class FlatButton final : public Control {
 public:
  FlatButton(Parent parent, std::string name, ControlInit start, Picture picture = Picture::kNone)
      : Control(parent, Kind::kButton, std::move(name), std::move(start)), picture_(picture) {}

  Event onClick;
  Event onPointerEnters;

  Picture picture() const { return picture_; }

  // A click by the user: raises onClick, or does nothing while the button does not accept input.
  void click() {
    if (acceptsInput() && onClick) onClick();
  }

  // The mouse pointer has entered the button: raises onPointerEnters, under the same condition.
  void pointerEnters() {
    if (acceptsInput() && onPointerEnters) onPointerEnters();
  }

 private:
  Picture picture_;
};

}  // namespace controls
