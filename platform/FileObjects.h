// The automation file objects ("Scripting.FileSystemObject").
#pragma once

#include <cstdint>
#include <string>

#include "platform/RuntimeError.h"

namespace platform {

// The bits that file objects report; the file system's other bits are masked away.
inline constexpr std::uint32_t kFileObjectAttributes = 1 | 2 | 4 | 16 | 32 | 1024 | 2048;

// One file as the object shows it.
struct FileObject {
  std::string path;              // full path
  std::uint32_t attributes = 0;  // within kFileObjectAttributes
};

class FileObjects {
 public:
  virtual ~FileObjects() = default;

  // Creates the object, which the other calls do by themselves. Fails with 429. CoCreateInstance.
  virtual Result<void> create() = 0;

  // FolderExists. True when a folder of that path exists; false too when the object cannot be created.
  virtual bool folderExists(const std::string& path) = 0;
  // GetFile and its Path and Attributes. Fails with 53 when there is no such file (a folder is not one), 429 when the
  // object cannot be created.
  virtual Result<FileObject> getFile(const std::string& path) = 0;
  // DeleteFile. Deletes the file, or every file that the wildcards in the last part of `path` match, in order, up to
  // the first that cannot be deleted. Read-only files are refused (70) unless `force`. Fails with 53 when nothing
  // matches, 70 when a file is in use or protected.
  virtual Result<void> deleteFile(const std::string& path, bool force) = 0;
  // DeleteFolder. Deletes the folder with everything in it, up to the first thing that cannot be deleted. Of a link
  // (`path` may be one) only the link is removed, never what it points to; a link that the system can only follow is
  // refused (70). Read-only files and folders are refused (70) unless `force`. Wildcards match nothing here. Fails with
  // 76 when there is no such folder, 70 when something in it is in use or protected, or when it is a root.
  virtual Result<void> deleteFolder(const std::string& path, bool force) = 0;
};

}  // namespace platform
