// Every window at every size, resolution and font: nothing overlaps, nothing is cut, and everything can be reached.
#include <algorithm>
#include <set>

#include "tests/unit/ConsoleTest.h"

using controls::Control;
using controls::Kind;
using controls::Rect;
using controls::Size;

namespace {

// A font of the user's settings: the dots per inch, the height of a line in pixels, and the widths of the characters
// from the blank on, as digits that go on behind "9" in the order of ASCII.
struct Font {
  const char* name;
  int dotsPerInch;
  int height;
  const char* widths;
};

// As measured under Wine; the second font has no glyphs for 192 dots per inch and is drawn there in double size.
constexpr Font kFonts[] = {
    {"Tahoma", 96, 13,
     R"(33586<83447934346666666666348885:7777667845769886876777:677444866766774773363976674547585565559)"},
    {"Tahoma", 120, 17,
     R"(456:8>:3558:4655888888888855:::6=889:87:96687:9;8;89898=889556:88887885883473;898857687:777757;)"},
    {"Tahoma", 144, 21,
     R"(567<:A<4769<5656999999999966===8?::;;99<;78:8=;=9=::;;:?:::667<:9::9::6::4584>::9:797:8=889878<)"},
    {"Tahoma", 192, 27,
     R"(779A<E?588<A7868<<<<<<<<<<87@@@;D=>>?=<?@89=<B?@=@>=>?=D=<=989@<<<<;==8=<57;5B;=<=8;9<;@;;;:8;@)"},
    {"MS Sans Serif", 96, 13,
     R"(33576862334633356666666666336666;7778768835769887887787;777353663666663662262866663536685554247)"},
    {"MS Sans Serif", 120, 16,
     R"(33577<93445734347777777777337777>999:98::3787;::9::99:9=898444774887883873373;78884737796765359)"},
    {"MS Sans Serif", 144, 20,
     R"(44699>;3556945449999999999449999@;;;<;:=<58:9=;<:<<;9<;?;;:444795998995993383=999958597;7785559)"},
    {"MS Sans Serif", 192, 26,
     R"(66:><@<4668<666:<<<<<<<<<<66<<<<F>>>@><@@6:><B@@>@@>>@>F>>>6:6<<6<<<<<6<<44<4@<<<<6:6<<@:::848>)"},
};

struct FontMetrics : controls::Metrics {
  explicit FontMetrics(const Font& its) : font(its) {}
  int pixelsX(int units) const override { return (units * lettersWidth + 104) / 208; }
  int pixelsY(int units) const override { return (units * font.height + 4) / 8; }
  int textWidth(const std::string& text) const override {
    int sum = 0;
    for (const char letter : text) sum += font.widths[letter - ' '] - '0';
    return sum;
  }
  int pixels(int at96) const override { return at96 * font.dotsPerInch / 96; }

  const Font& font;
  int lettersWidth = textWidth("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
};

constexpr Size kScreens[] = {{640, 480}, {800, 600}, {1024, 768}, {1920, 1080}, {3840, 2160}};
// At 96 dots per inch.
constexpr Size kWindowFrame = {8, 27};
constexpr int kScrollBar = 17;
constexpr int kPicture = 16;
constexpr int kSpacing = 4;  // the least around a text in a button

bool isList(const Control& control) { return control.kind() == Kind::kListView; }

bool isAround(const Control* frame, const Control* control) {
  for (const Control* outer = control->frame(); outer != nullptr; outer = outer->frame()) {
    if (outer == frame) return true;
  }
  return false;
}

// One window at one size.
class Look {
 public:
  Look(controls::Form& form, const FontMetrics& metrics, Size screen) : metrics_(metrics) {
    const controls::Box box = form.layout();
    const Size least = controls::leastSize(box, metrics);
    view_ = {screen.width - metrics.pixels(kWindowFrame.width), screen.height - metrics.pixels(kWindowFrame.height)};
    if (form.statusBar() != nullptr) view_.height -= controls::statusBarHeight(metrics);
    const int bar = metrics.pixels(kScrollBar);
    const controls::ScrollBars bars = controls::scrollBarsFor(least, view_, {bar, bar});
    if (bars.vertical) view_.width -= bar;
    if (bars.horizontal) view_.height -= bar;
    check(bars.horizontal || least.width <= view_.width, form.caption(), "lacks a horizontal scroll bar");
    check(bars.vertical || least.height <= view_.height, form.caption(), "lacks a vertical scroll bar");
    content_ = {std::max(view_.width, least.width), std::max(view_.height, least.height)};
    places_ = controls::arrange(box, metrics, view_);
  }

