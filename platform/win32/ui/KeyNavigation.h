// The keyboard in a form: Tab and the arrow keys, Enter, Alt with a mnemonic, and the form's shortcuts.
#pragma once

#include <windows.h>

#include <vector>

#include "controls/Form.h"
#include "controls/TabOrder.h"
#include "platform/win32/ui/ControlPeer.h"

namespace platform::win32 {

class KeyNavigation {
 public:
  // `order` is the tab order; the form and its peers must outlive this object.
  KeyNavigation(controls::Form& form, std::vector<ControlPeer*> order);
  void setOrder(std::vector<ControlPeer*> order);

  // Handles a key; false when the message is to be dispatched to the control.
  bool handle(const MSG& message);

  // Sets the focus to the control last remembered; to the form's first one when there is none; and to a refuge when it
  // does not take the focus any more. SetFocus.
  void restoreFocus();
  // Remembers which control has the focus. GetFocus.
  void rememberFocus();
  // The peer of the control that has the focus; null when none has it. GetFocus.
  ControlPeer* focused() const;

  // To be called before and after controls are shown, hidden, enabled or disabled. When the control with the focus can
  // no longer have it, a refuge gets it.
  void beginChanges();
  void endChanges();

 private:
  bool pressKey(const MSG& message);
  bool pressShortcut(const MSG& message, controls::Control* here);
  bool pressTab(const controls::Control* here, bool forward);
  bool pressEnter();
  bool pressLetter(char letter);
  bool moveByArrow(const controls::Control* here, bool forward);
  // Does nothing for a null pointer.
  void focus(const controls::Control* control);

  controls::Form& form_;
  std::vector<ControlPeer*> peers_;  // in tab order
  controls::TabOrder order_;
  ControlPeer* remembered_ = nullptr;
  ControlPeer* focusedBefore_ = nullptr;
};

}  // namespace platform::win32
