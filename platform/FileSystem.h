// The file system as kernel32 offers it. Paths are Windows paths in the machine's ANSI code page.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/RuntimeError.h"

namespace platform {

// File attribute bits, as the file system reports them.
inline constexpr std::uint32_t kReadOnly = 0x1;
inline constexpr std::uint32_t kHidden = 0x2;
inline constexpr std::uint32_t kSystem = 0x4;
inline constexpr std::uint32_t kDirectory = 0x10;
inline constexpr std::uint32_t kArchive = 0x20;
inline constexpr std::uint32_t kDevice = 0x40;
inline constexpr std::uint32_t kNormal = 0x80;
inline constexpr std::uint32_t kReparsePoint = 0x400;
// What an attribute query returns when it fails: every bit is set, the directory bit too.
inline constexpr std::uint32_t kInvalidAttributes = 0xFFFFFFFF;

// True when the query that gave `attributes` succeeded and named a folder.
constexpr bool isDirectory(std::uint32_t attributes) {
  return attributes != kInvalidAttributes && (attributes & kDirectory) != 0;
}

// True when the query named a folder that holds its entries itself: a link to another place does not.
constexpr bool isOwnFolder(std::uint32_t attributes) {
  return isDirectory(attributes) && (attributes & kReparsePoint) == 0;
}

// One entry of a folder enumeration. The name buffer is fixed; the name ends at its first NUL.
struct FindRecord {
  std::uint32_t attributes = 0;
  std::uint32_t sizeHigh = 0;
  std::uint32_t sizeLow = 0;
  // As long as a name of 255 UTF-16 units in UTF-8.
  std::array<char, 255 * 3 + 1> name{};
};

// One entry of a folder that is read as a whole.
struct FolderEntry {
  std::string name;
  std::string shortName;  // 8.3 name; empty when there is none besides `name`
  std::uint32_t attributes = 0;
  std::uint64_t size = 0;  // bytes, as the folder has them; may be older than the file's own size
};

using Handle = std::uintptr_t;
inline constexpr Handle kInvalidHandle = ~static_cast<Handle>(0);

inline constexpr std::uint32_t kGenericRead = 0x80000000;
inline constexpr std::uint32_t kGenericWrite = 0x40000000;
inline constexpr std::uint32_t kShareNone = 0;
inline constexpr std::uint32_t kShareRead = 1;
inline constexpr std::uint32_t kShareWrite = 2;
inline constexpr std::uint32_t kOpenExisting = 3;

// The arguments of `createFile`, named as those of CreateFileA.
struct OpenRequest {
  std::uint32_t access = kGenericRead;
  std::uint32_t share = kShareNone;
  std::uint32_t disposition = kOpenExisting;
  std::uint32_t flagsAndAttributes = 0;
};

// One drive that the machine has. `label` is empty when the volume has none or cannot be asked without waiting.
struct Drive {
  char letter = 'C';  // always upper case
  std::string label;
};

class TreeReader;

class FileSystem {
 public:
  virtual ~FileSystem() = default;

  // FindFirstFileA. Starts the enumeration of `pattern` (folder, backslash, name with the wildcards * and ?) and stores
  // the first entry in `record`. Returns the enumeration's handle, kInvalidHandle when nothing matches or the folder
  // cannot be read. An entry whose name the code page cannot hold is given under its short name, or left out when it
  // has none; names that end in a blank or a dot are left out, because later calls would take them for another file.
  virtual Handle findFirstFile(const std::string& pattern, FindRecord& record) = 0;
  // FindNextFileA. Stores the next entry; false at the end or on failure, `record` is then as it was.
  virtual bool findNextFile(Handle enumeration, FindRecord& record) = 0;
  // FindClose. Ends the enumeration; false when the handle is not a live one.
  virtual bool findClose(Handle enumeration) = 0;
  // Calls `visit` once for each entry of `folder`, which ends in a backslash, except "." and "..", in the order of an
  // enumeration, until it returns false; returns false then. Names are those of an enumeration. A folder that cannot be
  // read has no entries. FindFirstFileW, FindNextFileW, FindClose; FindFirstFileA, FindNextFileA.
  virtual bool readFolder(const std::string& folder, const std::function<bool(FolderEntry&)>& visit) = 0;

  // Reads `folder`, which ends in a backslash, and all folders below it that are no links; those that are hidden and
  // system only when `entersHiddenSystemFolders`. readFolder, getFileAttributes; the machine may do it ahead of the
  // reader's use, so what has changed since is not seen.
  virtual std::unique_ptr<TreeReader> readTree(const std::string& folder, bool entersHiddenSystemFolders);

  // GetFileAttributesA. Returns the attribute bits of a file or folder, kInvalidAttributes when it cannot be asked.
  virtual std::uint32_t getFileAttributes(const std::string& path) = 0;

