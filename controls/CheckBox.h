// A check box. Every change of its tick, by the user or by code, raises its click.
#pragma once

#include "controls/Control.h"

namespace controls {

class CheckBox final : public Control {
 public:
  CheckBox(Parent parent, std::string name, ControlInit start, bool ticked = false)
      : Control(parent, Kind::kCheckBox, std::move(name), std::move(start)), ticked_(ticked) {}

  Event onClick;

  bool ticked() const { return ticked_; }

  // Raises the click, when the tick changes, before it returns.
  void setTicked(bool ticked) {
    if (ticked_ == ticked) return;
    ticked_ = ticked;
    notify(Change::kValue);
    if (onClick) onClick();
  }

  // What a person's click does: flips the tick, or nothing while the box takes no input.
  void click() {
    if (acceptsInput()) setTicked(!ticked_);
  }

 private:
  bool ticked_;
};

}  // namespace controls
