// What the program shows beside its controls, and the message loop.
#pragma once

#include <cstdint>
#include <string>

#include "platform/RuntimeError.h"

namespace controls {
class Form;
}

namespace platform {

// Styles of a message box, to be added up.
inline constexpr std::uint32_t kBoxOk = 0;
inline constexpr std::uint32_t kBoxOkCancel = 1;
inline constexpr std::uint32_t kBoxYesNo = 4;
inline constexpr std::uint32_t kBoxCritical = 16;
inline constexpr std::uint32_t kBoxQuestion = 32;
inline constexpr std::uint32_t kBoxExclamation = 48;
inline constexpr std::uint32_t kBoxInformation = 64;
inline constexpr std::uint32_t kBoxProgramIcon = 128;
inline constexpr std::uint32_t kBoxSecondButtonDefault = 256;
// A question before something that cannot be undone: Enter answers No.
inline constexpr std::uint32_t kBoxAsk = kBoxYesNo | kBoxQuestion | kBoxSecondButtonDefault;

// The button that closed a message box.
enum class Answer : std::int32_t { kOk = 1, kCancel = 2, kYes = 6, kNo = 7 };

// The pointer of the whole screen. With kDefault, and with kArrow, a control under it shows its own shape.
enum class Pointer { kDefault, kArrow, kHourglass };

// What an open-file dialog shows. The filter is pairs of a description and its patterns, all separated by "|".
struct OpenFileRequest {
  std::string title;
  std::string filter;
};

class Ui {
 public:
  virtual ~Ui() = default;

  // MessageBoxIndirectA, owned by the active window. Returns the button pressed; closing the box answers Cancel, or OK
  // where OK is the only button. For a box that cannot be shown returns No, Cancel, or OK where OK is the only button.
  virtual Answer messageBox(const std::string& text, const std::string& title, std::uint32_t style) = 0;

  // GetOpenFileNameA without flags, owned by the active window: returns the full path of one file, which need not be
  // there. The folder in which the user chose it becomes the process's current one. Fails with 32755 when the user
  // cancels.
  virtual Result<std::string> openFileDialog(const OpenFileRequest& request) = 0;

  // Processes pending messages (painting, clicks, keys); returns when none are left. Returns at once when they have
  // been processed in the last 10 ms.
  virtual void serveEvents() = 0;
  // The same for work that must not be disturbed: repaints, moves and minimises the windows, and drops the user's
  // clicks and keys. Returns at once when less than 50 ms have passed since the last time.
  virtual void serveSystem() = 0;

  // Starts to play a sound file and returns at once. Nothing is heard when the file or the system's sounds are missing.
  // PlaySoundA.
  virtual void playSound(const std::string& path) = 0;
  // Puts a text on the clipboard in place of what is there. False when the clipboard cannot be opened, because another
  // program uses it. OpenClipboard, SetClipboardData.
  virtual bool copyText(const std::string& text) = 0;

  virtual void setPointer(Pointer pointer) = 0;
  virtual Pointer pointer() const = 0;

  // Shows `form` as a window owned by `owner`, which takes no input meanwhile, and serves events until the form is
  // closed (controls::Form::close). `owner` may be null for the program's first window.
  virtual void runModal(controls::Form& form, controls::Form* owner) = 0;

  // Ends the program at once: no handler and no destructor of a form runs after it.
  [[noreturn]] virtual void end() = 0;
};

}  // namespace platform
