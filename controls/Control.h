// What all controls have in common: passive state that a peer may draw, and whether a person could use it now.
#pragma once

#include <functional>
#include <string>

#include "controls/Peer.h"

namespace controls {

class Form;
class Frame;

enum class Kind { kButton, kCheckBox, kLabel, kTextBox, kFrame, kPicture, kListView, kDriveList, kDirList, kFileList };

// An event without arguments. An event that nothing is bound to does nothing.
using Event = std::function<void()>;

// Where a control stands: directly on a form, or in a frame of it.
struct Parent {
  Parent(Form& on) : form(on) {}  // NOLINT(google-explicit-constructor): reads as `cmdHelp{*this, ...}`
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
  // The control's own name ("cmdAbort"): what a picture-only control is called.
  const std::string& name() const { return name_; }
  Form& form() const { return form_; }
  // The frame that holds the control; null when it stands directly on the form.
  Frame* frame() const { return frame_; }

  bool visible() const { return visible_; }
  void setVisible(bool visible);
  void show() { setVisible(true); }
  void hide() { setVisible(false); }

  // The control's own switch. A disabled frame takes its children's input away without changing theirs.
  bool enabled() const { return enabled_; }
  void setEnabled(bool enabled);
  void enable() { setEnabled(true); }
  void disable() { setEnabled(false); }

  const std::string& caption() const { return caption_; }
  void setCaption(std::string caption);

  // Empty: no tooltip.
  const std::string& toolTip() const { return toolTip_; }
  void setToolTip(std::string toolTip);

  // The letter (upper case) that, with Alt, clicks a button or goes to the control behind a label; 0 for none.
  char mnemonic() const { return mnemonic_; }
  void setMnemonic(char letter) { mnemonic_ = letter; }

  // Whether the control and all frames around it are visible.
  bool shown() const;
  // Whether the control and all frames around it are enabled.
  bool usable() const;
  // Whether a person can click or type into it now: shown, usable, and its form takes input.
  bool acceptsInput() const;

  // Attaches the one peer that draws this control; null detaches it.
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
