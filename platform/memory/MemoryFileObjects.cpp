#include "platform/memory/MemoryFileObjects.h"

#include <vector>

namespace platform::memory {

bool MemoryFileObjects::folderExists(const std::string& path) {
  if (faults_.nextFault("folderExists")) return false;
  const DiskResult<NodePtr> node = disk_.find(path);
  return node && (*node)->isFolder();
}

Result<FileObject> MemoryFileObjects::getFile(const std::string& path) {
  if (const auto fault = faults_.nextFault("getFile", kPermissionDenied)) return failure(*fault);
  const DiskResult<NodePtr> node = disk_.find(path);
  if (!node || (*node)->isFolder()) return failure(kFileNotFound);
  return FileObject{disk_.fullPath(path)->text(), (*node)->attributes & kFileObjectAttributes};
}

Result<void> MemoryFileObjects::deleteFile(const std::string& path, bool force) {
  if (const auto fault = faults_.nextFault("deleteFile", kPermissionDenied)) return failure(*fault);
  bool any = false;
  for (const NodePtr& node : disk_.matches(path)) {
    if (node->isFolder()) continue;
    any = true;
    if (!disk_.remove(node, force)) return failure(kPermissionDenied);
  }
  if (!any) return failure(kFileNotFound);
  return {};
}

Result<void> MemoryFileObjects::deleteFolder(const std::string& path, bool force) {
  if (const auto fault = faults_.nextFault("deleteFolder", kPermissionDenied)) return failure(*fault);
  const DiskResult<NodePtr> node = disk_.find(path);
  if (!node || !(*node)->isFolder()) return failure(kPathNotFound);
  if (!disk_.remove(*node, force)) return failure(kPermissionDenied);
  return {};
}

}  // namespace platform::memory
