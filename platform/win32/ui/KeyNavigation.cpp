#include "platform/win32/ui/KeyNavigation.h"

#include <algorithm>

namespace platform::win32 {
namespace {

// Auto-repeat must not click a button that appeared after the first click.
bool isRepeated(const MSG& message) {
  constexpr LPARAM kWasDown = 1 << 30;
  return (message.lParam & kWasDown) != 0;
}

bool isDown(int key) { return GetKeyState(key) < 0; }

bool isDropped(HWND window) { return SendMessageA(window, CB_GETDROPPEDSTATE, 0, 0) != 0; }

bool usesArrows(HWND window) { return (SendMessageA(window, WM_GETDLGCODE, 0, 0) & DLGC_WANTARROWS) != 0; }

}  // namespace

KeyNavigation::KeyNavigation(const controls::Form& form, std::vector<ControlPeer*> order)
    : form_(form), order_(std::move(order)) {}

bool KeyNavigation::handle(const MSG& message) {
  if (message.message == WM_KEYDOWN) return pressKey(message);
  if (message.message == WM_SYSCHAR) return isRepeated(message) || pressLetter(static_cast<char>(message.wParam));
  return false;
}

bool KeyNavigation::pressKey(const MSG& message) {
  ControlPeer* const here = focused();
  if (here != nullptr && here->control().kind() == controls::Kind::kDriveList && isDropped(here->handle())) {
    return false;
  }
  switch (message.wParam) {
    case VK_TAB: {
      if (isDown(VK_CONTROL)) return false;
      ControlPeer* const there = next(here, !isDown(VK_SHIFT));
      if (there != nullptr) focus(*there);
      return true;
    }
    case VK_RETURN:
      return isRepeated(message) || pressEnter();
    case VK_ESCAPE:
      return isRepeated(message) || pressEscape();
    case VK_LEFT:
    case VK_UP:
      return moveByArrow(false);
    case VK_RIGHT:
    case VK_DOWN:
      return moveByArrow(true);
    default:
      return false;
  }
}

bool KeyNavigation::pressEnter() {
  ControlPeer* const here = focused();
  if (here != nullptr && here->press()) return true;
  if (form_.defaultButton() != nullptr) form_.defaultButton()->click();
  return true;
}

bool KeyNavigation::pressEscape() {
  if (form_.cancelButton() == nullptr) return false;
  form_.cancelButton()->click();
  return true;
}

bool KeyNavigation::pressLetter(char letter) {
  const auto upper = static_cast<char>(reinterpret_cast<UINT_PTR>(
      CharUpperA(reinterpret_cast<char*>(static_cast<UINT_PTR>(static_cast<unsigned char>(letter))))));
  const auto answers = [upper](const ControlPeer* peer) {
    const controls::Control& control = peer->control();
    return control.mnemonic() == upper && control.shown() && control.usable();
  };
  const auto found = std::ranges::find_if(order_, answers);
  if (found == order_.end()) return false;
  ControlPeer* const target = (*found)->takesFocus() ? *found : next(*found, true);
  if (target == nullptr) return false;
  focus(*target);
  if (target == *found) target->clickByMnemonic();
  return true;
}

// Arrow keys move the focus within one frame. The loop ends at the starting control, which must therefore be able to
// take the focus itself.
bool KeyNavigation::moveByArrow(bool forward) {
  ControlPeer* const here = focused();
  if (here == nullptr || !here->takesFocus() || usesArrows(here->handle())) return false;
  ControlPeer* there = next(here, forward);
  while (there != here && (there->control().frame() != here->control().frame() || usesArrows(there->handle()))) {
    there = next(there, forward);
  }
  focus(*there);
  return true;
}

ControlPeer* KeyNavigation::focused() const {
  const HWND window = GetFocus();
  const auto has = [window](const ControlPeer* peer) { return peer->handle() == window; };
  const auto found = std::ranges::find_if(order_, has);
  return found == order_.end() ? nullptr : *found;
}

ControlPeer* KeyNavigation::next(const ControlPeer* from, bool forward) const {
  const std::size_t count = order_.size();
  const auto start = static_cast<std::size_t>(std::ranges::find(order_, from) - order_.begin());
  // Without `from`, the search starts at the first control, or at the last one when it goes backward.
  std::size_t index = start < count ? start : forward ? count - 1 : 0;
  for (std::size_t step = 0; step < count; ++step) {
    index = (index + (forward ? 1 : count - 1)) % count;
    if (order_[index]->takesFocus()) return order_[index];
  }
  return nullptr;
}

// Selects the text of a text box, so that typing replaces it, as dialogs do.
void KeyNavigation::focus(ControlPeer& peer) {
  SetFocus(peer.handle());
  if ((SendMessageA(peer.handle(), WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL) != 0) {
    SendMessageA(peer.handle(), EM_SETSEL, 0, -1);
  }
}

void KeyNavigation::restoreFocus() {
  ControlPeer* const first = usablePeerOf(form_.firstFocus());
  ControlPeer* const target = remembered_ != nullptr && remembered_->takesFocus() ? remembered_
                              : first != nullptr                                  ? first
                                                                                  : next(nullptr, true);
  if (target != nullptr) focus(*target);
}

void KeyNavigation::rememberFocus() {
  ControlPeer* const here = focused();
  if (here != nullptr) remembered_ = here;
}

void KeyNavigation::beginChanges() { focusedBefore_ = focused(); }

// A control most often becomes unusable because work has started, so the focus goes to the cancel button; without one,
// to the control before, because the one after may be another button that starts something.
void KeyNavigation::endChanges() {
  ControlPeer* const before = focusedBefore_;
  if (before == nullptr || before->takesFocus()) return;
  const bool goesBack = before == successor_ && displaced_->takesFocus();
  ControlPeer* const cancel = usablePeerOf(form_.cancelButton());
  ControlPeer* const there = goesBack ? displaced_ : cancel != nullptr ? cancel : next(before, false);
  displaced_ = before;
  successor_ = goesBack ? nullptr : there;
  if (there != nullptr) focus(*there);
}

ControlPeer* KeyNavigation::usablePeerOf(const controls::Control* control) const {
  const auto isWanted = [control](const ControlPeer* peer) {
    return &peer->control() == control && peer->takesFocus();
  };
  const auto found = std::ranges::find_if(order_, isWanted);
  return found == order_.end() ? nullptr : *found;
}

}  // namespace platform::win32
