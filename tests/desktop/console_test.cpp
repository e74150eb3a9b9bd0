// The console window: the layout at three sizes, the keyboard, and a start on an old Windows.
#include "tests/desktop/ConsoleTest.h"

namespace desktop {
namespace {

bool contains(const RECT& outer, const RECT& inner) {
  RECT common;
  return IntersectRect(&common, &outer, &inner) && EqualRect(&common, &inner);
}

// Every visible control is inside the window and overlaps no other; a frame may contain others.
void expectSoundLayout(const Window& window) {
  RECT inside = {};
  GetClientRect(window.handle(), &inside);
  MapWindowPoints(window.handle(), nullptr, reinterpret_cast<POINT*>(&inside), 2);
  std::vector<RECT> others;
  for (const Control& control : window.controls()) {
    if (!control.visible()) continue;
    const RECT at = control.place();
    EXPECT_TRUE(contains(inside, at)) << control.text() << " leaves the window";
    for (const RECT& its : others) {
      RECT common;
      EXPECT_TRUE(contains(at, its) || contains(its, at) || !IntersectRect(&common, &at, &its))
          << control.text() << " overlaps another";
    }
    others.push_back(at);
  }
}

TEST_F(ConsoleTest, CanBeReadAtAnySize) {
  ASSERT_GE(GetSystemMetrics(SM_CXSCREEN), 1600) << "a window cannot grow beyond its screen: see SCRUBHAVEN_SCREEN";
  const Window window = console();
  RECT before = {};
  for (const SIZE size : {SIZE{1, 1}, SIZE{800, 600}, SIZE{1600, 1200}}) {
    SetWindowPos(window.handle(), nullptr, 0, 0, size.cx, size.cy, SWP_NOZORDER | SWP_NOACTIVATE);
    const RECT whole = window.place();
    SCOPED_TRACE(std::to_string(whole.right) + " by " + std::to_string(whole.bottom));
    EXPECT_TRUE(size.cx == 1 ? whole.right <= 640 && whole.bottom <= 448
                             : whole.right == size.cx && whole.bottom == size.cy);
    expectSoundLayout(window);
    const RECT now = junk().place();
    EXPECT_GE(now.right - now.left, before.right - before.left);
    EXPECT_GE(now.bottom - now.top, before.bottom - before.top);
    before = now;
    takeScreenshot("console-" + std::to_string(whole.right));
  }
  EXPECT_GT(before.right - before.left, 1000) << "the list has not grown with the window";
  use("Close");
  waitForEnd();
}

// The message that Windows sends when the window comes to a screen of another resolution. Wine has one for all.
TEST_F(ConsoleTest, FollowsTheResolutionOfItsScreen) {
  const Window window = console();
  const auto heightOf = [](const RECT& place) { return place.bottom - place.top; };
  const auto heights = [&] {
    std::vector<LONG> all;
    for (const Control& control : window.controls()) all.push_back(control.visible() ? heightOf(control.place()) : 0);
    return all;
  };
  const RECT small = window.place();
  const std::vector<LONG> before = heights();
  const RECT large = {0, 0, (small.right - small.left) * 3 / 2, heightOf(small) * 3 / 2};
  window.changeDpi(144, large);
  const RECT now = window.place();
  EXPECT_TRUE(EqualRect(&large, &now));
  const std::vector<LONG> after = heights();
  for (std::size_t i = 0; i < before.size(); ++i) {
    EXPECT_GE(after[i] * 10, before[i] * 13) << window.controls()[i].text();
  }
  takeScreenshot("console-144dpi");
  window.changeDpi(96, small);
  EXPECT_EQ(heights(), before);
}

TEST_F(ConsoleTest, CanBeUsedByAccessKeys) {
  const Window window = console();
  // Access keys reach buttons from anywhere, and Space ticks the box that has the keyboard.
  pressKey('X', VK_MENU);
  const Window choose = this->window("Custom File Extensions");
  EXPECT_FALSE(window.enabled());
  expectSoundLayout(choose);
  pressKey(VK_ESCAPE);
  waitForConsole();
  const Control box = window.control(".bak");
  box.flip();
  pressKey(VK_SPACE);
  waitUntil("the tick to go", [&box] { return !box.ticked(); });

  // The viewer is another program, which the shell opens.
  use("Help");
  closeHelp();
  window.control(".bak").flip();
  pressKey(VK_F4, VK_MENU);
  waitForEnd();
}

TEST(OldWindows, TheProgramStartsAndRefusesWhatIsNotThere) {
  const std::string wine = "HKCU\\Software\\Wine";
  setText(wine, "Version", "win98");
  const Program program;
  setText(wine, "Version", "winxp");
  for (const char* button : {"Clear Swap File", "System Restore"}) {
    program.use(button, {{"Windows NT/2000/XP Only"}});
    program.waitForConsole();
  }
}

}  // namespace
}  // namespace desktop
