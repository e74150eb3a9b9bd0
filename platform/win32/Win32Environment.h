// Environment of the running process: clock, program folder, environment variables, code page.
#pragma once

#include "platform/Environment.h"
#include "platform/UniformSequence.h"

namespace platform::win32 {

class Win32Environment final : public Environment {
 public:
  std::uint32_t getTickCount() override;
  std::string programFolder() override;
  std::string windowsFolder() override;
  std::string getEnvironmentVariable(const std::string& name) override;
  std::string resourceText(const std::string& name) override;
  std::string upperCase(std::string_view text) override;
  bool isAdministrator() override;
  std::string dateText() override;
  std::string timeText() override;
  float secondsSinceMidnight() override;
  double nextUniform() override { return uniform_.next(); }

 private:
  UniformSequence uniform_;
};

}  // namespace platform::win32
