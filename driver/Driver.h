// Drives scrubhaven.exe from outside, as a person with a screen reader would: windows are found by title, controls by
// their text, and all input goes through the system's queue as mouse clicks and keys. Nothing here depends on the
// program's sources. Whatever is missing, or does not happen in time, throws Failed.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

#include "driver/WinFiles.h"

namespace desktop {

using namespace support;  // NOLINT(google-build-using-namespace): what every test here prepares and checks with

using Texts = std::vector<std::string>;

inline constexpr const char* kConsole = "Velmatrix Scrubhaven Pro 1.32";
// Milliseconds that one reaction of the program may take.
inline constexpr DWORD kPatience = 5000;

// Returns as soon as `condition` holds; throws Failed, naming `what` was waited for, after `limit` milliseconds.
void waitUntil(const std::string& what, const std::function<bool()>& condition, DWORD limit = kPatience);
// Presses and releases a key (VK_...), with `held` pressed meanwhile when it is not 0.
void pressKey(BYTE key, BYTE held = 0);
void typeText(const std::string& text);
// Has the script around the test program store the whole screen as build/.../NAME.png; see scripts/play.sh.
void takeScreenshot(const std::string& name);

// One control of the program.
class Control {
 public:
  explicit Control(HWND window) : window_(window) {}
  bool operator==(const Control&) const = default;

  HWND handle() const { return window_; }
  // Without the mark of its access key. Lists and pictures have the names that readers announce.
  std::string text() const;
  std::string className() const;
  bool visible() const { return IsWindowVisible(window_) != FALSE; }
  bool enabled() const { return IsWindowEnabled(window_) != FALSE; }
  // Whether a check box is ticked.
  bool ticked() const;
  // In screen coordinates.
  RECT place() const;

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
class Window : public Control {
 public:
  using Control::Control;

  bool isOpen() const { return IsWindow(handle()) && visible(); }
  // All its controls, hidden ones too, in tab order.
  std::vector<Control> controls() const;
  // What its status bar shows, from left to right.
  Texts statusTexts() const;
  // Tells the window that its screen has this resolution now, and which place the system suggests. WM_DPICHANGED.
  void changeDpi(int dpi, const RECT& suggested) const;
  // The one control of that text; with `after`, the first one behind the control with that text.
  Control control(const std::string& text, const std::string& after = "") const;
  List list(const std::string& name) const { return List(control(name)); }
  // The lines of the list of folders ("Folders") or of files ("Files").
  Texts lines(const std::string& name) const;
  // Clicks a folder's line, which highlights it.
  void clickFolder(const std::string& line, int times = 1) const;
  // Double-clicks a folder's line and waits until the list has changed.
  void openFolder(const std::string& line) const;
  // The texts of the visible labels.
  Texts labelTexts() const;
  // The control that has the keyboard; its handle is null when no control has.
  Control focused() const;
  // Clicks a button and waits until the window is closed.
  void closeWith(const std::string& button) const;
};

// The title of a message box, the button that answers it, and what it must say, unless the unit tests alone check that.
struct Answer {
  std::string title;
  std::string button = "OK";
  std::string message = {};
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

  Window console() const { return window(kConsole); }
  // The list of the junk scan.
  List junk() const { return console().list("Junk files found"); }
  // Waits until the console's result line begins with this.
  void waitForResults(const std::string& beginning) const;
  // Presses a button of the console and answers the message boxes that must follow.
  void use(const std::string& button, const std::vector<Answer>& answers = {}) const;
  // Waits until the console takes input: no box or other window is open above it.
  void waitForConsole() const {
    waitUntil("the console to take input", [this] { return console().enabled(); });
  }

  // The visible window or message box of that title, waited for.
  Window window(const std::string& title, DWORD limit = kPatience) const;
  void answer(const Answer& expected, DWORD limit = kPatience) const;
  bool showsBox() const;

 private:
  PROCESS_INFORMATION process_ = {};
};

}  // namespace desktop
