// The console window as it opens: what stands on it, whether everything can be read and reached, and how it closes.
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

// Everything that shows is in the window and can be read. A frame may hold others whole, and nothing else may share a
// place.
void expectSoundLayout(const Window& window) {
  std::vector<Control> controls = window.controls();
  std::erase_if(controls, [](const Control& control) { return !control.visible(); });
  for (auto one = controls.begin(); one != controls.end(); ++one) {
    EXPECT_TRUE(contains(window.inside(), one->place())) << one->text() << " leaves the window";
    expectNotCut(*one);
    for (auto other = one + 1; other != controls.end(); ++other) {
      const RECT a = one->place();
      const RECT b = other->place();
      const bool isNested =
          (one->kind() == Kind::kFrame && contains(a, b)) || (other->kind() == Kind::kFrame && contains(b, a));
      RECT common;
      EXPECT_TRUE(isNested || !IntersectRect(&common, &a, &b)) << one->text() << " and " << other->text() << " overlap";
    }
  }
}

TEST_F(ConsoleTest, OpensReadyAndCanBeReadAtAnySize) {
  const Window window = console();
  std::string disabled;
  for (const Control& control : window.controls()) {
    if (!control.enabled()) disabled += control.text() + ", ";
  }
  EXPECT_EQ(disabled,
            "Select All, Invert, Delete Files, Delete to Recycle Bin, Shred Files?, Select All, Invert, Clean, ");
  EXPECT_TRUE(window.checkBox("Delete to Recycle Bin").ticked());
  EXPECT_FALSE(window.button("Abort Scan").visible());
  EXPECT_TRUE(junk().visible());
  EXPECT_EQ(window.all(Kind::kDriveList).at(0).text().substr(0, 2), "c:");
  EXPECT_EQ(window.folders().at(0), "C:\\");

  ASSERT_GE(GetSystemMetrics(SM_CXSCREEN), 1600) << "a window cannot grow beyond its screen: see SCRUBHAVEN_SCREEN";
  RECT before = {};
  for (const SIZE size : {SIZE{800, 600}, SIZE{1600, 1200}}) {
    const std::string name = std::to_string(size.cx) + "x" + std::to_string(size.cy);
    SCOPED_TRACE(name);
    window.resize(size.cx, size.cy);
    window.waitUntilDrawn();
    expectSoundLayout(window);
    const RECT now = junk().place();
    EXPECT_GT(now.right - now.left, before.right - before.left);
    EXPECT_GT(now.bottom - now.top, before.bottom - before.top);
    before = now;
    takeScreenshot("console-" + name);
    // What has moved must leave nothing behind.
    const std::vector<DWORD> picture = window.picture();
    RedrawWindow(window.handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
    window.waitUntilDrawn();
    EXPECT_TRUE(picture == window.picture()) << "the window was not drawn cleanly";
  }

  EXPECT_EQ(window.toolTipOf(window.checkBox(".db")), "Thumbs.db Temporary Folder Content Information Files");
  EXPECT_EQ(window.toolTipOf(junk()), "Scan results");
  press("Close");
  waitForEnd();
}

// Tab goes through the tools, then what is chosen before a scan, then its results, and comes round.
TEST_F(ConsoleTest, CanBeUsedByTheKeyboardAlone) {
  // A window that has just come up hands the keyboard on to a control a moment later.
  waitUntil("a control to have the keyboard", [this] { return focused().text() != kConsoleTitle; });
  Texts visited;
  const Control first = focused();
  do {
    const Control now = focused();
    const Kind kind = now.kind();
    const bool isList = kind == Kind::kList || kind == Kind::kLines || kind == Kind::kDriveList;
    visited.push_back(isList ? "(list)" : now.text());
    pressKey(VK_TAB);
    waitUntil("Tab to move on from \"" + visited.back() + "\"", [this, &now] { return focused() != now; });
  } while (focused() != first && visited.size() < 100);
  std::ranges::rotate(visited, std::ranges::find(visited, "Picture1"));
  std::string order;
  for (const std::string& text : visited) order += text + ", ";
  EXPECT_EQ(order,
            "Picture1, Find 0 Byte Files, Shredder, Delete Temps, IE Cache/Cookies, Clear IE History, "
            "Clear Recent Docs, Empty Recycle Bin, Clear Typed URLs, Clean MRU Lists, Wipe Index Files, "
            "Clear Prefetch, Clear Swap File, System Restore, Help, Close, (list), (list), .wbk, .bak, .gid, .tmp, "
            "~*.*, .temp, ._mp, .dir, .---, .syd, .nav, .old, .mtx, .cpy, .db$, .db, .prv, .chk, .nu3, .err, "
            "Custom Ext., Select All, Invert, Scan, (list), Select All, Invert, Delete, Abort, ");

  // Letters reach buttons from anywhere, and Space ticks the box that has the keyboard.
  pressKey('X', VK_MENU);
  const Window choose = window("Custom File Extensions");
  EXPECT_FALSE(console().takesInput());
  choose.waitUntilDrawn();
  expectSoundLayout(choose);
  takeScreenshot("custom-extensions");
  pressKey(VK_ESCAPE);
  waitForConsole();
  const Control box = console().checkBox(".bak");
  box.flip();
  pressKey(VK_SPACE);
  waitUntil("the tick to go", [&box] { return !box.ticked(); });

  // Without a help file nothing shows. Long enough for a box of the shell's to come up.
  press("Help");
  Sleep(700);
  EXPECT_FALSE(showsBox());
  EXPECT_TRUE(console().takesInput());

  pressKey(VK_F4, VK_MENU);
  waitForEnd();
}

}  // namespace
}  // namespace desktop
