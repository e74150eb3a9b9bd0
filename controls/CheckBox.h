// A check box. Every change of its tick, by the user or by code, raises onClick.
#pragma once

#include "controls/Control.h"

namespace controls {

class CheckBox final : public Control {
 public:
  CheckBox(Parent parent, std::string name, ControlInit start, bool ticked = false)
      : Control(parent, Kind::kCheckBox, std::move(name), std::move(start)), ticked_(ticked) {}

  Event onClick;

  bool ticked() const { return ticked_; }

  // Raises onClick before returning, if the tick changes.
  void setTicked(bool ticked) {
    if (ticked_ == ticked) return;
    ticked_ = ticked;
    notify(Change::kValue);
    if (onClick) onClick();
  }

  // A click by the user: flips the tick. Does nothing while the box does not accept input.
  void click() {
    if (acceptsInput()) setTicked(!ticked_);
  }

 private:
  bool ticked_;
};

}  // namespace controls
