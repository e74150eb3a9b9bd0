// The line at the bottom of a window: a message, then panes, then a moving bar while long work runs.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "controls/Control.h"

namespace controls {

class StatusBar final : public Control {
 public:
  StatusBar(Parent parent, std::string name) : Control(parent, Kind::kStatusBar, std::move(name), {}) {}

  // What the bar shows at its left: the tooltip of the control that the user points at, if it has one, else the
  // message.
  const std::string& text() const {
    return hinted_ == nullptr || hinted_->toolTip().empty() ? message_ : hinted_->toolTip();
  }
  void setMessage(std::string message) {
    if (message_ == message) return;
    message_ = std::move(message);
    notify(Change::kValue);
  }
  // The control under the pointer, or the one that the keyboard has reached; null for none. It must outlive the bar.
  void setHinted(const Control* control) {
    if (hinted_ == control) return;
    hinted_ = control;
    notify(Change::kValue);
  }

  // The texts behind the message, from left to right.
  const std::vector<std::string>& panes() const { return panes_; }
  void setPanes(std::vector<std::string> panes) {
    if (panes_ == panes) return;
    panes_ = std::move(panes);
    notify(Change::kValue);
  }

  // Whether a bar moves that tells that work is going on.
  bool moving() const { return moving_; }
  void setMoving(bool moving) {
    if (moving_ == moving) return;
    moving_ = moving;
    notify(Change::kValue);
  }

 private:
  std::string message_;
  const Control* hinted_ = nullptr;
  std::vector<std::string> panes_;
  bool moving_ = false;
};

}  // namespace controls
