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
  void setDay(std::string dateText, std::string timeText, float seconds) {
    dateText_ = std::move(dateText);
    timeText_ = std::move(timeText);
    seconds_ = seconds;
  }
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
  std::string dateText() override { return dateText_; }
  std::string timeText() override { return timeText_; }
  float secondsSinceMidnight() override { return seconds_; }
  double nextUniform() override { return uniform_.next(); }

 private:
  std::string programFolder_;
  MemoryFaults& faults_;
  std::uint32_t tickCount_ = 0;
  bool isAdministrator_ = true;
  std::string dateText_ = "1/1/2004";
  std::string timeText_ = "12:00:00 PM";
  float seconds_ = 43200;
  UniformSequence uniform_;
  std::map<std::string, std::string, NameOrder> variables_;
  std::map<std::string, std::string, NameOrder> resources_;
};

}  // namespace platform::memory
