// The native drop-down list of drives. The drives are read again whenever it drops down.
#pragma once

#include "controls/DriveList.h"
#include "platform/win32/ui/ControlPeer.h"

namespace platform::win32 {

class DriveListPeer final : public ControlPeer {
 public:
  DriveListPeer(const Host& host, controls::DriveList& list)
      : ControlPeer(host, list, {.windowClass = "COMBOBOX", .style = CBS_DROPDOWNLIST | CBS_HASSTRINGS | WS_VSCROLL}),
        list_(list) {}

  controls::Rect nativePlace(const controls::Rect& place) const override;
  void onCommand(int code) override;

 protected:
  void showValue() override;

 private:
  controls::DriveList& list_;
};

}  // namespace platform::win32
