// What the two windows that switch a system setting have in common, and the console's two handlers that open them.
#pragma once

#include <string>
#include <vector>

#include "controls/FlatButton.h"
#include "controls/Form.h"
#include "controls/Frame.h"
#include "controls/Label.h"

// The toggle's captions: what a click will do. A setting that is neither on nor off leaves the first two texts.
inline constexpr const char* kToggleCaption = "Toggle";
inline constexpr const char* kUnknownSetting = "The current setting is not known.";
inline constexpr const char* kEnableCaption = "Enable";
inline constexpr const char* kDisableCaption = "Disable";

// A window with the state of a setting in a frame, a toggle and a cancel button. The toggle's caption is its state:
// "Enable" while the setting is off, "Disable" while it is on. Whoever opens the window sets it; one change can be made
// at each opening.
class ToggleWindow : public controls::Form {
 public:
  controls::Frame Frame1;
  controls::FlatButton cmdToggle;
  controls::FlatButton cmd_Cancel;

 protected:
  ToggleWindow(std::string caption, std::string toggleToolTip);

  virtual void cmdToggle_Click() = 0;

  // The layout with `state` as the label of the state, which may show each of `states`.
  controls::Box layoutAround(controls::Label& state, std::vector<std::string> states);
};

// Whether this Windows has the settings; when it has not, tells the user so.
bool runsOnNtLine();

// The number `valueName` of the machine's key `keyPath` as text. When there is none, tells the user so and gives an
// empty text.
std::string readSetting(const std::string& keyPath, const std::string& valueName);
