// FileSystem by the Windows file functions.
#pragma once

#include <array>

#include "platform/FileSystem.h"

namespace platform::win32 {

class Win32FileSystem final : public FileSystem {
 public:
  Win32FileSystem();
  // Closes the file numbers that are still open.
  ~Win32FileSystem() override;
  Win32FileSystem(const Win32FileSystem&) = delete;
  Win32FileSystem& operator=(const Win32FileSystem&) = delete;

  Handle findFirstFile(const std::string& pattern, FindRecord& record) override;
  bool findNextFile(Handle enumeration, FindRecord& record) override;
  bool findClose(Handle enumeration) override;
  bool readFolder(const std::string& folder, const std::function<bool(FolderEntry&)>& visit) override;
  std::unique_ptr<TreeReader> readTree(const std::string& folder, bool entersHiddenSystemFolders) override;
  std::uint32_t getFileAttributes(const std::string& path) override;
  Result<std::uint64_t> fileSize(const std::string& path) override;
  bool anyFileMatches(const std::string& pattern, std::uint32_t mask) override;
  Handle createFile(const std::string& path, const OpenRequest& request) override;
  bool closeHandle(Handle handle) override;
  Result<void> openBinary(int number, const std::string& path) override;
  Result<void> putBytes(int number, std::string_view bytes) override;
  Result<void> putBytesAt(int number, std::uint64_t position, std::string_view bytes) override;
  void closeFile(int number) override;
  Result<int> freeFile() override;
  Result<Handle> holdFolder(const std::string& folder, bool mayBeLink) override;
  void releaseFolder(Handle held) override;
  bool flushFileBuffers(Handle handle) override;
  Result<std::string> getFullPathName(const std::string& path) override;
  Result<void> moveFile(const std::string& from, const std::string& to) override;
  Result<void> remove(const std::string& path) override;
  std::vector<Drive> drives() override;
  std::string currentFolder() override;
  Result<std::string> currentFolderOf(char letter) override;
  Result<std::vector<std::string>> subfolders(const std::string& folder) override;
  Result<std::vector<std::string>> filesIn(const std::string& folder) override;

 private:
  static constexpr int kHighestFileNumber = 511;

  bool isOpen(int number) const;
  // The sorted names of the folders, or else of the files, in `folder` that are neither hidden nor system ones.
  Result<std::vector<std::string>> shownNames(const std::string& folder, bool folders);

  // Indexed by file number; kInvalidHandle where the number is free. Number 0 is not used.
  std::array<Handle, kHighestFileNumber + 1> numbered_;
};

}  // namespace platform::win32
