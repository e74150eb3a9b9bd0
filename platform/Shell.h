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

// A shell file operation without owner window and destination.
struct FileOperation {
  std::uint32_t operation = kShellDelete;
  std::string sourceList = {};  // paths, each closed by a NUL; the call adds the list's own closing NUL
  std::uint16_t flags = 0;
};

// The owner window of a shell command.
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

// Flags of emptying the Recycle Bin.
inline constexpr std::uint32_t kBinNoConfirmation = 1;
inline constexpr std::uint32_t kBinNoProgress = 2;
inline constexpr std::uint32_t kBinNoSound = 4;

// A recent document is named by its path, an ANSI text.
inline constexpr std::uint32_t kRecentByPath = 2;

class Shell {
 public:
  virtual ~Shell() = default;

  // SHFileOperationA. Returns its result: 0 when all went well.
  virtual std::int32_t fileOperation(const FileOperation& operation) = 0;
  // ShellExecuteA, with GetDesktopWindow where the command asks for it. Returns its result: above 32 on success.
  virtual std::int32_t execute(const ShellCommand& command) = 0;
  // Starts a command line with a hidden window and does not wait for it. Its first word is the name of a program in the
  // system folder, without a path and extension; no other folder is searched. Fails with 53 when there is none.
  // GetSystemDirectoryA, CreateProcessA.
  virtual Result<void> launchHidden(const std::string& commandLine) = 0;

  // Shows the page `topic` ("shredder.html") of the compiled help file `file` in the HTML Help window, which remains
  // open beside the program. Returns whether it is shown: not when the file is missing, and not on a Windows without
  // HTML Help. HtmlHelpA (HH_DISPLAY_TOPIC) of hhctrl.ocx in the system folder.
  virtual bool showHelp(const std::string& file, const std::string& topic) = 0;
  // Closes the help window, if one is open. To be called before the program ends: the window belongs to its process.
  // HtmlHelpA (HH_CLOSE_ALL).
  virtual void closeHelp() = 0;

  // SHEmptyRecycleBinA without an owner window. Empties the Recycle Bin of the drive of `root`; of all drives
  // when it is empty. Returns its result: 0 on success; a bin that is empty already may return a failure, and a Windows
  // without the function does (0x80004001).
  virtual std::int32_t emptyRecycleBin(const std::string& root, std::uint32_t flags) = 0;
  // SHAddToRecentDocs. Puts the document on the list of recently used ones; an absent path empties the list.
  virtual void addToRecentDocs(std::uint32_t flags, const std::optional<std::string>& path) = 0;
};

}  // namespace platform
