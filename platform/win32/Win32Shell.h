// The machine's shell.
#pragma once

#include "platform/Shell.h"

namespace platform::win32 {

class Win32Shell final : public Shell {
 public:
  std::int32_t fileOperation(const FileOperation& operation) override;
  std::int32_t execute(const ShellCommand& command) override;
  Result<void> launchHidden(const std::string& commandLine) override;
};

}  // namespace platform::win32
