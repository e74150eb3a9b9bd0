// The native window of one control: what all kinds have in common.
#pragma once

#include <windows.h>

#include <string>

#include "controls/Control.h"
#include "controls/Layout.h"
#include "controls/Peer.h"
#include "platform/win32/ui/ScreenMetrics.h"

namespace platform::win32 {

// What a peer needs of the window that it stands on.
struct Host {
  HWND window;
  const ScreenMetrics& metrics;
  bool& changed;  // to be set when a flush has something to do
};

// What CreateWindowExA is asked for, beside the place on the form.
struct NativeWindow {
  const char* windowClass;
  DWORD style;
  DWORD extendedStyle = 0;
};

// Changes of the control are only noted; flush() carries them to the native window.
class ControlPeer : public controls::Peer {
 public:
  ControlPeer(const Host& host, controls::Control& control, const NativeWindow& native);
  // By now the native window has been destroyed with its parent.
  ~ControlPeer() override;
  ControlPeer(const ControlPeer&) = delete;
  ControlPeer& operator=(const ControlPeer&) = delete;

  HWND handle() const { return handle_; }
  const controls::Control& control() const { return control_; }

  void changed(controls::Change change) override;
  // Brings the native window in line with the control.
  void flush();

  // Whether the control can have the keyboard now.
  bool takesFocus() const { return control_.shown() && control_.usable() && isKeyboardKind(); }

  // The place of the native window, which may need more than the control's place on the form (a drop-down's list).
  virtual controls::Rect nativePlace(const controls::Rect& place) const { return place; }
  // The native window has got its place.
  virtual void placed() {}

  // What the native window tells its parent: WM_COMMAND's notification code, WM_NOTIFY, WM_DRAWITEM.
  virtual void onCommand(int /*code*/) {}
  virtual LRESULT onNotify(NMHDR& /*header*/) { return 0; }
  virtual void draw(const DRAWITEMSTRUCT& /*item*/) {}

  // The shape of the pointer over the control; null for the window class's own.
  virtual HCURSOR cursor() const { return nullptr; }
  virtual void pointerEnters() {}
  virtual void pointerLeaves() {}

  // Enter, with the keyboard on the control; false when the control has no use for it.
  virtual bool press() { return false; }
  // Alt and the control's letter; false when the letter only brings the keyboard here.
  virtual bool clickByLetter() { return false; }

 protected:
  const ScreenMetrics& metrics() const { return host_.metrics; }
  // Redraws the native window without erasing it first.
  void redraw() const { InvalidateRect(handle_, nullptr, FALSE); }

  // Brings value or rows of the control to the native window; called by flush() when they have changed.
  virtual void showValue() {}

 private:
  bool isKeyboardKind() const;
  void showState();
  void showCaption();

  Host host_;
  controls::Control& control_;
  HWND handle_;
  bool shown_ = false;  // as the native window is
  bool usable_ = true;  // as the native window is
  bool captionChanged_ = false;
  bool valueChanged_ = true;
};

// What the native window's text is, by which screen readers know it: the caption, or the control's name where it shows
// a picture or rows instead.
std::string windowText(const controls::Control& control);

// `caption` for DrawText, with its first letter `mnemonic` underlined and every & shown as it is.
std::string withMnemonic(const std::string& caption, char mnemonic);

// Replaces the window procedure of a peer's native window. The peer is found by peerOf<P>(window).
void replaceProcedure(HWND window, ControlPeer& peer, WNDPROC procedure, WNDPROC& before);
template <typename P>
P& peerOf(HWND window) {
  return *static_cast<P*>(reinterpret_cast<ControlPeer*>(GetWindowLongPtrA(window, GWLP_USERDATA)));
}

}  // namespace platform::win32
