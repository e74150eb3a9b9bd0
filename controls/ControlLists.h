// Switching many controls at once, so that what a tool shows and enables reads as a table.
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
