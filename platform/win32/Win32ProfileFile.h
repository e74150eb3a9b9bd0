// ProfileFile by the private-profile functions of Windows.
#pragma once

#include "platform/ProfileFile.h"

namespace platform::win32 {

class Win32ProfileFile final : public ProfileFile {
 public:
  std::uint32_t getString(const std::string& section, const std::string& entry, const std::string& fallback,
                          std::span<char> buffer, const std::string& file) override;
  std::uint32_t getInt(const std::string& section, const std::string& entry, std::int32_t fallback,
                       const std::string& file) override;
  bool writeString(const std::string& section, const std::string& entry, const std::string& text,
                   const std::string& file) override;
};

}  // namespace platform::win32
