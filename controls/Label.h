// A text that the user reads, or a coloured bar.
#pragma once

#include <algorithm>

#include "controls/Control.h"
#include "controls/Layout.h"

namespace controls {

// The colour that a label is filled with: the window's own, the track of a progress bar, its filled part.
enum class Ground { kWindow, kTrack, kFilled };

class Label final : public Control {
 public:
  // A label begins at the left edge of its place in the layout and takes `widthPercent` of its width.
  Label(Parent parent, std::string name, ControlInit start, Ground ground = Ground::kWindow, int widthPercent = 100)
      : Control(parent, Kind::kLabel, std::move(name), std::move(start)),
        ground_(ground),
        widthPercent_(widthPercent) {}

  Ground ground() const { return ground_; }

  int widthPercent() const { return widthPercent_; }
  void setWidthPercent(int percent) {
    if (widthPercent_ == percent) return;
    widthPercent_ = percent;
    notify(Change::kValue);
  }

  // The part of its place that the label takes. Below 0 percent it takes none, above 100 it sticks out.
  Rect covered(Rect place) const {
    place.width = std::max(place.width * widthPercent_ / 100, 0);
    return place;
  }

 private:
  Ground ground_;
  int widthPercent_;
};

}  // namespace controls
