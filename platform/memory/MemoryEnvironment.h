// The environment of the in-memory machine: a clock that changes only when a test sets it, and code page 1252.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "platform/Environment.h"
#include "platform/UniformSequence.h"
#include "platform/memory/MemoryFaults.h"
#include "platform/memory/MemoryNames.h"

namespace platform::memory {

class MemoryEnvironment final : public Environment {
 public:
  MemoryEnvironment(std::string programFolder, MemoryFaults& faults)
      : programFolder_(std::move(programFolder)), faults_(faults) {}

  // Wraps round like the real one.
  void advance(std::uint32_t milliseconds) { tickCount_ += milliseconds; }
  // What the clock and the calendar show from now on.
  struct Day {
    std::string date = "1/1/2004";
    std::string time = "12:00:00 PM";
    float seconds = 43200;
  };
  void setDay(Day day) { day_ = std::move(day); }
  void setVariable(const std::string& name, std::string value) { variables_[name] = std::move(value); }
  void setResourceText(const std::string& name, std::string text) { resources_[name] = std::move(text); }

  void setAdministrator(bool isAdministrator) { isAdministrator_ = isAdministrator; }

  std::uint32_t getTickCount() override { return tickCount_; }
  std::string programFolder() override { return programFolder_; }
  std::string windowsFolder() override { return "C:\\Windows"; }
  std::string getEnvironmentVariable(const std::string& name) override {
    const auto found = variables_.find(name);
    return faults_.nextFault("getEnvironmentVariable") || found == variables_.end() ? std::string() : found->second;
  }
  std::string resourceText(const std::string& name) override { return resources_[name]; }
  std::string upperCase(std::string_view text) override { return upper(text); }
  bool isAdministrator() override { return isAdministrator_; }
  std::string dateText() override { return day_.date; }
  std::string timeText() override { return day_.time; }
  float secondsSinceMidnight() override { return day_.seconds; }
  double nextUniform() override { return uniform_.next(); }

 private:
  std::string programFolder_;
  MemoryFaults& faults_;
  std::uint32_t tickCount_ = 0;
  bool isAdministrator_ = true;
  Day day_;
  UniformSequence uniform_;
  std::map<std::string, std::string, NameOrder> variables_;
  std::map<std::string, std::string, NameOrder> resources_;
};

}  // namespace platform::memory
