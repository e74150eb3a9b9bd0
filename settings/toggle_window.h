// What the two windows that switch a system setting have in common, and the messages shown before they open.
#pragma once

#include <string>
#include <vector>

#include "controls/FlatButton.h"
#include "controls/Form.h"
#include "controls/Frame.h"
#include "controls/Label.h"

// The toggle's captions: what a click will do. The first two texts stand for a setting that is neither on nor off.
inline constexpr const char* kToggleCaption = "Toggle";
inline constexpr const char* kUnknownSetting = "The current setting is not known.";
inline constexpr const char* kEnableCaption = "Enable";
inline constexpr const char* kDisableCaption = "Disable";

// A window with the state of a setting in a frame, a toggle and a cancel button. The toggle's caption is its state:
// "Enable" while the setting is off, "Disable" while it is on. It is set before the window opens; one change can be
// made at each opening.
class ToggleWindow : public controls::Form {
 public:
  controls::Frame Frame1;
  controls::FlatButton cmdToggle;
  controls::FlatButton cmd_Cancel;

 protected:
  ToggleWindow(std::string name, std::string caption, std::string toggleToolTip);

  virtual void cmdToggle_Click() = 0;

  // The layout with `state` as the label of the state, which may show each of `states`.
  controls::Box layoutAround(controls::Label& state, std::vector<std::string> states);
};

// Whether a Windows of this name has the settings; when it has not, tells the user so.
bool isOnNtLine(const std::string& windowsVersionName);

// Whether `setting`, read as text, is there; when it is empty, tells the user that it cannot be read.
bool isReadable(const std::string& setting);
