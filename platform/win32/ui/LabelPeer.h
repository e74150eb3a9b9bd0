// The native label, owner-drawn. A one-line text that does not fit is shortened with an ellipsis, a path in its middle;
// in a higher rectangle the text wraps.
#pragma once

#include "controls/Label.h"
#include "platform/win32/ui/ControlPeer.h"

namespace platform::win32 {

class LabelPeer final : public ControlPeer {
 public:
  LabelPeer(const Host& host, controls::Label& label)
      : ControlPeer(host, label, {.windowClass = "STATIC", .style = SS_OWNERDRAW | SS_NOTIFY}), label_(label) {}

  void draw(const DRAWITEMSTRUCT& item) override;
  void placed() override;

 protected:
  void showValue() override;

 private:
  controls::Label& label_;
  controls::Rect place_;  // the rectangle that the layout assigns to the label
};

}  // namespace platform::win32
