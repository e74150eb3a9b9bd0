// The console window as it opens: what stands on it, whether everything can be read, and how it closes.
#include <algorithm>
#include <map>

#include "tests/desktop/ConsoleTest.h"

namespace desktop {
namespace {

struct Expected {
  const char* after;  // the label before the button; null when the button's text is its own
  const char* text;
  bool visible;
  bool enabled;
};

// The font of the program's windows is the user's message font; fonts cannot be borrowed from another process.
class MessageFont {
 public:
  MessageFont() : screen_(CreateCompatibleDC(nullptr)) {
    NONCLIENTMETRICSA settings = {};
    settings.cbSize = sizeof(settings);
    SystemParametersInfoA(SPI_GETNONCLIENTMETRICS, sizeof(settings), &settings, 0);
    font_ = CreateFontIndirectA(&settings.lfMessageFont);
    before_ = SelectObject(screen_, font_);
  }
  ~MessageFont() {
    SelectObject(screen_, before_);
    DeleteObject(font_);
    DeleteDC(screen_);
  }
  MessageFont(const MessageFont&) = delete;
  MessageFont& operator=(const MessageFont&) = delete;

  SIZE measure(const std::string& text) const {
    SIZE size = {};
    GetTextExtentPoint32A(screen_, text.data(), static_cast<int>(text.size()), &size);
    return size;
  }

