// Windows on the real screen: message boxes, the message loop, the pointer.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "platform/Ui.h"

// MSG and HWND, without the system's headers.
struct tagMSG;
struct HWND__;

namespace platform::win32 {

class FormWindow;

class Win32Ui final : public Ui {
 public:
  // Makes the common controls known to the process.
  Win32Ui();
  ~Win32Ui() override;
  Win32Ui(const Win32Ui&) = delete;
  Win32Ui& operator=(const Win32Ui&) = delete;

  Answer messageBox(const std::string& text, const std::string& title, std::uint32_t style) override;
  // Cheap enough for loops over files: within one step of the tick count only the first call looks for events, and
  // controls that have changed are drawn anew at most every 50 milliseconds.
  void serveEvents() override;
  Result<std::string> openFileDialog(const OpenFileRequest& request) override;
  void setPointer(Pointer pointer) override;
  Pointer pointer() const override { return pointer_; }
  void runModal(controls::Form& form, controls::Form* owner) override;
  [[noreturn]] void end() override;

 private:
  FormWindow* windowOf(const controls::Form* form) const;
  // The window that a box or dialog stands over: the active one or, in the background, the topmost one.
  HWND__* activeWindow() const;
  // Brings the native controls of all windows in line with the forms.
  void flush();
  // Hands one message to the keyboard rules of its window, or to the window itself.
  void dispatch(tagMSG& message);

  std::vector<std::unique_ptr<FormWindow>> windows_;  // the topmost last
  Pointer pointer_ = Pointer::kDefault;
  std::uint32_t servedAt_ = 0;   // tick count of the last look for events
  std::uint32_t flushedAt_ = 0;  // tick count of the last flush by serveEvents()
};

}  // namespace platform::win32
