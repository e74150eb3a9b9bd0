#include "driver/Driver.h"

// Kept apart: the common controls' header needs <windows.h> before it.
#include <commctrl.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

namespace desktop {
namespace {

constexpr const char* kProgram = "C:\\Program Files\\Scrubhaven\\scrubhaven.exe";
constexpr int kTextRoom = 1024;

// Milliseconds.
constexpr DWORD kStartLimit = 20000;  // the first start in a prefix starts Wine's services too
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
std::string askedText(HWND window, UINT message, WPARAM w) {
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

// The coordinate for absolute input: 65536 steps across the screen, rounded down to pixels by the system.
LONG absolute(LONG pixel, int screenLength) {
  constexpr LONG kSteps = 65536;
  return (pixel * kSteps + screenLength - 1) / screenLength;
}

POINT centreOf(const RECT& at) { return {(at.left + at.right) / 2, (at.top + at.bottom) / 2}; }

// From the client area of `window`.
RECT onScreen(HWND window, RECT at) {
  MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&at), 2);
  return at;
}

// All presses carry the place and the same time, so that neither a late move of the pointer nor a busy machine changes
// what they mean.
void clickAt(POINT point, int times = 1) {
  waitUntil("the pointer to arrive", [point] {
    SetCursorPos(point.x, point.y);
    Sleep(kPointerSettles);
    POINT now = {};
    return GetCursorPos(&now) && now.x == point.x && now.y == point.y;
  });
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

}  // namespace

// ---- Input ----------------------------------------------------------------------------------------------------------

void waitUntil(const std::string& what, const std::function<bool()>& condition, DWORD limit) {
  const DWORD start = GetTickCount();
  while (!condition()) {
    if (GetTickCount() - start > limit) throw Failed("waited " + std::to_string(limit) + " ms in vain for " + what);
    Sleep(kPollEvery);
  }
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

std::string Control::text() const { return textOf(window_); }

std::string Control::className() const {
  std::array<char, 64> name{};
  GetClassNameA(window_, name.data(), static_cast<int>(name.size()));
  return name.data();
}

bool Control::ticked() const { return ask(window_, BM_GETCHECK) == BST_CHECKED; }

RECT Control::place() const {
  RECT place = {};
  GetWindowRect(window_, &place);
  return place;
}

void Control::click() const {
  if (!visible()) throw Failed("cannot click \"" + text() + "\": it is hidden");
  const POINT centre = centreOf(place());
  const HWND root = GetAncestor(window_, GA_ROOT);
  // Wine's desktop may raise a window above one that was opened after it. The screen shows the right order; only clicks
  // would reach the wrong window.
  waitUntil("\"" + text() + "\" to be uncovered", [centre, root] {
    const HWND onTop = GetAncestor(WindowFromPoint(centre), GA_ROOT);
    if (onTop != root && onTop == GetWindow(root, GW_OWNER)) {
      SetWindowPos(root, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    }
    return onTop == root;
  });
  clickAt(centre);
}

void Control::flip() const {
  const bool before = ticked();
  click();
  waitUntil("another tick in \"" + text() + "\"", [&] { return ticked() != before; });
}

// ---- List -----------------------------------------------------------------------------------------------------------

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
  return onScreen(handle(), exchange(handle(), LVM_GETITEMRECT, row, RECT{code, 0, 0, 0}).first);
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
  for (HWND child = GetWindow(handle(), GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
    controls.emplace_back(child);
  }
  return controls;
}

void Window::changeDpi(int dpi, const RECT& suggested) const {
  constexpr UINT kDpiChanged = 0x02E0;
  exchange(handle(), kDpiChanged, static_cast<int>(MAKELONG(dpi, dpi)), suggested);
}

Control Window::control(const std::string& text, const std::string& after) const {
  const std::vector<Control> all = controls();
  const auto start = after.empty() ? all.begin() : std::ranges::find(all, after, &Control::text);
  const auto found = std::find_if(start, all.end(), [&](const Control& one) { return one.text() == text; });
  if (found == all.end()) throw Failed("no control \"" + text + "\" after \"" + after + '"');
  if (after.empty() && std::ranges::count(all, text, &Control::text) > 1) throw Failed("several are \"" + text + '"');
  return *found;
}

Texts Window::lines(const std::string& name) const {
  const HWND list = control(name).handle();
  Texts texts;
  const auto count = static_cast<WPARAM>(ask(list, LB_GETCOUNT));
  for (WPARAM i = 0; i < count; ++i) texts.push_back(askedText(list, LB_GETTEXT, i));
  return texts;
}

void Window::clickFolder(const std::string& line, int times) const {
  const HWND list = control("Folders").handle();
  const Texts all = lines("Folders");
  const auto index = static_cast<WPARAM>(std::ranges::find(all, line) - all.begin());
  if (index == all.size()) throw Failed("the folder list does not show \"" + line + "\"");
  ask(list, LB_SETTOPINDEX, index);
  RECT at = {};
  ask(list, LB_GETITEMRECT, index, reinterpret_cast<LPARAM>(&at));
  clickAt(centreOf(onScreen(list, at)), times);
}

void Window::openFolder(const std::string& line) const {
  const Texts before = lines("Folders");
  clickFolder(line, 2);
  waitUntil("the folder list of \"" + line + "\"", [&] { return lines("Folders") != before; });
}

Texts Window::labelTexts() const {
  Texts texts;
  for (const Control& control : controls()) {
    if (control.visible() && control.className() == "Static") texts.push_back(control.text());
  }
  return texts;
}

Texts Window::statusTexts() const {
  const HWND bar = FindWindowExA(handle(), nullptr, STATUSCLASSNAMEA, nullptr);
  Texts texts;
  const auto count = static_cast<WPARAM>(ask(bar, SB_GETPARTS));
  for (WPARAM i = 0; i < count; ++i) {
    texts.emplace_back(exchange(bar, SB_GETTEXTA, static_cast<int>(i), std::array<char, kTextRoom>{}).first.data());
  }
  return texts;
}

Control Window::focused() const {
  GUITHREADINFO info = {};
  info.cbSize = sizeof(info);
  GetGUIThreadInfo(GetWindowThreadProcessId(handle(), nullptr), &info);
  return Control(info.hwndFocus == handle() ? nullptr : info.hwndFocus);
}

void Window::closeWith(const std::string& button) const {
  control(button).click();
  waitUntil("the window to close after \"" + button + "\"", [this] { return !isOpen(); });
}

// ---- Program --------------------------------------------------------------------------------------------------------

Program::Program() {
  STARTUPINFOA how = {};
  how.cb = sizeof(how);
  require(CreateProcessA(kProgram, nullptr, nullptr, nullptr, FALSE, 0, nullptr, "C:\\Program Files\\Scrubhaven", &how,
                         &process_) != FALSE,
          std::string("start ") + kProgram);
  const Window started = window(kConsole, kStartLimit);
  waitUntil("the console to have the keyboard", [&] { return started.focused().handle() != nullptr; });
}

Program::~Program() {
  TerminateProcess(process_.hProcess, 1);
  WaitForSingleObject(process_.hProcess, kPatience);
  CloseHandle(process_.hThread);
  CloseHandle(process_.hProcess);
}

void Program::waitForEnd() const {
  require(WaitForSingleObject(process_.hProcess, kPatience) == WAIT_OBJECT_0, "see the program end");
}

void Program::waitForResults(const std::string& beginning) const {
  waitUntil('"' + beginning + '"', [&] {
    return std::ranges::any_of(console().labelTexts(), [&](auto& text) { return text.starts_with(beginning); });
  });
}

void Program::use(const std::string& button, const std::vector<Answer>& answers) const {
  console().control(button).click();
  for (const Answer& expected : answers) answer(expected);
}

Window Program::window(const std::string& title, DWORD limit) const {
  HWND found = nullptr;
  const auto isFound = [&] {
    found = findVisible(process_.dwProcessId, [&](HWND window) { return textOf(window) == title; });
    return found != nullptr;
  };
  waitUntil("the window \"" + title + '"', isFound, limit);
  return Window(found);
}

void Program::answer(const Answer& expected, DWORD limit) const {
  constexpr int kMessage = 0xFFFF;  // the id of a message box's text
  const Window box = window(expected.title, limit);
  const std::string message = textOf(GetDlgItem(box.handle(), kMessage));
  if (!expected.message.empty() && message != expected.message)
    throw Failed('"' + message + "\" instead of \"" + expected.message + '"');
  box.closeWith(expected.button);
}

bool Program::showsBox() const {
  return findVisible(process_.dwProcessId, [](HWND window) { return Control(window).className() == "#32770"; }) !=
         nullptr;
}

}  // namespace desktop
