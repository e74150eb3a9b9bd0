// A text that the user reads.
#pragma once

#include "controls/Control.h"

namespace controls {

class Label final : public Control {
 public:
  Label(Parent parent, std::string name, Start start)
      : Control(parent, Kind::kLabel, std::move(name), std::move(start)) {}
};

}  // namespace controls
