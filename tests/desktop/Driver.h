// Drives scrubhaven.exe from outside, as a person with a screen reader would: the program is started by its path, its
// windows are found by title, its controls by what they say, and it gets real mouse clicks and keys. Nothing here knows
// the program's sources.
//
// Whatever is not there, or does not happen in time, throws Failed.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "tests/desktop/Input.h"

namespace desktop {

using Texts = std::vector<std::string>;

inline constexpr const char* kConsoleTitle = "Velmatrix Scrubhaven Pro 1.32";

enum class Kind { kButton, kCheckBox, kFrame, kLabel, kTextBox, kList, kLines, kDriveList, kOther };

// One control of the program. It stays the same control when its text changes.
class Control {
 public:
  explicit Control(HWND window) : window_(window) {}
  bool operator==(const Control&) const = default;

  HWND handle() const { return window_; }
  Kind kind() const;
  std::string text() const;
  bool visible() const { return IsWindowVisible(window_) != FALSE; }
  bool enabled() const { return IsWindowEnabled(window_) != FALSE; }
  // Whether a check box is ticked.
  bool ticked() const;
  // In screen coordinates.
  RECT place() const;
  POINT centre() const;

  // Moves the pointer to the middle of the control and clicks. Fails when the control is hidden or something else
  // stands over it; a disabled control is clicked all the same.
  void click() const;
  // Clicks a check box and waits until its tick has come or gone.
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
  std::string cell(int row, int column = 0) const;
  bool ticked(int row) const;
  // A column's texts, from the first row to the last.
  Texts texts(int column = 0) const;

  // Clicks a row's text; scrolls there first.
  void clickRow(int row) const;
  // Clicks the check mark of the row with that text in its first column, and waits until it has come or gone.
  void flip(const std::string& text) const;

 private:
  RECT part(int row, int code) const;
};

// A top-level window of the program.
class Window {
 public:
  explicit Window(HWND window) : window_(window) {}

  HWND handle() const { return window_; }
  bool isOpen() const { return IsWindow(window_) && IsWindowVisible(window_); }
  // Whether it takes input: no box or window stands over it.
  bool takesInput() const { return IsWindowEnabled(window_) != FALSE; }

  // All its controls, hidden ones too, in tab order.
  std::vector<Control> controls() const;
  std::vector<Control> all(Kind kind) const;
  // The one control of that kind and text.
  Control button(const std::string& text) const { return only(Kind::kButton, text); }
  Control checkBox(const std::string& text) const { return only(Kind::kCheckBox, text); }
  Control label(const std::string& text) const { return only(Kind::kLabel, text); }
  // The button of that text among several: the next one after a control of another text.
  Control buttonAfter(const std::string& before, const std::string& text) const;
  // The list with exactly these columns.
  List list(const Texts& columns) const;
  // The lines of the list of folders, and of the list of files.
  Texts folders() const { return linesOf("Dir1"); }
  Texts files() const { return linesOf("File1"); }
  // Double-clicks a folder's line and waits until the list is that folder's.
  void openFolder(const std::string& line) const;
  // The texts of the labels that can be seen.
  Texts labelTexts() const;
  // The tooltip that shows when the pointer rests on the control; empty when none shows for long.
  std::string toolTipOf(const Control& control) const;

  // The inside of the window, in screen coordinates.
  RECT inside() const;
  // Sizes the whole window, frame included, in pixels.
  void resize(int width, int height) const;
  // Waits until nothing in the window is left to be drawn.
  void waitUntilDrawn() const;
  // What the screen shows of the window, pixel by pixel.
  std::vector<DWORD> picture() const;

 private:
  Control only(Kind kind, const std::string& text) const;
  Texts linesOf(const std::string& list) const;

  HWND window_;
};

// A message box.
class Box : public Window {
 public:
  explicit Box(HWND window) : Window(window) {}

  std::string message() const;
  // The text of the button that Enter presses: the one that has the keyboard.
  std::string defaultButton() const;
  // Clicks the button with that text and waits until the box is gone.
  void press(const std::string& button) const;
};

// One running scrubhaven.exe. It dies with this object, and with the process that holds it.
class Program {
 public:
  // Starts the program and waits until its console has the keyboard.
  Program();
  ~Program();
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  void waitForEnd() const;

  Window console() const { return window(kConsoleTitle); }
  // The list of the junk scan.
  List junk() const { return console().list({"File Path and Name", "Size"}); }
  // The console's label that begins with "Results: ", or nothing.
  std::string resultLine() const;
  // Presses a button of the console.
  void press(const std::string& button) const { console().button(button).click(); }
  void waitForConsole() const;

  // The visible window, or the message box, of that title, waited for.
  Window window(const std::string& title) const { return Window(await(title, false)); }
  Box box(const std::string& title, DWORD limit = kPatience) const { return Box(await(title, true, limit)); }
  bool showsBox() const;
  // The next box of that title must say this; presses its button.
  void answer(const std::string& title, const std::string& message, const std::string& button = "OK",
              DWORD limit = kPatience) const;
  // The control that has the keyboard, waited for.
  Control focused() const;

 private:
  explicit Program(HANDLE job) : job_(job) {}
  bool running() const { return WaitForSingleObject(process_.hProcess, 0) == WAIT_TIMEOUT; }
  HWND await(const std::string& title, bool isBox, DWORD limit = kPatience) const;

  HANDLE job_;  // ends the program with this process, however that ends
  PROCESS_INFORMATION process_ = {};
};

}  // namespace desktop
