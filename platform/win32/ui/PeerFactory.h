// The native window that fits a control.
#pragma once

#include <memory>

#include "platform/win32/ui/ControlPeer.h"

namespace platform::win32 {

// Creates the control's native window, still hidden and without a place, and attaches it.
std::unique_ptr<ControlPeer> makePeer(const Host& host, controls::Control& control);

}  // namespace platform::win32
