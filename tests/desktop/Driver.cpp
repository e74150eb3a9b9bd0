#include "tests/desktop/Driver.h"

// Kept apart: the common controls' header needs <windows.h> before it.
#include <commctrl.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

namespace desktop {
namespace {

constexpr const char* kProgram = "C:\\Program Files\\Scrubhaven\\scrubhaven.exe";
constexpr const char* kBoxClass = "#32770";
constexpr int kTextRoom = 1024;

// Milliseconds.
constexpr DWORD kStartLimit = 20000;  // the first start in a prefix starts Wine's services too
constexpr DWORD kToolTipLimit = 3000;
constexpr DWORD kScreenshotLimit = 10000;
constexpr DWORD kPollEvery = 5;
constexpr DWORD kPointerSettles = 15;  // the window must see the pointer arrive before the button goes down
constexpr DWORD kDrawingDelay = 200;   // until the program's drawing is on the screen

// Sends a message and returns the window's answer.
LRESULT ask(HWND window, UINT message, WPARAM w = 0, LPARAM l = 0) {
  DWORD_PTR answer = 0;
  require(SendMessageTimeoutW(window, message, w, l, SMTO_ABORTIFHUNG, kPatience, &answer) != 0,
          "send message " + std::to_string(message));
  return static_cast<LRESULT>(answer);
}

// The text that a message gives, in UTF-8. In wide characters, because Wine answers across processes in them anyway.
std::string askedText(HWND window, UINT message = WM_GETTEXT, WPARAM w = kTextRoom) {
  std::array<wchar_t, kTextRoom> wide{};
  ask(window, message, w, reinterpret_cast<LPARAM>(wide.data()));
  std::array<char, kTextRoom> text{};
  WideCharToMultiByte(CP_UTF8, 0, wide.data(), -1, text.data(), kTextRoom, nullptr, nullptr);
  return text.data();
}

// The window text that the system knows, without the mark of the access key. The window may close meanwhile.
std::string textOf(HWND window) {
  std::array<char, kTextRoom> buffer{};
  GetWindowTextA(window, buffer.data(), kTextRoom);
  std::string text = buffer.data();
  std::erase(text, '&');
  return text;
}

std::string classOf(HWND window) {
  std::array<char, 64> name{};
  GetClassNameA(window, name.data(), static_cast<int>(name.size()));
  return name.data();
}

DWORD processOf(HWND window) {
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  return process;
}

// Sends a message whose parameter is the address of a record, which must be in the program's memory. Returns the record
// as the program has changed it, and the text when the record has one.
template <typename Record>
std::pair<Record, std::string> exchange(HWND window, UINT message, int index, Record record) {
  const HANDLE process =
      OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, processOf(window));
  const auto memory =
      static_cast<char*>(VirtualAllocEx(process, nullptr, sizeof(Record) + kTextRoom, MEM_COMMIT, PAGE_READWRITE));
  require(memory != nullptr, "allocate memory in the program");
  if constexpr (requires { record.pszText; }) {
    record.pszText = memory + sizeof(record);
    record.cchTextMax = kTextRoom - 1;
  }
  WriteProcessMemory(process, memory, &record, sizeof(record), nullptr);
  ask(window, message, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(memory));
  std::array<char, kTextRoom> text{};
  ReadProcessMemory(process, memory, &record, sizeof(record), nullptr);
  ReadProcessMemory(process, memory + sizeof(record), text.data(), kTextRoom - 1, nullptr);
  VirtualFreeEx(process, memory, 0, MEM_RELEASE);
  CloseHandle(process);
  return {record, text.data()};
}

// A visible top-level window of the process that is as asked, or null.
HWND findVisible(DWORD process, const std::function<bool(HWND)>& isWanted) {
  HWND window = GetTopWindow(nullptr);
  while (window != nullptr && !(processOf(window) == process && IsWindowVisible(window) && isWanted(window))) {
    window = GetWindow(window, GW_HWNDNEXT);
  }
  return window;
}

bool isPointerAt(POINT point) {
  POINT now = {};
  return GetCursorPos(&now) && now.x == point.x && now.y == point.y;
}

void movePointer(POINT point) {
  waitUntil("the pointer to arrive", [point] {
    SetCursorPos(point.x, point.y);
    Sleep(kPointerSettles);
    return isPointerAt(point);
  });
}

// The coordinate for absolute input: 65536 steps across the screen, rounded down to pixels by the system.
LONG absolute(LONG pixel, int screenLength) {
  constexpr LONG kSteps = 65536;
  return (pixel * kSteps + screenLength - 1) / screenLength;
}

}  // namespace