  // The size in bytes of the file at `path`, read from the file and not from its folder entry. Fails with 53 when there
  // is no such file. GetFileSize.
  virtual Result<std::uint64_t> fileSize(const std::string& path) = 0;

  // Whether `pattern` matches a file (or, when the mask holds kDirectory, a folder) that has no attribute among
  // read-only, hidden, system and directory that `mask` lacks: the classic directory search with an attribute mask.
  virtual bool anyFileMatches(const std::string& pattern, std::uint32_t mask) = 0;

  // CreateFileA without security record and template. kInvalidHandle on failure.
  virtual Handle createFile(const std::string& path, const OpenRequest& request) = 0;
  // CloseHandle. False when the handle is not a live one.
  virtual bool closeHandle(Handle handle) = 0;

  // Opens `path` for binary reading and writing, shared, in place (nothing is cut), under the file number `number`
  // (1 to 511) with its position on the first byte; a missing file is created. Fails with 52 (bad number), 55 (number
  // in use), 68 (drive not ready), 70 or 75 (no access), 76 (no such folder). CreateFileA with OPEN_ALWAYS.
  virtual Result<void> openBinary(int number, const std::string& path) = 0;
  // Writes at the current position and moves it behind the written bytes. Fails with 52 when the number is not open,
  // 61 when the disk is full, 70 when the write is refused. WriteFile.
  virtual Result<void> putBytes(int number, std::string_view bytes) = 0;
  // The same at the 1-based byte position `position`; 0 fails with 5. SetFilePointer, WriteFile.
  virtual Result<void> putBytesAt(int number, std::uint64_t position, std::string_view bytes) = 0;
  // Closes the file number; a number that is not open is no failure. CloseHandle.
  virtual void closeFile(int number) = 0;

  // Opens a folder so that it can be neither renamed nor deleted, nor replaced by a link, until releaseFolder. Fails
  // when it is no folder, or a link to one unless `mayBeLink`. Where folders cannot be opened (the Windows 95 family,
  // which has no links), only looks at it and returns kInvalidHandle. CreateFileA with FILE_FLAG_BACKUP_SEMANTICS.
  virtual Result<Handle> holdFolder(const std::string& folder, bool mayBeLink) = 0;
  virtual void releaseFolder(Handle held) = 0;

  // A file number that nothing is open under: the lowest. Fails with 67 when all are taken.
  virtual Result<int> freeFile() = 0;
  // FlushFileBuffers. False when the handle is not that of an open file. Takes the system's handles; a file number is
  // none.
  virtual bool flushFileBuffers(Handle handle) = 0;

  // The full path of `path`, which may be relative to the current folder of its drive, with "." and ".." worked in.
  // Nothing of that name needs to be there. Fails with 76 for a text that can be no path. GetFullPathNameA.
  virtual Result<std::string> getFullPathName(const std::string& path) = 0;
  // MoveFileA. Moves the file `from` to the path `to`; to another drive the system copies a file and deletes it
  // here. Fails with 53 (no such file), 58 (`to` is taken), 70 (in use), 75 (no access), 76 (no such folder).
  virtual Result<void> moveFile(const std::string& from, const std::string& to) = 0;
  // Renames a file; `to` may be in another folder, and a bare name is in the current folder. Fails with 74 when the
  // full paths are on different drives, and otherwise as moveFile does.
  Result<void> rename(const std::string& from, const std::string& to);
  // DeleteFileA. Deletes one file; wildcards are no file's name. Fails with 53 (no such file), 70 (in use), 75
  // (read-only, protected, a folder), 76 (no such folder).
  virtual Result<void> remove(const std::string& path) = 0;

  // The drives that the machine has, by letter. GetLogicalDrives, GetVolumeInformationA for fixed ones.
  virtual std::vector<Drive> drives() = 0;
  // The process's current folder, drive and all ("C:\Windows"), without a closing backslash except for a root.
  // GetCurrentDirectoryA.
  virtual std::string currentFolder() = 0;
  // The current folder of the drive `letter`, as above. Fails with 68 when the drive is missing or not ready.
  // GetFullPathNameA of "X:".
  virtual Result<std::string> currentFolderOf(char letter) = 0;
  // The names of the folders directly in `folder` that a folder list shows: no hidden or system ones, sorted without
  // regard to case. Fails with 68 when the drive is not ready, 76 when the folder does not exist. FindFirstFileA.
  virtual Result<std::vector<std::string>> subfolders(const std::string& folder) = 0;
  // The names of the files directly in `folder` that a file list shows: all ("*.*") but hidden and system ones, sorted
  // without regard to case. Fails as above. FindFirstFileA.
  virtual Result<std::vector<std::string>> filesIn(const std::string& folder) = 0;
};

}  // namespace platform
