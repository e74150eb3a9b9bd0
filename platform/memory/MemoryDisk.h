// The drives of the in-memory machine: folders, files, links, attributes, open files, and the Recycle Bin. The services
// (file system, file objects, shell) work on it. Failures carry run-time error numbers.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/FileSystem.h"
#include "platform/memory/MemoryNames.h"

namespace platform::memory {

struct Node;
using NodePtr = std::shared_ptr<Node>;
using Entries = std::map<std::string, NodePtr, NameOrder>;

// The bytes of one file. Those behind the last one written are zeros and take no memory.
struct Contents {
  std::string written;
  std::uint64_t size = 0;

  // Writes at the 0-based position `at`, and extends the file when it ends before the last byte written.
  void write(std::uint64_t at, std::string_view bytes);
  std::string all() const { return written + std::string(size - written.size(), '\0'); }
};

// A file or a folder.
struct Node {
  std::string name;
  std::uint32_t attributes = 0;  // never kNormal, which means none
  bool isExclusive = false;      // somebody has it open, and shares nothing
  int openings = 0;              // how many handles the file has
  Node* parent = nullptr;        // null for a root, and for what has been removed
  Contents contents = {};
  std::optional<std::uint64_t> listedSize = {};  // what an enumeration gives instead of the file's own size
  std::shared_ptr<Entries> entries = {};         // of a folder; a link has those of the folder that it points to

  bool isFolder() const { return entries != nullptr; }
  bool isLink() const { return (attributes & kReparsePoint) != 0; }
  // What a query gives.
  std::uint32_t reportedAttributes() const { return attributes == 0 ? kNormal : attributes; }
};

// One write to a file.
struct Write {
  std::string path;            // full path, as the file is named
  std::uint64_t position = 0;  // 0-based
  std::uint64_t size = 0;
  std::string bytes;  // empty after forgetWrites
};

class MemoryDisk {
 public:
  // --- What the user or another program does. Missing parents are made. What cannot be done (a file in a file, an
  // unknown drive, a file that is not there) throws an exception.
  void addDrive(char letter, const std::string& label = "", bool ready = true);
  // A folder or file that is already there gets the new attributes and contents.
  NodePtr addFolder(const std::string& path, std::uint32_t attributes = 0);
  NodePtr addFile(const std::string& path, const std::string& contents = "", std::uint32_t attributes = kArchive);
  // A file of `size` zeros, which take no memory.
  NodePtr addSizedFile(const std::string& path, std::uint64_t size, std::uint32_t attributes = kArchive);
  // A folder that is a link to the folder `target`, which is made if it is missing and does not hold the link.
  void addLink(const std::string& path, const std::string& target);
  // From now on enumerations give this size for the file, as a folder does whose entry is older than the latest writes.
  void setListedSize(const std::string& path, std::uint64_t size) { existing(path)->listedSize = size; }
  // Takes a file, or a folder with all that is in it, off the disk; false when something there is open.
  bool takeAway(const std::string& path);
  // Makes the folder its drive's current one, and the drive the current drive.
  void setCurrentFolder(const std::string& path);
  // Another program holds the file, and shares nothing.
  void lock(const std::string& path) { existing(path)->isExclusive = true; }
  void unlock(const std::string& path) { existing(path)->isExclusive = false; }

  // --- What is there, whether the drive is ready or not.
  bool exists(const std::string& path) const { return walk(fullPath(path).value()).has_value(); }
  // The bytes of a file; nothing when there is none.
  std::optional<std::string> contents(const std::string& path) const;
  // The full paths of the files in a folder and below, sorted bytewise; links are not followed.
  std::vector<std::string> filesBelow(const std::string& folder) const;
  // The names directly in a folder, sorted bytewise.
  std::vector<std::string> namesIn(const std::string& folder) const;
  // Every write since the start. Writing nothing is none.
  const std::vector<Write>& writes() const { return writes_; }
  // From now on the bytes of writes are neither noted nor stored: they only change the size of the file.
  void forgetWrites() { notesBytes_ = false; }
  std::size_t openFiles() const { return open_.size(); }

  // --- Drives
  std::vector<Drive> drives() const;
  const std::string& currentFolder() const { return drives_.at(currentDrive_).currentFolder; }
  Result<std::string> currentFolderOf(char letter) const;

  // --- Paths
  // The full path ("C:\Windows", a root is "C:\") of `path`, which may be relative. Fails with 52 for a text that can
  // name nothing, 76 for servers and for more characters than calls take.
  Result<std::string> fullPath(std::string_view path) const;
  // What a path names. Fails with 53, 76 for a missing folder on the way, 68 when the drive is not ready.
  Result<NodePtr> find(std::string_view path) const;
  // A path's folder and the name in it: "C:\a\*.b" gives "C:\a\" and "*.b".
  struct Split {
    std::string folder;
    std::string name;
  };
  static Split split(std::string_view path);
  // The files and folders that a path with or without wildcards in its last part matches, sorted.
  std::vector<NodePtr> matches(std::string_view path) const;

  // --- Open files
  // Makes an empty file; its folder must be there, and the name not taken.
  Result<NodePtr> create(std::string_view path);
  Handle newHandle() { return lastHandle_ += 4; }
  // Opens a file. Fails with 70 when either this handle or another one of the file shares nothing, 75 when the file may
  // not be written. Handles that share are taken to share all.
  Result<Handle> open(const NodePtr& file, std::uint32_t access, std::uint32_t share);
  bool close(Handle handle);
  // Writes at `position`, or at the handle's own position, and moves that behind the written bytes.
  void write(Handle handle, std::optional<std::uint64_t> position, std::string_view bytes);
  bool isOpen(Handle handle) const { return open_.contains(handle); }

  // --- Renaming and removal
  // Gives a file another path, on another drive too. Its new folder must be there, and the name not taken.
  Result<void> move(const NodePtr& file, std::string_view path);
  // Removes a file, or a folder with all that is in it; stops at the first thing that cannot be removed. Of a link only
  // the link is removed. Read-only files are refused unless `readOnlyToo`.
  Result<void> remove(const NodePtr& node, bool readOnlyToo);
  // Moves a file into the Recycle Bin, read-only or not.
  Result<void> recycle(const NodePtr& file);
  // Where the things in the Recycle Bin came from (full paths), in the order deleted.
  const std::vector<std::string>& recycleBin() const { return recycleBin_; }
  void emptyRecycleBin() { recycleBin_.clear(); }

 private:
  struct DriveState {
    std::string label;
    bool ready = true;
    NodePtr root;
    std::string currentFolder;
  };
  struct OpenFile {
    NodePtr file;
    std::uint64_t position = 0;
  };

  // The node at a full path, whether the drive is ready or not.
  Result<NodePtr> walk(std::string_view fullPath) const;
  NodePtr existing(const std::string& path) const { return walk(fullPath(path).value()).value(); }
  // The file or folder of that path, which is made when it is missing.
  NodePtr made(const std::string& path, bool folder);
  // Whether a handle is open to the file, the folder, or something in it.
  static bool isOpen(const Node& node);
  Result<void> mayGo(const Node& node, bool readOnlyToo) const;

  std::map<char, DriveState> drives_;
  char currentDrive_ = 'C';
  std::map<Handle, OpenFile> open_;
  Handle lastHandle_ = 0;
  std::vector<Write> writes_;
  bool notesBytes_ = true;
  std::vector<std::string> recycleBin_;
};

}  // namespace platform::memory
