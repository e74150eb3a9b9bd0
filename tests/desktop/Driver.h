// Drives scrubhaven.exe from outside, as a person with a screen reader would: windows are found by title, controls by
// their text, and all input goes through the system's queue as mouse clicks and keys. Nothing here depends on the
// program's sources. Whatever is missing, or does not happen in time, throws Failed.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

#include "tests/desktop/Machine.h"

namespace desktop {

// Milliseconds that one reaction of the program may take.
inline constexpr DWORD kPatience = 5000;

// Returns as soon as `condition` holds; throws Failed, naming `what` was waited for, after `limit` milliseconds.
void waitUntil(const std::string& what, const std::function<bool()>& condition, DWORD limit = kPatience);
// Moves the pointer to a place on the screen and clicks there.
void clickAt(POINT point, int times = 1);
// Presses and releases a key (VK_...), with `held` pressed meanwhile when it is not 0.
void pressKey(BYTE key, BYTE held = 0);
void typeText(const std::string& text);
// Has the script around the test program store the whole screen as build/.../NAME.png; see scripts/play.sh.
void takeScreenshot(const std::string& name);

enum class Kind { kButton, kCheckBox, kFrame, kLabel, kTextBox, kList, kLines, kDriveList, kOther };

// One control of the program.
class Control {
 public:
  explicit Control(HWND window) : window_(window) {}
  bool operator==(const Control&) const = default;

  HWND handle() const { return window_; }
  Kind kind() const;
  // Without the mark of its access key.
  std::string text() const;
  bool visible() const { return IsWindowVisible(window_) != FALSE; }
  bool enabled() const { return IsWindowEnabled(window_) != FALSE; }
  // Whether a check box is ticked.
  bool ticked() const;
  // In screen coordinates.
  RECT place() const;
  POINT centre() const;

  // Clicks the middle of the control. Fails when it is hidden or covered.
  void click() const;
  // Clicks a check box and waits until its tick has changed.
  void flip() const;

 private:
  HWND window_;
};

// A report list. Rows and columns count from 0.
class List : public Control {
 public:
  explicit List(Control control) : Control(control) {}

  Texts columns() const;
  int rowCount() const;
  bool ticked(int row) const;
  // A column's texts, from the first row to the last.
  Texts texts(int column = 0) const;
  // Click the row with that text in its first column: the text, or the check mark, waiting until it has changed.
  void select(const std::string& text) const;
  void flip(const std::string& text) const;

 private:
  // Scrolls the row with that text into view. Returns its index.
  int show(const std::string& text) const;
  // The place of a row's text (LVIR_LABEL) or whole row (LVIR_BOUNDS) on the screen.
  RECT part(int row, int code) const;
};

// A top-level window or a message box of the program.
class Window {
 public:
  explicit Window(HWND window) : window_(window) {}

  HWND handle() const { return window_; }
  bool isOpen() const { return IsWindow(window_) && IsWindowVisible(window_); }
  // False while a box or another window is open above it.
  bool takesInput() const { return IsWindowEnabled(window_) != FALSE; }

  // All its controls, hidden ones too, in tab order.
  std::vector<Control> controls() const;
  std::vector<Control> all(Kind kind) const;
  // The one control of that kind and text.
  Control button(const std::string& text) const { return only(Kind::kButton, text); }
  Control checkBox(const std::string& text) const { return only(Kind::kCheckBox, text); }
  Control label(const std::string& text) const { return only(Kind::kLabel, text); }
  // The first button of that text after the control with the text `before`.
  Control buttonAfter(const std::string& before, const std::string& text) const;
  // The list with exactly these columns.
  List list(const Texts& columns) const;
  // The lines of the list of folders ("Dir1") or of files ("File1").
  Texts lines(const std::string& list) const;
  // Clicks a folder's line, which highlights it.
  void clickFolder(const std::string& line, int times = 1) const;
  // Double-clicks a folder's line and waits until the list has changed.
  void openFolder(const std::string& line) const;
  // The texts of the visible labels.
  Texts labelTexts() const;
  // The tooltip that shows when the pointer rests on the control; empty when none shows in time.
  std::string toolTipOf(const Control& control) const;
  // The client area, in screen coordinates.
  RECT inside() const;

  // The text of a message box.
  std::string message() const;
  // The control that has the keyboard; its handle is null when no control has.
  Control focused() const;
  // Clicks a button and waits until the window is closed.
  void closeWith(const std::string& button) const;

 private:
  Control only(Kind kind, const std::string& text) const;

  HWND window_;
};

// What a message box must say, and the button that answers it.
struct Answer {
  std::string title;
  std::string message;
  std::string button = "OK";
};

// One running scrubhaven.exe, ended with the object.
class Program {
 public:
  // Starts the program and waits until a control of its console has the keyboard.
  Program();
  ~Program();
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  void waitForEnd() const;

  Window console() const { return window("Velmatrix Scrubhaven Pro 1.32"); }
  // The list of the junk scan.
  List junk() const { return console().list({"File Path and Name", "Size"}); }
  // Waits until the console's result line begins with this. Returns the whole line.
  std::string waitForResults(const std::string& beginning) const;
  // Presses a button of the console and answers the message boxes that must follow.
  void use(const std::string& button, const std::vector<Answer>& answers = {}) const;
  void waitForConsole() const;

  // The visible window of that title, or message box (`isBox`), waited for.
  Window window(const std::string& title, bool isBox = false, DWORD limit = kPatience) const;
  void answer(const Answer& expected, DWORD limit = kPatience) const;
  bool showsBox() const;

 private:
  bool running() const { return WaitForSingleObject(process_.hProcess, 0) == WAIT_TIMEOUT; }

  PROCESS_INFORMATION process_ = {};
};

}  // namespace desktop
