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
constexpr int kTickedImage = 2;  // state images of a list with check boxes: 1 without a tick, 2 with one

using Sender = decltype(&SendMessageTimeoutA);

// What the window's own thread answers to a message.
LRESULT ask(HWND window, UINT message, WPARAM w = 0, LPARAM l = 0, Sender send = SendMessageTimeoutA) {
  DWORD_PTR answer = 0;
  if (send(window, message, w, l, SMTO_ABORTIFHUNG, kAnswerLimit, &answer) == 0) {
    throw Failed("the program does not answer message " + std::to_string(message));
  }
  return static_cast<LRESULT>(answer);
}

// What the window says when it is asked: text boxes and tooltips keep their text to themselves.
std::string askedText(HWND window) {
  std::array<char, kTextRoom> text{};
  ask(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
  return text.data();
}

// What the system knows to be the window's text. Costs the program nothing, and a window may go meanwhile.
std::string textOf(HWND window) {
  std::array<char, kTextRoom> text{};
  GetWindowTextA(window, text.data(), static_cast<int>(text.size()));
  return text.data();
}

// The lines of a list box or drop-down. Asked for in wide characters, because Wine answers in
// them across processes however it is asked.
std::vector<std::string> lines(HWND window, UINT countMessage, UINT textMessage) {
  std::vector<std::string> lines;
  const auto count = ask(window, countMessage);
  for (int i = 0; i < count; ++i) {
    std::array<wchar_t, kTextRoom> wide{};
    ask(window, textMessage, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(wide.data()), SendMessageTimeoutW);
    std::array<char, kTextRoom> text{};
    WideCharToMultiByte(CP_ACP, 0, wide.data(), -1, text.data(), static_cast<int>(text.size()), nullptr, nullptr);
    lines.emplace_back(text.data());
  }
  return lines;
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

Kind kindOfButton(HWND window) {
  switch (GetWindowLongA(window, GWL_STYLE) & BS_TYPEMASK) {
    case BS_GROUPBOX:
      return Kind::kFrame;
    case BS_CHECKBOX:
    case BS_AUTOCHECKBOX:
      return Kind::kCheckBox;
    default:
      return Kind::kButton;
  }
}

const char* nameOf(Kind kind) {
  constexpr std::array<const char*, 9> kNames = {"button", "check box",   "frame",      "label",        "text box",
                                                 "list",   "folder list", "drive list", "other control"};
  return kNames[static_cast<std::size_t>(kind)];
}

bool contains(const RECT& outer, const RECT& inner) {
  return inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right &&
         inner.bottom <= outer.bottom;
}

// Wine's desktop raises a window some time after it has become the active one, by then perhaps over a window that has
// been opened in front of it. The screen shows the right order; only clicks would go astray.
void putBackOnTop(HWND window) { SetWindowPos(window, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE); }

// Memory of another process, for messages that carry an address.
class RemoteMemory {
 public:
  RemoteMemory(HWND window, SIZE_T size)
      : process_(OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, processOf(window))),
        address_(static_cast<char*>(VirtualAllocEx(process_, nullptr, size, MEM_COMMIT, PAGE_READWRITE))) {
    if (address_ == nullptr) throw Failed("no memory in the program");
  }
  ~RemoteMemory() {
    VirtualFreeEx(process_, address_, 0, MEM_RELEASE);
    CloseHandle(process_);
  }
  RemoteMemory(const RemoteMemory&) = delete;
  RemoteMemory& operator=(const RemoteMemory&) = delete;

  char* address() const { return address_; }

  template <typename T>
  void write(const T& value) {
    WriteProcessMemory(process_, address_, &value, sizeof(value), nullptr);
  }

  template <typename T>
  T read() const {
    T value;
    ReadProcessMemory(process_, address_, &value, sizeof(value), nullptr);
    return value;
  }

  std::string readText(SIZE_T offset) const {
    std::array<char, kTextRoom> text{};
    ReadProcessMemory(process_, address_ + offset, text.data(), text.size() - 1, nullptr);
    return text.data();
  }

 private:
  HANDLE process_;
  char* address_;
};

// What an enumeration of the visible windows of one process finds.
struct Found {
  DWORD process;
  std::vector<HWND> windows;
};

BOOL CALLBACK keepOwn(HWND window, LPARAM found) {
  auto& own = *reinterpret_cast<Found*>(found);
  if (processOf(window) == own.process && IsWindowVisible(window)) own.windows.push_back(window);
  return TRUE;
}

std::vector<HWND> visibleWindows(DWORD process) {
  Found found{process, {}};
  EnumWindows(keepOwn, reinterpret_cast<LPARAM>(&found));
  return found.windows;
}

HWND visibleToolTip(DWORD process) {
  for (const HWND window : visibleWindows(process)) {
    if (classOf(window) == TOOLTIPS_CLASSA) return window;
  }
  return nullptr;
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
  if (lstrcmpiA(name.c_str(), "Button") == 0) return kindOfButton(window_);
  const std::array<std::pair<const char*, Kind>, 5> kinds = {{{"Static", Kind::kLabel},
                                                              {"Edit", Kind::kTextBox},
                                                              {WC_LISTVIEWA, Kind::kList},
                                                              {"ListBox", Kind::kFolderList},
                                                              {"ComboBox", Kind::kDriveList}}};
  const auto* known =
      std::ranges::find_if(kinds, [&name](const auto& entry) { return lstrcmpiA(name.c_str(), entry.first) == 0; });
  return known == kinds.end() ? Kind::kOther : known->second;
}

std::string Control::text() const { return kind() == Kind::kTextBox ? askedText(window_) : textOf(window_); }

bool Control::visible() const { return IsWindowVisible(window_) != FALSE; }

bool Control::enabled() const {
  const HWND root = GetAncestor(window_, GA_ROOT);
  for (HWND window = window_; window != nullptr && window != root; window = GetParent(window)) {
    if (!IsWindowEnabled(window)) return false;
  }
  return true;
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
  waitUntil("a free way to \"" + text() + "\"", [this, root] {
    const HWND onTop = GetAncestor(WindowFromPoint(centre()), GA_ROOT);
    if (onTop != root && onTop == GetWindow(root, GW_OWNER)) putBackOnTop(root);
    return onTop == root;
  });
  clickAt(centre());
}

// ---- List -----------------------------------------------------------------------------------------------------------

List::List(Control control) : Control(control) {
  if (kind() != Kind::kList) throw Failed("this is no list");
}

std::vector<std::string> List::columns() const {
  const auto header = reinterpret_cast<HWND>(ask(handle(), LVM_GETHEADER));
  const auto count = ask(header, HDM_GETITEMCOUNT);
  RemoteMemory memory(header, sizeof(HDITEMA) + kTextRoom);
  std::vector<std::string> titles;
  for (int i = 0; i < count; ++i) {
    HDITEMA item = {};
    item.mask = HDI_TEXT;
    item.pszText = memory.address() + sizeof(item);
    item.cchTextMax = kTextRoom - 1;
    memory.write(item);
    ask(header, HDM_GETITEMA, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(memory.address()));
    titles.push_back(memory.readText(sizeof(item)));
  }
  return titles;
}

int List::rowCount() const { return static_cast<int>(ask(handle(), LVM_GETITEMCOUNT)); }

std::string List::cell(int row, int column) const {
  RemoteMemory memory(handle(), sizeof(LVITEMA) + kTextRoom);
  LVITEMA item = {};
  item.iSubItem = column;
  item.pszText = memory.address() + sizeof(item);
  item.cchTextMax = kTextRoom - 1;
  memory.write(item);
  ask(handle(), LVM_GETITEMTEXTA, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(memory.address()));
  return memory.readText(sizeof(item));
}

bool List::ticked(int row) const {
  const LRESULT state = ask(handle(), LVM_GETITEMSTATE, static_cast<WPARAM>(row), LVIS_STATEIMAGEMASK);
  return state == INDEXTOSTATEIMAGEMASK(kTickedImage);
}

std::vector<Row> List::rows() const {
  std::vector<Row> rows;
  const int count = rowCount();
  for (int i = 0; i < count; ++i) rows.push_back({cell(i, 0), cell(i, 1), ticked(i)});
  return rows;
}

int List::find(const std::string& text) const {
  const int count = rowCount();
  for (int i = 0; i < count; ++i) {
    if (cell(i, 0) == text) return i;
  }
  throw Failed("no row \"" + text + "\" is listed");
}

RECT List::part(int row, int code) const {
  RemoteMemory memory(handle(), sizeof(RECT));
  memory.write(RECT{code, 0, 0, 0});
  ask(handle(), LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(memory.address()));
  auto part = memory.read<RECT>();
  MapWindowPoints(handle(), nullptr, reinterpret_cast<POINT*>(&part), 2);
  return part;
}

void List::clickTick(int row) const {
  ask(handle(), LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
  const RECT whole = part(row, LVIR_BOUNDS);
  const RECT label = part(row, LVIR_LABEL);
  clickAt({(whole.left + label.left) / 2, (whole.top + whole.bottom) / 2});
}

void List::clickText(int row) const {
  constexpr int kInsideText = 12;  // pixels behind the start of the text
  ask(handle(), LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
  const RECT label = part(row, LVIR_LABEL);
  clickAt({label.left + kInsideText, (label.top + label.bottom) / 2});
}

// ---- FolderList, DriveList ------------------------------------------------------------------------------------------

std::vector<std::string> FolderList::entries() const { return lines(handle(), LB_GETCOUNT, LB_GETTEXT); }

void FolderList::open(const std::string& entry) const {
  const std::vector<std::string> before = entries();
  const auto line = std::ranges::find(before, entry);
  if (line == before.end()) throw Failed("the folder list does not show \"" + entry + "\"");
  const auto index = static_cast<WPARAM>(line - before.begin());
  ask(handle(), LB_SETTOPINDEX, index);
  RECT at = {};
  ask(handle(), LB_GETITEMRECT, index, reinterpret_cast<LPARAM>(&at));
  MapWindowPoints(handle(), nullptr, reinterpret_cast<POINT*>(&at), 2);
  doubleClickAt({(at.left + at.right) / 2, (at.top + at.bottom) / 2});
  waitUntil("the folder list of \"" + entry + "\"", [this, &before] { return entries() != before; });
}

std::vector<std::string> DriveList::entries() const { return lines(handle(), CB_GETCOUNT, CB_GETLBTEXT); }

std::string DriveList::chosen() const {
  const auto index = ask(handle(), CB_GETCURSEL);
  const std::vector<std::string> all = entries();
  return index < 0 ? std::string() : all.at(static_cast<std::size_t>(index));
}

// ---- Window ---------------------------------------------------------------------------------------------------------

std::string Window::title() const { return textOf(window_); }

bool Window::isOpen() const { return IsWindow(window_) && IsWindowVisible(window_); }

bool Window::takesInput() const { return IsWindowEnabled(window_) != FALSE; }

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
  std::vector<Control> found = controls();
  std::erase_if(found,
                [&](const Control& control) { return textOf(control.handle()) != text || control.kind() != kind; });
  if (found.size() == 1) return found.front();
  throw Failed(std::to_string(found.size()) + " controls instead of one are the " + nameOf(kind) + " \"" + text + "\"");
}

Control Window::buttonAfter(const std::string& label, const std::string& text) const {
  bool passed = false;
  for (const Control& control : controls()) {
    if (control.kind() == Kind::kLabel && control.text() == label) passed = true;
    if (passed && control.kind() == Kind::kButton && control.text() == text) return control;
  }
  throw Failed("no button \"" + text + "\" after \"" + label + "\"");
}

Control Window::buttonIn(const std::string& frame, const std::string& text) const {
  const RECT around = this->frame(frame).place();
  for (const Control& control : all(Kind::kButton)) {
    if (control.text() == text && contains(around, control.place())) return control;
  }
  throw Failed("no button \"" + text + "\" in \"" + frame + "\"");
}

List Window::list(const std::vector<std::string>& columns) const {
  for (const Control& control : all(Kind::kList)) {
    const List list(control);
    if (list.columns() == columns) return list;
  }
  throw Failed("no list has the columns asked for, beginning with \"" + columns.front() + "\"");
}

FolderList Window::folderList() const { return FolderList(only(Kind::kFolderList, "Dir1")); }

std::vector<std::string> Window::fileList() const { return FolderList(only(Kind::kFolderList, "File1")).entries(); }

DriveList Window::driveList() const {
  const std::vector<Control> lists = all(Kind::kDriveList);
  if (lists.size() != 1) throw Failed(std::to_string(lists.size()) + " drive lists");
  return DriveList(lists.front());
}

std::vector<Control> Window::textBoxes() const { return all(Kind::kTextBox); }

std::vector<std::string> Window::labelTexts() const {
  std::vector<std::string> texts;
  for (const Control& label : all(Kind::kLabel)) {
    if (label.visible()) texts.push_back(label.text());
  }
  return texts;
}

std::string Window::toolTipOf(const Control& control) const {
  const DWORD process = processOf(window_);
  const RECT inner = inside();
  // Two pixels from the window's corner there is nothing to tell about.
  movePointer({inner.left + 2, inner.top + 2});
  waitUntil("the last tooltip to go", [process] { return visibleToolTip(process) == nullptr; });
  const DWORD start = GetTickCount();
  while (GetTickCount() - start < kToolTipLimit) {
    if (!isPointerAt(control.centre())) movePointer(control.centre());
    const HWND toolTip = visibleToolTip(process);
    if (toolTip != nullptr) return askedText(toolTip);
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
    RECT place = {};
    GetWindowRect(window_, &place);
    return place.right - place.left == width && place.bottom - place.top == height;
  });
}

void Window::waitUntilDrawn() const {
  // Drawing reaches the screen a little later than it leaves the program.
  constexpr DWORD kReachesScreen = 150;  // milliseconds
  const std::vector<Control> all = controls();
  waitUntil("the window to be drawn", [this, &all] {
    return !GetUpdateRect(window_, nullptr, FALSE) && std::ranges::none_of(all, [](const Control& control) {
      return GetUpdateRect(control.handle(), nullptr, FALSE) != FALSE;
    });
  });
  Sleep(kReachesScreen);
}

std::vector<DWORD> Window::picture() const {
  RECT place = {};
  GetWindowRect(window_, &place);
  const int width = place.right - place.left;
  const int height = place.bottom - place.top;
  BITMAPINFO format = {};
  format.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
  format.bmiHeader.biWidth = width;
  format.bmiHeader.biHeight = -height;  // the first line on top
  format.bmiHeader.biPlanes = 1;
  format.bmiHeader.biBitCount = 32;
  const HDC screen = GetDC(nullptr);
  const HDC copy = CreateCompatibleDC(screen);
  void* bits = nullptr;
  const HBITMAP bitmap = CreateDIBSection(screen, &format, DIB_RGB_COLORS, &bits, nullptr, 0);
  const HGDIOBJ before = SelectObject(copy, bitmap);
  BitBlt(copy, 0, 0, width, height, screen, place.left, place.top, SRCCOPY);
  GdiFlush();
  const auto* pixels = static_cast<const DWORD*>(bits);
  std::vector<DWORD> picture(pixels, pixels + static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
  SelectObject(copy, before);
  DeleteObject(bitmap);
  DeleteDC(copy);
  ReleaseDC(nullptr, screen);
  return picture;
}

void Window::redraw() const {
  RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
  waitUntilDrawn();
}

void Window::clickTitleBarClose() const {
  RECT place = {};
  GetWindowRect(window_, &place);
  const int y = (place.top + inside().top) / 2;
  for (int x = place.right; x > place.left; --x) {
    if (ask(window_, WM_NCHITTEST, 0, MAKELPARAM(x, y)) != HTCLOSE) continue;
    constexpr int kInsideButton = 5;
    clickAt({x - kInsideButton, y});
    return;
  }
  throw Failed("the title bar has no close button");
}

// ---- Box ------------------------------------------------------------------------------------------------------------

std::string Box::message() const {
  constexpr int kMessage = 0xFFFF;  // the id that message boxes give their text
  return textOf(GetDlgItem(handle(), kMessage));
}

std::vector<std::string> Box::buttons() const {
  std::vector<Control> found = controls();
  std::erase_if(found, [](const Control& control) { return control.kind() != Kind::kButton || !control.visible(); });
  std::ranges::sort(found, {}, [](const Control& control) { return control.place().left; });
  std::vector<std::string> texts;
  for (const Control& control : found) {
    std::string text = control.text();
    std::erase(text, '&');
    texts.push_back(text);
  }
  return texts;
}

std::string Box::defaultButton() const {
  std::string text = Control(keyboardOwner(handle())).text();
  std::erase(text, '&');
  return text;
}

void Box::press(const std::string& button) const {
  for (const Control& control : controls()) {
    if (control.kind() != Kind::kButton || !control.visible()) continue;
    std::string text = control.text();
    std::erase(text, '&');
    if (text != button) continue;
    control.click();
    waitUntil("the box to go after \"" + button + "\"", [this] { return !isOpen(); });
    return;
  }
  throw Failed("the box has no button \"" + button + "\"");
}

// ---- Program --------------------------------------------------------------------------------------------------------

Program::Program() : job_(CreateJobObjectA(nullptr, nullptr)) {
  JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits = {};
  limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
  SetInformationJobObject(job_, JobObjectExtendedLimitInformation, &limits, sizeof(limits));

  try {
    start();
    waitForWindow(kConsoleTitle, false, kStartLimit);
    focused();
  } catch (...) {
    end();
    throw;
  }
}

Program::~Program() { end(); }

// Suspended until it is in the job, so that it never runs outside.
void Program::start() {
  STARTUPINFOA how = {};
  how.cb = sizeof(how);
  std::string command = std::string("\"") + kProgram + "\"";
  if (!CreateProcessA(kProgram, command.data(), nullptr, nullptr, FALSE, CREATE_SUSPENDED, nullptr, kProgramFolder,
                      &how, &process_)) {
    throw Failed(std::string("cannot start ") + kProgram + " (error " + std::to_string(GetLastError()) + ")");
  }
  AssignProcessToJobObject(job_, process_.hProcess);
  ResumeThread(process_.hThread);
}

void Program::end() {
  if (process_.hProcess != nullptr) {
    TerminateProcess(process_.hProcess, 1);
    WaitForSingleObject(process_.hProcess, kPatience);
    CloseHandle(process_.hThread);
    CloseHandle(process_.hProcess);
  }
  CloseHandle(job_);
}

bool Program::running() const { return WaitForSingleObject(process_.hProcess, 0) == WAIT_TIMEOUT; }

void Program::waitForEnd() const {
  waitUntil("the program to end", [this] { return !running(); });
}

HWND Program::find(const std::string& title, bool boxes) const {
  for (const HWND window : visibleWindows(process_.dwProcessId)) {
    if ((classOf(window) == kBoxClass) == boxes && textOf(window) == title) return window;
  }
  return nullptr;
}

void Program::waitForWindow(const std::string& title, bool boxes, DWORD limit) const {
  waitUntil((boxes ? "the message box \"" : "the window \"") + title + "\"",
            [&] {
              if (!running()) throw Failed("the program has ended while \"" + title + "\" was awaited");
              return find(title, boxes) != nullptr;
            },
            limit);
}

Window Program::window(const std::string& title) const {
  waitForWindow(title, false, kPatience);
  return Window(find(title, false));
}

Box Program::box(const std::string& title, DWORD limit) const {
  waitForWindow(title, true, limit);
  return Box(find(title, true));
}

std::vector<std::string> Program::titles() const {
  std::vector<std::string> titles;
  for (const HWND window : visibleWindows(process_.dwProcessId)) {
    const std::string title = textOf(window);
    if (!title.empty() && classOf(window) != TOOLTIPS_CLASSA) titles.push_back(title);
  }
  return titles;
}

Control Program::focused() const {
  const HWND console = find(kConsoleTitle, false);
  waitUntil("a control to have the keyboard", [console] { return keyboardOwner(console) != nullptr; });
  return Control(keyboardOwner(console));
}

}  // namespace desktop
