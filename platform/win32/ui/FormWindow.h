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
#include "platform/win32/ui/ScreenMetrics.h"
#include "platform/win32/ui/ToolTips.h"

namespace platform::win32 {

// Milliseconds between two flushes while a handler runs: often enough for the eye, rare enough for the loop.
inline constexpr DWORD kFlushInterval = 50;

class FormWindow final : public controls::Peer {
 public:
  // Creates the window with all native controls, hidden. `owner` may be null. Both the form and `ui`, whose pointer the
  // window shows, outlive this object.
  FormWindow(controls::Form& form, FormWindow* owner, const Ui& ui);
  ~FormWindow() override;
  FormWindow(const FormWindow&) = delete;
  FormWindow& operator=(const FormWindow&) = delete;

  HWND handle() const { return handle_; }
  const controls::Form& form() const { return form_; }

  // Shows the window; its owner takes no input from now on.
  void open();
  // Gives the owner its input back and hides the window: in this order, so that no stranger's window comes to the top.
  void leave();

  void changed(controls::Change change) override;
  // Brings the native controls in line with the form.
  void flush();

  // Carries out a key that moves through this window; false when the message is another one's or an ordinary one.
  bool handleKey(const MSG& message);

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM first, LPARAM second);
  LRESULT receive(UINT message, WPARAM first, LPARAM second);
  LRESULT receiveCommand(HWND from, int code);
  LRESULT receiveNotify(NMHDR& header);
  LRESULT receiveDrawing(const DRAWITEMSTRUCT& item);
  // WM_SETCURSOR comes with every move of the pointer and names the window under it.
  LRESULT receivePointer(HWND under, LPARAM details);
  LRESULT receiveActivation(WPARAM first, LPARAM second);
  LRESULT receiveSizeQuestion(MINMAXINFO& limits) const;

  void createControls();
  void arrange();
  controls::Size wholeSize(controls::Size inside) const;
  // Where the window opens.
  controls::Rect firstPlace() const;
  void repaintNow();
  void redrawAll() const;
  void passOnColours() const;
  // The pointer has come to a control; null when it has left them all.
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
  std::unordered_map<HWND, std::unique_ptr<ControlPeer>> peers_;
  std::optional<KeyNavigation> keys_;
  ControlPeer* hovered_ = nullptr;
  bool changed_ = true;
  bool repaint_ = false;
  DWORD repaintedAt_ = 0;  // tick count; repaintNow() draws once kFlushInterval has passed since
  bool left_ = false;
};

}  // namespace platform::win32
