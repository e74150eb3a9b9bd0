// The common controls library, of which the oldest Windows has an early version.
#pragma once

namespace platform::win32 {

// Registers the window classes of the common controls. InitCommonControlsEx where it exists, else InitCommonControls.
void startCommonControls();

// Whether list views can ask for their rows when they draw them instead of storing them, which came with version 4.70.
bool listViewsAskForRows();

}  // namespace platform::win32
