// The machine's history object. Its handle is the pointer to it.
#pragma once

#include "platform/UrlHistory.h"

namespace platform::win32 {

class Win32UrlHistory final : public UrlHistory {
 public:
  std::int32_t coCreateInstance(const Guid& classId, std::uint32_t context, const Guid& interfaceId,
                                Handle& object) override;
  std::int32_t dispCallFunc(Handle object, std::uint32_t slot) override;
};

}  // namespace platform::win32
