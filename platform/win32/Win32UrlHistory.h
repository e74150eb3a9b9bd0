// UrlHistory by CoCreateInstance and DispCallFunc. The handle of an object is its address.
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
