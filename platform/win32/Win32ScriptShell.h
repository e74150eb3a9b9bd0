// ScriptShell by the automation object "WScript.Shell", bound late; by the registry where the object is not installed
// or lacks a method.
#pragma once

#include "platform/RegistryScriptShell.h"

namespace platform::win32 {

class Win32ScriptShell final : public ScriptShell {
 public:
  explicit Win32ScriptShell(Registry& registry) : substitute_(registry) {}

  Result<std::string> regRead(const std::string& path) override;
  Result<void> regWrite(const std::string& path, const std::string& text) override;
  Result<void> regDelete(const std::string& path) override;

 private:
  RegistryScriptShell substitute_;
};

}  // namespace platform::win32
