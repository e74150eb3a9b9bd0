// The native frame. It is below its controls in the Z order and paints the background between them.
#pragma once

#include "controls/Frame.h"
#include "platform/win32/ui/ControlPeer.h"

namespace platform::win32 {

class FramePeer final : public ControlPeer {
 public:
  FramePeer(const Host& host, controls::Frame& frame);

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM first, LPARAM second);

  WNDPROC nativeProcedure_ = nullptr;
};

}  // namespace platform::win32
