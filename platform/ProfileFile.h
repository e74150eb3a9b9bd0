// Private-profile (INI) files (kernel32). Sections and entries are without regard to case. A file name without a folder
// is that of a file in the Windows folder.
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace platform {

class ProfileFile {
 public:
  virtual ~ProfileFile() = default;

  // GetPrivateProfileStringA. Stores the entry's text, or `fallback` when there is no such entry, and a closing NUL in
  // `buffer`; what does not fit is cut. Returns the number of characters stored, without the NUL. One pair of quotation
  // marks around the text is left out, and so are blanks around it.
  virtual std::uint32_t getString(const std::string& section, const std::string& entry, const std::string& fallback,
                                  std::span<char> buffer, const std::string& file) = 0;
  // GetPrivateProfileIntA. The number that the entry's text starts with, 0 when it starts with none, `fallback` when
  // there is no such entry.
  virtual std::uint32_t getInt(const std::string& section, const std::string& entry, std::int32_t fallback,
                               const std::string& file) = 0;
  // WritePrivateProfileStringA. Makes the file, the section and the entry where they are missing. False on failure.
  virtual bool writeString(const std::string& section, const std::string& entry, const std::string& text,
                           const std::string& file) = 0;
};

}  // namespace platform
