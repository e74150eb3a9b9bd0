// The flat push button used on every window.
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

  // What a person's click does: nothing while the button takes no input.
  void click() {
    if (acceptsInput() && onClick) onClick();
  }

  // The pointer has come onto the button from elsewhere.
  void pointerEnters() {
    if (acceptsInput() && onPointerEnters) onPointerEnters();
  }

 private:
  Picture picture_;
};

}  // namespace controls
