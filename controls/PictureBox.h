// A picture that can be clicked.
#pragma once

#include "controls/Control.h"

namespace controls {

class PictureBox final : public Control {
 public:
  PictureBox(Parent parent, std::string name, ControlInit start)
      : Control(parent, Kind::kPicture, std::move(name), std::move(start)) {}

  Event onClick;

  // A click by the user: raises onClick, or does nothing while the picture does not accept input.
  void click() {
    if (acceptsInput() && onClick) onClick();
  }
};

}  // namespace controls
