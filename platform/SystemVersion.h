// Which Windows runs.
#pragma once

#include <array>
#include <cstdint>

namespace platform {

inline constexpr std::uint32_t kVersionRecordSize = 148;

// The basic ANSI version record, in the order and with the sizes of the system's own.
struct VersionRecord {
  std::uint32_t size = 0;  // to be set to kVersionRecordSize before the call
  std::uint32_t major = 0;
  std::uint32_t minor = 0;
  std::uint32_t build = 0;
  std::uint32_t platformId = 0;
  std::array<char, 128> servicePack{};
};

class SystemVersion {
 public:
  virtual ~SystemVersion() = default;

  // GetVersionExA. Fills the record; false on failure (a wrong size, say), the record is then as it was.
  virtual bool getVersionEx(VersionRecord& record) = 0;
};

}  // namespace platform
