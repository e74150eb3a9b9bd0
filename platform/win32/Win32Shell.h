// Shell by the functions of shell32.dll, and CreateProcessA.
#pragma once

#include "platform/Shell.h"

namespace platform::win32 {

class Win32Shell final : public Shell {
 public:
  std::int32_t fileOperation(const FileOperation& operation) override;
  std::int32_t execute(const ShellCommand& command) override;
  Result<void> launchHidden(const std::string& commandLine) override;
  bool showHelp(const std::string& file, const std::string& topic) override;
  void closeHelp() override;
  std::int32_t emptyRecycleBin(const std::string& root, std::uint32_t flags) override;
  void addToRecentDocs(std::uint32_t flags, const std::optional<std::string>& path) override;

 private:
  bool helpShown_ = false;
};

}  // namespace platform::win32
