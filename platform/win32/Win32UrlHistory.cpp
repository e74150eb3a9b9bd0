#include "platform/win32/Win32UrlHistory.h"

#include <objbase.h>

#include <bit>

#include "platform/win32/DispatchObject.h"

namespace platform::win32 {

std::int32_t Win32UrlHistory::coCreateInstance(const Guid& classId, std::uint32_t context, const Guid& interfaceId,
                                               Handle& object) {
  void* created = nullptr;
  const HRESULT code =
      CoCreateInstance(std::bit_cast<GUID>(classId), nullptr, context, std::bit_cast<GUID>(interfaceId), &created);
  if (code == S_OK) object = reinterpret_cast<Handle>(created);
  return code;
}

std::int32_t Win32UrlHistory::dispCallFunc(Handle object, std::uint32_t slot) {
  AutomationValue result;
  const HRESULT code = DispCallFunc(reinterpret_cast<void*>(object), slot * sizeof(void*), CC_STDCALL, VT_I4, 0,
                                    nullptr, nullptr, result.out());
  return code == S_OK ? result.integer() : code;
}

}  // namespace platform::win32
