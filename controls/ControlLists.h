// Shows, hides, enables or disables several controls in one call.
#pragma once

#include <initializer_list>

#include "controls/Control.h"

namespace controls {

inline void setVisible(bool visible, std::initializer_list<Control*> controls) {
  for (Control* control : controls) control->setVisible(visible);
}

inline void setEnabled(bool enabled, std::initializer_list<Control*> controls) {
  for (Control* control : controls) control->setEnabled(enabled);
}

}  // namespace controls
