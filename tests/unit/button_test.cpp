// The looks of buttons: their text, where their parts are, and what a button does by its look.
#include <algorithm>
#include <random>
#include <utility>

#include "controls/ButtonLook.h"
#include "tests/unit/UnitTest.h"

namespace {

using controls::ButtonLook;
using controls::Rect;
using controls::Size;

class Buttons : public UnitTest {
 protected:
  int below(int end) { return static_cast<int>(random_() % static_cast<unsigned>(end)); }
  bool coin() { return below(2) != 0; }

  std::string text() {
    std::string result(static_cast<std::size_t>(below(8)), '\0');
    for (char& letter : result) letter = " \"[];=#&aZ\\%\xE4"[below(13)];
    return result;
  }

  controls::Color color() {
    const auto value = coin() ? controls::Color::kSystem | random_() % 31 : random_() & 0xFFFFFF;
    return {static_cast<std::uint32_t>(value)};
  }

  int side() { return 1 + below(256); }

  ButtonLook look() {
    const char* const fonts[] = {"", "Tahoma", "MS Sans Serif"};
    ButtonLook look;
    for (auto member : {&ButtonLook::BackColor, &ButtonLook::ForeColor, &ButtonLook::XPColor_Pressed,
                        &ButtonLook::XPColor_Hover, &ButtonLook::MaskColor}) {
      look.*member = color();
    }
    for (auto member : {&ButtonLook::ShowFocusRect, &ButtonLook::Enabled, &ButtonLook::XPDefaultColors,
                        &ButtonLook::SoundOver, &ButtonLook::SoundClick, &ButtonLook::DefCurHand,
                        &ButtonLook::XPShowBorderAlways, &ButtonLook::TransparentBG, &ButtonLook::Mark}) {
      look.*member = coin();
    }
    for (auto member : {&ButtonLook::Caption, &ButtonLook::Picture, &ButtonLook::PictureHover, &ButtonLook::MouseIcon,
                        &ButtonLook::URL}) {
      look.*member = text();
    }
    for (auto member : {&ButtonLook::PictureWidth, &ButtonLook::PictureHeight, &ButtonLook::OriginalPicSizeW,
                        &ButtonLook::OriginalPicSizeH}) {
      look.*member = side();
    }
    look.PicturePosition = static_cast<ButtonLook::Place>(below(5));
    look.ButtonStyle = static_cast<ButtonLook::Style>(below(2));
    look.PictureSize = static_cast<ButtonLook::Sizing>(below(2));
    look.Font = {fonts[below(3)], coin() ? 4 + below(69) : 0, coin(), coin(), coin()};
    look.MousePointer = coin() ? ButtonLook::kOwnPointer : below(ButtonLook::kLastPointer + 1);
    look.BEVEL = static_cast<ButtonLook::Bevel>(below(3));
    look.BEVELDEPTH = 1 + below(8);
    look.Alignment = static_cast<ButtonLook::Align>(below(3));
    return look;
  }

  std::minstd_rand random_{20040305};
};

TEST_F(Buttons, ALookIsReadAsItWasWritten) {
  EXPECT_EQ(written(ButtonLook()), "");
  for (int run = 0; run < 2000; ++run) {
    const ButtonLook before = look();
    const std::string text = written(before);
    const ButtonLook after = controls::ButtonLooks("[default]\r\n" + text).of("any", "any");
    ASSERT_EQ(after, before) << text << "\nread as\n" << written(after);
  }
}

// What is written after the property has been read: the value taken, or nothing when it is the default.
TEST_F(Buttons, ValuesOutOfRangeAreLimitedAndUnreadableOnesIgnored) {
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"PictureWidth", "0", "1"},
      {"picturewidth", " 257 ", "256"},
      {"PictureWidth", "99999999999999999999", "256"},
      {"PictureWidth", "12x", ""},
      {"BEVELDEPTH", "9", "8"},
      {"MousePointer", "-1", ""},
      {"MousePointer", "98", "15"},
      {"PicturePosition", "5", "center"},
      {"Enabled", "no", ""},
      {"Enabled", "false", "False"},
      {"BackColor", "&H010203&", "#030201"},
      {"BackColor", "0x1000000", "#FFFFFF"},
      {"BackColor", "0x80000005", "&H80000005&"},
      {"BackColor", "&HFFFFFFFFFFFFFFFFFF&", "&H8000001E&"},
      {"BackColor", "&H-1&", "#000000"},
      {"BackColor", "#-10203", ""},
      {"BackColor", "red", ""},
      {"Font", " Tahoma ,BOLD, 3,", "Tahoma, 4, bold"},
      {"Font", "italic,73, underline", "72, italic, underline"},
      {"Caption", "\"", "\"\"\""},
      {"Picture", "a\tb\nc", "a b c"},
      {"NoSuchName", "1", ""},
  };
  for (const auto& [name, value, expected] : cases) {
    ButtonLook look;
    setProperty(look, name, value);
    const std::string text = written(look);
    const std::size_t start = text.find('=');
    EXPECT_EQ(start == std::string::npos ? "" : text.substr(start + 1, text.size() - start - 3), expected)
        << name << '=' << value;
  }
}

