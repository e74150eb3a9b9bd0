#include "platform/win32/Win32Calendar.h"

#include <windows.h>

#include <bit>

#include "platform/win32/DispatchObject.h"

namespace platform::win32 {

bool Win32Calendar::fileTimeToSystemTime(const FileTime& time, SystemTime& fields) {
  const FILETIME fileTime = {time.low, time.high};
  SYSTEMTIME result;
  if (FileTimeToSystemTime(&fileTime, &result) == FALSE) return false;
  fields = std::bit_cast<SystemTime>(result);
  return true;
}

std::string Win32Calendar::textOf(Date date) {
  AutomationValue value;
  value.out()->vt = VT_DATE;
  value.out()->date = date;
  return value.text();
}

Result<Date> Win32Calendar::dateFrom(const std::string& text) { return AutomationValue(text).date(); }

}  // namespace platform::win32