 private:
  HDC screen_;
  HFONT font_;
  HGDIOBJ before_;
};

std::string describe(const Control& control) {
  const RECT at = control.place();
  return "\"" + control.text() + "\" (" + std::to_string(at.left) + "," + std::to_string(at.top) + ")-(" +
         std::to_string(at.right) + "," + std::to_string(at.bottom) + ")";
}

bool contains(const RECT& outer, const RECT& inner) {
  return inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right &&
         inner.bottom <= outer.bottom;
}

bool overlap(const RECT& one, const RECT& other) {
  RECT common;
  return IntersectRect(&common, &one, &other) != FALSE;
}

std::vector<Control> visibleControls(const Window& window) {
  std::vector<Control> controls = window.controls();
  std::erase_if(controls, [](const Control& control) { return !control.visible(); });
  return controls;
}

// A frame may hold others whole, and nothing else may share a place.
void expectNoOverlap(const Window& window) {
  const std::vector<Control> controls = visibleControls(window);
  const RECT inside = window.inside();
  for (auto one = controls.begin(); one != controls.end(); ++one) {
    EXPECT_TRUE(contains(inside, one->place())) << describe(*one) << " leaves the window";
    for (auto other = one + 1; other != controls.end(); ++other) {
      const bool nested = (one->kind() == Kind::kFrame && contains(one->place(), other->place())) ||
                          (other->kind() == Kind::kFrame && contains(other->place(), one->place()));
      EXPECT_TRUE(nested || !overlap(one->place(), other->place()))
          << describe(*one) << " and " << describe(*other) << " overlap";
    }
  }
}

// The room that a control's frame or mark takes from its text, in pixels.
int notForText(Kind kind) {
  switch (kind) {
    case Kind::kButton:
      return 6;
    case Kind::kCheckBox:
    case Kind::kFrame:
      return GetSystemMetrics(SM_CXMENUCHECK);
    default:
      return 0;
  }
}

void expectNoCutText(const Window& window) {
  const MessageFont font;
  for (const Control& control : visibleControls(window)) {
    const Kind kind = control.kind();
    if (kind != Kind::kButton && kind != Kind::kCheckBox && kind != Kind::kFrame && kind != Kind::kLabel) continue;
    const SIZE needed = font.measure(control.text());
    const RECT at = control.place();
    const int lines = std::max(1, static_cast<int>((at.bottom - at.top) / needed.cy));
    EXPECT_LE(needed.cx, lines * (at.right - at.left - notForText(kind))) << describe(control) << " is cut";
    EXPECT_LE(needed.cy, at.bottom - at.top) << describe(control) << " is cut";
  }
}

TEST_F(ConsoleTest, OpensWithEveryControlInItsStartingState) {
  const Window window = console();
  EXPECT_EQ(window.title(), "Velmatrix Scrubhaven Pro 1.32");

  for (const char* tool :
       {"Find 0 Byte Files", "Shredder", "Delete Temps", "IE Cache/Cookies", "Clear IE History", "Clear Recent Docs",
        "Empty Recycle Bin", "Clear Typed URLs", "Clean MRU Lists", "Wipe Index Files", "Clear Prefetch",
        "Clear Swap File", "System Restore", "Help", "Close", "Custom Ext.", "Scan"}) {
    EXPECT_TRUE(window.button(tool).visible()) << tool;
    EXPECT_TRUE(window.button(tool).enabled()) << tool;
  }
  EXPECT_FALSE(window.button("Abort Scan").visible());

  const Expected commands[] = {
      {"Junk files:", "Select All", true, false},     {"Junk files:", "Invert", true, false},
      {"Junk files:", "Delete Files", true, false},   {"0 byte files:", "Select All", true, true},
      {"0 byte files:", "Invert", true, true},        {"0 byte files:", "Delete", true, true},
      {"Internet cache:", "Select All", true, false}, {"Internet cache:", "Invert", true, false},
      {"Internet cache:", "Clean", true, false},      {"Internet cache:", "Abort", true, true},
  };
  for (const Expected& command : commands) {
    const Control button = window.buttonAfter(command.after, command.text);
    EXPECT_EQ(button.visible(), command.visible) << command.after << " " << command.text;
    EXPECT_EQ(button.enabled(), command.enabled) << command.after << " " << command.text;
  }
  EXPECT_TRUE(window.buttonIn("File Types", "Select All").enabled());
  EXPECT_TRUE(window.buttonIn("File Types", "Invert").enabled());

  const std::map<std::string, bool> deletionBoxes = {{"Delete to Recycle Bin", true}, {"Shred Files?", false}};
  for (const auto& [text, ticked] : deletionBoxes) {
    EXPECT_TRUE(window.checkBox(text).visible()) << text;
    EXPECT_FALSE(window.checkBox(text).enabled()) << text;
    EXPECT_EQ(window.checkBox(text).ticked(), ticked) << text;
  }
  for (const char* type : {".wbk", ".bak", ".gid", ".tmp", "~*.*", ".temp", "._mp", ".dir", ".---", ".syd",
                           ".nav", ".old", ".mtx", ".cpy", ".db$", ".db",   ".prv", ".chk", ".nu3", ".err"}) {
    EXPECT_FALSE(window.checkBox(type).ticked()) << type;
    EXPECT_TRUE(window.checkBox(type).enabled()) << type;
  }
  for (const char* frame : {"File Types", "Special Files", "Scan results", "Scan Results"}) {
    EXPECT_TRUE(window.frame(frame).visible()) << frame;
  }
  EXPECT_TRUE(window.label("Select Drive to Scan").visible());
  EXPECT_TRUE(window.label("Start In").visible());

  EXPECT_TRUE(window.list({"File Path and Name", "Size"}).visible());
  EXPECT_EQ(window.list({"File Path and Name", "Size"}).rowCount(), 0);
  EXPECT_FALSE(window.list({"File Path and Name"}).visible());
  EXPECT_FALSE(window.list({"File Name", "Source URL", "Expires", "Last Access"}).visible());
  EXPECT_EQ(window.driveList().chosen().substr(0, 2), "c:");
  EXPECT_EQ(window.folderList().entries().at(0), "C:\\");
}

TEST_F(ConsoleTest, NothingIsCutOrOverlapsAtAnySizeAndTheListGrows) {
  ASSERT_GE(GetSystemMetrics(SM_CXSCREEN), 1600) << "a window cannot grow beyond its screen: see SCRUBHAVEN_SCREEN";
  const Window window = console();
  const List list = window.list({"File Path and Name", "Size"});
  RECT before = {};
  for (const SIZE size : {SIZE{800, 600}, SIZE{1600, 1200}}) {
    window.resize(size.cx, size.cy);
    window.waitUntilDrawn();
    SCOPED_TRACE(std::to_string(size.cx) + "x" + std::to_string(size.cy));
    expectNoOverlap(window);
    expectNoCutText(window);
    const RECT now = list.place();
    EXPECT_GT(now.right - now.left, before.right - before.left);
    EXPECT_GT(now.bottom - now.top, before.bottom - before.top);
    before = now;
    takeScreenshot("console-" + std::to_string(size.cx) + "x" + std::to_string(size.cy));
    // What has moved must leave nothing behind.
    const std::vector<DWORD> picture = window.picture();
    window.redraw();
    EXPECT_TRUE(picture == window.picture()) << "the window was not drawn cleanly";
  }
}

TEST_F(ConsoleTest, TooltipsShowAtThePointer) {
  const Window window = console();
  EXPECT_EQ(window.toolTipOf(window.button("Scan")), "Scan Selected Drive and Folders");
  EXPECT_EQ(window.toolTipOf(window.checkBox(".db")), "Thumbs.db Temporary Folder Content Information Files");
  EXPECT_EQ(window.toolTipOf(junk()), "Scan results");
}

// Tab goes through the tools, then what is chosen before a scan, then its results, and comes round.
TEST_F(ConsoleTest, TabVisitsEveryUsableControlOnceInReadingOrder) {
  std::vector<std::string> visited;
  // A window that has just come up hands the keyboard on to a control a moment later.
  waitUntil("a control to have the keyboard", [this] { return program().focused().text() != kConsoleTitle; });
  const HWND first = program().focused().handle();
  do {
    const Control now = program().focused();
    visited.push_back(now.kind() == Kind::kList         ? "results"
                      : now.kind() == Kind::kFolderList ? "folders"
                      : now.kind() == Kind::kDriveList  ? "drives"
                                                        : now.text());
    pressKey(VK_TAB);
    waitUntil("Tab to move on from \"" + visited.back() + "\"",
              [this, &now] { return program().focused().handle() != now.handle(); });
  } while (program().focused().handle() != first && visited.size() < 100);

  const std::vector<std::string> expected = {"Picture1",
                                             "Find 0 Byte Files",
                                             "Shredder",
                                             "Delete Temps",
                                             "IE Cache/Cookies",
                                             "Clear IE History",
                                             "Clear Recent Docs",
                                             "Empty Recycle Bin",
                                             "Clear Typed URLs",
                                             "Clean MRU Lists",
                                             "Wipe Index Files",
                                             "Clear Prefetch",
                                             "Clear Swap File",
                                             "System Restore",
                                             "Help",
                                             "Close",
                                             "drives",
                                             "folders",
                                             ".wbk",
                                             ".bak",
                                             ".gid",
                                             ".tmp",
                                             "~*.*",
                                             ".temp",
                                             "._mp",
                                             ".dir",
                                             ".---",
                                             ".syd",
                                             ".nav",
                                             ".old",
                                             ".mtx",
                                             ".cpy",
                                             ".db$",
                                             ".db",
                                             ".prv",
                                             ".chk",
                                             ".nu3",
                                             ".err",
                                             "Custom Ext.",
                                             "Select All",
                                             "Invert",
                                             "Scan",
                                             "results",
                                             "Select All",
                                             "Invert",
                                             "Delete",
                                             "Abort"};
  const auto start = std::ranges::find(expected, visited.front());
  ASSERT_NE(start, expected.end()) << visited.front();
  std::vector<std::string> fromFirst(start, expected.end());
  fromFirst.insert(fromFirst.end(), expected.begin(), start);
  EXPECT_EQ(visited, fromFirst);
}

TEST_F(ConsoleTest, HelpWithoutAHelpFileShowsNothing) {
  console().button("Help").click();
  // Long enough for a box of the shell's to come up.
  Sleep(700);
  EXPECT_EQ(program().titles(), std::vector<std::string>{kConsoleTitle});
  EXPECT_TRUE(console().takesInput());
  tick(".bak");
}

TEST_F(ConsoleTest, TheTitleBarClosesTheProgram) {
  console().clickTitleBarClose();
  program().waitForEnd();
}

TEST_F(ConsoleTest, CloseEndsTheProgram) {
  console().button("Close").click();
  program().waitForEnd();
}

// Letters reach buttons from anywhere, and Space ticks the box that has the keyboard.
TEST_F(ConsoleTest, TheKeyboardReachesToolsAndBoxes) {
  pressKey('X', VK_MENU);
  const Window choose = program().window("Custom File Extensions");
  EXPECT_FALSE(console().takesInput());
  expectNoOverlap(choose);
  expectNoCutText(choose);
  choose.waitUntilDrawn();
  takeScreenshot("custom-extensions");
  pressKey(VK_ESCAPE);
  waitUntil("the console to take input again", [&] { return console().takesInput(); });

  tick(".bak");
  pressKey(VK_SPACE);
  const Control box = console().checkBox(".bak");
  waitUntil("the tick to go", [&box] { return !box.ticked(); });
}

}  // namespace
}  // namespace desktop
