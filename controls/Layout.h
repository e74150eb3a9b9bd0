// Computes the positions of a window's controls from a tree of nested boxes, without a window system. A row places its
// parts side by side, a column one below the other, a stack in the same rectangle. Space that is left over goes to the
// parts that stretch.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

namespace controls {

class Control;
class Frame;
struct TextFont;

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

// The sizes of text and of dialog units on the screen.
class Metrics {
 public:
  virtual ~Metrics() = default;
  // Converts dialog units to pixels. A unit is a quarter of the average character width across, an eighth of the
  // character height down.
  virtual int pixelsX(int dialogUnits) const = 0;
  virtual int pixelsY(int dialogUnits) const = 0;
  // The width in pixels of a one-line text in the window's font.
  virtual int textWidth(const std::string& text) const = 0;
  // Converts pixels at 96 dots per inch to those of the screen.
  virtual int pixels(int at96) const { return at96; }
  // The size in pixels of a one-line text in `font`.
  virtual Size textSize(const std::string& text, const TextFont& /*font*/) const {
    return {textWidth(text), pixelsY(8)};
  }
};

// One box of the tree. Build it with the functions below.
struct Box {
  enum class Kind { kControl, kSpace, kRow, kColumn, kStack, kFramed };

  Kind kind = Kind::kSpace;
  Control* control = nullptr;  // kControl, and the frame of kFramed
  std::vector<Box> parts;
  int minWidth = 0;                    // dialog units; the content may need more
  int minHeight = 0;                   // dialog units
  int stretchX = 0;                    // share of the left-over width; 0 keeps the least width
  int stretchY = 0;                    // share of the left-over height
  int lines = 1;                       // of a label's text
  bool shortened = false;              // a label whose text is shortened when it does not fit
  std::vector<std::string> alsoShows;  // other captions that the control will show and that must fit

  // Set the members above, and return the box so that calls can be chained.
  Box& atLeast(int width, int height);
  Box& stretch(int x, int y);
  Box& textLines(int count);
  Box& shortening();
  Box& reserve(std::vector<std::string> captions);
};

// A control.
Box place(Control& control);
// Empty space of at least this size, in dialog units.
Box space(int width = 0, int height = 0);
Box row(std::vector<Box> parts);
Box column(std::vector<Box> parts);
// Parts in the same rectangle: never visible together, or one over the other with the first on top.
Box stack(std::vector<Box> parts);
// `inner` within the frame's border and below its caption.
Box framed(Frame& frame, Box inner);

// Rectangles in pixels, relative to the inside of the window.
using Places = std::unordered_map<const Control*, Rect>;

// The least size of the inside of the window, in pixels, at which no text is cut and nothing overlaps; includes the
// window margin.
Size leastSize(const Box& root, const Metrics& metrics);
// The rectangle of every control in a window whose inside is `size`; a smaller one than leastSize() is laid out at
// leastSize().
Places arrange(const Box& root, const Metrics& metrics, Size size);
// All controls in the order of the tree, which is the tab order.
std::vector<Control*> tabOrder(const Box& root);

}  // namespace controls
