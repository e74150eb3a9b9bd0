// The automation file objects of the in-memory machine.
#pragma once

#include <string>

#include "platform/FileObjects.h"
#include "platform/memory/MemoryDisk.h"
#include "platform/memory/MemoryFaults.h"

namespace platform::memory {

class MemoryFileObjects final : public FileObjects {
 public:
  MemoryFileObjects(MemoryDisk& disk, MemoryFaults& faults) : disk_(disk), faults_(faults) {}

  bool folderExists(const std::string& path) override;
  Result<FileObject> getFile(const std::string& path) override;
  Result<void> deleteFile(const std::string& path, bool force) override;
  Result<void> deleteFolder(const std::string& path, bool force) override;

 private:
  MemoryDisk& disk_;
  MemoryFaults& faults_;
};

}  // namespace platform::memory
