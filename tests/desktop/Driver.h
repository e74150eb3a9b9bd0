// Drives scrubhaven.exe from outside, as a person with a screen reader would: the program is started by its path, its
// windows are found by title, its controls by what they say, and it gets real mouse clicks and keys. Nothing here knows
// the program's sources.
//
// Whatever is not there, or does not happen in time, throws Failed.
#pragma once

#include <windows.h>

#include <cstddef>
#include <string>
#include <vector>

#include "tests/desktop/Input.h"

namespace desktop {

inline constexpr const char* kConsoleTitle = "Velmatrix Scrubhaven Pro 1.32";

enum class Kind { kButton, kCheckBox, kFrame, kLabel, kTextBox, kList, kFolderList, kDriveList, kOther };

// One control of the program. It stays the same control when its text changes.
class Control {
 public:
  explicit Control(HWND window) : window_(window) {}

  HWND handle() const { return window_; }
  Kind kind() const;
  std::string text() const;
  bool visible() const;
  bool enabled() const;
  // Whether a check box is ticked.
  bool ticked() const;
  // In screen coordinates.
  RECT place() const;
  POINT centre() const;

  // Moves the pointer to the middle of the control and clicks. Fails when the control is hidden or something else
  // stands over it; a disabled control is clicked all the same.
  void click() const;

 private:
  HWND window_;
};

struct Row {
  std::string path;
  std::string size;
  bool ticked = false;
  bool operator==(const Row&) const = default;
};

// A report list. Rows and columns count from 0.
class List : public Control {
 public:
  explicit List(Control control);

  std::vector<std::string> columns() const;
  int rowCount() const;
  std::string cell(int row, int column) const;
  bool ticked(int row) const;
  // All rows with their first two columns, from the first to the last.
  std::vector<Row> rows() const;
  // The row whose first column is `text`.
  int find(const std::string& text) const;

  // Clicks the check mark of a row, or its text; scrolls there first.
  void clickTick(int row) const;
  void clickText(int row) const;

 private:
  RECT part(int row, int code) const;
};

// A list of lines of which one can be opened: the folder list.
class FolderList : public Control {
 public:
  explicit FolderList(Control control) : Control(control) {}

  std::vector<std::string> entries() const;
  // Double-clicks a line and waits until the list is that folder's.
  void open(const std::string& entry) const;
};

// The drop-down list of drives.
class DriveList : public Control {
 public:
  explicit DriveList(Control control) : Control(control) {}

  std::vector<std::string> entries() const;
  std::string chosen() const;
};

// A top-level window of the program.
class Window {
 public:
  explicit Window(HWND window) : window_(window) {}

  HWND handle() const { return window_; }
  std::string title() const;
  bool isOpen() const;
  // Whether it takes input: no box or window stands over it.
  bool takesInput() const;

  // All its controls, hidden ones too, in tab order.
  std::vector<Control> controls() const;

  // The one control of that kind and text.
  Control button(const std::string& text) const { return only(Kind::kButton, text); }
  Control checkBox(const std::string& text) const { return only(Kind::kCheckBox, text); }
  Control frame(const std::string& text) const { return only(Kind::kFrame, text); }
  Control label(const std::string& text) const { return only(Kind::kLabel, text); }
  // The button of that text among several: the next one after a label, or the one inside a frame.
  Control buttonAfter(const std::string& label, const std::string& text) const;
  Control buttonIn(const std::string& frame, const std::string& text) const;

  // The list with exactly these columns.
  List list(const std::vector<std::string>& columns) const;
  FolderList folderList() const;
  // The names in the list of files.
  std::vector<std::string> fileList() const;
  DriveList driveList() const;
  std::vector<Control> textBoxes() const;
  // The texts of the labels that can be seen.
  std::vector<std::string> labelTexts() const;

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
  // Has the whole window drawn anew.
  void redraw() const;
  // Clicks the close button of the title bar.
  void clickTitleBarClose() const;

 private:
  Control only(Kind kind, const std::string& text) const;
  std::vector<Control> all(Kind kind) const;

  HWND window_;
};

// A message box.
class Box : public Window {
 public:
  explicit Box(HWND window) : Window(window) {}

  // The message.
  std::string message() const;
  // The texts of its buttons, from the left.
  std::vector<std::string> buttons() const;
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

  bool running() const;
  // Waits until the program has ended by itself.
  void waitForEnd() const;

  Window console() const { return window(kConsoleTitle); }
  // The visible window of that title, waited for.
  Window window(const std::string& title) const;
  // The message box of that title, waited for.
  Box box(const std::string& title, DWORD limit = kPatience) const;
  // The titles of all visible windows with a title.
  std::vector<std::string> titles() const;
  // The control that has the keyboard, waited for.
  Control focused() const;

 private:
  void start();
  void end();
  HWND find(const std::string& title, bool boxes) const;
  void waitForWindow(const std::string& title, bool boxes, DWORD limit) const;

  HANDLE job_ = nullptr;  // ends the program with this process, however that ends
  PROCESS_INFORMATION process_ = {};
};

}  // namespace desktop
