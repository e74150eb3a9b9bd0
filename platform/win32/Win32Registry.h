// Registry by the Reg... functions of Windows.
#pragma once

#include "platform/Registry.h"

namespace platform::win32 {

class Win32Registry final : public Registry {
 public:
  std::int32_t openKey(RegistryKey key, const std::string& path, std::uint32_t access, RegistryKey& opened) override;
  std::int32_t createKey(RegistryKey key, const std::string& path, std::uint32_t access, RegistryKey& opened) override;
  std::int32_t queryValue(RegistryKey key, const std::string& name, std::uint32_t& type, std::span<char> buffer,
                          std::uint32_t& size) override;
  std::int32_t setValue(RegistryKey key, const std::string& name, std::uint32_t type, const std::string& data) override;
  std::int32_t deleteKey(RegistryKey key, const std::string& path) override;
  std::int32_t deleteValue(RegistryKey key, const std::string& name) override;
  std::int32_t closeKey(RegistryKey key) override;
};

}  // namespace platform::win32
