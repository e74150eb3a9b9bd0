// Ui by native windows: forms, message boxes, the open-file dialog, the message loop, the pointer.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "platform/Ui.h"

// MSG and HWND, without <windows.h>.
struct tagMSG;
struct HWND__;

namespace platform::win32 {

class FormWindow;

class Win32Ui final : public Ui {
 public:
  // Initializes the common controls.
  Win32Ui();
  ~Win32Ui() override;
  Win32Ui(const Win32Ui&) = delete;
  Win32Ui& operator=(const Win32Ui&) = delete;

  Answer messageBox(const std::string& text, const std::string& title, std::uint32_t style) override;
  // Fast enough for loops over files: for each value of GetTickCount() only the first call processes pending messages,
  // and controls that have changed are redrawn at most every 50 milliseconds. PeekMessageA.
  void serveEvents() override;
  void serveSystem() override;
  Result<std::string> openFileDialog(const OpenFileRequest& request) override;
  void playSound(const std::string& path) override;
  bool copyText(const std::string& text) override;
  void setPointer(Pointer pointer) override;
  Pointer pointer() const override { return pointer_; }
  void runModal(controls::Form& form, controls::Form* owner) override;
  [[noreturn]] void end() override;

 private:
  FormWindow* windowOf(const controls::Form* form) const;
  // The owner of message boxes and dialogs: the active window or, when another program is active, the topmost form.
  HWND__* activeWindow() const;
  // Applies the changes of all controls to the native ones.
  void flush();
  // Dispatches `message`, unless it is a key that its form handles.
  void dispatch(tagMSG& message);

  std::vector<std::unique_ptr<FormWindow>> windows_;  // topmost last
  Pointer pointer_ = Pointer::kDefault;
  std::uint32_t servedAt_ = 0;   // tick count when messages were last processed
  std::uint32_t flushedAt_ = 0;  // tick count of the last flush by serveEvents()
};

}  // namespace platform::win32
