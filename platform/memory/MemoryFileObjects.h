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

  Result<void> create() override {
    const auto fault = faults_.nextFault("create", kCannotCreateObject);
    return fault ? failure(*fault) : Result<void>{};
  }
  bool folderExists(const std::string& path) override {
    if (faults_.nextFault("folderExists")) return false;
    const Result<NodePtr> node = disk_.find(path);
    return node && (*node)->isFolder();
  }
  Result<FileObject> getFile(const std::string& path) override {
    if (const auto fault = faults_.nextFault("getFile", kPermissionDenied)) return failure(*fault);
    const Result<NodePtr> node = disk_.find(path);
    if (!node || (*node)->isFolder()) return failure(kFileNotFound);
    return FileObject{*disk_.fullPath(path), (*node)->attributes & kFileObjectAttributes};
  }
  Result<void> deleteFile(const std::string& path, bool force) override {
    if (const auto fault = faults_.nextFault("deleteFile", kPermissionDenied)) return failure(*fault);
    Result<void> result = failure(kFileNotFound);
    for (const NodePtr& node : disk_.matches(path)) {
      if (node->isFolder()) continue;
      if (!disk_.remove(node, force)) return failure(kPermissionDenied);
      result = {};
    }
    return result;
  }
  Result<void> deleteFolder(const std::string& path, bool force) override {
    if (const auto fault = faults_.nextFault("deleteFolder", kPermissionDenied)) return failure(*fault);
    const Result<NodePtr> node = disk_.find(path);
    if (!node || !(*node)->isFolder()) return failure(kPathNotFound);
    return disk_.remove(*node, force) ? Result<void>{} : failure(kPermissionDenied);
  }

 private:
  MemoryDisk& disk_;
  MemoryFaults& faults_;
};

}  // namespace platform::memory
