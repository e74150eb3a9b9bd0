// Creation of the peer for a control.
#pragma once

#include <memory>

#include "platform/win32/ui/ControlPeer.h"

namespace platform::win32 {

// Creates the peer of the class that fits the control's kind. It is attached; its native window is hidden and has no
// size yet.
std::unique_ptr<ControlPeer> makePeer(const Host& host, controls::Control& control);

}  // namespace platform::win32
