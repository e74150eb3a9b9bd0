// The script shell's registry methods carried out by the registry itself: for a machine without a scripting host, or
// with one that lacks a method.
#pragma once

#include "platform/Registry.h"
#include "platform/ScriptShell.h"

namespace platform {

class RegistryScriptShell final : public ScriptShell {
 public:
  explicit RegistryScriptShell(Registry& registry) : registry_(registry) {}

  Result<std::string> regRead(const std::string& path) override;
  Result<void> regWrite(const std::string& path, const std::string& text) override;
  Result<void> regDelete(const std::string& path) override;

 private:
  Result<std::string> readValue(RegistryKey key, const std::string& name);

  Registry& registry_;
};

}  // namespace platform
