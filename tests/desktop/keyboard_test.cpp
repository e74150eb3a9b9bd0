// The console by keys alone, from the start to a deletion. What each key has done is printed.
#include <cstdio>

#include "tests/desktop/ConsoleTest.h"

namespace desktop {
namespace {

class KeyboardTest : public ConsoleTest {
 protected:
  // Presses the key and waits until the control with that text has the keyboard.
  void move(const char* key, BYTE code, BYTE held, const std::string& to) {
    pressKey(code, held);
    waitUntil(std::string(key) + " to lead to \"" + to + '"', [&] { return focusedText() == to; });
    say(key);
  }
  // Presses the key and waits for what it does.
  void press(const char* key, BYTE code, BYTE held, const std::string& what, const std::function<bool()>& isDone) {
    pressKey(code, held);
    waitUntil(std::string(key) + ": " + what, isDone);
    say(key, what);
  }
  // Presses Tab and returns the control that has the keyboard then.
  Control tab() {
    const Control before = console().focused();
    pressKey(VK_TAB);
    waitUntil("Tab to leave \"" + before.text() + '"', [&] { return console().focused() != before; });
    say("Tab");
    return console().focused();
  }
  void say(const char* key, const std::string& what = "") {
    std::printf("  %-10s [%s] %s\n", key, focusedText().c_str(), what.c_str());
  }

  std::string focusedText() { return console().focused().text(); }
  int highlightedFolder() { return static_cast<int>(SendMessageA(folders().handle(), LB_GETCURSEL, 0, 0)); }
  Control folders() { return console().control("Folders"); }
  bool showsTicks(const std::string& text) {
    const Texts texts = console().statusTexts();
    return (texts.size() > 2 ? texts[2] : "") == text;
  }
};

TEST_F(KeyboardTest, ScansTicksAndDeletes) {
  const std::string first = make("a.bak");
  const std::string second = make("b.bak");
  const std::string third = make("sub\\c.bak");
  make("other.tmp");
  EXPECT_EQ(focusedText(), "Folders");

  std::string order;
  const Control start = folders();
  for (Control at = tab(); at != start; at = tab()) order += at.text() + ", ";
  EXPECT_EQ(order,
            "Velmatrix web site, Scan, Junk files found, Select All, Invert, Delete, Abort, Find 0 Byte Files, "
            "IE Cache/Cookies, Clear Prefetch, Help, Close, .wbk, Select All, Invert, Custom Ext., , ");

  const Texts lines = console().lines("Folders");
  const auto wanted = static_cast<int>(std::ranges::find(lines, folderName()) - lines.begin());
  for (int line = highlightedFolder() + 1; line <= wanted; ++line) {
    press("Down", VK_DOWN, 0, lines.at(static_cast<std::size_t>(line)), [&] { return highlightedFolder() == line; });
  }
  const auto showsFolder = [&] { return console().lines("Folders") == Texts{"C:\\", folderName(), "sub"}; };
  press("Enter", VK_RETURN, 0, "opens " + folderName(), showsFolder);
  press("Backspace", VK_BACK, 0, "goes up", [&] { return console().lines("Folders") == lines; });
  for (int line = 1; line <= wanted; ++line) pressKey(VK_DOWN);
  press("Enter", VK_RETURN, 0, "opens " + folderName(), showsFolder);

  for (const char* stop : {"", "Custom Ext.", "Invert", "Select All", ".wbk"})
    move("Shift+Tab", VK_TAB, VK_SHIFT, stop);
  move("Right", VK_RIGHT, 0, ".bak");
  press("Space", VK_SPACE, 0, "ticks it", [this] { return console().control(".bak").ticked(); });
  pressKey(VK_F5);
  waitForResults("Results: 3 files found in ");
  waitUntil("the focus on the list", [this] { return focusedText() == "Junk files found"; });
  EXPECT_EQ(junk().texts(), (Texts{first, second, third}));

  const Control deletion = console().control("Delete Files");
  press("Ctrl+A", 'A', VK_CONTROL, "ticks all", [this] { return showsTicks("3 ticked, 2.9 KB"); });
  EXPECT_TRUE(deletion.enabled());
  press("Ctrl+I", 'I', VK_CONTROL, "inverts", [this] { return showsTicks(""); });
  press("Home", VK_HOME, 0, "the first row", [] { return true; });
  press("Space", VK_SPACE, 0, "ticks it", [this] { return showsTicks("1 ticked, 1,000 bytes"); });
  pressKey(VK_DELETE);
  const Window question = window("Confirm Deletion");
  say("Del", question.text());
  press("Y", 'Y', 0, "deletes", [&] { return !question.isOpen() && junk().rowCount() == 2; });
  EXPECT_TRUE(!exists(first) && isUntouched(second) && isUntouched(third));
  waitForConsole();
  waitUntil("the focus on the list again", [this] { return focusedText() == "Junk files found"; });

  pressKey(VK_F1);
  closeHelp();
  say("F1", "shows help");
}

}  // namespace
}  // namespace desktop
