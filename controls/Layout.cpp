#include "controls/Layout.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "controls/ButtonLook.h"
#include "controls/Control.h"
#include "controls/FlatButton.h"
#include "controls/Frame.h"

namespace controls {
namespace {

// Dialog units.
constexpr int kWindowMargin = 5;
constexpr int kCheckMark = 14;  // the box and the gap after it
constexpr int kTextSlack = 1;   // some fonts draw a little more than they measure
constexpr int kLineHeight = 9;
constexpr int kCheckBoxHeight = 10;
constexpr int kEditHeight = 13;
constexpr int kFrameTop = 10;
constexpr int kFrameMargin = 4;
constexpr int kListHeight = 40;
constexpr int kListWidth = 60;
constexpr int kFlowGap = 8;  // before the name of a row
constexpr int kStatusBarHeight = 12;

// What counts for the lengths: the controls that are shown now, or all of them.
enum class Counted { kShown, kAll };

int gapsBetween(const Box& box, int gap) {
  return box.parts.empty() ? 0 : gap * static_cast<int>(box.parts.size() - 1);
}

// The lengths of the parts of a row or column: what each needs, plus its share of the rest of `total`.
std::vector<int> distribute(const std::vector<int>& needs, const std::vector<int>& shares, int total) {
  int left = total;
  int open = 0;
  for (std::size_t i = 0; i < needs.size(); ++i) {
    left -= needs[i];
    open += shares[i];
  }
  std::vector<int> lengths = needs;
  left = std::max(left, 0);
  for (std::size_t i = 0; i < lengths.size() && open > 0; ++i) {
    const int extra = left * shares[i] / open;
    lengths[i] += extra;
    left -= extra;
    open -= shares[i];
  }
  return lengths;
}

// How large boxes have to be, in pixels.
class Measure {
 public:
  Measure(const Metrics& metrics, Counted counted) : metrics_(metrics), counted_(counted) {}

  int x(int units) const { return metrics_.pixelsX(units); }
  int y(int units) const { return metrics_.pixelsY(units); }

  int width(const Box& box) const { return std::max(contentWidth(box), x(box.minWidth)); }
  // The height of a box that is `width` wide.
  int height(const Box& box, int width) const { return std::max(contentHeight(box, width), y(box.minHeight)); }

  // The widths of the parts of a row that is `width` wide.
  std::vector<int> widthsOf(const Box& row, int width) const {
    std::vector<int> needs;
    std::vector<int> shares;
    for (const Box& part : row.parts) {
      needs.push_back(this->width(part));
      shares.push_back(part.stretchX);
    }
    return distribute(needs, shares, width - gapsBetween(row, x(row.gap)));
  }

  Rect insideFrame(Rect room) const {
    const int side = x(kFrameMargin);
    const int top = y(kFrameTop);
    return {room.x + side, room.y + top, room.width - 2 * side, room.height - top - y(kFrameMargin)};
  }

  // The rectangles of the counted controls of a flow that is `width` wide, relative to its left top corner.
  std::vector<std::pair<const Box*, Rect>> flowPlaces(const Box& flow, int width) const {
    std::vector<std::pair<const Box*, Rect>> places;
    int left = 0;
    int top = 0;
    int line = 0;  // height
    for (const Box& row : flow.parts) {
      const std::vector<const Box*> items = countedParts(row);
      for (std::size_t i = 0; i < items.size(); ++i) {
        const int own = this->width(*items[i]);
        const bool isName = i == 0 && items.size() > 1;
        const int together = own + (isName ? x(row.gap) + this->width(*items[1]) : 0);
        // What follows a name is on its line.
        const int gap = left == 0 ? 0 : x(i == 0 ? kFlowGap : row.gap);
        if (i != 1 && left > 0 && left + gap + together > width) {
          top += line + y(flow.gap);
          left = line = 0;
        } else {
          left += gap;
        }
        const int high = height(*items[i], own);
        places.push_back({items[i], {left, top, own, high}});
        left += own;
        line = std::max(line, high);
      }
    }
    centreInLines(places);
    return places;
  }

