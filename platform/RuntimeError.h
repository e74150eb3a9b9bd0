// Failures as values: what a platform operation returns instead of its result.
#pragma once

#include <cstdint>
#include <expected>
#include <string>

namespace platform {

// One failure. `number` is the classic run-time error number (53 file not found, 68 device unavailable ...) or, for a
// COM object, the object's own code. `text` is what the unhandled-failure box shows.
struct RuntimeError {
  std::int32_t number = 0;
  std::string text;

  bool operator==(const RuntimeError& other) const { return number == other.number; }
};

// What an operation that can fail returns: its value, or the failure.
template <typename T>
using Result = std::expected<T, RuntimeError>;

inline constexpr std::int32_t kInvalidCall = 5;
inline constexpr std::int32_t kOverflow = 6;
inline constexpr std::int32_t kOutOfMemory = 7;
inline constexpr std::int32_t kTypeMismatch = 13;
inline constexpr std::int32_t kBadFileNumber = 52;
inline constexpr std::int32_t kFileNotFound = 53;
inline constexpr std::int32_t kFileAlreadyOpen = 55;
inline constexpr std::int32_t kFileAlreadyExists = 58;
inline constexpr std::int32_t kDiskFull = 61;
inline constexpr std::int32_t kBadFileName = 64;
inline constexpr std::int32_t kTooManyFiles = 67;
inline constexpr std::int32_t kDeviceUnavailable = 68;
inline constexpr std::int32_t kPermissionDenied = 70;
inline constexpr std::int32_t kDifferentDrive = 74;
inline constexpr std::int32_t kPathFileAccess = 75;
inline constexpr std::int32_t kPathNotFound = 76;
inline constexpr std::int32_t kCannotCreateObject = 429;
inline constexpr std::int32_t kDialogCancelled = 32755;

// The failure with the given run-time error number and its usual text ("File not found" for 53). A number that has no
// usual text gets "Application-defined or object-defined error".
RuntimeError runtimeError(std::int32_t number);

// The same, ready to be returned from a function that returns a Result.
inline std::unexpected<RuntimeError> failure(std::int32_t number) {
  return std::unexpected<RuntimeError>(runtimeError(number));
}

}  // namespace platform
