// The console window: the layout at three sizes, the keyboard, and a start on an old Windows.
#include <algorithm>

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

void expectNotCut(const Control& control) {
  const Kind kind = control.kind();
  const bool isMarked = kind == Kind::kCheckBox || kind == Kind::kFrame;
  if (!isMarked && kind != Kind::kButton && kind != Kind::kLabel) return;
  constexpr int kButtonFrame = 6;
  const int notForText = isMarked ? GetSystemMetrics(SM_CXMENUCHECK) : kind == Kind::kButton ? kButtonFrame : 0;
  const SIZE needed = textSize(control.text());
  const RECT at = control.place();
  const int lines = std::max(1, static_cast<int>((at.bottom - at.top) / needed.cy));
  EXPECT_LE(needed.cx, lines * (at.right - at.left - notForText)) << control.text();
  EXPECT_LE(needed.cy, at.bottom - at.top) << control.text();
}

// Every visible control is inside the window, shows its whole text, and overlaps no other; a frame may contain others.
void expectSoundLayout(const Window& window) {
  std::vector<Control> controls = window.controls();
  std::erase_if(controls, [](const Control& control) { return !control.visible(); });
  for (auto one = controls.begin(); one != controls.end(); ++one) {
    const RECT a = one->place();
    EXPECT_TRUE(contains(window.inside(), a)) << one->text() << " leaves the window";
    expectNotCut(*one);
    for (auto other = one + 1; other != controls.end(); ++other) {
      const RECT b = other->place();
      const bool isNested =
          (one->kind() == Kind::kFrame && contains(a, b)) || (other->kind() == Kind::kFrame && contains(b, a));
      RECT common;
      EXPECT_TRUE(isNested || !IntersectRect(&common, &a, &b)) << one->text() << " and " << other->text() << " overlap";
    }
  }
}

TEST_F(ConsoleTest, CanBeReadAtAnySize) {
  const Window window = console();
  EXPECT_EQ(window.all(Kind::kDriveList).at(0).text().substr(0, 2), "c:");

  ASSERT_GE(GetSystemMetrics(SM_CXSCREEN), 1600) << "a window cannot grow beyond its screen: see SCRUBHAVEN_SCREEN";
  RECT before = {};
  for (const SIZE size : {SIZE{1, 1}, SIZE{800, 600}, SIZE{1600, 1200}}) {
    SetWindowPos(window.handle(), nullptr, 0, 0, size.cx, size.cy, SWP_NOZORDER | SWP_NOACTIVATE);
    const RECT whole = Control(window.handle()).place();
    SCOPED_TRACE(std::to_string(whole.right) + " by " + std::to_string(whole.bottom));
    EXPECT_TRUE(size.cx == 1 ? whole.right <= 800 && whole.bottom <= 600
                             : whole.right == size.cx && whole.bottom == size.cy);
    expectSoundLayout(window);
    const RECT now = junk().place();
    EXPECT_GE(now.right - now.left, before.right - before.left);
    EXPECT_GE(now.bottom - now.top, before.bottom - before.top);
    before = now;
    takeScreenshot("console-" + std::to_string(whole.right));
  }
  EXPECT_GT(before.right - before.left, 1000) << "the list has not grown with the window";
  EXPECT_EQ(window.toolTipOf(window.checkBox(".db")), "Thumbs.db Temporary Folder Content Information Files");
  use("Close");
  waitForEnd();
}

// Tab goes through the tools, then what is chosen before a scan, then its results, and back to the first.
TEST_F(ConsoleTest, CanBeUsedByTheKeyboardAlone) {
  const Window window = console();
  Texts visited;
  const Control first = window.focused();
  do {
    const Control now = window.focused();
    const Kind kind = now.kind();
    const bool isList = kind == Kind::kList || kind == Kind::kLines || kind == Kind::kDriveList;
    visited.push_back(isList ? "(list)" : now.text());
    pressKey(VK_TAB);
    waitUntil("Tab to leave \"" + visited.back() + "\"", [&] { return window.focused() != now; });
  } while (window.focused() != first && visited.size() < 100);
  std::ranges::rotate(visited, std::ranges::find(visited, "Picture1"));
  std::string order;
  for (const std::string& text : visited) order += text + ", ";
  EXPECT_EQ(order,
            "Picture1, Find 0 Byte Files, Shredder, Delete Temps, IE Cache/Cookies, Clear IE History, "
            "Clear Recent Docs, Empty Recycle Bin, Clear Typed URLs, Clean MRU Lists, Wipe Index Files, "
            "Clear Prefetch, Clear Swap File, System Restore, Help, Close, (list), (list), .wbk, .bak, .gid, .tmp, "
            "~*.*, .temp, ._mp, .dir, .---, .syd, .nav, .old, .mtx, .cpy, .db$, .db, .prv, .chk, .nu3, .err, "
            "Custom Ext., Select All, Invert, Scan, (list), Select All, Invert, Delete, Abort, ");

  // Access keys reach buttons from anywhere, and Space ticks the box that has the keyboard.
  pressKey('X', VK_MENU);
  const Window choose = this->window("Custom File Extensions");
  EXPECT_FALSE(window.takesInput());
  expectSoundLayout(choose);
  pressKey(VK_ESCAPE);
  waitForConsole();
  const Control box = window.checkBox(".bak");
  box.flip();
  pressKey(VK_SPACE);
  waitUntil("the tick to go", [&box] { return !box.ticked(); });

  use("Help");  // there is no help file
  Sleep(500);   // long enough for an error box of the shell
  EXPECT_TRUE(!showsBox() && window.takesInput());
  pressKey(VK_F4, VK_MENU);
  waitForEnd();
}

TEST(OldWindows, TheProgramStartsAndRefusesWhatIsNotThere) {
  const std::string wine = "HKCU\\Software\\Wine";
  setText(wine, "Version", "win98");
  const Program program;
  setText(wine, "Version", "winxp");
  for (const char* button : {"Clear Swap File", "System Restore"}) {
    program.use(button, {{"Windows NT/2000/XP Only", "Sorry, this tool is for Windows NT/2000/XP only."}});
    program.waitForConsole();
  }
}

}  // namespace
}  // namespace desktop
