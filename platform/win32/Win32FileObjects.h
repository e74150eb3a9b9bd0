// "Scripting.FileSystemObject" of the machine's scripting runtime, driven late-bound.
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
  // The one object that serves all calls, created at the first of them. Fails with 429.
  Result<DispatchObject*> object();
  // Deletes a folder that is no root.
  Result<void> deleteTree(const std::string& folder, bool force);

  std::unique_ptr<DispatchObject> object_;
};

}  // namespace platform::win32
