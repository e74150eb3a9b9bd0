#include "platform/win32/ui/KeyNavigation.h"

#include <algorithm>
#include <utility>

namespace platform::win32 {
namespace {

using controls::Key;

constexpr struct {
  WPARAM code;
  Key key;
} kKeys[] = {{VK_F1, Key::kF1},
             {VK_F5, Key::kF5},
             {VK_ESCAPE, Key::kEscape},
             {VK_DELETE, Key::kDelete},
             {VK_BACK, Key::kBackspace},
             {'A', Key::kA},
             {'I', Key::kI}};

// Auto-repeat must not click a button that appeared after the first click.
bool isRepeated(const MSG& message) {
  constexpr LPARAM kWasDown = 1 << 30;
  return (message.lParam & kWasDown) != 0;
}

bool isDown(int key) { return GetKeyState(key) < 0; }

bool isDropped(HWND window) { return SendMessageA(window, CB_GETDROPPEDSTATE, 0, 0) != 0; }

std::vector<controls::Control*> controlsOf(const std::vector<ControlPeer*>& peers) {
  std::vector<controls::Control*> all;
  for (const ControlPeer* peer : peers) all.push_back(&peer->control());
  return all;
}

}  // namespace

KeyNavigation::KeyNavigation(controls::Form& form, std::vector<ControlPeer*> order)
    : form_(form), peers_(std::move(order)), order_(form, controlsOf(peers_)) {}

void KeyNavigation::setOrder(std::vector<ControlPeer*> order) {
  peers_ = std::move(order);
  order_.setOrder(controlsOf(peers_));
}

bool KeyNavigation::handle(const MSG& message) {
  if (message.message == WM_KEYDOWN) return pressKey(message);
  if (message.message == WM_SYSCHAR) return isRepeated(message) || pressLetter(static_cast<char>(message.wParam));
  return false;
}

bool KeyNavigation::pressKey(const MSG& message) {
  const ControlPeer* const peer = focused();
  controls::Control* const here = peer == nullptr ? nullptr : &peer->control();
  if (here != nullptr) {
    if (here->kind() == controls::Kind::kDriveList && isDropped(peer->handle())) return false;
    order_.visit(*here);
  }
  if (pressShortcut(message, here)) return true;
  switch (message.wParam) {
    case VK_TAB:
      return !isDown(VK_CONTROL) && pressTab(here, !isDown(VK_SHIFT));
    case VK_RETURN:
      return isRepeated(message) || pressEnter();
    case VK_LEFT:
    case VK_UP:
      return moveByArrow(here, false);
    case VK_RIGHT:
    case VK_DOWN:
      return moveByArrow(here, true);
    default:
      return false;
  }
}

// Right Alt counts as Ctrl and Alt, and makes characters.
bool KeyNavigation::pressShortcut(const MSG& message, controls::Control* here) {
  const auto isKey = [&message](const auto& one) { return one.code == message.wParam; };
  const auto* const known = std::ranges::find_if(kKeys, isKey);
  if (known == std::end(kKeys) || isDown(VK_SHIFT) || isDown(VK_MENU)) return false;
  return form_.pressKey({.key = known->key, .control = isDown(VK_CONTROL)}, here, isRepeated(message));
}

bool KeyNavigation::pressTab(const controls::Control* here, bool forward) {
  focus(order_.tab(here, forward));
  return true;
}

bool KeyNavigation::pressEnter() {
  ControlPeer* const here = focused();
  if (here != nullptr && here->press()) return true;
  if (form_.defaultButton() != nullptr) form_.defaultButton()->click();
  return true;
}

bool KeyNavigation::pressLetter(char letter) {
  const auto upper = static_cast<char>(reinterpret_cast<UINT_PTR>(
      CharUpperA(reinterpret_cast<char*>(static_cast<UINT_PTR>(static_cast<unsigned char>(letter))))));
  const auto answers = [upper](const ControlPeer* peer) {
    const controls::Control& control = peer->control();
    return control.mnemonic() == upper && control.shown() && control.usable();
  };
  const auto found = std::ranges::find_if(peers_, answers);
  if (found == peers_.end()) return false;
  const controls::Control& named = (*found)->control();
  focus(named.takesFocus() ? &named : order_.tab(&named, true));
  if (named.takesFocus()) (*found)->clickByMnemonic();
  return true;
}

bool KeyNavigation::moveByArrow(const controls::Control* here, bool forward) {
  const controls::Control* const there = here == nullptr ? nullptr : order_.arrow(*here, forward);
  focus(there);
  return there != nullptr;
}

ControlPeer* KeyNavigation::focused() const {
  const HWND window = GetFocus();
  const auto has = [window](const ControlPeer* peer) { return peer->handle() == window; };
  const auto found = std::ranges::find_if(peers_, has);
  return found == peers_.end() ? nullptr : *found;
}

// Selects the text of a text box, so that typing replaces it, as dialogs do.
void KeyNavigation::focus(const controls::Control* control) {
  const auto isIts = [control](const ControlPeer* peer) { return &peer->control() == control; };
  const auto found = std::ranges::find_if(peers_, isIts);
  if (found == peers_.end()) return;
  const HWND window = (*found)->handle();
  SetFocus(window);
  if ((SendMessageA(window, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL) != 0) SendMessageA(window, EM_SETSEL, 0, -1);
}

void KeyNavigation::restoreFocus() {
  if (remembered_ == nullptr) return focus(order_.first());
  focus(remembered_->takesFocus() ? &remembered_->control() : order_.refuge());
}

void KeyNavigation::rememberFocus() {
  ControlPeer* const here = focused();
  if (here != nullptr) remembered_ = here;
}

void KeyNavigation::beginChanges() { focusedBefore_ = focused(); }

void KeyNavigation::endChanges() {
  if (focusedBefore_ != nullptr && !focusedBefore_->takesFocus()) focus(order_.refuge());
}

}  // namespace platform::win32