// ---- Input ----------------------------------------------------------------------------------------------------------

void waitUntil(const std::string& what, const std::function<bool()>& condition, DWORD limit) {
  const DWORD start = GetTickCount();
  while (!condition()) {
    if (GetTickCount() - start > limit) throw Failed("waited " + std::to_string(limit) + " ms in vain for " + what);
    Sleep(kPollEvery);
  }
}

// All presses carry the place and the same time, so that neither a late move of the pointer nor a busy machine changes
// what they mean.
void clickAt(POINT point, int times) {
  movePointer(point);
  std::vector<INPUT> inputs;
  for (int i = 0; i < 2 * times; ++i) {
    INPUT input = {};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags =
        MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE | (i % 2 == 0 ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_LEFTUP);
    input.mi.dx = absolute(point.x, GetSystemMetrics(SM_CXSCREEN));
    input.mi.dy = absolute(point.y, GetSystemMetrics(SM_CYSCREEN));
    input.mi.time = i == 0 ? GetTickCount() : inputs[0].mi.time;
    inputs.push_back(input);
  }
  SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
}

void pressKey(BYTE key, BYTE held) {
  if (held != 0) keybd_event(held, 0, 0, 0);
  keybd_event(key, 0, 0, 0);
  keybd_event(key, 0, KEYEVENTF_KEYUP, 0);
  if (held != 0) keybd_event(held, 0, KEYEVENTF_KEYUP, 0);
}

void typeText(const std::string& text) {
  constexpr int kShiftBit = 0x100;
  for (const char letter : text) {
    const SHORT key = VkKeyScanA(letter);
    pressKey(LOBYTE(key), (key & kShiftBit) != 0 ? VK_SHIFT : 0);
  }
}

void takeScreenshot(const std::string& name) {
  Sleep(kDrawingDelay);
  const std::string answer = "C:\\demo\\" + name + ".done";
  DeleteFileA(answer.c_str());
  std::printf("@screenshot %s\n", name.c_str());
  std::fflush(stdout);
  waitUntil(
      "the screenshot " + name, [&] { return exists(answer); }, kScreenshotLimit);
}

// ---- Control --------------------------------------------------------------------------------------------------------

Kind Control::kind() const {
  static const std::pair<std::string, Kind> kinds[] = {{"Static", Kind::kLabel},
                                                       {"Edit", Kind::kTextBox},
                                                       {WC_LISTVIEWA, Kind::kList},
                                                       {"ListBox", Kind::kLines},
                                                       {"ComboBox", Kind::kDriveList}};
  const std::string name = classOf(window_);
  for (const auto& [known, kind] : kinds) {
    if (name == known) return kind;
  }
  if (name != "Button") return Kind::kOther;
  const LONG type = GetWindowLongA(window_, GWL_STYLE) & BS_TYPEMASK;
  if (type == BS_GROUPBOX) return Kind::kFrame;
  return type == BS_CHECKBOX || type == BS_AUTOCHECKBOX ? Kind::kCheckBox : Kind::kButton;
}

std::string Control::text() const {
  const bool mustBeAsked = kind() == Kind::kTextBox || kind() == Kind::kDriveList;
  return mustBeAsked ? askedText(window_) : textOf(window_);
}

bool Control::ticked() const { return ask(window_, BM_GETCHECK) == BST_CHECKED; }

RECT Control::place() const {
  RECT place = {};
  GetWindowRect(window_, &place);
  return place;
}

POINT Control::centre() const {
  const RECT at = place();
  return {(at.left + at.right) / 2, (at.top + at.bottom) / 2};
}