 private:
  // In the middle of the height of the line.
  static void centreInLines(std::vector<std::pair<const Box*, Rect>>& places) {
    for (auto first = places.begin(); first != places.end();) {
      const int top = first->second.y;
      const auto end = std::find_if(first, places.end(), [top](const auto& one) { return one.second.y != top; });
      int line = 0;
      for (auto one = first; one != end; ++one) line = std::max(line, one->second.height);
      for (; first != end; ++first) first->second.y += (line - first->second.height) / 2;
    }
  }

  std::vector<const Box*> countedParts(const Box& row) const {
    std::vector<const Box*> parts;
    for (const Box& part : row.parts) {
      if (counted_ == Counted::kAll || part.control->visible()) parts.push_back(&part);
    }
    return parts;
  }

  int widestCaption(const Box& box) const {
    int widest = metrics_.textWidth(box.control->caption());
    for (const std::string& text : box.alsoShows) widest = std::max(widest, metrics_.textWidth(text));
    return widest;
  }

  Size buttonSize(const Box& box) const {
    const ButtonLook& look = static_cast<const FlatButton*>(box.control)->look();
    Size widest = metrics_.textSize(box.control->caption(), look.Font);
    for (const std::string& text : box.alsoShows) {
      widest.width = std::max(widest.width, metrics_.textSize(text, look.Font).width);
    }
    return leastButtonSize(look, widest, metrics_);
  }

  // The least size of a control's content. Measured once, because every box around the control asks for it.
  Size controlSize(const Box& box) const {
    const auto known = controlSizes_.find(&box);
    return known != controlSizes_.end() ? known->second : controlSizes_[&box] = measuredSize(box);
  }

  Size measuredSize(const Box& box) const {
    switch (box.control->kind()) {
      case Kind::kButton:
        return buttonSize(box);
      case Kind::kCheckBox:
        return {widestCaption(box) + x(kCheckMark), y(kCheckBoxHeight)};
      case Kind::kLabel:
        // A text that may wrap or be shortened does not determine the width.
        return {box.lines == 1 && !box.shortened ? widestCaption(box) + x(kTextSlack) : 0, y(kLineHeight * box.lines)};
      case Kind::kTextBox:
      case Kind::kDriveList:
        return {x(kListWidth), y(kEditHeight)};
      case Kind::kListView:
      case Kind::kDirList:
      case Kind::kFileList:
        return {x(kListWidth), y(kListHeight)};
      case Kind::kFrame:
      case Kind::kPicture:
      case Kind::kStatusBar:
        break;
    }
    return {};
  }

  int contentWidth(const Box& box) const {
    int sum = 0;
    int widest = 0;
    for (const Box& part : box.parts) {
      const int one = width(part);
      sum += one;
      widest = std::max(widest, one);
    }
    switch (box.kind) {
      case Box::Kind::kControl:
        return controlSize(box).width;
      case Box::Kind::kRow:
        return sum + gapsBetween(box, x(box.gap));
      case Box::Kind::kFlow:
        return widestOfFlow(box);
      case Box::Kind::kFramed:
        return std::max(widest, metrics_.textWidth(box.control->caption()) + x(2 * kFrameMargin)) + 2 * x(kFrameMargin);
      case Box::Kind::kSpace:
      case Box::Kind::kColumn:
      case Box::Kind::kStack:
        break;
    }
    return widest;
  }

  int widestOfFlow(const Box& flow) const {
    int widest = 0;
    // Of a line of its own for each control: only a name is not alone.
    for (const auto& [part, place] : flowPlaces(flow, 0)) widest = std::max(widest, place.right());
    return widest;
  }

