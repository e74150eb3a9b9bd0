// Computes the positions of a window's controls from a tree of nested boxes, without a window system. A row places its
// parts side by side, a column one below the other, a stack in the same rectangle, a flow on as many lines as they
// need. Space that is left over goes to the parts that stretch.
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
  bool operator==(const Size&) const = default;
};

struct Rect {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;
  int right() const { return x + width; }
  int bottom() const { return y + height; }
  bool operator==(const Rect&) const = default;
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

// The distance between the parts of a row or a column, in dialog units.
inline constexpr int kGap = 4;

// One box of the tree. Build it with the functions below.
struct Box {
  enum class Kind { kControl, kSpace, kRow, kColumn, kStack, kFlow, kFramed };

  Kind kind = Kind::kSpace;
  Control* control = nullptr;  // kControl, and the frame of kFramed
  std::vector<Box> parts;
  int minWidth = 0;                    // dialog units; the content may need more
  int minHeight = 0;                   // dialog units
  int stretchX = 0;                    // share of the left-over width; 0 keeps the least width
  int stretchY = 0;                    // share of the left-over height
  int gap = kGap;                      // dialog units between the parts
  int lines = 1;                       // of a label's text
  bool shortened = false;              // a label whose text is shortened when it does not fit
  std::vector<std::string> alsoShows;  // other captions that the control will show and that must fit

  // Set the members above, and return the box so that calls can be chained.
  Box& atLeast(int width, int height);
  Box& stretch(int x, int y);
  Box& apart(int units);
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
// The controls of the parts, each of which is a row, one after the other on as many lines as they need. Hidden controls
// take no room. The first control of a row is the name of the others and is on one line with the next.
Box flow(std::vector<Box> parts);
// `inner` within the frame's border and below its caption.
Box framed(Frame& frame, Box inner);

// Rectangles in pixels, relative to the inside of the window.
using Places = std::unordered_map<const Control*, Rect>;

// The least size of the inside of the window, in pixels, at which no text is cut and nothing overlaps, whichever
// controls are hidden; includes the window margin.
Size leastSize(const Box& root, const Metrics& metrics);
// The rectangle of every control in a window whose inside is `size`; a smaller one than leastSize() is laid out at
// leastSize(). A hidden control of a flow gets an empty rectangle.
Places arrange(const Box& root, const Metrics& metrics, Size size);
// All controls in the order of the tree, which is the tab order.
std::vector<Control*> tabOrder(const Box& root);

// The height in pixels of a window's status bar, which is below its inside.
int statusBarHeight(const Metrics& metrics);

// How far one direction of a window is scrolled. All lengths are pixels.
struct Scrolling {
  int content = 0;  // length of what is laid out
  int view = 0;     // length of what is seen of it
  int offset = 0;   // what is scrolled out of sight before the view

  // Scrolls to `to`, or as near to it as the content goes.
  void scrollTo(int to);
  // Scrolls as little as possible so that the part from `from` to `to` is seen, its start if it is longer than the
  // view.
  void reveal(int from, int to);
};

// Which of the two scroll bars a window needs whose inside is `room` without them, so that `content` can be reached.
// `bar` is the width of the vertical bar and the height of the horizontal one.
struct ScrollBars {
  bool horizontal = false;
  bool vertical = false;
};
ScrollBars scrollBarsFor(Size content, Size room, Size bar);

}  // namespace controls
