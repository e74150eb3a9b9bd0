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
};

class Control {
 public:
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  Kind kind() const { return kind_; }
  // The control's identifier ("cmdAbort"). It is also the window text of a control that shows only a picture.
  const std::string& name() const { return name_; }
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

  // Whether the control and all frames around it are visible.
  bool shown() const;
  // Whether the control and all frames around it are enabled.
  bool usable() const;
  // Whether the user can click it or type into it now: shown, usable, and its form accepts input.
  bool acceptsInput() const;

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
  bool visible_;
  bool enabled_;
  char mnemonic_ = 0;
  Peer* peer_ = nullptr;
};

}  // namespace controls
