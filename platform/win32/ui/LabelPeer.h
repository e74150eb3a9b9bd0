// The native label. A text of one line that does not fit is shown shortened, a path in its middle; in a place of more
// lines the text wraps. A label with a ground of its own is a bar.
#pragma once

#include "controls/Label.h"
#include "platform/win32/ui/ControlPeer.h"

namespace platform::win32 {

class LabelPeer final : public ControlPeer {
 public:
  // A label in front of another one must not be painted over by it.
  LabelPeer(const Host& host, controls::Label& label)
      : ControlPeer(host, label, {.windowClass = "STATIC", .style = SS_OWNERDRAW | SS_NOTIFY | WS_CLIPSIBLINGS}),
        label_(label) {}

  void draw(const DRAWITEMSTRUCT& item) override;
  void placed() override;

 protected:
  void showValue() override;

 private:
  controls::Label& label_;
  controls::Rect place_;  // all that the layout gives the label
};

}  // namespace platform::win32
