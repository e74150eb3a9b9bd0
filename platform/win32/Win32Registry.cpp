#include "platform/win32/Win32Registry.h"

#include <windows.h>

namespace platform::win32 {
namespace {

HKEY nativeKey(RegistryKey key) { return reinterpret_cast<HKEY>(key); }

const BYTE* bytes(const std::string& data) { return reinterpret_cast<const BYTE*>(data.c_str()); }

}  // namespace

std::int32_t Win32Registry::openKey(RegistryKey key, const std::string& path, std::uint32_t access,
                                    RegistryKey& opened) {
  HKEY result = nullptr;
  const LONG code = RegOpenKeyExA(nativeKey(key), path.c_str(), 0, access, &result);
  if (code == ERROR_SUCCESS) opened = reinterpret_cast<RegistryKey>(result);
  return code;
}

std::int32_t Win32Registry::createKey(RegistryKey key, const std::string& path, std::uint32_t access,
                                      RegistryKey& opened) {
  HKEY result = nullptr;
  std::string noClass;
  const LONG code = RegCreateKeyExA(nativeKey(key), path.c_str(), 0, noClass.data(), REG_OPTION_NON_VOLATILE, access,
                                    nullptr, &result, nullptr);
  if (code == ERROR_SUCCESS) opened = reinterpret_cast<RegistryKey>(result);
  return code;
}

std::int32_t Win32Registry::queryValue(RegistryKey key, const std::string& name, std::uint32_t& type,
                                       std::span<char> buffer, std::uint32_t& size) {
  DWORD storedType = type;
  DWORD storedSize = buffer.size();
  const LONG code = RegQueryValueExA(nativeKey(key), name.c_str(), nullptr, &storedType,
                                     reinterpret_cast<BYTE*>(buffer.data()), &storedSize);
  type = storedType;
  size = storedSize;
  return code;
}

std::int32_t Win32Registry::setValue(RegistryKey key, const std::string& name, std::uint32_t type,
                                     const std::string& data) {
  return RegSetValueExA(nativeKey(key), name.c_str(), 0, type, bytes(data), data.size());
}

std::int32_t Win32Registry::deleteKey(RegistryKey key, const std::string& path) {
  return RegDeleteKeyA(nativeKey(key), path.c_str());
}

std::int32_t Win32Registry::deleteValue(RegistryKey key, const std::string& name) {
  return RegDeleteValueA(nativeKey(key), name.c_str());
}

std::int32_t Win32Registry::closeKey(RegistryKey key) { return RegCloseKey(nativeKey(key)); }

}  // namespace platform::win32
