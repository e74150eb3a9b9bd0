#include "platform/win32/ui/Win32Ui.h"

#include <windows.h>

// Kept apart: the dialogs' header needs <windows.h> before it.
#include <commdlg.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <string>

#include "controls/Form.h"
#include "platform/Names.h"
#include "platform/win32/CodePage.h"
#include "platform/win32/RunTimeBinding.h"
#include "platform/win32/ui/CommonControls.h"
#include "platform/win32/ui/FormWindow.h"

namespace platform::win32 {
namespace {

// Sends WM_SETCURSOR to the window of this thread under the pointer, so that the shape changes without a mouse move.
void applyPointerAtOnce() {
  POINT position;
  if (!GetCursorPos(&position)) return;
  const HWND under = WindowFromPoint(position);
  if (under == nullptr || GetWindowThreadProcessId(under, nullptr) != GetCurrentThreadId()) return;
  const LRESULT part = SendMessageA(under, WM_NCHITTEST, 0, MAKELPARAM(position.x, position.y));
  SendMessageA(under, WM_SETCURSOR, reinterpret_cast<WPARAM>(under), MAKELPARAM(part, WM_MOUSEMOVE));
}

// The answer when the message box could not be shown: the one that does not consent.
Answer answerWhenNotShown(std::uint32_t style) {
  switch (style & MB_TYPEMASK) {
    case MB_YESNO:
      return Answer::kNo;
    case MB_OKCANCEL:
      return Answer::kCancel;
    default:
      return Answer::kOk;
  }
}

// The two generations of the open-file dialog. Only the wide one returns every name exactly.
struct WideDialog {
  using Character = wchar_t;
  using Record = OPENFILENAMEW;
  static DWORD recordSize() { return OPENFILENAME_SIZE_VERSION_400W; }
  static std::wstring text(const std::string& text) { return wideText(text); }
  static std::string path(const wchar_t* path) { return exactPath(path).value_or(""); }
  static bool show(Record& record) { return GetOpenFileNameW(&record) != FALSE; }
  static void readCurrentFolder(wchar_t* folder, DWORD size) { GetCurrentDirectoryW(size, folder); }
  static void setCurrentFolder(const wchar_t* folder) { SetCurrentDirectoryW(folder); }
};

struct NarrowDialog {
  using Character = char;
  using Record = OPENFILENAMEA;
  static DWORD recordSize() { return OPENFILENAME_SIZE_VERSION_400A; }
  static const std::string& text(const std::string& text) { return text; }
  static std::string path(const char* path) { return reachablePath(std::string(path)); }
  static bool show(Record& record) { return GetOpenFileNameA(&record) != FALSE; }
  static void readCurrentFolder(char* folder, DWORD size) { GetCurrentDirectoryA(size, folder); }
  static void setCurrentFolder(const char* folder) { SetCurrentDirectoryA(folder); }
};

template <typename Dialog>
Result<std::string> openFileDialogWith(HWND owner, const OpenFileRequest& request) {
  using Character = typename Dialog::Character;
  using Path = std::array<Character, MAX_PATH + 1>;
  // The dialog expects each part of the filter to end with NUL, and another NUL at the end, which c_str() appends.
  auto filter = Dialog::text(request.filter + '\0');
  std::ranges::replace(filter, Character{'|'}, Character{});
  const auto title = Dialog::text(request.title);
  Path path{};
  typename Dialog::Record dialog = {};
  // Windows 95 and NT 4 reject the longer structure of later systems.
  dialog.lStructSize = Dialog::recordSize();
  dialog.hwndOwner = owner;
  dialog.lpstrFilter = filter.c_str();
  dialog.lpstrFile = path.data();
  dialog.nMaxFile = path.size();
  dialog.lpstrTitle = title.c_str();
  Path before{};
  Dialog::readCurrentFolder(before.data(), before.size());
  const bool chosen = Dialog::show(dialog);
  // Wine's dialog changes the current folder when it is cancelled, and not when a file is chosen; Windows does the
  // opposite.
  const std::basic_string<Character> folder(path.data(), chosen ? dialog.nFileOffset : 0);
  Dialog::setCurrentFolder(chosen ? folder.c_str() : before.data());
  if (!chosen) return failure(kDialogCancelled);
  const std::string exact = Dialog::path(path.data());
  return isUsableName(exact.substr(exact.rfind('\\') + 1)) ? Result<std::string>(exact) : failure(kBadFileName);
}

// The text with its closing NUL in memory as the clipboard takes it; null when there is no memory.
template <typename Text>
HGLOBAL movableCopy(const Text& text) {
  const std::size_t size = (text.size() + 1) * sizeof(text[0]);
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, size);
  if (memory == nullptr) return nullptr;
  std::memcpy(GlobalLock(memory), text.c_str(), size);
  GlobalUnlock(memory);
  return memory;
}

HGLOBAL clipboardText(const std::string& text) {
  return hasWideCalls() ? movableCopy(wideText(text)) : movableCopy(text);
}

constexpr DWORD kServiceInterval = 50;  // milliseconds between two calls of serveSystem() that do something

bool isClickOrKey(UINT message) {
  const bool isKey = message >= WM_KEYFIRST && message <= WM_KEYLAST;
  return isKey || (message > WM_MOUSEMOVE && message <= WM_MOUSELAST);
}

}  // namespace

