// A static text, a heading, or a coloured bar.
#pragma once

#include <algorithm>

#include "controls/Control.h"
#include "controls/Layout.h"

namespace controls {

// The background of a label: the window's colour, the same with a line behind the text, the track of a progress bar, or
// its filled part.
enum class Ground { kWindow, kHeading, kTrack, kFilled };

class Label final : public Control {
 public:
  // The label covers the left `widthPercent` percent of its rectangle in the layout.
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

  // The part of `place`, its rectangle in the layout, that the label covers: none below 0 percent, more than all of it
  // above 100.
  Rect covered(Rect place) const {
    place.width = std::max(place.width * widthPercent_ / 100, 0);
    return place;
  }

 private:
  Ground ground_;
  int widthPercent_;
};

}  // namespace controls
