// What the two windows that switch a system setting have in common, and the console's two handlers that open them.
#pragma once

#include <string>
#include <vector>

#include "controls/FlatButton.h"
#include "controls/Frame.h"
#include "controls/Layout.h"

// The toggle's captions: what a click will do. A setting that is neither on nor off leaves the first two texts.
inline constexpr const char* kToggleCaption = "Toggle";
inline constexpr const char* kUnknownSetting = "The current setting is not known.";
inline constexpr const char* kEnableCaption = "Enable";
inline constexpr const char* kDisableCaption = "Disable";

// Whether this Windows has the settings; when it has not, tells the user so.
bool runsOnNtLine();

// The number `valueName` of the machine's key `keyPath` as text. When there is none, tells the user so and gives an
// empty text.
std::string readSetting(const std::string& keyPath, const std::string& valueName);

// The window: the state in a frame above the two buttons. `states` are the texts that the state may show.
controls::Box toggleWindowLayout(controls::Frame& frame, controls::Box state, controls::FlatButton& toggle,
                                 controls::FlatButton& cancel, std::vector<std::string> states);
