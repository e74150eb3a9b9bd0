// The interface by which controls and forms notify the code that draws them.
#pragma once

namespace controls {

// What has changed. The last three come from a form, the others from a control.
enum class Change { kVisible, kEnabled, kCaption, kToolTip, kValue, kRows, kRepaint, kRepaintNow, kClosed };

// Draws one control or form, which has at most one peer and does not own it.
class Peer {
 public:
  virtual ~Peer() = default;

  // Called after the state has changed. Must be fast: a list calls it for every row that is added.
  virtual void changed(Change change) = 0;
};

}  // namespace controls