  const Rect& at(const Control& control) const { return places_.at(&control); }
  Size content() const { return content_; }

  // What is wrong with it, a line for each fault.
  Paths faults() {
    std::vector<std::pair<const Control*, Rect>> shown;
    for (const auto& [control, place] : places_) {
      if (control->shown()) shown.emplace_back(control, place);
    }
    for (auto one = shown.begin(); one != shown.end(); ++one) {
      checkWhole(*one->first, one->second);
      checkReachable(*one->first, one->second);
      for (auto other = shown.begin(); other != one; ++other) {
        check(apart(one->second, other->second) || mayOverlap(*one->first, *other->first), one->first->name(),
              ("overlaps " + other->first->name()).c_str());
      }
    }
    return std::move(faults_);
  }

 private:
  void check(bool holds, const std::string& name, const char* fault) {
    if (!holds) faults_.push_back(name + ' ' + fault);
  }

  static bool apart(const Rect& a, const Rect& b) {
    return a.right() <= b.x || b.right() <= a.x || a.bottom() <= b.y || b.bottom() <= a.y;
  }

  // A list covers those behind it, and the filled part of a progress bar its track.
  static bool mayOverlap(const Control& a, const Control& b) {
    const auto isBar = [](const Control& one) { return one.name() == "lblBlue" || one.name() == "lblGrey"; };
    return isAround(&a, &b) || isAround(&b, &a) || (isList(a) && isList(b)) || (isBar(a) && isBar(b));
  }

  void checkWhole(const Control& control, const Rect& place) {
    int around = 0;
    if (control.kind() == Kind::kButton) around = 2 * kSpacing;
    if (hasPictureBesideText(control)) around += kPicture + kSpacing;
    if (control.kind() == Kind::kCheckBox || control.kind() == Kind::kFrame) around = kPicture;
    const bool isPath = control.name() == "lblFile";  // shortened in its middle
    const int needed = isPath ? metrics_.pixels(200) : metrics_.textWidth(control.caption()) + metrics_.pixels(around);
    const int lines = control.kind() == Kind::kLabel ? std::max(1, place.height / metrics_.font.height) : 1;
    check(place.width * lines >= needed, control.name(), "is too narrow");
    check(place.height >= (isList(control) ? 5 : 1) * metrics_.font.height, control.name(), "is too low");
  }

  static bool hasPictureBesideText(const Control& control) {
    if (control.kind() != Kind::kButton || control.caption().empty()) return false;
    return !static_cast<const controls::FlatButton&>(control).look().Picture.empty();
  }

  // In its frame, in the window, and seen as a whole when it is scrolled to.
  void checkReachable(const Control& control, const Rect& place) {
    const Rect window = {-1, -1, content_.width + 2, content_.height + 2};
    const Rect& around = control.frame() == nullptr ? window : at(*control.frame());
    check(place.x > around.x && place.right() < around.right(), control.name(), "is beside its frame");
    check(place.y > around.y && place.bottom() < around.bottom(), control.name(), "is above or below its frame");
    for (const bool fromEnd : {false, true}) {
      const bool seen = isSeen(content_.width, view_.width, place.x, place.right(), fromEnd) &&
                        isSeen(content_.height, view_.height, place.y, place.bottom(), fromEnd);
      check(seen, control.name(), "is not scrolled into view");
    }
  }

  static bool isSeen(int content, int view, int from, int to, bool fromEnd) {
    controls::Scrolling scrolling = {.content = content, .view = view};
    if (fromEnd) scrolling.scrollTo(content);
    scrolling.reveal(from, to);
    const int end = scrolling.offset + view;
    return scrolling.offset <= from && end >= std::min(to, from + view) && end <= std::max(content, view);
  }

  const FontMetrics& metrics_;
  Size view_;
  Size content_;
  controls::Places places_;
  Paths faults_;
};

class Layout : public ConsoleTest {
 protected:
  // The program's own looks of buttons, with their pictures.
  void SetUp() override {
    machine.environment().setResourceText("BUTTONS", resource("buttons.txt"));
    ConsoleTest::SetUp();
    EXPECT_FALSE(form.cmdZero.look().Picture.empty());
  }

  static void expectSoundAtEverySize(controls::Form& window, const std::string& state) {
    window.prepareToShow();
    for (const Font& font : kFonts) {
      const FontMetrics metrics(font);
      for (const Size screen : kScreens) {
        EXPECT_EQ(Look(window, metrics, screen).faults(), Paths{})
            << state << " in " << font.name << " at " << font.dotsPerInch << " dots per inch on " << screen.width;
      }
    }
  }

