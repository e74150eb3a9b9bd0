#include "controls/ButtonLook.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <limits>
#include <optional>
#include <span>
#include <system_error>

#include "platform/Conversions.h"
#include "platform/Paths.h"

namespace controls {
namespace {

constexpr std::uint32_t kWhite = 0xFFFFFF;
constexpr std::uint32_t kLastSystemColor = 30;  // COLOR_MENUBAR
constexpr std::size_t kLongestFontName = 31;    // LF_FACESIZE without the closing NUL

struct Range {
  int least;
  int most;
};
constexpr Range kPictureSide = {1, 256};
constexpr Range kPoints = {4, 72};
constexpr Range kBevelDepth = {1, 8};

// The values of a property without numbers between two ranges.
struct PointerNumbers {};

template <std::size_t N>
using Names = std::array<const char*, N>;
constexpr Names<5> kPlaces = {"left", "right", "top", "bottom", "center"};
constexpr Names<2> kStyles = {"flat", "xp"};
constexpr Names<2> kSizings = {"original", "custom"};
constexpr Names<3> kBevels = {"none", "raised", "sunken"};
constexpr Names<3> kAligns = {"left", "center", "right"};

// Calls `visit` with the name of each property, its member, and the rule for its values where it has one.
template <typename Visitor>
void forEachProperty(const Visitor& visit) {
  using Look = ButtonLook;
  visit("BackColor", &Look::BackColor);
  visit("ForeColor", &Look::ForeColor);
  visit("ShowFocusRect", &Look::ShowFocusRect);
  visit("Caption", &Look::Caption);
  visit("PicturePosition", &Look::PicturePosition, kPlaces);
  visit("ButtonStyle", &Look::ButtonStyle, kStyles);
  visit("Picture", &Look::Picture);
  visit("PictureWidth", &Look::PictureWidth, kPictureSide);
  visit("PictureHeight", &Look::PictureHeight, kPictureSide);
  visit("PictureSize", &Look::PictureSize, kSizings);
  visit("OriginalPicSizeW", &Look::OriginalPicSizeW, kPictureSide);
  visit("OriginalPicSizeH", &Look::OriginalPicSizeH, kPictureSide);
  visit("Font", &Look::Font);
  visit("PictureHover", &Look::PictureHover);
  visit("MouseIcon", &Look::MouseIcon);
  visit("Enabled", &Look::Enabled);
  visit("MousePointer", &Look::MousePointer, PointerNumbers{});
  visit("URL", &Look::URL);
  visit("XPColor_Pressed", &Look::XPColor_Pressed);
  visit("XPColor_Hover", &Look::XPColor_Hover);
  visit("XPDefaultColors", &Look::XPDefaultColors);
  visit("SoundOver", &Look::SoundOver);
  visit("SoundClick", &Look::SoundClick);
  visit("DefCurHand", &Look::DefCurHand);
  visit("XPShowBorderAlways", &Look::XPShowBorderAlways);
  visit("MaskColor", &Look::MaskColor);
  visit("TransparentBG", &Look::TransparentBG);
  visit("BEVEL", &Look::BEVEL, kBevels);
  visit("BEVELDEPTH", &Look::BEVELDEPTH, kBevelDepth);
  visit("Alignment", &Look::Alignment, kAligns);
  visit("Mark", &Look::Mark);
}

// ---- Texts ----------------------------------------------------------------------------------------------------------

bool isSameName(std::string_view one, std::string_view other) {
  return std::ranges::equal(one, other, {}, platform::lowerLetter, platform::lowerLetter);
}

// The text before the first `separator`, trimmed, which is removed from `rest` together with the separator.
std::string_view takePart(std::string_view& rest, char separator) {
  const std::size_t end = std::min(rest.find(separator), rest.size());
  const std::string_view part = platform::trimmed(rest.substr(0, end));
  rest.remove_prefix(std::min(end + 1, rest.size()));
  return part;
}

// A number too large for the type becomes its largest or smallest one.
std::optional<std::int64_t> numberIn(std::string_view text, int base = 10) {
  std::int64_t number = 0;
  const char* const textEnd = text.data() + text.size();
  const auto [end, error] = std::from_chars(text.data(), textEnd, number, base);
  if (text.empty() || end != textEnd || error == std::errc::invalid_argument) return std::nullopt;
  using Limits = std::numeric_limits<std::int64_t>;
  if (error == std::errc::result_out_of_range) return text.front() == '-' ? Limits::min() : Limits::max();
  return number;
}

// The hexadecimal number of a colour: "#RRGGBB", "&HBBGGRR&" or "0xBBGGRR".
std::optional<std::int64_t> colorNumberIn(std::string_view text) {
  if (text.starts_with('#')) {
    const auto number = numberIn(text.substr(1), 16);
    if (!number || text.size() != 7 || *number < 0) return std::nullopt;
    return (*number & 0xFF) << 16 | (*number & 0xFF00) | *number >> 16;
  }
  const std::string_view prefix = text.substr(0, 2);
  if (!isSameName(prefix, "&H") && !isSameName(prefix, "0x")) return std::nullopt;
  text.remove_prefix(2);
  if (text.ends_with('&')) text.remove_suffix(1);
  return numberIn(text, 16);
}

// ---- Values: from a text, which changes nothing when it cannot be read, and to a text ------------------------------

void read(std::string_view text, bool& value) {
  if (const auto truth = platform::booleanOf(std::string(text))) value = *truth;
}

void read(std::string_view text, std::string& value) {
  if (text.size() > 1 && text.starts_with('"') && text.ends_with('"')) text = text.substr(1, text.size() - 2);
  value = text;
}

void read(std::string_view text, int& value, Range range) {
  if (const auto number = numberIn(text))
    value = static_cast<int>(std::clamp<std::int64_t>(*number, range.least, range.most));
}

void read(std::string_view text, int& value, PointerNumbers) {
  const auto number = numberIn(text);
  if (!number) return;
  const bool isOwn = *number >= ButtonLook::kOwnPointer;
  value = isOwn ? ButtonLook::kOwnPointer
                : static_cast<int>(std::clamp<std::int64_t>(*number, 0, ButtonLook::kLastPointer));
}

void read(std::string_view text, Color& value) {
  const auto number = colorNumberIn(text);
  if (!number) return;
  const auto limited = static_cast<std::uint32_t>(std::clamp<std::int64_t>(*number, 0, 0xFFFFFFFF));
  const bool isSystem = limited >= Color::kSystem;
  value.value = isSystem ? std::min(limited, Color::kSystem | kLastSystemColor) : std::min(limited, kWhite);
}

void read(std::string_view text, TextFont& value) {
  value = {};
  while (!text.empty()) {
    const std::string_view part = takePart(text, ',');
    if (isSameName(part, "bold")) {
      value.bold = true;
    } else if (isSameName(part, "italic")) {
      value.italic = true;
    } else if (isSameName(part, "underline")) {
      value.underline = true;
    } else if (numberIn(part)) {
      read(part, value.points, kPoints);
    } else {
      value.name = part.substr(0, kLongestFontName);
    }
  }
}

template <typename Choice, std::size_t N>
void read(std::string_view text, Choice& value, const Names<N>& names) {
  const auto found = std::ranges::find_if(names, [text](const char* name) { return isSameName(name, text); });
  int number = static_cast<int>(found == names.end() ? static_cast<std::ptrdiff_t>(value) : found - names.begin());
  read(text, number, Range{0, N - 1});
  value = static_cast<Choice>(number);
}

std::string textOf(bool value) { return platform::textOf(value); }

// In quotes when reading would remove something otherwise.
std::string textOf(std::string value) {
  std::ranges::replace_if(
      value, [](unsigned char letter) { return letter < ' '; }, ' ');
  const bool isQuoted = value != platform::trimmed(value) || value.starts_with('"');
  return isQuoted ? '"' + value + '"' : value;
}

template <typename Rule>
std::string textOf(int value, const Rule&) {
  return std::to_string(value);
}

std::string textOf(Color color) {
  const unsigned value = color.value;
  std::array<char, 16> text{};
  if (value >= Color::kSystem) {
    std::snprintf(text.data(), text.size(), "&H%08X&", value);
  } else {
    std::snprintf(text.data(), text.size(), "#%02X%02X%02X", value & 0xFF, value >> 8 & 0xFF, value >> 16);
  }
  return text.data();
}

std::string textOf(const TextFont& font) {
  std::string text = font.name;
  const auto append = [&text](const std::string& part) { text += text.empty() ? part : ", " + part; };
  if (font.points != 0) append(std::to_string(font.points));
  if (font.bold) append("bold");
  if (font.italic) append("italic");
  if (font.underline) append("underline");
  return text;
}

template <typename Choice, std::size_t N>
std::string textOf(Choice value, const Names<N>& names) {
  return std::span<const char* const>(names)[static_cast<std::size_t>(value)];
}

// ---- Measures -------------------------------------------------------------------------------------------------------

// Dialog units.
constexpr int kPaddingX = 4;
constexpr int kPaddingY = 1;
constexpr int kLeastHeight = 13;
constexpr int kGap = 3;  // between picture, caption and mark

// Pixels at 96 dots per inch.
constexpr Size kMark = {7, 10};

struct Insets {
  int x;
  int y;
};

Insets insetsOf(const ButtonLook& look, const Metrics& metrics) {
  const int bevel = look.BEVEL == ButtonLook::Bevel::kNone ? 0 : metrics.pixels(look.BEVELDEPTH);
  return {metrics.pixelsX(kPaddingX) + bevel, metrics.pixelsY(kPaddingY) + bevel};
}

Size pictureSize(const ButtonLook& look, const Metrics& metrics) {
  if (look.Picture.empty()) return {};
  const bool isCustom = look.PictureSize == ButtonLook::Sizing::kCustom;
  return {metrics.pixels(isCustom ? look.PictureWidth : look.OriginalPicSizeW),
          metrics.pixels(isCustom ? look.PictureHeight : look.OriginalPicSizeH)};
}

// The width that the mark takes from the rest.
int markRoom(const ButtonLook& look, const Metrics& metrics) {
  return look.Mark ? metrics.pixels(kMark.width) + metrics.pixelsX(kGap) : 0;
}

bool isBeside(const ButtonLook& look) {
  return look.PicturePosition == ButtonLook::Place::kLeft || look.PicturePosition == ButtonLook::Place::kRight;
}

bool isAboveOrBelow(const ButtonLook& look) {
  return look.PicturePosition == ButtonLook::Place::kTop || look.PicturePosition == ButtonLook::Place::kBottom;
}

// Of picture and caption together.
Size blockSize(const ButtonLook& look, Size picture, Size caption, const Metrics& metrics) {
  const bool hasBoth = picture.width > 0 && caption.width > 0;
  Size block = {std::max(picture.width, caption.width), std::max(picture.height, caption.height)};
  if (isBeside(look)) block.width = picture.width + caption.width + (hasBoth ? metrics.pixelsX(kGap) : 0);
  if (isAboveOrBelow(look) && hasBoth) block.height = picture.height + caption.height + metrics.pixelsY(kPaddingY);
  return block;
}

// The start of `length` in a range of `room`, by the side that a part is on: -1 the start, 0 the middle, 1 the end.
int placed(int length, int room, int side) { return (room - length) * (side + 1) / 2; }

int sideAcross(ButtonLook::Place place) {
  return place == ButtonLook::Place::kLeft ? -1 : place == ButtonLook::Place::kRight ? 1 : 0;
}

int sideDown(ButtonLook::Place place) {
  return place == ButtonLook::Place::kTop ? -1 : place == ButtonLook::Place::kBottom ? 1 : 0;
}

}  // namespace

ButtonLook ButtonLook::inSystemColors() const {
  const ButtonLook standard;
  ButtonLook look = *this;
  look.BackColor = standard.BackColor;
  look.ForeColor = standard.ForeColor;
  look.XPDefaultColors = true;
  return look;
}

void setProperty(ButtonLook& look, std::string_view name, std::string_view value) {
  forEachProperty([&](const char* property, auto member, const auto&... rule) {
    if (isSameName(property, name)) read(platform::trimmed(value), look.*member, rule...);
  });
}

std::string written(const ButtonLook& look) {
  const ButtonLook standard;
  std::string text;
  forEachProperty([&](const char* property, auto member, const auto&... rule) {
    if (look.*member != standard.*member) text += property + ('=' + textOf(look.*member, rule...) + "\r\n");
  });
  return text;
}

ButtonLooks::ButtonLooks(std::string text) : text_(std::move(text)) {
  std::ranges::replace(text_, '\r', ' ');
  for (std::string_view rest = text_; !rest.empty();) {
    std::string_view line = takePart(rest, '\n');
    if (line.starts_with('[') && line.ends_with(']')) {
      sections_.push_back({platform::trimmed(line.substr(1, line.size() - 2))});
    } else if (!sections_.empty() && !line.starts_with(';') && line.contains('=')) {
      const std::string_view name = takePart(line, '=');
      sections_.back().properties.emplace_back(name, line);
    }
  }
}

ButtonLook ButtonLooks::of(const std::string& form, const std::string& button) const {
  ButtonLook look;
  apply("default", look);
  apply(form, look);
  apply(form + '.' + button, look);
  return look;
}

void ButtonLooks::apply(std::string_view section, ButtonLook& look) const {
  for (const Section& one : sections_) {
    if (!isSameName(one.name, section)) continue;
    for (const auto& [name, value] : one.properties) setProperty(look, name, value);
  }
}

Size leastButtonSize(const ButtonLook& look, Size caption, const Metrics& metrics) {
  const Size block = blockSize(look, pictureSize(look, metrics), caption, metrics);
  const Insets insets = insetsOf(look, metrics);
  return {block.width + markRoom(look, metrics) + 2 * insets.x,
          std::max(block.height + 2 * insets.y, metrics.pixelsY(kLeastHeight))};
}

ButtonParts arrangeButton(const ButtonLook& look, Size caption, Size button, const Metrics& metrics) {
  const Insets insets = insetsOf(look, metrics);
  const int width = std::max(button.width - 2 * insets.x - markRoom(look, metrics), 0);
  const Size picture = pictureSize(look, metrics);
  Size block = blockSize(look, picture, caption, metrics);
  const int cut = std::clamp(block.width - width, 0, caption.width);
  caption.width -= isBeside(look) ? cut : std::max(caption.width - width, 0);
  block.width = std::min(block.width, std::max(width, picture.width));

  const int x = insets.x + placed(block.width, width, static_cast<int>(look.Alignment) - 1);
  const int y = placed(block.height, button.height, 0);
  const int across = sideAcross(look.PicturePosition);
  const int down = sideDown(look.PicturePosition);
  const auto put = [&](Size part, int direction) {
    return Rect{x + placed(part.width, block.width, direction * across),
                y + placed(part.height, block.height, direction * down), part.width, part.height};
  };
  ButtonParts parts = {put(picture, 1), put(caption, -1), {}};
  if (look.Mark) {
    const Size mark = {metrics.pixels(kMark.width), metrics.pixels(kMark.height)};
    parts.mark = {button.width - insets.x - mark.width, placed(mark.height, button.height, 0), mark.width, mark.height};
  }
  return parts;
}

}  // namespace controls
