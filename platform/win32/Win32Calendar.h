// Calendar by FileTimeToSystemTime and VariantChangeType.
#pragma once

#include "platform/Calendar.h"

namespace platform::win32 {

class Win32Calendar final : public Calendar {
 public:
  bool fileTimeToSystemTime(const FileTime& time, SystemTime& fields) override;
  std::string textOf(Date date) override;
  Result<Date> dateFrom(const std::string& text) override;
};

}  // namespace platform::win32
