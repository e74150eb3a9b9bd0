#include "platform/win32/ui/ControlPeer.h"

#include <algorithm>

#include "controls/Label.h"

namespace platform::win32 {
namespace {

// WS_CLIPSIBLINGS: a control does not paint over one above it in the Z order, such as the status bar while the window
// is scrolled.
HWND createChild(const Host& host, const controls::Control& control, const NativeWindow& native) {
  const DWORD state = (control.shown() ? WS_VISIBLE : 0) | (control.usable() ? 0 : WS_DISABLED);
  const HWND window =
      CreateWindowExA(native.extendedStyle, native.windowClass, windowText(control).c_str(),
                      WS_CHILD | WS_CLIPSIBLINGS | native.style | state, host.place.x, host.place.y, host.place.width,
                      host.place.height, host.window, nullptr, GetModuleHandleA(nullptr), nullptr);
  SendMessageA(window, WM_SETFONT, reinterpret_cast<WPARAM>(host.metrics.font()), FALSE);
  return window;
}

char upper(char letter) { return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter; }

}  // namespace

std::string windowText(const controls::Control& control) {
  using controls::Kind;
  const Kind kind = control.kind();
  const bool isBar =
      kind == Kind::kLabel && static_cast<const controls::Label&>(control).ground() != controls::Ground::kWindow;
  const bool isNamed = isBar || kind == Kind::kButton || kind == Kind::kPicture || kind == Kind::kListView ||
                       kind == Kind::kDirList || kind == Kind::kFileList;
  if (isNamed && control.caption().empty()) return control.accessibleName();
  return control.mnemonic() == 0 ? control.caption() : withMnemonic(control.caption(), control.mnemonic());
}

std::string withMnemonic(const std::string& caption, char mnemonic) {
  const auto isMnemonic = [mnemonic](char letter) { return upper(letter) == mnemonic; };
  const auto marked = mnemonic == 0 ? caption.end() : std::ranges::find_if(caption, isMnemonic);
  std::string text;
  for (auto letter = caption.begin(); letter != caption.end(); ++letter) {
    if (letter == marked || *letter == '&') text += '&';
    text += *letter;
  }
  return text;
}

void replaceProcedure(HWND window, ControlPeer& peer, WNDPROC procedure, WNDPROC& before) {
  SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&peer));
  before = reinterpret_cast<WNDPROC>(SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure)));
}

ControlPeer::ControlPeer(const Host& host, controls::Control& control, const NativeWindow& native)
    : host_(host),
      control_(control),
      handle_(createChild(host, control, native)),
      shown_(control.shown()),
      usable_(control.usable()) {
  control_.attach(this);
  host_.changed = true;
}

ControlPeer::~ControlPeer() { control_.attach(nullptr); }

void ControlPeer::changed(controls::Change change) {
  host_.changed = true;
  if (change == controls::Change::kVisible) host_.rearrange = true;
  if (change == controls::Change::kCaption) captionChanged_ = true;
  if (change == controls::Change::kValue || change == controls::Change::kRows) valueChanged_ = true;
}

void ControlPeer::metricsChanged() {
  SendMessageA(handle_, WM_SETFONT, reinterpret_cast<WPARAM>(host_.metrics.font()), FALSE);
  changed(controls::Change::kValue);
}

void ControlPeer::flush() {
  if (captionChanged_) showCaption();
  if (valueChanged_) {
    // Reset first, because showValue() may change the control again.
    valueChanged_ = false;
    showValue();
  }
  showState();
}

void ControlPeer::showCaption() {
  captionChanged_ = false;
  SetWindowTextA(handle_, windowText(control_).c_str());
  redraw();
}

void ControlPeer::showState() {
  if (usable_ != control_.usable()) {
    usable_ = !usable_;
    EnableWindow(handle_, usable_);
    redraw();
  }
  if (shown_ != control_.shown()) {
    shown_ = !shown_;
    ShowWindow(handle_, shown_ ? SW_SHOWNA : SW_HIDE);
  }
}

}  // namespace platform::win32
