// The shell (shell32).
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/RuntimeError.h"

namespace platform {

inline constexpr std::uint32_t kShellDelete = 3;
// Flags of a shell file operation.
inline constexpr std::uint16_t kNoConfirmation = 16;
inline constexpr std::uint16_t kAllowUndo = 64;  // deleted files go to the Recycle Bin

// The record of a shell file operation; what is not here stays unset (no owner window, no destination).
struct FileOperation {
  std::uint32_t operation = kShellDelete;
  std::string sourceList = {};  // paths, each closed by a NUL; the call adds the list's own closing NUL
  std::uint16_t flags = 0;
};

// On whose behalf a shell command runs.
enum class ShellOwner { kNone, kDesktopWindow };

// What ShellExecuteA is asked for; an absent text is passed as a null pointer, an empty one as an empty text.
struct ShellCommand {
  ShellOwner owner = ShellOwner::kNone;
  std::optional<std::string> verb = {};
  std::string file = {};
  std::optional<std::string> parameters = {};
  std::optional<std::string> folder = {};
  std::int32_t showCommand = 1;
};

class Shell {
 public:
  virtual ~Shell() = default;

  // SHFileOperationA. Gives its result: 0 when all went well.
  virtual std::int32_t fileOperation(const FileOperation& operation) = 0;
  // ShellExecuteA, with GetDesktopWindow where the command asks for it. Gives its result: above 32 on success.
  virtual std::int32_t execute(const ShellCommand& command) = 0;
  // Starts a command line with a hidden window and does not wait for it. Fails with 53 when there is no such program.
  // CreateProcessA.
  virtual Result<void> launchHidden(const std::string& commandLine) = 0;
};

}  // namespace platform
