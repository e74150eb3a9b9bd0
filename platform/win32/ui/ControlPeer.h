// The base class of the native windows of controls.
#pragma once

#include <windows.h>

#include <string>

#include "controls/Control.h"
#include "controls/Layout.h"
#include "controls/Peer.h"
#include "platform/win32/ui/ScreenMetrics.h"

namespace platform::win32 {

// IDC_HAND, from Windows 98 and 2000 on.
inline constexpr int kHandPointer = 32649;

// What a peer needs of the form's window.
struct Host {
  HWND window;
  const ScreenMetrics& metrics;
  controls::Rect place;  // where the native window is created, in pixels
  bool& changed;         // set by peers when they need a flush()
  bool& rearrange;       // set by peers when a control has been shown or hidden
};

// The arguments of CreateWindowExA that depend on the kind of control.
struct NativeWindow {
  const char* windowClass;
  DWORD style;
  DWORD extendedStyle = 0;
};

// Changes of the control are recorded by changed() and applied to the native window by flush().
class ControlPeer : public controls::Peer {
 public:
  // Creates the native window and attaches this peer to `control`. The window has the control's
  // state.
  ControlPeer(const Host& host, controls::Control& control, const NativeWindow& native);
  // The native window must have been destroyed before, together with its parent.
  ~ControlPeer() override;
  ControlPeer(const ControlPeer&) = delete;
  ControlPeer& operator=(const ControlPeer&) = delete;

  HWND handle() const { return handle_; }
  controls::Control& control() const { return control_; }

  void changed(controls::Change change) override;
  // Applies the changes of the control to the native window.
  void flush();

  // Whether the control can have the keyboard focus now.
  bool takesFocus() const { return control_.takesFocus(); }

  // The rectangle of the native window for the control's rectangle `place`. They differ for a drop-down list.
  virtual controls::Rect nativePlace(const controls::Rect& place) const { return place; }
  // Called after the native window has been moved or resized.
  virtual void placed() {}
  // Called after the font or the resolution of `metrics` has changed; the control is placed afterwards. WM_SETFONT.
  virtual void metricsChanged();

  // The messages that the native window sends to its parent: WM_COMMAND with its notification code, WM_NOTIFY,
  // WM_DRAWITEM.
  virtual void onCommand(int /*code*/) {}
  virtual LRESULT onNotify(NMHDR& /*header*/) { return 0; }
  virtual void draw(const DRAWITEMSTRUCT& /*item*/) {}

  // The tooltip for the place where the pointer is.
  virtual std::string toolTip() const { return control_.toolTip(); }
  // The pointer shape over the control; null for that of the window class.
  virtual HCURSOR cursor() const { return nullptr; }
  virtual void pointerEnters() {}
  virtual void pointerLeaves() {}

  // Handles Enter while the control has the focus; false when the control does not use Enter.
  virtual bool press() { return false; }
  // Handles Alt and the control's mnemonic after the focus has been set; false when nothing else is to be done.
  virtual bool clickByMnemonic() { return false; }

 protected:
  const ScreenMetrics& metrics() const { return host_.metrics; }
  // Invalidates the native window without erasing it.
  void redraw() const { InvalidateRect(handle_, nullptr, FALSE); }

  // Shows the value or the rows of the control in the native window. Called by flush() when they have changed.
  virtual void showValue() {}

 private:
  void showState();
  void showCaption();

  Host host_;
  controls::Control& control_;
  HWND handle_;
  bool shown_;   // state of the native window
  bool usable_;  // state of the native window
  bool captionChanged_ = false;
  bool valueChanged_ = true;
};

// The text of the native window, which screen readers announce: the caption with "&" before the mnemonic, or the
// accessible name where the control shows a picture or rows instead.
std::string windowText(const controls::Control& control);

// `caption` for DrawText, with its first letter `mnemonic` underlined and every & shown literally.
std::string withMnemonic(const std::string& caption, char mnemonic);

// Replaces the window procedure of a peer's native window and stores the former one in `before`. The new one gets the
// peer by peerOf<P>(window). SetWindowLongPtrA.
void replaceProcedure(HWND window, ControlPeer& peer, WNDPROC procedure, WNDPROC& before);
template <typename P>
P& peerOf(HWND window) {
  return *static_cast<P*>(reinterpret_cast<ControlPeer*>(GetWindowLongPtrA(window, GWLP_USERDATA)));
}

}  // namespace platform::win32
