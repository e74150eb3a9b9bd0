#include "controls/Layout.h"

#include <algorithm>
#include <utility>

#include "controls/ButtonLook.h"
#include "controls/Control.h"
#include "controls/FlatButton.h"
#include "controls/Frame.h"

namespace controls {
namespace {

// Dialog units.
constexpr int kWindowMargin = 5;
constexpr int kGap = 4;
constexpr int kCheckMark = 12;  // the box and the gap after it
constexpr int kLineHeight = 9;
constexpr int kCheckBoxHeight = 11;
constexpr int kEditHeight = 13;
constexpr int kFrameTop = 11;
constexpr int kFrameMargin = 5;
constexpr int kListHeight = 40;
constexpr int kListWidth = 60;

int widestCaption(const Box& box, const Metrics& metrics) {
  int widest = metrics.textWidth(box.control->caption());
  for (const std::string& text : box.alsoShows) widest = std::max(widest, metrics.textWidth(text));
  return widest;
}

Size buttonSize(const Box& box, const Metrics& metrics) {
  const ButtonLook& look = static_cast<const FlatButton*>(box.control)->look();
  Size widest = metrics.textSize(box.control->caption(), look.Font);
  for (const std::string& text : box.alsoShows) {
    widest.width = std::max(widest.width, metrics.textSize(text, look.Font).width);
  }
  return leastButtonSize(look, widest, metrics);
}

// The least size of a control's content, in pixels.
Size contentSize(const Box& box, const Metrics& metrics) {
  const auto x = [&metrics](int units) { return metrics.pixelsX(units); };
  const auto y = [&metrics](int units) { return metrics.pixelsY(units); };
  switch (box.control->kind()) {
    case Kind::kButton:
      return buttonSize(box, metrics);
    case Kind::kCheckBox:
      return {widestCaption(box, metrics) + x(kCheckMark), y(kCheckBoxHeight)};
    case Kind::kLabel:
      // A text that may wrap or be shortened does not determine the width.
      return {box.lines == 1 && !box.shortened ? widestCaption(box, metrics) : 0, y(kLineHeight * box.lines)};
    case Kind::kTextBox:
    case Kind::kDriveList:
      return {x(kListWidth), y(kEditHeight)};
    case Kind::kListView:
    case Kind::kDirList:
    case Kind::kFileList:
      return {x(kListWidth), y(kListHeight)};
    case Kind::kFrame:
    case Kind::kPicture:
      break;
  }
  return {};
}

int gapsBetween(const Box& box, int gap) {
  return box.parts.empty() ? 0 : gap * static_cast<int>(box.parts.size() - 1);
}

Size need(const Box& box, const Metrics& metrics);

Size needOfParts(const Box& box, const Metrics& metrics) {
  Size size;
  for (const Box& part : box.parts) {
    const Size one = need(part, metrics);
    const bool across = box.kind == Box::Kind::kRow;
    const bool down = box.kind == Box::Kind::kColumn;
    size.width = across ? size.width + one.width : std::max(size.width, one.width);
    size.height = down ? size.height + one.height : std::max(size.height, one.height);
  }
  if (box.kind == Box::Kind::kRow) size.width += gapsBetween(box, metrics.pixelsX(kGap));
  if (box.kind == Box::Kind::kColumn) size.height += gapsBetween(box, metrics.pixelsY(kGap));
  return size;
}

Size needOfFrame(const Box& box, const Metrics& metrics) {
  const Size inner = need(box.parts.front(), metrics);
  const int caption = metrics.textWidth(box.control->caption()) + 2 * metrics.pixelsX(kFrameMargin);
  return {std::max(inner.width, caption) + 2 * metrics.pixelsX(kFrameMargin),
          inner.height + metrics.pixelsY(kFrameTop) + metrics.pixelsY(kFrameMargin)};
}

Size need(const Box& box, const Metrics& metrics) {
  Size size;
  if (box.kind == Box::Kind::kControl) {
    size = contentSize(box, metrics);
  } else if (box.kind == Box::Kind::kFramed) {
    size = needOfFrame(box, metrics);
  } else {
    size = needOfParts(box, metrics);
  }
  size.width = std::max(size.width, metrics.pixelsX(box.minWidth));
  size.height = std::max(size.height, metrics.pixelsY(box.minHeight));
  return size;
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

class Arranger {
 public:
  explicit Arranger(const Metrics& metrics) : metrics_(metrics) {}

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
        put(box.parts.front(), insideFrame(room));
        break;
      case Box::Kind::kRow:
        putRow(box, room);
        break;
      case Box::Kind::kColumn:
        putColumn(box, room);
        break;
    }
  }

  Places take() { return std::move(places_); }

 private:
  Rect insideFrame(Rect room) const {
    const int side = metrics_.pixelsX(kFrameMargin);
    const int top = metrics_.pixelsY(kFrameTop);
    return {room.x + side, room.y + top, room.width - 2 * side, room.height - top - metrics_.pixelsY(kFrameMargin)};
  }

  // A control that does not stretch vertically is centred in the height of its row.
  static Rect centred(const Box& part, Rect room, int height) {
    if (part.kind != Box::Kind::kControl || part.stretchY > 0 || height >= room.height) return room;
    return {room.x, room.y + (room.height - height) / 2, room.width, height};
  }

  void putRow(const Box& box, Rect room) {
    const int gap = metrics_.pixelsX(kGap);
    std::vector<int> needs;
    std::vector<int> shares;
    std::vector<int> heights;
    for (const Box& part : box.parts) {
      const Size size = need(part, metrics_);
      needs.push_back(size.width);
      heights.push_back(size.height);
      shares.push_back(part.stretchX);
    }
    const std::vector<int> widths = distribute(needs, shares, room.width - gapsBetween(box, gap));
    int x = room.x;
    for (std::size_t i = 0; i < box.parts.size(); ++i) {
      put(box.parts[i], centred(box.parts[i], {x, room.y, widths[i], room.height}, heights[i]));
      x += widths[i] + gap;
    }
  }

  void putColumn(const Box& box, Rect room) {
    const int gap = metrics_.pixelsY(kGap);
    std::vector<int> needs;
    std::vector<int> shares;
    for (const Box& part : box.parts) {
      needs.push_back(need(part, metrics_).height);
      shares.push_back(part.stretchY);
    }
    const std::vector<int> heights = distribute(needs, shares, room.height - gapsBetween(box, gap));
    int y = room.y;
    for (std::size_t i = 0; i < box.parts.size(); ++i) {
      put(box.parts[i], {room.x, y, room.width, heights[i]});
      y += heights[i] + gap;
    }
  }

  const Metrics& metrics_;
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

Box framed(Frame& frame, Box inner) {
  std::vector<Box> parts;
  parts.push_back(std::move(inner));
  Box box = ofParts(Box::Kind::kFramed, std::move(parts));
  box.control = &frame;
  return box;
}

Size leastSize(const Box& root, const Metrics& metrics) {
  const Size inner = need(root, metrics);
  return {inner.width + 2 * metrics.pixelsX(kWindowMargin), inner.height + 2 * metrics.pixelsY(kWindowMargin)};
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

std::vector<Control*> tabOrder(const Box& root) {
  std::vector<Control*> order;
  collect(root, order);
  return order;
}

}  // namespace controls
