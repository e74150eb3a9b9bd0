// A window: its controls, its default and cancel buttons, its layout, and its life from loading to closing.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "controls/Control.h"
#include "controls/FlatButton.h"
#include "controls/Layout.h"
#include "controls/StatusBar.h"
#include "platform/RuntimeError.h"
#include "platform/Ui.h"

namespace controls {

// The default title of message boxes.
inline constexpr const char* kApplicationTitle = "Scrubhaven Pro";

// Shows a message box and returns the button pressed. `style` is a sum of platform::kBox values. Ui::messageBox.
platform::Answer messageBox(const std::string& text, std::uint32_t style = platform::kBoxOk,
                            const std::string& title = kApplicationTitle);

class Form {
 public:
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;
  virtual ~Form() = default;

  // The form's identifier ("frmFind").
  const std::string& name() const { return name_; }
  const std::string& caption() const { return caption_; }
  // All controls, in order of creation. They are members of the derived form.
  const std::vector<Control*>& controls() const { return controls_; }

  // Builds the layout of the controls, which may depend on those that are visible; the status bar is not in it. The tab
  // order is the order of this tree.
  virtual Box layout() = 0;
  // Called before the window shows changes, to bring up to date what follows from other controls.
  virtual void prepareToShow() {}

  // The status bar, or null.
  StatusBar* statusBar() const { return statusBar_; }
  // The control that has the keyboard first; null for the first one in tab order.
  const Control* firstFocus() const { return firstFocus_; }

  // The button that Enter clicks, or null. It must not delete anything.
  FlatButton* defaultButton() const { return defaultButton_; }
  // The button that Esc clicks, or null.
  FlatButton* cancelButton() const { return cancelButton_; }

  // Loads the form, shows it as a modal window of `owner` (null for the first window) and returns when it has been
  // closed. The owner does not accept input until then. Ui::runModal.
  void showModal(Form* owner);
  // Closes the window, and its owner accepts input again. Handlers that are running continue; showModal returns after
  // them.
  void close();
  bool isOpen() const { return open_; }
  // Whether the user can operate the form: it is open and shows no modal window of its own.
  bool acceptsInput() const { return open_ && !covered_; }

  // Gives the buttons their looks, which the program carries as the resource "BUTTONS" (ButtonLooks), opens the form
  // and runs formLoad(), without showing a window. showModal calls it. Environment::resourceText.
  void load();

  // Called after the window has become the active one.
  virtual void gotFocus() {}
  // Called when the user closes the window by its title bar or by Alt+F4.
  virtual void closeRequested() { close(); }

  // Paints what has changed in the window and its controls without waiting for messages.
  void refresh();

  // Shows the number and text of a failure that no handler has dealt with, after resetting the pointer to its default.
  // Returns when the user has closed the message box.
  static void reportUnhandled(const platform::RuntimeError& error);

  // Attaches the peer that shows this form; null detaches it.
  void attach(Peer* peer) { peer_ = peer; }

 protected:
  Form(std::string name, std::string caption) : name_(std::move(name)), caption_(std::move(caption)) {}

  void setDefaultButton(FlatButton& button) { defaultButton_ = &button; }
  void setCancelButton(FlatButton& button) { cancelButton_ = &button; }

  void setStatusBar(StatusBar& bar) { statusBar_ = &bar; }
  void setFirstFocus(const Control& control) { firstFocus_ = &control; }

  // The form's load event.
  virtual void formLoad() {}

 private:
  friend class Control;
  void adopt(Control& control) { controls_.push_back(&control); }
  void setLooks();
  void notify(Change change);

  std::string name_;
  std::string caption_;
  std::vector<Control*> controls_;
  FlatButton* defaultButton_ = nullptr;
  FlatButton* cancelButton_ = nullptr;
  StatusBar* statusBar_ = nullptr;
  const Control* firstFocus_ = nullptr;
  Form* owner_ = nullptr;  // null for the first window
  bool open_ = false;
  bool covered_ = false;  // shows a modal window of its own
  Peer* peer_ = nullptr;
};

}  // namespace controls
