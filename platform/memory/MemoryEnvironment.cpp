#include "platform/memory/MemoryEnvironment.h"

#include "platform/memory/MemoryNames.h"

namespace platform::memory {

// The clock, the folder, the code page and the generator cannot fail on a real machine; their calls are counted all the
// same.

std::uint32_t MemoryEnvironment::getTickCount() {
  faults_.strike("getTickCount");
  return tickCount_;
}

std::string MemoryEnvironment::programFolder() {
  faults_.strike("programFolder");
  return programFolder_;
}

void MemoryEnvironment::setVariable(std::string_view name, std::string value) {
  variables_[upper(name)] = std::move(value);
}

std::string MemoryEnvironment::getEnvironmentVariable(const std::string& name) {
  if (faults_.strike("getEnvironmentVariable")) return {};
  const auto found = variables_.find(upper(name));
  return found == variables_.end() ? std::string() : found->second;
}

std::string MemoryEnvironment::upperCase(std::string_view text) {
  faults_.strike("upperCase");
  return upper(text);
}

std::string MemoryEnvironment::dateText() {
  faults_.strike("dateText");
  return dateText_;
}

std::string MemoryEnvironment::timeText() {
  faults_.strike("timeText");
  return timeText_;
}

float MemoryEnvironment::secondsSinceMidnight() {
  faults_.strike("secondsSinceMidnight");
  return seconds_;
}

double MemoryEnvironment::nextUniform() {
  faults_.strike("nextUniform");
  return uniform_.next();
}

}  // namespace platform::memory
