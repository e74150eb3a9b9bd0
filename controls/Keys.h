// The keys that mean the same in a whole window, whichever of its controls has the keyboard.
#pragma once

#include <functional>

namespace controls {

class Control;

enum class Key { kF1, kF5, kEscape, kDelete, kBackspace, kA, kI };

struct KeyPress {
  Key key;
  bool control = false;  // Ctrl is held
  bool operator==(const KeyPress&) const = default;
};

// What a key does. `focus` is the control that has the keyboard, null when none of the form has it.
struct Shortcut {
  KeyPress press;
  std::function<void(Control* focus)> act;
  // Where the key means this; empty: everywhere in the window. Elsewhere the control gets the key.
  std::function<bool(const Control* focus)> where = {};
};

}  // namespace controls
