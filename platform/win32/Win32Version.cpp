#include "platform/win32/Win32Version.h"

#include <windows.h>

#include <bit>

namespace platform::win32 {

static_assert(sizeof(OSVERSIONINFOA) == kVersionRecordSize);

bool Win32Version::getVersionEx(VersionRecord& record) {
  // GetVersionExA also accepts the size of OSVERSIONINFOEXA, which is larger than `record`.
  if (record.size != kVersionRecordSize) return false;
  auto info = std::bit_cast<OSVERSIONINFOA>(record);
  if (GetVersionExA(&info) == FALSE) return false;
  record = std::bit_cast<VersionRecord>(info);
  return true;
}

}  // namespace platform::win32
