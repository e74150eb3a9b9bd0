// The keyboard's way through a form: Tab and arrows, Enter and Esc, Alt and a letter.
#pragma once

#include <windows.h>

#include <cstddef>
#include <vector>

#include "controls/Form.h"
#include "platform/win32/ui/ControlPeer.h"

namespace platform::win32 {

class KeyNavigation {
 public:
  // `order` is the tab order; its peers outlive this object.
  KeyNavigation(const controls::Form& form, std::vector<ControlPeer*> order);

  // Carries out a key that moves through the form; false when it is the control's own.
  bool handle(const MSG& message);

  // Puts the keyboard where it last was, or on the first control that takes it.
  void restoreFocus();
  // Notes where the keyboard is, for restoreFocus().
  void rememberFocus();

  // Around changes of the controls' states: a control that can no longer have the keyboard passes it on, and gets it
  // back when its successor cannot keep it either.
  void beginChanges();
  void endChanges();

 private:
  ControlPeer* focused() const;
  bool pressKey(const MSG& message);
  bool pressEnter();
  bool pressEscape();
  bool pressLetter(char letter);
  bool moveByArrow(bool forward);
  // The next control that takes the keyboard, round the form's end. `from` may be null: the first or last one.
  ControlPeer* next(const ControlPeer* from, bool forward) const;
  ControlPeer* usableCancelButton() const;
  static void focus(ControlPeer& peer);

  const controls::Form& form_;
  std::vector<ControlPeer*> order_;
  ControlPeer* remembered_ = nullptr;
  ControlPeer* beforeChanges_ = nullptr;
  ControlPeer* displaced_ = nullptr;  // the last that had to pass the keyboard on
  ControlPeer* successor_ = nullptr;  // got it from displaced_; null when that one has it back
};

}  // namespace platform::win32
