// What surrounds the program on the in-memory machine: a clock that stands still until it is moved, code page 1252.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "platform/Environment.h"
#include "platform/memory/MemoryFaults.h"

namespace platform::memory {

class MemoryEnvironment final : public Environment {
 public:
  MemoryEnvironment(std::string programFolder, MemoryFaults& faults)
      : programFolder_(std::move(programFolder)), faults_(faults) {}

  void setTickCount(std::uint32_t milliseconds) { tickCount_ = milliseconds; }
  // Wraps round like the real one.
  void advance(std::uint32_t milliseconds) { tickCount_ += milliseconds; }

  // An empty value is not the same as none for other programs, but for this one it is.
  void setVariable(std::string_view name, std::string value);

  std::uint32_t getTickCount() override;
  std::string programFolder() override;
  std::string getEnvironmentVariable(const std::string& name) override;
  std::string upperCase(std::string_view text) override;

 private:
  std::string programFolder_;
  MemoryFaults& faults_;
  std::uint32_t tickCount_ = 0;
  std::map<std::string, std::string> variables_;  // by name in upper case
};

}  // namespace platform::memory