void Control::click() const {
  if (!visible()) throw Failed("cannot click \"" + text() + "\": it is hidden");
  const HWND root = GetAncestor(window_, GA_ROOT);
  // Wine's desktop may raise a window above one that was opened after it. The screen shows the right order; only clicks
  // would reach the wrong window.
  waitUntil("\"" + text() + "\" to be uncovered", [this, root] {
    const HWND onTop = GetAncestor(WindowFromPoint(centre()), GA_ROOT);
    if (onTop != root && onTop == GetWindow(root, GW_OWNER)) {
      SetWindowPos(root, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    }
    return onTop == root;
  });
  clickAt(centre());
}

void Control::flip() const {
  const bool before = ticked();
  click();
  waitUntil("another tick in \"" + text() + "\"", [&] { return ticked() != before; });
}

// ---- List -----------------------------------------------------------------------------------------------------------

Texts List::columns() const {
  const auto header = reinterpret_cast<HWND>(ask(handle(), LVM_GETHEADER));
  HDITEMA item = {};
  item.mask = HDI_TEXT;
  Texts titles;
  const LRESULT count = ask(header, HDM_GETITEMCOUNT);
  for (int i = 0; i < count; ++i) titles.push_back(exchange(header, HDM_GETITEMA, i, item).second);
  return titles;
}

int List::rowCount() const { return static_cast<int>(ask(handle(), LVM_GETITEMCOUNT)); }

bool List::ticked(int row) const {
  constexpr int kTickedImage = 2;  // state images of a list with check boxes: 1 without a tick, 2 with one
  const LRESULT state = ask(handle(), LVM_GETITEMSTATE, static_cast<WPARAM>(row), LVIS_STATEIMAGEMASK);
  return state == INDEXTOSTATEIMAGEMASK(kTickedImage);
}

Texts List::texts(int column) const {
  LVITEMA item = {};
  item.iSubItem = column;
  Texts texts;
  const int count = rowCount();
  for (int row = 0; row < count; ++row) texts.push_back(exchange(handle(), LVM_GETITEMTEXTA, row, item).second);
  return texts;
}

RECT List::part(int row, int code) const {
  RECT part = exchange(handle(), LVM_GETITEMRECT, row, RECT{code, 0, 0, 0}).first;
  MapWindowPoints(handle(), nullptr, reinterpret_cast<POINT*>(&part), 2);
  return part;
}

int List::show(const std::string& text) const {
  const Texts all = texts();
  const auto row = static_cast<int>(std::ranges::find(all, text) - all.begin());
  if (row == static_cast<int>(all.size())) throw Failed("no row \"" + text + "\" is listed");
  ask(handle(), LVM_ENSUREVISIBLE, static_cast<WPARAM>(row));
  return row;
}

void List::select(const std::string& text) const {
  constexpr int kInsideText = 12;  // pixels behind the start of the text
  const RECT label = part(show(text), LVIR_LABEL);
  clickAt({label.left + kInsideText, (label.top + label.bottom) / 2});
}

void List::flip(const std::string& text) const {
  const int row = show(text);
  const bool before = ticked(row);
  const RECT label = part(row, LVIR_LABEL);
  clickAt({(part(row, LVIR_BOUNDS).left + label.left) / 2, (label.top + label.bottom) / 2});
  waitUntil("another tick at \"" + text + "\"", [&] { return ticked(row) != before; });
}

// ---- Window ---------------------------------------------------------------------------------------------------------

std::vector<Control> Window::controls() const {
  std::vector<Control> controls;
  for (HWND child = GetWindow(window_, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
    controls.emplace_back(child);
  }
  return controls;
}

std::vector<Control> Window::all(Kind kind) const {
  std::vector<Control> found = controls();
  std::erase_if(found, [kind](const Control& control) { return control.kind() != kind; });
  return found;
}

Control Window::only(Kind kind, const std::string& text) const {
  std::vector<Control> found = all(kind);
  std::erase_if(found, [&](const Control& control) { return textOf(control.handle()) != text; });
  if (found.size() == 1) return found.front();
  throw Failed(std::to_string(found.size()) + " controls of the kind asked for are \"" + text + "\", instead of one");
}

Control Window::buttonAfter(const std::string& before, const std::string& text) const {
  bool passed = false;
  for (const Control& control : controls()) {
    if (passed && control.kind() == Kind::kButton && control.text() == text) return control;
    passed = passed || control.text() == before;
  }
  throw Failed("no button \"" + text + "\" after \"" + before + "\"");
}

List Window::list(const Texts& columns) const {
  for (const Control& control : all(Kind::kList)) {
    if (List(control).columns() == columns) return List(control);
  }
  throw Failed("no list has the columns asked for, beginning with \"" + columns.front() + "\"");
}

Texts Window::lines(const std::string& list) const {
  const HWND lines = only(Kind::kLines, list).handle();
  Texts texts;
  const auto count = static_cast<WPARAM>(ask(lines, LB_GETCOUNT));
  for (WPARAM i = 0; i < count; ++i) texts.push_back(askedText(lines, LB_GETTEXT, i));
  return texts;
}

void Window::clickFolder(const std::string& line, int times) const {
  const HWND list = only(Kind::kLines, "Dir1").handle();
  const Texts all = lines("Dir1");
  const auto index = static_cast<WPARAM>(std::ranges::find(all, line) - all.begin());
  if (index == all.size()) throw Failed("the folder list does not show \"" + line + "\"");
  ask(list, LB_SETTOPINDEX, index);
  RECT at = {};
  ask(list, LB_GETITEMRECT, index, reinterpret_cast<LPARAM>(&at));
  MapWindowPoints(list, nullptr, reinterpret_cast<POINT*>(&at), 2);
  clickAt({(at.left + at.right) / 2, (at.top + at.bottom) / 2}, times);
}

void Window::openFolder(const std::string& line) const {
  const Texts before = lines("Dir1");
  clickFolder(line, 2);
  waitUntil("the folder list of \"" + line + "\"", [&] { return lines("Dir1") != before; });
}

Texts Window::labelTexts() const {
  Texts texts;
  for (const Control& label : all(Kind::kLabel)) {
    if (label.visible()) texts.push_back(label.text());
  }
  return texts;
}

std::string Window::toolTipOf(const Control& control) const {
  const auto shown = [process = processOf(window_)] {
    return findVisible(process, [](HWND window) { return classOf(window) == TOOLTIPS_CLASSA; });
  };
  // The window's corner has no tooltip.
  movePointer({inside().left + 2, inside().top + 2});
  waitUntil("the last tooltip to close", [&shown] { return shown() == nullptr; });
  const DWORD start = GetTickCount();
  while (GetTickCount() - start < kToolTipLimit) {
    if (!isPointerAt(control.centre())) movePointer(control.centre());
    if (const HWND toolTip = shown()) return askedText(toolTip);
    Sleep(kPollEvery);
  }
  return "";
}

RECT Window::inside() const {
  RECT inside = {};
  GetClientRect(window_, &inside);
  MapWindowPoints(window_, nullptr, reinterpret_cast<POINT*>(&inside), 2);
  return inside;
}

std::string Window::message() const {
  constexpr int kMessage = 0xFFFF;  // the id of a message box's text
  return textOf(GetDlgItem(window_, kMessage));
}

Control Window::focused() const {
  GUITHREADINFO info = {};
  info.cbSize = sizeof(info);
  GetGUIThreadInfo(GetWindowThreadProcessId(window_, nullptr), &info);
  return Control(info.hwndFocus == window_ ? nullptr : info.hwndFocus);
}

void Window::closeWith(const std::string& button) const {
  this->button(button).click();
  waitUntil("the window to close after \"" + button + "\"", [this] { return !isOpen(); });
}

// ---- Program --------------------------------------------------------------------------------------------------------

Program::Program() {
  STARTUPINFOA how = {};
  how.cb = sizeof(how);
  require(CreateProcessA(kProgram, nullptr, nullptr, nullptr, FALSE, 0, nullptr, "C:\\Program Files\\Scrubhaven", &how,
                         &process_) != FALSE,
          std::string("start ") + kProgram);
  waitUntil(
      "the console to have the keyboard",
      [this] {
        const HWND window = findVisible(process_.dwProcessId, [](HWND) { return true; });
        return window != nullptr && Window(window).focused().handle() != nullptr;
      },
      kStartLimit);
}

Program::~Program() {
  TerminateProcess(process_.hProcess, 1);
  WaitForSingleObject(process_.hProcess, kPatience);
  CloseHandle(process_.hThread);
  CloseHandle(process_.hProcess);
}

void Program::waitForEnd() const {
  waitUntil("the program to end", [this] { return !running(); });
}

std::string Program::waitForResults(const std::string& beginning) const {
  std::string line;
  waitUntil("\"" + beginning + "\"", [&] {
    for (const std::string& text : console().labelTexts()) {
      if (text.starts_with(beginning)) line = text;
    }
    return !line.empty();
  });
  return line;
}

void Program::use(const std::string& button, const std::vector<Answer>& answers) const {
  console().button(button).click();
  for (const Answer& expected : answers) answer(expected);
}

void Program::waitForConsole() const {
  waitUntil("the console to take input", [this] { return console().takesInput(); });
}

Window Program::window(const std::string& title, bool isBox, DWORD limit) const {
  HWND found = nullptr;
  const auto isWanted = [&](HWND window) { return (classOf(window) == kBoxClass) == isBox && textOf(window) == title; };
  waitUntil(
      "the window \"" + title + "\"",
      [&] {
        if (!running()) throw Failed("the program ended before it showed \"" + title + "\"");
        found = findVisible(process_.dwProcessId, isWanted);
        return found != nullptr;
      },
      limit);
  return Window(found);
}

void Program::answer(const Answer& expected, DWORD limit) const {
  const Window box = window(expected.title, true, limit);
  const std::string message = box.message();
  if (message != expected.message) throw Failed('"' + message + "\" instead of \"" + expected.message + '"');
  box.closeWith(expected.button);
}

bool Program::showsBox() const {
  return findVisible(process_.dwProcessId, [](HWND window) { return classOf(window) == kBoxClass; }) != nullptr;
}

}  // namespace desktop
