// The base class of all controls: their state, without any drawing. A peer may be attached to draw it.
#pragma once

#include <functional>
#include <string>

#include "controls/Peer.h"

namespace controls {

class Form;
class Frame;

enum class Kind {
  kButton,
  kCheckBox,
  kLabel,
  kTextBox,
  kFrame,
  kPicture,
  kListView,
  kDriveList,
  kDirList,
  kFileList,
  kStatusBar
};

// An event handler without arguments. Empty: the event is ignored.
using Event = std::function<void()>;

// What contains a control: a form, or a frame on it.
struct Parent {
  Parent(Form& on) : form(on) {}  // NOLINT(google-explicit-constructor): allows `cmdHelp{*this, ...}`
  Parent(Frame& in);              // NOLINT(google-explicit-constructor)
  Form& form;
  Frame* frame = nullptr;
};

// A control's starting state.
struct ControlInit {
  std::string caption = {};
  std::string toolTip = {};
  bool visible = true;
  bool enabled = true;
  std::string accessibleName = {};
};

class Control {
 public:
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  Kind kind() const { return kind_; }
  // The control's identifier ("cmdAbort").
  const std::string& name() const { return name_; }
  // What a screen reader calls the control: its own name for readers, else its caption, else its identifier.
  const std::string& accessibleName() const {
    return !accessibleName_.empty() ? accessibleName_ : !caption_.empty() ? caption_ : name_;
  }
  bool hasOwnAccessibleName() const { return !accessibleName_.empty(); }
  // What a screen reader says of the control beside its name; empty for nothing. To be set before the form is shown.
  const std::string& accessibleDescription() const { return accessibleDescription_; }
  void setAccessibleDescription(std::string description) { accessibleDescription_ = std::move(description); }
  Form& form() const { return form_; }
  // The frame that contains the control; null when the form itself does.
  Frame* frame() const { return frame_; }

  bool visible() const { return visible_; }
  void setVisible(bool visible);
  void show() { setVisible(true); }
  void hide() { setVisible(false); }

  // The control's own setting. A disabled frame disables its children without changing their settings.
  bool enabled() const { return enabled_; }
  void setEnabled(bool enabled);
  void enable() { setEnabled(true); }
  void disable() { setEnabled(false); }

  const std::string& caption() const { return caption_; }
  void setCaption(std::string caption);

  // Empty: no tooltip.
  const std::string& toolTip() const { return toolTip_; }
  void setToolTip(std::string toolTip);

  // The upper-case letter that, with Alt, clicks a button or check box, or moves the focus to the control after a
  // label; 0 for none.
  char mnemonic() const { return mnemonic_; }
  void setMnemonic(char letter) { mnemonic_ = letter; }

  // The controls of a form with the same number are one stop of Tab, in which the arrow keys go on; 0 for none.
  int group() const { return group_; }
  void setGroup(int number) { group_ = number; }

  // Whether the control and all frames around it are visible.
  bool shown() const;
  // Whether the control and all frames around it are enabled.
  bool usable() const;
  // Whether the user can click it or type into it now: shown, usable, and its form accepts input.
  bool acceptsInput() const;
  // Whether it can have the keyboard now: shown, usable, and of a kind that the user operates.
  bool takesFocus() const;

  // Attaches the peer that draws this control, which must outlive the attachment; null detaches it.
  void attach(Peer* peer) { peer_ = peer; }

 protected:
  Control(Parent parent, Kind kind, std::string name, ControlInit start);
  ~Control() = default;

  void notify(Change change);

 private:
  Form& form_;
  Frame* frame_;
  Kind kind_;
  std::string name_;
  std::string caption_;
  std::string toolTip_;
  std::string accessibleName_;
  std::string accessibleDescription_;
  bool visible_;
  bool enabled_;
  char mnemonic_ = 0;
  int group_ = 0;
  Peer* peer_ = nullptr;
};

}  // namespace controls
