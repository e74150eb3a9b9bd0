// SystemVersion by GetVersionExA.
#pragma once

#include "platform/SystemVersion.h"

namespace platform::win32 {

class Win32Version final : public SystemVersion {
 public:
  bool getVersionEx(VersionRecord& record) override;
};

}  // namespace platform::win32