  int contentHeight(const Box& box, int width) const {
    switch (box.kind) {
      case Box::Kind::kControl:
        return controlSize(box).height;
      case Box::Kind::kSpace:
        return 0;
      case Box::Kind::kRow:
        return heightOfRow(box, width);
      case Box::Kind::kFlow: {
        int bottom = 0;
        for (const auto& [part, place] : flowPlaces(box, width)) bottom = std::max(bottom, place.bottom());
        return bottom;
      }
      case Box::Kind::kFramed:
        return height(box.parts.front(), width - 2 * x(kFrameMargin)) + y(kFrameTop) + y(kFrameMargin);
      case Box::Kind::kColumn:
      case Box::Kind::kStack:
        break;
    }
    int sum = gapsBetween(box, y(box.gap));
    int highest = 0;
    for (const Box& part : box.parts) {
      const int one = height(part, width);
      sum += one;
      highest = std::max(highest, one);
    }
    return box.kind == Box::Kind::kColumn ? sum : highest;
  }

  int heightOfRow(const Box& row, int width) const {
    const std::vector<int> widths = widthsOf(row, width);
    int highest = 0;
    for (std::size_t i = 0; i < widths.size(); ++i) highest = std::max(highest, height(row.parts[i], widths[i]));
    return highest;
  }

  const Metrics& metrics_;
  Counted counted_;
  mutable std::unordered_map<const Box*, Size> controlSizes_;
};

class Arranger {
 public:
  explicit Arranger(const Metrics& metrics) : measure_(metrics, Counted::kShown) {}

  void put(const Box& box, Rect room) {
    switch (box.kind) {
      case Box::Kind::kControl:
        places_[box.control] = room;
        break;
      case Box::Kind::kSpace:
        break;
      case Box::Kind::kStack:
        for (const Box& part : box.parts) put(part, room);
        break;
      case Box::Kind::kFramed:
        places_[box.control] = room;
        put(box.parts.front(), measure_.insideFrame(room));
        break;
      case Box::Kind::kRow:
        putRow(box, room);
        break;
      case Box::Kind::kColumn:
        putColumn(box, room);
        break;
      case Box::Kind::kFlow:
        putFlow(box, room);
        break;
    }
  }

  Places take() { return std::move(places_); }

 private:
  // A control that does not stretch vertically is centred in the height of its row.
  static Rect centred(const Box& part, Rect room, int height) {
    if (part.kind != Box::Kind::kControl || part.stretchY > 0 || height >= room.height) return room;
    return {room.x, room.y + (room.height - height) / 2, room.width, height};
  }

  void putRow(const Box& box, Rect room) {
    const std::vector<int> widths = measure_.widthsOf(box, room.width);
    int x = room.x;
    for (std::size_t i = 0; i < box.parts.size(); ++i) {
      const int height = measure_.height(box.parts[i], widths[i]);
      put(box.parts[i], centred(box.parts[i], {x, room.y, widths[i], room.height}, height));
      x += widths[i] + measure_.x(box.gap);
    }
  }

  void putColumn(const Box& box, Rect room) {
    const int gap = measure_.y(box.gap);
    std::vector<int> needs;
    std::vector<int> shares;
    for (const Box& part : box.parts) {
      needs.push_back(measure_.height(part, room.width));
      shares.push_back(part.stretchY);
    }
    const std::vector<int> heights = distribute(needs, shares, room.height - gapsBetween(box, gap));
    int y = room.y;
    for (std::size_t i = 0; i < box.parts.size(); ++i) {
      put(box.parts[i], {room.x, y, room.width, heights[i]});
      y += heights[i] + gap;
    }
  }

  void putFlow(const Box& box, Rect room) {
    for (const Box& row : box.parts) {
      for (const Box& part : row.parts) places_[part.control] = {room.x, room.y, 0, 0};
    }
    for (const auto& [part, place] : measure_.flowPlaces(box, room.width)) {
      places_[part->control] = {room.x + place.x, room.y + place.y, place.width, place.height};
    }
  }