TEST_F(Buttons, AButtonsOwnSectionOverridesThoseOfItsFormAndOfAllButtons) {
  const controls::ButtonLooks looks(
      "URL=a\n; [frmFind]\n[FRMFIND.cmdzero]\r\nBEVELDEPTH=4\r\n;Mark=1\n[frmFind]\nBEVELDEPTH=3\nPictureWidth=3\n"
      "nonsense\n[default]\nBEVELDEPTH=2\nPictureWidth=2\nPictureHeight = 2\n[frmFind.cmdZero]\nURL=b=c;d");
  EXPECT_EQ(written(looks.of("frmFind", "cmdZero")),
            "PictureWidth=3\r\nPictureHeight=2\r\nURL=b=c;d\r\nBEVELDEPTH=4\r\n");
  EXPECT_EQ(written(looks.of("frmFind", "Scan")), "PictureWidth=3\r\nPictureHeight=2\r\nBEVELDEPTH=3\r\n");
  EXPECT_EQ(written(looks.of("frmMain", "cmdZero")), "PictureWidth=2\r\nPictureHeight=2\r\nBEVELDEPTH=2\r\n");
}

// Text of any size, at two scales.
struct Screen final : controls::Metrics {
  explicit Screen(int its) : percent(its) {}
  int pixelsX(int units) const override { return units * 6 * percent / 400; }
  int pixelsY(int units) const override { return units * 13 * percent / 800; }
  int pixels(int at96) const override { return at96 * percent / 100; }
  int textWidth(const std::string& text) const override { return static_cast<int>(text.size()) * pixelsX(4); }

  int percent;
};

bool isInside(const Rect& part, Size button) {
  return part.x >= 0 && part.y >= 0 && part.right() <= button.width && part.bottom() <= button.height;
}

bool overlap(const Rect& one, const Rect& other) {
  return one.x < other.right() && other.x < one.right() && one.y < other.bottom() && other.y < one.bottom();
}

TEST_F(Buttons, PartsFitIntoTheLeastSizeSideBySideInTheirPlaces) {
  for (int run = 0; run < 4000; ++run) {
    const Screen screen(coin() ? 100 : 250);
    const ButtonLook look = this->look();
    const Size caption = {below(3) * below(200), 13};
    Size size = leastButtonSize(look, caption, screen);
    size.width += coin() ? below(100) : 0;
    size.height += coin() ? below(100) : 0;
    const auto [picture, text, mark] = arrangeButton(look, caption, size, screen);
    SCOPED_TRACE(written(look));

    ASSERT_TRUE(isInside(picture, size) && isInside(text, size) && isInside(mark, size));
    ASSERT_EQ(text.width, caption.width);
    ASSERT_EQ(mark.width > 0, look.Mark);
    ASSERT_FALSE(overlap(mark, text) || overlap(mark, picture));
    ASSERT_EQ(picture.width > 0, !look.Picture.empty());
    if (picture.width == 0 || text.width == 0) continue;
    const bool inPlace[] = {
        picture.right() < text.x, text.right() < picture.x, picture.bottom() < text.y, text.bottom() < picture.y,
        overlap(picture, text) && std::abs(picture.x + picture.right() - text.x - text.right()) < 3};
    ASSERT_TRUE(inPlace[static_cast<int>(look.PicturePosition)]);
  }
}

TEST_F(Buttons, ATooSmallButtonCutsItsCaptionAndAlignmentMovesBothParts) {
  const Screen screen(100);
  const Size caption = {100, 13};
  const Size least = leastButtonSize({}, caption, screen);
  EXPECT_EQ(arrangeButton({}, caption, {least.width - 30, least.height}, screen).caption.width, 70);
  EXPECT_EQ(arrangeButton({}, caption, {0, 0}, screen).caption.width, 0);
  int last = -1;
  for (const int align : {0, 1, 2}) {
    ButtonLook look;
    look.Picture = "icon:a";
    look.Alignment = static_cast<ButtonLook::Align>(align);
    const auto parts = arrangeButton(look, caption, {300, 23}, screen);
    EXPECT_EQ(parts.picture.right() + screen.pixelsX(3), parts.caption.x);
    EXPECT_GT(parts.picture.x, std::exchange(last, parts.picture.x));
  }
}

struct TwoButtons final : controls::Form {
  TwoButtons() : Form("frmTwo", "Two buttons") {}
  controls::FlatButton plain{*this, "plain", {.caption = "Own"}};
  controls::FlatButton rich{*this, "rich", {}};
  controls::Box layout() override { return controls::row({place(plain), place(rich)}); }
  void formLoad() override { plain.enable(); }
};

TEST_F(Buttons, TheCodesCaptionAndStateWinAndAClickPlaysOpensAndThenActs) {
  machine.environment().setResourceText(
      "BUTTONS",
      "[frmTwo]\nCaption=Look\nEnabled=0\n[frmTwo.rich]\nSoundOver=1\nSoundClick=1\nURL=http://a.example/\n");
  TwoButtons form;
  form.load();
  EXPECT_EQ(form.plain.caption() + form.rich.caption(), "OwnLook");
  EXPECT_TRUE(form.plain.enabled() && !form.rich.enabled());

  std::string opened;
  form.rich.onClick = [&] {
    opened += '.';
    for (const auto& command : machine.shell().commands()) opened += command.verb.value_or("") + ' ' + command.file;
  };
  for (controls::FlatButton* button : {&form.plain, &form.rich, &form.rich}) {
    EXPECT_TRUE(machine.ui().sounds().empty() && machine.shell().commands().empty() && opened.empty());
    button->pointerEnters();
    button->click();
    if (button == &form.rich) form.rich.enable();
  }
  EXPECT_EQ(opened, ".open http://a.example/");
  EXPECT_EQ(machine.ui().sounds(), Paths({"C:\\Program Files\\Scrubhaven\\resources\\over.wav",
                                          "C:\\Program Files\\Scrubhaven\\resources\\click.wav"}));
}

}  // namespace
