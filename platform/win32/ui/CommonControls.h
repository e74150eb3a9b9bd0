// Initialization of the common controls library.
#pragma once

namespace platform::win32 {

// Registers the window classes of the common controls. InitCommonControlsEx where it exists, else InitCommonControls.
void startCommonControls();

// Whether list views support LVS_OWNERDATA, as they do from version 4.70 of the library on.
bool supportsOwnerDataLists();

}  // namespace platform::win32
