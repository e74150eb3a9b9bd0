// The calendar: points in time as calendar fields, as date values, and as texts that a person reads.
#pragma once

#include <cstdint>
#include <string>

#include "platform/RuntimeError.h"

namespace platform {

// 100-nanosecond steps since 1 January 1601, UTC, in the two halves that the system uses.
struct FileTime {
  std::uint32_t low = 0;
  std::uint32_t high = 0;
};

struct SystemTime {
  std::uint16_t year = 0;
  std::uint16_t month = 0;      // 1 to 12
  std::uint16_t dayOfWeek = 0;  // 0 is Sunday
  std::uint16_t day = 0;        // 1 to 31
  std::uint16_t hour = 0;
  std::uint16_t minute = 0;
  std::uint16_t second = 0;
  std::uint16_t milliseconds = 0;
};

// Days since 30 December 1899; the time of day is the fraction. Of an earlier day, too, the fraction counts forward
// from its start: -1.25 is six o'clock in the morning of 29 December 1899.
using Date = double;

// The date value of calendar fields, to the second, with the month as the month whatever order the locale writes.
// Fails with 13 when the fields are no day of the years 100 to 9999.
Result<Date> dateOf(const SystemTime& time);

class Calendar {
 public:
  virtual ~Calendar() = default;

  // FileTimeToSystemTime. Fills `fields`, which stay in the time zone of `time`; false when the highest bit of `time`
  // is set, `fields` are then as they were.
  virtual bool fileTimeToSystemTime(const FileTime& time, SystemTime& fields) = 0;
  // The date as the locale writes it: the day, and the time of day behind it unless that is midnight. The day that
  // dates are counted from stands for none, and only its time is given. VarBstrFromDate.
  virtual std::string textOf(Date date) = 0;
};

}  // namespace platform
