// The native label. A text of one line that does not fit is shown shortened, a path in its middle; in a place of more
// lines the text wraps.
#pragma once

#include "controls/Label.h"
#include "platform/win32/ControlPeer.h"

namespace platform::win32 {

class LabelPeer final : public ControlPeer {
 public:
  LabelPeer(const Host& host, controls::Label& label)
      : ControlPeer(host, label, {.windowClass = "STATIC", .style = SS_OWNERDRAW | SS_NOTIFY}) {}

  void draw(const DRAWITEMSTRUCT& item) override;
};

}  // namespace platform::win32
