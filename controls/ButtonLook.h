// The look of a flat button: everything about it that a designer may choose. The looks of all buttons are one text.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "controls/Layout.h"

namespace controls {

// 0x00BBGGRR, or 0x80000000 plus the number of a system colour (COLOR_BTNFACE is 15), which follows the user's scheme.
struct Color {
  static constexpr std::uint32_t kSystem = 0x80000000;
  std::uint32_t value = 0;
  bool operator==(const Color&) const = default;
};

// A font. An empty name and 0 points stand for those of the window's font.
struct TextFont {
  std::string name = {};
  int points = 0;
  bool bold = false;
  bool italic = false;
  bool underline = false;
  bool operator==(const TextFont&) const = default;
};

// Lengths are pixels at 96 dots per inch.
struct ButtonLook {
  enum class Place { kLeft, kRight, kTop, kBottom, kCenter };
  enum class Style { kFlat, kXp };
  enum class Sizing { kOriginal, kCustom };
  enum class Bevel { kNone, kRaised, kSunken };
  enum class Align { kLeft, kCenter, kRight };
  static constexpr int kLastPointer = 15;
  static constexpr int kOwnPointer = 99;

  Color BackColor{Color::kSystem | 15};
  Color ForeColor{Color::kSystem | 18};
  bool ShowFocusRect = true;
  // Where the code gives the button none.
  std::string Caption;
  // Relative to the caption; kCenter is below it.
  Place PicturePosition = Place::kLeft;
  // kFlat keeps its ground under the pointer and when pressed; kXp changes it.
  Style ButtonStyle = Style::kFlat;
  // "icon:zero" is the icon resource ICON_ZERO, "bitmap:NAME" a bitmap resource; "drawn:magnifier" and "drawn:invert"
  // are drawn for any size.
  std::string Picture;
  // Shown instead while the pointer is on the button.
  std::string PictureHover;
  // kCustom shows the picture in PictureWidth by PictureHeight, kOriginal in its own size.
  Sizing PictureSize = Sizing::kOriginal;
  int PictureWidth = 16;
  int PictureHeight = 16;
  int OriginalPicSizeW = 16;
  int OriginalPicSizeH = 16;
  TextFont Font;
  // The pointer over the button, see MousePointer: "icon:zero", or a cursor resource "cursor:NAME".
  std::string MouseIcon;
  // Whether the button accepts input at the start.
  bool Enabled = true;
  // 0 is that of the window; 1 arrow, 2 cross, 3 text, 4 icon, 5 size, 6 to 9 size NE-SW, N-S, NW-SE and W-E, 10 up
  // arrow, 11 hourglass, 12 no drop, 13 arrow and hourglass, 14 arrow and question mark, 15 size all; 99 is MouseIcon.
  int MousePointer = 0;
  // Opened by a click, before the click event.
  std::string URL;
  // The ground of a kXp button while it is pressed, and while the pointer is on it, unless XPDefaultColors.
  Color XPColor_Pressed{Color::kSystem | 16};
  Color XPColor_Hover{Color::kSystem | 22};
  // Takes these two from the system's colours of selected items.
  bool XPDefaultColors = true;
  // Whether the program's over.wav and click.wav are played.
  bool SoundOver = false;
  bool SoundClick = false;
  // Shows the hand over the button, whatever MousePointer is.
  bool DefCurHand = false;
  // Without it the border is shown only while the button is pointed at, pressed, focused or the default one.
  bool XPShowBorderAlways = true;
  // The pixels of a bitmap that are not drawn.
  Color MaskColor{0xFF00FF};
  // Shows the ground of the window instead of BackColor.
  bool TransparentBG = false;
  Bevel BEVEL = Bevel::kNone;
  int BEVELDEPTH = 1;

  // Of picture and caption together.
  Align Alignment = Align::kCenter;
  // Marks the button, at its right edge, as one that acts without asking.
  bool Mark = false;

  bool operator==(const ButtonLook&) const = default;

  // This look without colours of its own, for high contrast.
  ButtonLook inSystemColors() const;
};

// Sets the property `name`, whose case does not matter, to the value that `value` stands for. An unknown name and a
// value that cannot be read change nothing; a number out of range becomes the nearest one in range.
void setProperty(ButtonLook& look, std::string_view name, std::string_view value);

// The properties of `look` that differ from the default, as lines "Name=Value". A control character in a text becomes
// a blank.
std::string written(const ButtonLook& look);

// The looks of all buttons, read from a text of lines "Name=Value" in sections. "[default]" is for all buttons,
// "[frmFind]" for those of a form and "[frmFind.cmdZero]" for one; a later one of these three overrides an earlier one.
// Lines without "=" and lines that begin with ";" are ignored.
class ButtonLooks {
 public:
  explicit ButtonLooks(std::string text);
  ButtonLooks(const ButtonLooks&) = delete;
  ButtonLooks& operator=(const ButtonLooks&) = delete;

  // The look of the button `button` of `form`; case does not matter.
  ButtonLook of(const std::string& form, const std::string& button) const;

 private:
  struct Section {
    std::string_view name;
    std::vector<std::pair<std::string_view, std::string_view>> properties = {};
  };

  void apply(std::string_view section, ButtonLook& look) const;

  std::string text_;
  std::vector<Section> sections_;  // parts of text_
};

// What a button shows, in the coordinates of the button; a part that is absent is empty.
struct ButtonParts {
  Rect picture;
  Rect caption;
  Rect mark;
};

// `caption` is the size of the text, in pixels; its width is 0 when there is none.
Size leastButtonSize(const ButtonLook& look, Size caption, const Metrics& metrics);
// In a button smaller than leastButtonSize(), the caption is cut.
ButtonParts arrangeButton(const ButtonLook& look, Size caption, Size button, const Metrics& metrics);

}  // namespace controls
