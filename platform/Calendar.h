// Points in time as calendar fields, as date values, and as texts in the user's format.
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

// Days since 30 December 1899; the fraction is the time of day. For earlier days, too, it counts forward from the
// start of the day: -1.25 is 6:00 in the morning of 29 December 1899.
using Date = double;

// The date value of calendar fields, to the second, whatever order the locale writes day and month in. Fails with 13
// when the fields are no day of the years 100 to 9999.
Result<Date> dateOf(const SystemTime& time);

class Calendar {
 public:
  virtual ~Calendar() = default;

  // FileTimeToSystemTime. Fills `fields`, which stay in the time zone of `time`; false when the highest bit of `time`
  // is set, `fields` are then as they were.
  virtual bool fileTimeToSystemTime(const FileTime& time, SystemTime& fields) = 0;
  // The date in the locale's format: the day, followed by the time of day unless that is midnight. For day 0 only the
  // time is given. VarBstrFromDate.
  virtual std::string textOf(Date date) = 0;
  // The date of such a text. Fails with 13 for any other text. VariantChangeType.
  virtual Result<Date> dateFrom(const std::string& text) = 0;
};

}  // namespace platform
