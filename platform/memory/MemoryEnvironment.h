// What surrounds the program on the in-memory machine: a clock that stands still until it is moved, code page 1252.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "platform/Environment.h"
#include "platform/UniformSequence.h"
#include "platform/memory/MemoryFaults.h"

namespace platform::memory {

class MemoryEnvironment final : public Environment {
 public:
  MemoryEnvironment(std::string programFolder, MemoryFaults& faults)
      : programFolder_(std::move(programFolder)), faults_(faults) {}

  void setTickCount(std::uint32_t milliseconds) { tickCount_ = milliseconds; }
  // Wraps round like the real one.
  void advance(std::uint32_t milliseconds) { tickCount_ += milliseconds; }

  // What the clock and the calendar show from now on.
  void setDay(std::string dateText, std::string timeText, float seconds) {
    dateText_ = std::move(dateText);
    timeText_ = std::move(timeText);
    seconds_ = seconds;
  }
  // An empty value is not the same as none for other programs, but for this one it is.
  void setVariable(std::string_view name, std::string value);

  std::uint32_t getTickCount() override;
  std::string programFolder() override;
  std::string getEnvironmentVariable(const std::string& name) override;
  std::string upperCase(std::string_view text) override;
  std::string dateText() override;
  std::string timeText() override;
  float secondsSinceMidnight() override;
  double nextUniform() override;

 private:
  std::string programFolder_;
  MemoryFaults& faults_;
  std::uint32_t tickCount_ = 0;
  std::string dateText_ = "1/1/2004";
  std::string timeText_ = "12:00:00 PM";
  float seconds_ = 43200;
  UniformSequence uniform_;
  std::map<std::string, std::string> variables_;  // by name in upper case
};

}  // namespace platform::memory
