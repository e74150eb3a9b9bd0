#include "platform/win32/Win32ProfileFile.h"

#include <windows.h>

namespace platform::win32 {

std::uint32_t Win32ProfileFile::getString(const std::string& section, const std::string& entry,
                                          const std::string& fallback, std::span<char> buffer,
                                          const std::string& file) {
  return GetPrivateProfileStringA(section.c_str(), entry.c_str(), fallback.c_str(), buffer.data(), buffer.size(),
                                  file.c_str());
}

std::uint32_t Win32ProfileFile::getInt(const std::string& section, const std::string& entry, std::int32_t fallback,
                                       const std::string& file) {
  return GetPrivateProfileIntA(section.c_str(), entry.c_str(), fallback, file.c_str());
}

bool Win32ProfileFile::writeString(const std::string& section, const std::string& entry, const std::string& text,
                                   const std::string& file) {
  return WritePrivateProfileStringA(section.c_str(), entry.c_str(), text.c_str(), file.c_str()) != FALSE;
}

}  // namespace platform::win32