  Measure measure_;
  Places places_;
};

Box ofParts(Box::Kind kind, std::vector<Box> parts) {
  Box box;
  box.kind = kind;
  // A box stretches as much as the part that stretches most.
  for (const Box& part : parts) {
    box.stretchX = std::max(box.stretchX, part.stretchX);
    box.stretchY = std::max(box.stretchY, part.stretchY);
  }
  box.parts = std::move(parts);
  return box;
}

void collect(const Box& box, std::vector<Control*>& order) {
  if (box.control != nullptr) order.push_back(box.control);
  for (const Box& part : box.parts) collect(part, order);
}

}  // namespace

Box& Box::atLeast(int width, int height) {
  minWidth = width;
  minHeight = height;
  return *this;
}

Box& Box::stretch(int x, int y) {
  stretchX = x;
  stretchY = y;
  return *this;
}

Box& Box::apart(int units) {
  gap = units;
  return *this;
}

Box& Box::textLines(int count) {
  lines = count;
  return *this;
}

Box& Box::shortening() {
  shortened = true;
  return *this;
}

Box& Box::reserve(std::vector<std::string> captions) {
  alsoShows = std::move(captions);
  return *this;
}

Box place(Control& control) {
  Box box;
  box.kind = Box::Kind::kControl;
  box.control = &control;
  return box;
}

Box space(int width, int height) {
  Box box;
  box.atLeast(width, height);
  return box;
}

Box row(std::vector<Box> parts) { return ofParts(Box::Kind::kRow, std::move(parts)); }

Box column(std::vector<Box> parts) { return ofParts(Box::Kind::kColumn, std::move(parts)); }

Box stack(std::vector<Box> parts) { return ofParts(Box::Kind::kStack, std::move(parts)); }

Box flow(std::vector<Box> parts) { return ofParts(Box::Kind::kFlow, std::move(parts)); }

Box framed(Frame& frame, Box inner) {
  std::vector<Box> parts;
  parts.push_back(std::move(inner));
  Box box = ofParts(Box::Kind::kFramed, std::move(parts));
  box.control = &frame;
  return box;
}

Size leastSize(const Box& root, const Metrics& metrics) {
  const Measure measure(metrics, Counted::kAll);
  const int width = measure.width(root);
  return {width + 2 * metrics.pixelsX(kWindowMargin), measure.height(root, width) + 2 * metrics.pixelsY(kWindowMargin)};
}

Places arrange(const Box& root, const Metrics& metrics, Size size) {
  const Size least = leastSize(root, metrics);
  const int marginX = metrics.pixelsX(kWindowMargin);
  const int marginY = metrics.pixelsY(kWindowMargin);
  Arranger arranger(metrics);
  arranger.put(root, {marginX, marginY, std::max(size.width, least.width) - 2 * marginX,
                      std::max(size.height, least.height) - 2 * marginY});
  return arranger.take();
}

int statusBarHeight(const Metrics& metrics) { return metrics.pixelsY(kStatusBarHeight); }

void Scrolling::scrollTo(int to) { offset = std::clamp(to, 0, std::max(0, content - view)); }

void Scrolling::reveal(int from, int to) {
  if (to > offset + view) scrollTo(to - view);
  if (from < offset) scrollTo(from);
}

ScrollBars scrollBarsFor(Size content, Size room, Size bar) {
  ScrollBars bars;
  bars.horizontal = content.width > room.width;
  bars.vertical = content.height > room.height - (bars.horizontal ? bar.height : 0);
  bars.horizontal = content.width > room.width - (bars.vertical ? bar.width : 0);
  // A horizontal bar that only the vertical one made necessary takes height in its turn.
  bars.vertical = content.height > room.height - (bars.horizontal ? bar.height : 0);
  return bars;
}

std::vector<Control*> tabOrder(const Box& root) {
  std::vector<Control*> order;
  collect(root, order);
  return order;
}

}  // namespace controls
