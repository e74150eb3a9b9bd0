// The native window of one form.
#pragma once

#include <windows.h>

#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

#include "controls/Form.h"
#include "platform/Ui.h"
#include "platform/win32/ui/ControlPeer.h"
#include "platform/win32/ui/KeyNavigation.h"
#include "platform/win32/ui/Scheme.h"
#include "platform/win32/ui/ScreenMetrics.h"
#include "platform/win32/ui/StatusBarPeer.h"
#include "platform/win32/ui/ToolTips.h"

namespace platform::win32 {

// The least times in milliseconds while a handler runs: between two flushes, and between two times that messages are
// processed, which takes longer than reading a small folder.
inline constexpr DWORD kFlushInterval = 100;
inline constexpr DWORD kMessageInterval = 10;

// The resource that is the icon of all windows.
inline constexpr const char* kIconName = "APPLICATION";

class FormWindow final : public controls::Peer {
 public:
  // Creates the window, hidden, and its native controls. `owner` may be null. `form` and `ui`, which supplies the
  // pointer shape, must outlive this object. CreateWindowExA.
  FormWindow(controls::Form& form, FormWindow* owner, const Ui& ui);
  ~FormWindow() override;
  FormWindow(const FormWindow&) = delete;
  FormWindow& operator=(const FormWindow&) = delete;

  HWND handle() const { return handle_; }
  const controls::Form& form() const { return form_; }

  // Shows the window and disables its owner. ShowWindow, EnableWindow.
  void open();
  // Enables the owner, then hides the window; in this order, because otherwise Windows would activate another program's
  // window. Does nothing the second time.
  void close();

  void changed(controls::Change change) override;
  // Applies the changes of the form's controls to the native ones.
  void flush();

  // Handles a navigation key; false when `message` is for another window or is no such key, and is to be dispatched.
  bool handle(const MSG& message);

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM first, LPARAM second);
  LRESULT receive(UINT message, WPARAM first, LPARAM second);
  LRESULT receiveCommand(HWND from, int code);
  LRESULT receiveNotify(NMHDR& header);
  LRESULT receiveDrawItem(const DRAWITEMSTRUCT& item);
  // WM_SETCURSOR, which arrives with every move of the pointer; `under` is the window below it.
  LRESULT receivePointer(HWND under, LPARAM details);
  LRESULT receiveActivation(WPARAM first, LPARAM second);
  LRESULT receiveSizeLimits(MINMAXINFO& limits) const;
  // WM_HSCROLL or WM_VSCROLL: `bar` is SB_HORZ or SB_VERT, `action` is SB_LINEUP ...
  LRESULT receiveScroll(int bar, int action);
  LRESULT receiveWheel(int delta);
  // WM_DPICHANGED: the window is on a screen of another resolution, or that of its screen has changed.
  LRESULT receiveDpi(int dpi, const RECT& suggested);
  LRESULT receiveSettings();

  void setIcons() const;
  void addSystemMenuItem() const;
  void createControls();
  // The peers of the controls in the layout, in its order.
  std::vector<ControlPeer*> tabOrder() const;
  // Takes over the layout of the controls that are visible now.
  void rearrange();
  void annotateControls();
  // Shows the scroll bars that the layout needs in the window. Returns where it then puts the controls.
  controls::Places fitContent();
  // Places all controls in the window, which may be scrolled, and the status bar below them.
  void arrange();
  using NativePlaces = std::unordered_map<HWND, controls::Rect>;
  void moveControls(const NativePlaces& places);
  // Shows the window's content moved by so many pixels, without painting again what was seen before.
  void shiftControls(int right, int down);
  // Where the native windows are after that.
  NativePlaces shifted(int right, int down) const;
  void showScrollBar(int bar, bool shown, const controls::Scrolling& scrolling) const;
  // The inside of the window without scroll bars.
  controls::Size room() const;
  int statusHeight() const;
  // After the focus may have moved: scrolls the control that has it into view. The status bar shows the tooltip of a
  // control that has been reached by a key.
  void followFocus(bool byKey);
  controls::Size wholeSize(controls::Size inside) const;
  // The least size of the window, without scroll bars.
  controls::Size leastWholeSize() const;
  // The rectangle in which the window opens, in screen coordinates.
  controls::Rect initialPlace() const;
  void repaint();
  // Takes over the user's font for this resolution. Returns whether anything has changed; the controls must then be
  // arranged.
  bool takeOverMetrics(int dpi);
  // The least size of the window, less where the screen is smaller.
  controls::Size leastSizeOnScreen() const;
  void redrawAll() const;
  void forwardColourChange();
  // The pointer has entered the control of `peer`; null when it has left all controls.
  void hover(ControlPeer* peer);
  void checkHover();
  ControlPeer* peerOf(HWND window) const;

  controls::Form& form_;
  FormWindow* owner_;
  const Ui& ui_;
  controls::Box layout_;
  ScreenMetrics metrics_;
  HWND handle_;
  ToolTips toolTips_;
  Scheme scheme_;
  std::unordered_map<HWND, std::unique_ptr<ControlPeer>> peers_;
  std::optional<KeyNavigation> keys_;
  ControlPeer* hovered_ = nullptr;
  StatusBarPeer* status_ = nullptr;  // null for a form without a status bar
  ControlPeer* focused_ = nullptr;   // when followFocus() last looked
  controls::Scrolling across_;
  controls::Scrolling down_;
  int seenAcross_ = 0;  // the offsets at which placed_ was computed
  int seenDown_ = 0;
  NativePlaces placed_;  // where the native windows are
  bool arranging_ = false;
  bool rearrange_ = false;
  bool changed_ = true;
  DWORD repaintedAt_ = 0;  // tick count of the last repaint()
  bool annotated_ = false;
  bool closed_ = false;
};

}  // namespace platform::win32
