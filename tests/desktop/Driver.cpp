#include "tests/desktop/Driver.h"

// Kept apart: the common controls' header needs <windows.h> before it.
#include <commctrl.h>

#include <algorithm>
#include <array>

namespace desktop {
namespace {

constexpr const char* kProgram = "C:\\Program Files\\Scrubhaven\\scrubhaven.exe";
constexpr const char* kProgramFolder = "C:\\Program Files\\Scrubhaven";
constexpr const char* kBoxClass = "#32770";

constexpr DWORD kAnswerLimit = 5000;   // milliseconds for one message
constexpr DWORD kStartLimit = 20000;   // milliseconds: the first start in a prefix starts Wine's services too
constexpr DWORD kToolTipLimit = 3000;  // milliseconds
constexpr int kTextRoom = 1024;

using Sender = decltype(&SendMessageTimeoutA);

// What the window's own thread answers to a message.
LRESULT ask(HWND window, UINT message, WPARAM w = 0, LPARAM l = 0, Sender send = SendMessageTimeoutA) {
  DWORD_PTR answer = 0;
  if (send(window, message, w, l, SMTO_ABORTIFHUNG, kAnswerLimit, &answer) == 0) {
    throw Failed("the program does not answer message " + std::to_string(message));
  }
  return static_cast<LRESULT>(answer);
}

// What the window says when it is asked: some controls keep their text to themselves.
std::string askedText(HWND window) {
  std::array<char, kTextRoom> text{};
  ask(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
  return text.data();
}

// What the system knows to be the window's text, without the mark of its letter. Costs the program nothing, and a
// window may go meanwhile.
std::string textOf(HWND window) {
  std::array<char, kTextRoom> buffer{};
  GetWindowTextA(window, buffer.data(), static_cast<int>(buffer.size()));
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

// A record in the memory of another process, for messages that carry an address, with room for a text behind it.
template <typename Record>
class RemoteRecord {
 public:
  explicit RemoteRecord(HWND window)
      : window_(window),
        process_(OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, processOf(window))),
        address_(static_cast<char*>(
            VirtualAllocEx(process_, nullptr, sizeof(Record) + kTextRoom, MEM_COMMIT, PAGE_READWRITE))) {
    if (address_ == nullptr) throw Failed("no memory in the program");
  }
  ~RemoteRecord() {
    VirtualFreeEx(process_, address_, 0, MEM_RELEASE);
    CloseHandle(process_);
  }
  RemoteRecord(const RemoteRecord&) = delete;
  RemoteRecord& operator=(const RemoteRecord&) = delete;

  // Sends the message with the record, and gives what it has become.
  Record exchange(UINT message, int index, Record record) const {
    WriteProcessMemory(process_, address_, &record, sizeof(record), nullptr);
    ask(window_, message, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(address_));
    ReadProcessMemory(process_, address_, &record, sizeof(record), nullptr);
    return record;
  }

  // The same with a record that has a text, which is what it gives.
  std::string textBy(UINT message, int index, Record record) const {
    record.pszText = address_ + sizeof(record);
    record.cchTextMax = kTextRoom - 1;
    exchange(message, index, record);
    std::array<char, kTextRoom> text{};
    ReadProcessMemory(process_, address_ + sizeof(record), text.data(), text.size() - 1, nullptr);
    return text.data();
  }

 private:
  HWND window_;
  HANDLE process_;
  char* address_;
};

std::vector<HWND> visibleWindows(DWORD process) {
  std::vector<HWND> windows;
  for (HWND window = GetTopWindow(nullptr); window != nullptr; window = GetWindow(window, GW_HWNDNEXT)) {
    if (processOf(window) == process && IsWindowVisible(window)) windows.push_back(window);
  }
  return windows;
}

HWND visibleOfClass(DWORD process, const std::string& name) {
  const std::vector<HWND> windows = visibleWindows(process);
  const auto found = std::ranges::find(windows, name, classOf);
  return found == windows.end() ? nullptr : *found;
}

// The control that has the keyboard in the thread of `window`, or null.
HWND keyboardOwner(HWND window) {
  GUITHREADINFO info = {};
  info.cbSize = sizeof(info);
  const DWORD thread = GetWindowThreadProcessId(window, nullptr);
  return GetGUIThreadInfo(thread, &info) ? info.hwndFocus : nullptr;
}

}  // namespace

// ---- Control --------------------------------------------------------------------------------------------------------

Kind Control::kind() const {
  const std::string name = classOf(window_);
  if (name == "Button") {
    const LONG type = GetWindowLongA(window_, GWL_STYLE) & BS_TYPEMASK;
    if (type == BS_GROUPBOX) return Kind::kFrame;
    return type == BS_CHECKBOX || type == BS_AUTOCHECKBOX ? Kind::kCheckBox : Kind::kButton;
  }
  if (name == "Static") return Kind::kLabel;
  if (name == "Edit") return Kind::kTextBox;
  if (name == WC_LISTVIEWA) return Kind::kList;
  if (name == "ListBox") return Kind::kLines;
  return name == "ComboBox" ? Kind::kDriveList : Kind::kOther;
}

std::string Control::text() const {
  const bool isAsked = kind() == Kind::kTextBox || kind() == Kind::kDriveList;
  return isAsked ? askedText(window_) : textOf(window_);
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
  // Wine's desktop raises a window some time after it has become the active one, by then perhaps over a window that has
  // been opened in front of it. The screen shows the right order; only clicks would go astray.
  waitUntil("a free way to \"" + text() + "\"", [this, root] {
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
  for (int i = 0; i < ask(header, HDM_GETITEMCOUNT); ++i) {
    titles.push_back(RemoteRecord<HDITEMA>(header).textBy(HDM_GETITEMA, i, item));
  }
  return titles;
}

int List::rowCount() const { return static_cast<int>(ask(handle(), LVM_GETITEMCOUNT)); }

std::string List::cell(int row, int column) const {
  LVITEMA item = {};
  item.iSubItem = column;
  return RemoteRecord<LVITEMA>(handle()).textBy(LVM_GETITEMTEXTA, row, item);
}

bool List::ticked(int row) const {
  constexpr int kTickedImage = 2;  // state images of a list with check boxes: 1 without a tick, 2 with one
  const LRESULT state = ask(handle(), LVM_GETITEMSTATE, static_cast<WPARAM>(row), LVIS_STATEIMAGEMASK);
  return state == INDEXTOSTATEIMAGEMASK(kTickedImage);
}

Texts List::texts(int column) const {
  Texts texts;
  const int count = rowCount();
  for (int row = 0; row < count; ++row) texts.push_back(cell(row, column));
  return texts;
}

RECT List::part(int row, int code) const {
  ask(handle(), LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
  RECT part = RemoteRecord<RECT>(handle()).exchange(LVM_GETITEMRECT, row, {code, 0, 0, 0});
  MapWindowPoints(handle(), nullptr, reinterpret_cast<POINT*>(&part), 2);
  return part;
}

void List::clickRow(int row) const {
  constexpr int kInsideText = 12;  // pixels behind the start of the text
  const RECT label = part(row, LVIR_LABEL);
  clickAt({label.left + kInsideText, (label.top + label.bottom) / 2});
}

void List::flip(const std::string& text) const {
  const Texts all = texts();
  const auto row = static_cast<int>(std::ranges::find(all, text) - all.begin());
  if (row == static_cast<int>(all.size())) throw Failed("no row \"" + text + "\" is listed");
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

// Asked for in wide characters, because Wine answers in them across processes however it is asked.
Texts Window::linesOf(const std::string& list) const {
  const HWND lines = only(Kind::kLines, list).handle();
  const LRESULT count = ask(lines, LB_GETCOUNT);
  Texts texts;
  for (int i = 0; i < count; ++i) {
    std::array<wchar_t, kTextRoom> wide{};
    ask(lines, LB_GETTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(wide.data()), SendMessageTimeoutW);
    std::array<char, kTextRoom> text{};
    WideCharToMultiByte(CP_ACP, 0, wide.data(), -1, text.data(), static_cast<int>(text.size()), nullptr, nullptr);
    texts.emplace_back(text.data());
  }
  return texts;
}

void Window::openFolder(const std::string& line) const {
  const HWND list = only(Kind::kLines, "Dir1").handle();
  const Texts before = folders();
  const auto index = static_cast<WPARAM>(std::ranges::find(before, line) - before.begin());
  if (index == before.size()) throw Failed("the folder list does not show \"" + line + "\"");
  ask(list, LB_SETTOPINDEX, index);
  RECT at = {};
  ask(list, LB_GETITEMRECT, index, reinterpret_cast<LPARAM>(&at));
  MapWindowPoints(list, nullptr, reinterpret_cast<POINT*>(&at), 2);
  clickAt({(at.left + at.right) / 2, (at.top + at.bottom) / 2}, 2);
  waitUntil("the folder list of \"" + line + "\"", [this, &before] { return folders() != before; });
}

Texts Window::labelTexts() const {
  Texts texts;
  for (const Control& label : all(Kind::kLabel)) {
    if (label.visible()) texts.push_back(label.text());
  }
  return texts;
}

std::string Window::toolTipOf(const Control& control) const {
  const auto shown = [process = processOf(window_)] { return visibleOfClass(process, TOOLTIPS_CLASSA); };
  const RECT inner = inside();
  // Two pixels from the window's corner there is nothing to tell about.
  movePointer({inner.left + 2, inner.top + 2});
  waitUntil("the last tooltip to go", [&shown] { return shown() == nullptr; });
  const DWORD start = GetTickCount();
  while (GetTickCount() - start < kToolTipLimit) {
    if (!isPointerAt(control.centre())) movePointer(control.centre());
    if (const HWND toolTip = shown()) return askedText(toolTip);
    Sleep(10);
  }
  return "";
}

RECT Window::inside() const {
  RECT inside = {};
  GetClientRect(window_, &inside);
  MapWindowPoints(window_, nullptr, reinterpret_cast<POINT*>(&inside), 2);
  return inside;
}

void Window::resize(int width, int height) const {
  SetWindowPos(window_, nullptr, 0, 0, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
  waitUntil("the window to take its size", [this, width, height] {
    const RECT place = Control(window_).place();
    return place.right - place.left == width && place.bottom - place.top == height;
  });
}

void Window::waitUntilDrawn() const {
  // Drawing reaches the screen a little later than it leaves the program.
  constexpr DWORD kReachesScreen = 150;  // milliseconds
  const auto isDrawn = [](HWND window) { return GetUpdateRect(window, nullptr, FALSE) == FALSE; };
  waitUntil("the window to be drawn",
            [&] { return isDrawn(window_) && std::ranges::all_of(controls(), isDrawn, &Control::handle); });
  Sleep(kReachesScreen);
}

std::vector<DWORD> Window::picture() const {
  const RECT place = Control(window_).place();
  const int width = place.right - place.left;
  const int height = place.bottom - place.top;
  BITMAPINFO format = {{sizeof(BITMAPINFOHEADER), width, height, 1, 32, BI_RGB, 0, 0, 0, 0, 0}, {}};
  std::vector<DWORD> pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
  const HDC screen = GetDC(nullptr);
  const HDC copy = CreateCompatibleDC(screen);
  const HBITMAP bitmap = CreateCompatibleBitmap(screen, width, height);
  const HGDIOBJ before = SelectObject(copy, bitmap);
  BitBlt(copy, 0, 0, width, height, screen, place.left, place.top, SRCCOPY);
  SelectObject(copy, before);
  GetDIBits(screen, bitmap, 0, static_cast<UINT>(height), pixels.data(), &format, DIB_RGB_COLORS);
  DeleteObject(bitmap);
  DeleteDC(copy);
  ReleaseDC(nullptr, screen);
  return pixels;
}

// ---- Box ------------------------------------------------------------------------------------------------------------

std::string Box::message() const {
  constexpr int kMessage = 0xFFFF;  // the id that message boxes give their text
  return textOf(GetDlgItem(handle(), kMessage));
}

std::string Box::defaultButton() const { return textOf(keyboardOwner(handle())); }

void Box::press(const std::string& button) const {
  this->button(button).click();
  waitUntil("the box to go after \"" + button + "\"", [this] { return !isOpen(); });
}

// ---- Program --------------------------------------------------------------------------------------------------------

Program::Program() : Program(CreateJobObjectA(nullptr, nullptr)) {
  JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits = {};
  limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
  SetInformationJobObject(job_, JobObjectExtendedLimitInformation, &limits, sizeof(limits));
  STARTUPINFOA how = {};
  how.cb = sizeof(how);
  // Suspended until it is in the job, so that it never runs outside.
  if (!CreateProcessA(kProgram, nullptr, nullptr, nullptr, FALSE, CREATE_SUSPENDED, nullptr, kProgramFolder, &how,
                      &process_)) {
    throw Failed(std::string("cannot start ") + kProgram + " (error " + std::to_string(GetLastError()) + ")");
  }
  AssignProcessToJobObject(job_, process_.hProcess);
  ResumeThread(process_.hThread);
  await(kConsoleTitle, false, kStartLimit);
  focused();
}

Program::~Program() {
  TerminateJobObject(job_, 1);
  WaitForSingleObject(process_.hProcess, kPatience);
  CloseHandle(process_.hThread);
  CloseHandle(process_.hProcess);
  CloseHandle(job_);
}

void Program::waitForEnd() const {
  waitUntil("the program to end", [this] { return !running(); });
}

std::string Program::resultLine() const {
  for (const std::string& text : console().labelTexts()) {
    if (text.find("Results: ") < 2) return text;
  }
  return "";
}

void Program::waitForConsole() const {
  waitUntil("the console to take input", [this] { return console().takesInput(); });
}

HWND Program::await(const std::string& title, bool isBox, DWORD limit) const {
  HWND found = nullptr;
  const auto search = [&] {
    if (!running()) throw Failed("the program has ended while \"" + title + "\" was awaited");
    for (const HWND window : visibleWindows(process_.dwProcessId)) {
      if ((classOf(window) == kBoxClass) == isBox && textOf(window) == title) found = window;
    }
    return found != nullptr;
  };
  waitUntil((isBox ? "the message box \"" : "the window \"") + title + "\"", search, limit);
  return found;
}

bool Program::showsBox() const { return visibleOfClass(process_.dwProcessId, kBoxClass) != nullptr; }

void Program::answer(const std::string& title, const std::string& message, const std::string& button,
                     DWORD limit) const {
  const Box next = box(title, limit);
  const std::string said = next.message();
  if (said != message) throw Failed("the box \"" + title + "\" says \"" + said + "\" instead of \"" + message + "\"");
  next.press(button);
}

Control Program::focused() const {
  const HWND window = console().handle();
  waitUntil("a control to have the keyboard", [window] { return keyboardOwner(window) != nullptr; });
  return Control(keyboardOwner(window));
}

}  // namespace desktop
