// The scripting host of the in-memory machine: it works on the machine's registry.
#pragma once

#include "platform/RegistryScriptShell.h"
#include "platform/memory/MemoryFaults.h"

namespace platform::memory {

class MemoryScriptShell final : public ScriptShell {
 public:
  MemoryScriptShell(Registry& registry, MemoryFaults& faults) : shell_(registry), faults_(faults) {}

  Result<std::string> regRead(const std::string& path) override {
    if (const auto fault = faults_.nextFault("regRead", kScriptPathNotFound)) return failure(*fault);
    return shell_.regRead(path);
  }
  Result<void> regWrite(const std::string& path, const std::string& text) override {
    if (const auto fault = faults_.nextFault("regWrite", kPermissionDenied)) return failure(*fault);
    return shell_.regWrite(path, text);
  }
  Result<void> regDelete(const std::string& path) override {
    if (const auto fault = faults_.nextFault("regDelete", kScriptPathNotFound)) return failure(*fault);
    return shell_.regDelete(path);
  }

 private:
  RegistryScriptShell shell_;
  MemoryFaults& faults_;
};

}  // namespace platform::memory