Win32Ui::Win32Ui() { startCommonControls(); }

Win32Ui::~Win32Ui() = default;

Answer Win32Ui::messageBox(const std::string& text, const std::string& title, std::uint32_t style) {
  flush();
  MSGBOXPARAMSA box = {};
  box.cbSize = sizeof(box);
  box.hwndOwner = activeWindow();
  box.hInstance = GetModuleHandleA(nullptr);
  box.lpszText = text.c_str();
  box.lpszCaption = title.c_str();
  box.dwStyle = style;
  box.lpszIcon = kIconName;
  const int pressed = MessageBoxIndirectA(&box);
  const auto answer = static_cast<Answer>(pressed);
  // Wine answers Esc in a Yes/No box with Cancel, which must not be taken for consent.
  const bool isYesNo = (style & MB_TYPEMASK) == MB_YESNO;
  return pressed == 0 || (isYesNo && answer != Answer::kYes) ? answerWhenNotShown(style) : answer;
}

Result<std::string> Win32Ui::openFileDialog(const OpenFileRequest& request) {
  flush();
  return hasWideCalls() ? openFileDialogWith<WideDialog>(activeWindow(), request)
                        : openFileDialogWith<NarrowDialog>(activeWindow(), request);
}

void Win32Ui::serveEvents() {
  const DWORD now = GetTickCount();
  if (now - servedAt_ < kMessageInterval) return;
  servedAt_ = now;
  if (now - flushedAt_ >= kFlushInterval) {
    flushedAt_ = now;
    flush();
  }
  MSG message;
  while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) dispatch(message);
}

void Win32Ui::serveSystem() {
  const DWORD now = GetTickCount();
  if (now - flushedAt_ < kServiceInterval) return;
  flushedAt_ = now;
  flush();
  MSG message;
  while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (!isClickOrKey(message.message)) dispatch(message);
  }
}

void Win32Ui::playSound(const std::string& path) {
  using Function = BOOL(WINAPI*)(const char*, HMODULE, DWORD);
  constexpr DWORD kFileWithoutWaiting = 0x20003;  // SND_FILENAME | SND_NODEFAULT | SND_ASYNC
  static const auto play = boundAtRunTime<Function>("winmm.dll", "PlaySoundA");
  if (play != nullptr) play(path.c_str(), nullptr, kFileWithoutWaiting);
}

bool Win32Ui::copyText(const std::string& text) {
  const HGLOBAL memory = clipboardText(text);
  if (memory == nullptr) return false;
  if (!OpenClipboard(activeWindow())) {
    GlobalFree(memory);
    return false;
  }
  EmptyClipboard();
  // The system owns the memory from here on, unless the call fails.
  const bool copied = SetClipboardData(hasWideCalls() ? CF_UNICODETEXT : CF_TEXT, memory) != nullptr;
  CloseClipboard();
  if (!copied) GlobalFree(memory);
  return copied;
}

void Win32Ui::setPointer(Pointer pointer) {
  if (pointer_ == pointer) return;
  pointer_ = pointer;
  applyPointerAtOnce();
}

void Win32Ui::runModal(controls::Form& form, controls::Form* owner) {
  FormWindow* const over = windowOf(owner);
  FormWindow& window = *windows_.emplace_back(std::make_unique<FormWindow>(form, over, *this));
  window.open();
  while (form.isOpen()) {
    flush();
    MSG message;
    // 0 is WM_QUIT, -1 a failure.
    if (GetMessageA(&message, nullptr, 0, 0) <= 0) end();
    dispatch(message);
  }
  window.close();
  windows_.pop_back();
}

void Win32Ui::end() { ExitProcess(0); }

HWND Win32Ui::activeWindow() const {
  const HWND active = GetActiveWindow();
  return active == nullptr && !windows_.empty() ? windows_.back()->handle() : active;
}

FormWindow* Win32Ui::windowOf(const controls::Form* form) const {
  for (const std::unique_ptr<FormWindow>& window : windows_) {
    if (&window->form() == form) return window.get();
  }
  return nullptr;
}

void Win32Ui::flush() {
  for (const std::unique_ptr<FormWindow>& window : windows_) window->flush();
}

void Win32Ui::dispatch(tagMSG& message) {
  if (message.message == WM_QUIT) end();
  for (const std::unique_ptr<FormWindow>& window : windows_) {
    if (window->handle(message)) return;
  }
  TranslateMessage(&message);
  DispatchMessageA(&message);
}

}  // namespace platform::win32
