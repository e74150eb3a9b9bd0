// FileObjects by the automation object "Scripting.FileSystemObject", bound late.
#pragma once

#include <memory>

#include "platform/FileObjects.h"

namespace platform::win32 {

class DispatchObject;

class Win32FileObjects final : public FileObjects {
 public:
  Win32FileObjects();
  ~Win32FileObjects() override;
  Win32FileObjects(const Win32FileObjects&) = delete;
  Win32FileObjects& operator=(const Win32FileObjects&) = delete;

  bool folderExists(const std::string& path) override;
  Result<FileObject> getFile(const std::string& path) override;
  Result<void> deleteFile(const std::string& path, bool force) override;
  Result<void> deleteFolder(const std::string& path, bool force) override;

 private:
  // The automation object, created at the first call. Fails with 429.
  Result<DispatchObject*> object();
  // Deletes a folder that is not a root, or a link to a folder.
  Result<void> deleteTree(const std::string& folder, bool force);

  std::unique_ptr<DispatchObject> object_;
};

}  // namespace platform::win32
