// One window: its controls, its buttons for Enter and Esc, its layout, and what opening and closing it means.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "controls/Control.h"
#include "controls/FlatButton.h"
#include "controls/Layout.h"
#include "platform/RuntimeError.h"
#include "platform/Ui.h"

namespace controls {

// What untitled message boxes carry.
inline constexpr const char* kApplicationTitle = "Scrubhaven Pro";

// Shows a message box and gives the button pressed. `style` is a sum of the platform's box styles.
platform::Answer messageBox(const std::string& text, std::uint32_t style = platform::kBoxOk,
                            const std::string& title = kApplicationTitle);

class Form {
 public:
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;
  virtual ~Form() = default;

  const std::string& caption() const { return caption_; }
  // All controls, in order of creation. Not owned: they are the form's own members.
  const std::vector<Control*>& controls() const { return controls_; }

  // How the controls share the window. Tab order is the order of this tree.
  virtual Box layout() = 0;

  // The button that Enter presses, or null. Never one that destroys.
  FlatButton* defaultButton() const { return defaultButton_; }
  // The button that Esc presses, or null.
  FlatButton* cancelButton() const { return cancelButton_; }

  // Loads the form, shows it as a window over `owner` (null for the first window) and returns when it has been closed.
  // The owner takes no input until then.
  void showModal(Form* owner);
  // Takes the window away; from then on its owner takes input again. Handlers that run go on, and showModal returns
  // once they have ended.
  void close();
  bool isOpen() const { return open_; }
  // Whether a person can use the form: it is loaded and no other window stands over it.
  bool acceptsInput() const { return open_ && !covered_; }

  // The form's own set-up; leaves it open. showModal does this, and so does a test that shows no window.
  void load();

  // The window has become the active one.
  virtual void gotFocus() {}
  // The user wants the window closed by other means than its buttons (title bar, Alt+F4).
  virtual void closeRequested() { close(); }

  // Asks for the window to be drawn anew.
  void refresh();

  // Tells the user of a failure that no handler has dealt with; the pointer goes back to its default and the program
  // goes on.
  static void reportUnhandled(const platform::RuntimeError& error);

  void attach(Peer* peer) { peer_ = peer; }

 protected:
  explicit Form(std::string caption) : caption_(std::move(caption)) {}

  void setDefaultButton(FlatButton& button) { defaultButton_ = &button; }
  void setCancelButton(FlatButton& button) { cancelButton_ = &button; }

  // The form's load event.
  virtual void formLoad() {}

 private:
  friend class Control;
  void adopt(Control& control) { controls_.push_back(&control); }
  void notify(Change change);

  std::string caption_;
  std::vector<Control*> controls_;
  FlatButton* defaultButton_ = nullptr;
  FlatButton* cancelButton_ = nullptr;
  Form* owner_ = nullptr;  // the window under this one
  bool open_ = false;
  bool covered_ = false;
  Peer* peer_ = nullptr;
};

}  // namespace controls
