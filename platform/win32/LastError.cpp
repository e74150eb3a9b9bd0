#include "platform/win32/LastError.h"

#include <windows.h>

#include "platform/RuntimeError.h"

namespace platform::win32 {

std::int32_t runTimeErrorNumber(std::uint32_t code) {
  switch (code) {
    case ERROR_FILE_NOT_FOUND:
      return kFileNotFound;
    case ERROR_PATH_NOT_FOUND:
    case ERROR_BAD_PATHNAME:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
      return kPathNotFound;
    case ERROR_INVALID_NAME:
    case ERROR_FILENAME_EXCED_RANGE:
      return kBadFileNumber;
    case ERROR_ALREADY_EXISTS:
    case ERROR_FILE_EXISTS:
      return kFileAlreadyExists;
    case ERROR_NOT_READY:
    case ERROR_INVALID_DRIVE:
      return kDeviceUnavailable;
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_WRITE_PROTECT:
      return kPermissionDenied;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
      return kDiskFull;
    default:
      return kPathFileAccess;
  }
}

}  // namespace platform::win32