  // Each control once in the tree.
  static void expectComplete(controls::Form& window, const Control* unplaced = nullptr) {
    std::multiset<const Control*> expected(window.controls().begin(), window.controls().end());
    expected.erase(unplaced);
    expected.erase(window.statusBar());
    const std::vector<Control*> order = controls::tabOrder(window.layout());
    EXPECT_EQ(std::multiset<const Control*>(order.begin(), order.end()), expected);
  }
};

TEST_F(Layout, OfTheConsoleIsSoundInEveryState) {
  expectComplete(form);
  expectSoundAtEverySize(form, "start");
  addFiles("C:\\J", {"a.tmp", "b.tmp"});
  addFiles("C:\\J", {"empty.txt"}, "");
  machine.urlCache().add({.url = "http://a/", .localFile = "a"});
  machine.whenServing([&] { expectSoundAtEverySize(form, "junk scan"); });
  scan({kTypeTmp}, "C:\\J");
  expectSoundAtEverySize(form, "junk");
  form.Select_All.click();
  expectSoundAtEverySize(form, "all ticked");
  machine.whenServing([&] { expectSoundAtEverySize(form, "zero scan"); });
  press(form.cmdZero);
  expectSoundAtEverySize(form, "zero");
  press(form.Del_Cache);
  expectSoundAtEverySize(form, "cache");
  // No state shows as many commands.
  form.lblStatus.hide();
  for (Control* control : form.controls()) {
    if (!isList(*control) && control != &form.cmdAbort && control != &form.lblStatus) control->show();
  }
  expectSoundAtEverySize(form, "everything");
}

TEST_F(Layout, OfTheOtherWindowsIsSound) {
  OtherWindows others(form);
  for (controls::Form* window : others.all) {
    window->load();
    expectComplete(*window, window == &others.restore ? &others.restore.ListView1 : nullptr);
    expectSoundAtEverySize(*window, window->caption());
  }
}

// Every section of the file is for a button that exists, and every picture is a resource.
TEST_F(Layout, LooksAreOfTheProgramsButtonsAndHaveTheirPictures) {
  const std::string script = machine.environment().upperCase(resource("scrubhaven.rc"));
  ASSERT_TRUE(script.contains("BUTTONS RCDATA"));
  std::set<std::string> known = {"default"};
  const auto check = [&](const controls::Form& window) {
    known.insert(window.name());
    for (const Control* control : window.controls()) {
      if (control->kind() != Kind::kButton) continue;
      known.insert(window.name() + '.' + control->name());
      const controls::ButtonLook& look = static_cast<const controls::FlatButton*>(control)->look();
      EXPECT_EQ(control->accessibleDescription() == "Acts at once", look.Mark) << control->name();
      for (const std::string& picture : {look.Picture, look.PictureHover}) {
        if (!picture.starts_with("icon:")) continue;
        EXPECT_TRUE(script.contains(machine.environment().upperCase("\nicon_" + picture.substr(5) + " icon ")))
            << picture;
      }
    }
  };
  check(form);
  const OtherWindows others(form);
  for (controls::Form* window : others.all) {
    window->load();
    check(*window);
  }
  std::istringstream lines(resource("buttons.txt"));
  for (std::string line; std::getline(lines, line);) {
    EXPECT_TRUE(!line.starts_with('[') || known.contains(line.substr(1, line.size() - 2))) << line;
  }
}

// What is left of 640 by 480 pixels beside a window's frame and the task bar.
TEST_F(Layout, OfTheConsoleFitsTheSmallestScreenAndGivesItsListWhatALargerOneHasMore) {
  form.prepareToShow();
  for (const Font& font : kFonts) {
    const FontMetrics metrics(font);
    const Size least = controls::leastSize(form.layout(), metrics);
    const int height = least.height + controls::statusBarHeight(metrics);
    RecordProperty(std::string(font.name) + std::to_string(font.dotsPerInch),
                   std::to_string(least.width) + "x" + std::to_string(height));
    EXPECT_TRUE(font.dotsPerInch > 96 || (least.width <= 632 && height <= 420)) << least.width << 'x' << height;
    const Look small(form, metrics, {3840, 1});
    const Look large(form, metrics, {3840, 2160});
    EXPECT_EQ(large.at(form.ListView1).height - small.at(form.ListView1).height,
              large.content().height - small.content().height);
    EXPECT_GT(large.at(form.ListView1).width, large.content().width * 3 / 4);
  }
}

}  // namespace
