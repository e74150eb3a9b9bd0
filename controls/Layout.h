// Where a window's controls stand: boxes in boxes, in dialog units, worked out without any window system. A row puts
// its parts side by side, a column below each other, a stack in one place; what is left over goes to the parts that
// stretch.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

namespace controls {

class Control;
class Frame;

// Pixels.
struct Size {
  int width = 0;
  int height = 0;
};

struct Rect {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;
  int right() const { return x + width; }
  int bottom() const { return y + height; }
};

// What the layout must know of the window system: how large text and dialog units are on this screen.
class Metrics {
 public:
  virtual ~Metrics() = default;
  // Pixels for a number of dialog units: a quarter of a character's average width, an eighth of its height.
  virtual int pixelsX(int dialogUnits) const = 0;
  virtual int pixelsY(int dialogUnits) const = 0;
  // The width in pixels of a one-line text in the window's font.
  virtual int textWidth(const std::string& text) const = 0;
};

// One box of the tree. Build it with the functions below.
struct Box {
  enum class Kind { kControl, kSpace, kRow, kColumn, kStack, kFramed };

  Kind kind = Kind::kSpace;
  Control* control = nullptr;  // kControl, and the frame of kFramed
  std::vector<Box> parts;
  int minWidth = 0;   // dialog units; the content's own need when larger
  int minHeight = 0;  // dialog units
  int stretchX = 0;   // share of left-over width; 0 keeps the box at its least width
  int stretchY = 0;
  int lines = 1;                       // of a label's text
  bool shortened = false;              // a text too long for its place is shown shortened
  std::vector<std::string> alsoShows;  // further captions that must fit

  // Changes to a box just built, in a form that chains.
  Box& atLeast(int width, int height);
  Box& stretch(int x, int y);
  Box& textLines(int count);
  Box& shortening();
  Box& reserve(std::vector<std::string> captions);
};

Box place(Control& control);
Box space(int width = 0, int height = 0);
Box row(std::vector<Box> parts);
Box column(std::vector<Box> parts);
// Parts that share one place, because they are never visible together or lie over each other, the first on top.
Box stack(std::vector<Box> parts);
// `inner` inside the frame's border and below its caption.
Box framed(Frame& frame, Box inner);

using Places = std::unordered_map<const Control*, Rect>;

// The least size that cuts no text and overlaps nothing, window margin included.
Size leastSize(const Box& root, const Metrics& metrics);
// Where every control stands in a window whose inside is `size`; a smaller window than the least is laid out as the
// least.
Places arrange(const Box& root, const Metrics& metrics, Size size);
// All controls in the order of the tree: the tab order.
std::vector<Control*> tabOrder(const Box& root);

}  // namespace controls
