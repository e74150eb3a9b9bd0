// The calendar of the in-memory machine, whose locale is that of the United States.
#pragma once

#include "platform/Calendar.h"
#include "platform/memory/MemoryFaults.h"

namespace platform::memory {

class MemoryCalendar final : public Calendar {
 public:
  explicit MemoryCalendar(MemoryFaults& faults) : faults_(faults) {}

  bool fileTimeToSystemTime(const FileTime& time, SystemTime& fields) override;
  std::string textOf(Date date) override;

 private:
  MemoryFaults& faults_;
};

}  // namespace platform::memory
