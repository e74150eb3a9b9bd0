// The console window: the layout at three sizes, the keyboard, and a start on an old Windows.
#include <algorithm>
#include <array>

#include "tests/desktop/ConsoleTest.h"

namespace desktop {
namespace {

// In the font of the program's windows, which is the user's message font.
SIZE textSize(const std::string& text) {
  NONCLIENTMETRICSA settings = {};
  settings.cbSize = sizeof(settings);
  SystemParametersInfoA(SPI_GETNONCLIENTMETRICS, sizeof(settings), &settings, 0);
  const HFONT font = CreateFontIndirectA(&settings.lfMessageFont);
  const HDC screen = CreateCompatibleDC(nullptr);
  SelectObject(screen, font);
  SIZE size = {};
  GetTextExtentPoint32A(screen, text.data(), static_cast<int>(text.size()), &size);
  DeleteDC(screen);
  DeleteObject(font);
  return size;
}

bool contains(const RECT& outer, const RECT& inner) {
  RECT common;
  return IntersectRect(&common, &outer, &inner) && EqualRect(&common, &inner);
}

// Whether the control is of the class "Button" and of this type (BS_GROUPBOX ...).
bool isButton(const Control& control, LONG type) {
  std::array<char, 16> name{};
  GetClassNameA(control.handle(), name.data(), name.size());
  return name.data() == std::string("Button") && (GetWindowLongA(control.handle(), GWL_STYLE) & BS_TYPEMASK) == type;
}

// Every visible control is inside the window, shows its whole text, and overlaps no other; a frame may contain others.
void expectSoundLayout(const Window& window) {
  RECT inside = {};
  GetClientRect(window.handle(), &inside);
  MapWindowPoints(window.handle(), nullptr, reinterpret_cast<POINT*>(&inside), 2);
  std::vector<Control> controls = window.controls();
  std::erase_if(controls, [](const Control& control) { return !control.visible(); });
  for (auto one = controls.begin(); one != controls.end(); ++one) {
    const RECT at = one->place();
    EXPECT_TRUE(contains(inside, at)) << one->text() << " leaves the window";
    const SIZE needed = textSize(one->text());
    const bool isMarked = isButton(*one, BS_CHECKBOX) || isButton(*one, BS_GROUPBOX);
    const int lines = std::max(1, static_cast<int>((at.bottom - at.top) / std::max(1L, needed.cy)));
    EXPECT_LE(needed.cx, lines * (at.right - at.left - (isMarked ? GetSystemMetrics(SM_CXMENUCHECK) : 0)))
        << one->text();
    EXPECT_LE(needed.cy, at.bottom - at.top) << one->text();
    for (auto other = one + 1; other != controls.end(); ++other) {
      const RECT its = other->place();
      RECT common;
      const bool frames =
          (isButton(*one, BS_GROUPBOX) && contains(at, its)) || (isButton(*other, BS_GROUPBOX) && contains(its, at));
      EXPECT_TRUE(frames || !IntersectRect(&common, &at, &its))
          << one->text() << " and " << other->text() << " overlap";
    }
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

// Tab goes from the folder to the scan and its results, then through the tools, the file types and the drive.
TEST_F(ConsoleTest, CanBeUsedByTheKeyboardAlone) {
  const Window window = console();
  Texts visited;
  const Control first = window.focused();
  do {
    const Control now = window.focused();
    visited.push_back(now.text());
    pressKey(VK_TAB);
    waitUntil("Tab to leave \"" + visited.back() + "\"", [&] { return window.focused() != now; });
  } while (window.focused() != first && visited.size() < 100);
  std::string order;
  for (const std::string& text : visited) order += text + ", ";
  EXPECT_EQ(order,
            "Dir1, Picture1, Scan, ListView1, Select All, Invert, Delete, Abort, "
            "Find 0 Byte Files, Shredder, Delete Temps, Empty Recycle Bin, IE Cache/Cookies, Clear IE History, "
            "Clear Recent Docs, Clear Typed URLs, Clean MRU Lists, Wipe Index Files, Clear Prefetch, Clear Swap File, "
            "System Restore, Help, Close, .wbk, .bak, .gid, .tmp, ~*.*, .temp, ._mp, .dir, .---, .syd, .nav, .old, "
            ".mtx, .cpy, .db$, .db, .prv, .chk, .nu3, .err, Select All, Invert, Custom Ext., , ");

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
  HWND help = nullptr;
  waitUntil(
      "the help window", [&help] { return (help = FindWindowA("HH Parent", nullptr)) != nullptr; }, 20000);
  EXPECT_TRUE(!showsBox() && window.enabled());
  PostMessageA(help, WM_CLOSE, 0, 0);
  waitUntil("the help window to close", [help] { return IsWindow(help) == FALSE; });
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
