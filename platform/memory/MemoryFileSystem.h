// The file system of the in-memory machine.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/FileSystem.h"
#include "platform/memory/MemoryDisk.h"
#include "platform/memory/MemoryFaults.h"

namespace platform::memory {

class MemoryFileSystem final : public FileSystem {
 public:
  MemoryFileSystem(MemoryDisk& disk, MemoryFaults& faults) : disk_(disk), faults_(faults) {}

  // An enumeration gives what the folder held at its start and still holds.
  Handle findFirstFile(const std::string& pattern, FindRecord& record) override;
  bool findNextFile(Handle enumeration, FindRecord& record) override;
  bool findClose(Handle enumeration) override;
  bool readFolder(const std::string& folder, const std::function<bool(FolderEntry&)>& visit) override;
  // Has every folder but the first ready only when it is asked for it the second time.
  std::unique_ptr<TreeReader> readTree(const std::string& folder, bool entersHiddenSystemFolders) override;
  std::uint32_t getFileAttributes(const std::string& path) override;
  Result<std::uint64_t> fileSize(const std::string& path) override;
  bool anyFileMatches(const std::string& pattern, std::uint32_t mask) override;
  // Opens existing files only, whatever the disposition.
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

  // How many folders are held, and how many enumerations have not been closed.
  std::size_t openHandles() const { return held_.size() + enumerations_.size(); }

 private:
  struct Enumeration {
    std::vector<std::pair<std::string, NodePtr>> found;  // by name
    std::size_t next = 0;
  };

  // Stores the next entry in `record`; false at the end.
  static bool giveNext(Enumeration& enumeration, FindRecord& record);
  // The names in `folder` that lists show, sorted: of folders or of files.
  Result<std::vector<std::string>> shownNames(const std::string& folder, bool folders) const;
  Result<void> write(int number, std::optional<std::uint64_t> position, std::string_view bytes);

  MemoryDisk& disk_;
  MemoryFaults& faults_;
  std::map<Handle, Enumeration> enumerations_;
  std::map<int, Handle> numbered_;  // open file numbers
  std::map<Handle, NodePtr> held_;
};

}  // namespace platform::memory
