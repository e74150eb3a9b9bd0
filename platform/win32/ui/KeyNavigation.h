// Keyboard navigation in a form: Tab and the arrow keys, Enter and Esc, Alt with a mnemonic.
#pragma once

#include <windows.h>

#include <cstddef>
#include <utility>
#include <vector>

#include "controls/Form.h"
#include "platform/win32/ui/ControlPeer.h"

namespace platform::win32 {

class KeyNavigation {
 public:
  // `order` is the tab order; its peers must outlive this object.
  KeyNavigation(const controls::Form& form, std::vector<ControlPeer*> order);
  void setOrder(std::vector<ControlPeer*> order) { order_ = std::move(order); }

  // Handles a navigation key; false when the message is to be dispatched to the control.
  bool handle(const MSG& message);

  // Sets the focus to the control last remembered, or to the form's first focus, or to the first one that takes it.
  // SetFocus.
  void restoreFocus();
  // Remembers which control has the focus. GetFocus.
  void rememberFocus();
  // The peer of the control that has the focus; null when none has it. GetFocus.
  ControlPeer* focused() const;

  // To be called before and after controls are shown, hidden, enabled or disabled. A control that can no longer have
  // the focus passes it to another one, its successor, and gets it back when the successor loses it in the same way.
  void beginChanges();
  void endChanges();

 private:
  // The peer of the control if it takes the focus, else null.
  ControlPeer* usablePeerOf(const controls::Control* control) const;
  bool pressKey(const MSG& message);
  bool pressEnter();
  bool pressEscape();
  bool pressLetter(char letter);
  bool moveByArrow(bool forward);
  // The next control in tab order that takes the focus, wrapping around; null when there is none. `from` may be null:
  // the first or last one.
  ControlPeer* next(const ControlPeer* from, bool forward) const;
  static void focus(ControlPeer& peer);

  const controls::Form& form_;
  std::vector<ControlPeer*> order_;
  ControlPeer* remembered_ = nullptr;
  ControlPeer* focusedBefore_ = nullptr;
  ControlPeer* displaced_ = nullptr;  // the last control that passed the focus on
  ControlPeer* successor_ = nullptr;  // got the focus from displaced_; null after it went back
};

}  // namespace platform::win32
