// The file system of the in-memory machine.
#pragma once

#include <array>
#include <map>
#include <string>
#include <vector>

#include "platform/FileSystem.h"
#include "platform/memory/MemoryDisk.h"
#include "platform/memory/MemoryFaults.h"

namespace platform::memory {

class MemoryFileSystem final : public FileSystem {
 public:
  MemoryFileSystem(MemoryDisk& disk, MemoryFaults& faults) : disk_(disk), faults_(faults) {}

  Handle findFirstFile(const std::string& pattern, FindRecord& record) override;
  bool findNextFile(Handle enumeration, FindRecord& record) override;
  bool findClose(Handle enumeration) override;

  std::uint32_t getFileAttributes(const std::string& path) override;
  bool setFileAttributes(const std::string& path, std::uint32_t attributes) override;
  Result<std::int32_t> fileLength(const std::string& path) override;
  bool anyFileMatches(const std::string& pattern, std::uint32_t mask) override;

  // Knows kOpenExisting only, and opens no folders; the bits in `flagsAndAttributes` mean nothing to a file that is
  // already there.
  Handle createFile(const std::string& path, const OpenRequest& request) override;
  bool closeHandle(Handle handle) override;

  Result<void> openBinary(int number, const std::string& path) override;
  Result<void> putBytes(int number, std::string_view bytes) override;
  Result<void> putBytesAt(int number, std::uint32_t position, std::string_view bytes) override;
  void closeFile(int number) override;

  Result<int> freeFile() override;
  bool flushFileBuffers(Handle handle) override;

  Result<std::string> getFullPathName(const std::string& path) override;
  Result<void> moveFile(const std::string& from, const std::string& to) override;
  Result<void> remove(const std::string& path) override;

  std::vector<Drive> drives() override;
  std::string currentFolder() override;
  Result<std::string> currentFolderOf(char letter) override;
  Result<std::vector<std::string>> subfolders(const std::string& folder) override;
  Result<std::vector<std::string>> filesIn(const std::string& folder) override;

  // How many enumerations have not been closed.
  std::size_t openEnumerations() const { return enumerations_.size(); }

 private:
  // A running enumeration. It holds no list: what comes and goes in the folder meanwhile is seen, as on a real disk.
  struct Enumeration {
    NodePtr folder;
    Wildcards wildcards;
    bool isRoot = false;
    int dotsGiven = 0;         // "." and ".." stand before everything else, but not in a root
    bool singleGiven = false;  // without wildcards, the one entry has been looked for
    FolderEntries::Cursor cursor;
  };

  std::optional<Enumeration> startEnumeration(const std::string& pattern) const;
  // Stores the next match in `record`; false at the end.
  static bool next(Enumeration& enumeration, FindRecord& record);
  static NodePtr nextNode(Enumeration& enumeration);
  // The names in `folder` that lists show, sorted: of folders or of files.
  Result<std::vector<std::string>> shownNames(const std::string& folder, bool folders) const;
  Result<void> write(int number, std::optional<std::uint64_t> position, std::string_view bytes);

  MemoryDisk& disk_;
  MemoryFaults& faults_;
  std::map<Handle, Enumeration> enumerations_;
  std::map<int, Handle> numbered_;  // open file numbers
};

}  // namespace platform::memory
