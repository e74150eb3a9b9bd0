// The link from a control's state to whatever draws it.
#pragma once

namespace controls {

// What has changed on a control or form.
enum class Change { kVisible, kEnabled, kCaption, kToolTip, kValue, kRows, kRepaint, kClosed };

// Draws one control or form. At most one is attached; the control does not own it.
class Peer {
 public:
  virtual ~Peer() = default;

  // Called after the state has changed. Must be cheap: a list of a million rows calls it a million times.
  virtual void changed(Change change) = 0;
};

}  // namespace controls
