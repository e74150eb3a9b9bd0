#include "platform/memory/MemoryEnvironment.h"

#include "platform/memory/MemoryNames.h"

namespace platform::memory {

// The clock, the folder, the code page and the generator cannot fail on a real machine; their calls are counted all the
// same.

std::uint32_t MemoryEnvironment::getTickCount() {
  faults_.nextFault("getTickCount");
  return tickCount_;
}

std::string MemoryEnvironment::programFolder() {
  faults_.nextFault("programFolder");
  return programFolder_;
}

void MemoryEnvironment::setVariable(std::string_view name, std::string value) {
  variables_[upper(name)] = std::move(value);
}

std::string MemoryEnvironment::getEnvironmentVariable(const std::string& name) {
  if (faults_.nextFault("getEnvironmentVariable")) return {};
  const auto found = variables_.find(upper(name));
  return found == variables_.end() ? std::string() : found->second;
}

std::string MemoryEnvironment::upperCase(std::string_view text) {
  faults_.nextFault("upperCase");
  return upper(text);
}

std::string MemoryEnvironment::dateText() {
  faults_.nextFault("dateText");
  return dateText_;
}

std::string MemoryEnvironment::timeText() {
  faults_.nextFault("timeText");
  return timeText_;
}

float MemoryEnvironment::secondsSinceMidnight() {
  faults_.nextFault("secondsSinceMidnight");
  return seconds_;
}

double MemoryEnvironment::nextUniform() {
  faults_.nextFault("nextUniform");
  return uniform_.next();
}

}  // namespace platform::memory
