// A captioned frame around other controls.
#pragma once

#include "controls/Control.h"

namespace controls {

class Frame final : public Control {
 public:
  Frame(Parent parent, std::string name, ControlInit start)
      : Control(parent, Kind::kFrame, std::move(name), std::move(start)) {}
};

}  // namespace controls
