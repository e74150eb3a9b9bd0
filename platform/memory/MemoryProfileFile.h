// Private-profile files of the in-memory machine: real files of its disk.
#pragma once

#include <string>
#include <vector>

#include "platform/ProfileFile.h"
#include "platform/memory/MemoryDisk.h"
#include "platform/memory/MemoryFaults.h"

namespace platform::memory {

class MemoryProfileFile final : public ProfileFile {
 public:
  MemoryProfileFile(MemoryDisk& disk, MemoryFaults& faults) : disk_(disk), faults_(faults) {}

  std::uint32_t getString(const std::string& section, const std::string& entry, const std::string& fallback,
                          std::span<char> buffer, const std::string& file) override;
  std::uint32_t getInt(const std::string& section, const std::string& entry, std::int32_t fallback,
                       const std::string& file) override;
  bool writeString(const std::string& section, const std::string& entry, const std::string& text,
                   const std::string& file) override;

 private:
  // The file's lines, none when there is no such file.
  std::vector<std::string> linesOf(const std::string& file) const;

  MemoryDisk& disk_;
  MemoryFaults& faults_;
};

}  // namespace platform::memory
