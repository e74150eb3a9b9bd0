#include "platform/RuntimeError.h"

#include <algorithm>
#include <array>
#include <utility>

namespace platform {
namespace {

using NumberAndText = std::pair<std::int32_t, const char*>;

constexpr std::array kTexts = {
    NumberAndText{kInvalidCall, "Invalid procedure call or argument"},
    NumberAndText{kOverflow, "Overflow"},
    NumberAndText{kOutOfMemory, "Out of memory"},
    NumberAndText{kTypeMismatch, "Type mismatch"},
    NumberAndText{kBadFileNumber, "Bad file name or number"},
    NumberAndText{kFileNotFound, "File not found"},
    NumberAndText{kFileAlreadyOpen, "File already open"},
    NumberAndText{kFileAlreadyExists, "File already exists"},
    NumberAndText{kDiskFull, "Disk full"},
    NumberAndText{kBadFileName, "Bad file name"},
    NumberAndText{kTooManyFiles, "Too many files"},
    NumberAndText{kDeviceUnavailable, "Device unavailable"},
    NumberAndText{kPermissionDenied, "Permission denied"},
    NumberAndText{kDifferentDrive, "Can't rename with different drive"},
    NumberAndText{kPathFileAccess, "Path/File access error"},
    NumberAndText{kPathNotFound, "Path not found"},
    NumberAndText{kCannotCreateObject, "ActiveX component can't create object"},
    NumberAndText{kDialogCancelled, "Cancel was selected."},
};

}  // namespace

RuntimeError runtimeError(std::int32_t number) {
  const auto* found = std::find_if(kTexts.begin(), kTexts.end(), [number](const auto& t) { return t.first == number; });
  const char* text = found == kTexts.end() ? "Application-defined or object-defined error" : found->second;
  return RuntimeError{number, text};
}

}  // namespace platform
