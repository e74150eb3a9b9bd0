// The drives of the in-memory machine: folders, files, aliases, links, attributes, who has what open, and the Recycle
// Bin. The services (file system, file objects, shell) work on it and give its errors in their own numbers.
#pragma once

#include <array>
#include <cstdint>
#include <expected>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/FileSystem.h"
#include "platform/memory/MemoryBytes.h"
#include "platform/memory/MemoryNames.h"

namespace platform::memory {

// Why the disk refuses, in the system's own codes.
enum class DiskError : std::int32_t {
  kFileNotFound = 2,
  kPathNotFound = 3,
  kAccessDenied = 5,
  kInvalidHandle = 6,
  kInvalidDrive = 15,
  kNotReady = 21,
  kSharingViolation = 32,
  kInvalidName = 123,
  kAlreadyExists = 183,
};

template <typename T>
using DiskResult = std::expected<T, DiskError>;

// The most characters that a path has in a call, with its closing NUL.
inline constexpr std::size_t kMaxPath = 260;

// What a full path comes to: a drive and the names below its root.
struct FullPath {
  char drive = 'C';
  std::vector<std::string> parts;

  std::string text() const;  // "C:\Windows"; a root is "C:\"
};

struct Node;
using NodePtr = std::shared_ptr<Node>;

// The entries of one folder, in the order of an enumeration.
class FolderEntries {
  struct ByName {
    using is_transparent = void;
    static std::string_view name(std::string_view text) { return text; }
    static std::string_view name(const NodePtr& node);
    bool operator()(const auto& a, const auto& b) const { return compareNames(name(a), name(b)) < 0; }
  };
  using Set = std::set<NodePtr, ByName>;

 public:
  // A place in the folder that stays good while entries come and go.
  class Cursor {
    friend class FolderEntries;
    std::string last_;  // the name of the entry given last, for the case that it has gone meanwhile
    Set::const_iterator at_;
    std::uint64_t removals_ = 0;
    bool started_ = false;
  };

  // By name or by alias; null when there is none.
  NodePtr find(std::string_view name) const;
  // The entry behind the cursor, whose new place that is; null at the end. A new cursor stands before the first one.
  NodePtr next(Cursor& cursor) const;
  // The node's name must be new here. Gives it an alias when it needs one.
  void add(const NodePtr& node);
  void remove(const NodePtr& node);
  bool empty() const { return byName_.empty(); }
  std::vector<NodePtr> all() const { return {byName_.begin(), byName_.end()}; }

 private:
  // An alias that nothing in the folder is called; empty when all that are worth a try are taken.
  std::string freeAlias(std::string_view name) const;

  Set byName_;
  std::unordered_map<std::string, NodePtr> byAlias_;  // aliases are in upper case
  std::uint64_t removals_ = 0;
};

// A file or a folder.
struct Node {
  std::string name;
  std::string alias;             // empty when the name is its own 8.3 name, and when there is no alias
  std::uint32_t attributes = 0;  // never kNormal, which only stands for none
  bool unspeakable = false;      // the code page cannot hold the name
  bool locked = false;           // another program has it open, and shares nothing
  bool deniesWriting = false;    // and deleting
  int openings = 0;              // how many handles the file has
  Node* parent = nullptr;        // null for a root, and for what has been removed
  MemoryBytes bytes;
  std::optional<std::uint64_t> listedSize;  // what an enumeration gives when it lags behind the file
  std::unique_ptr<FolderEntries> entries;   // of a folder; a link has none of its own
  std::unique_ptr<std::string> linkTarget;  // full path, of a folder that is a link

  bool isFolder() const { return (attributes & kDirectory) != 0; }
  bool isLink() const { return linkTarget != nullptr; }
  // What a query gives.
  std::uint32_t reportedAttributes() const { return attributes == 0 ? kNormal : attributes; }
};

// One write to a file.
struct Write {
  std::string path;            // full path, as the file is named
  std::uint64_t position = 0;  // 0-based
  std::string bytes;
};

class MemoryDisk {
 public:
  // --- What the user or another program does. Missing parents are made; paths are taken literally, so that names with
  // blanks or dots at the end can be made. What cannot be done (a file in a file, an unknown drive, a file that is not
  // there) throws std::logic_error.
  void addDrive(char letter, const std::string& label = "", bool ready = true);
  void setReady(char letter, bool ready);
  // A folder or file that is already there gets the new attributes and contents.
  NodePtr addFolder(const std::string& path, std::uint32_t attributes = 0);
  NodePtr addFile(const std::string& path, const std::string& contents = "", std::uint32_t attributes = kArchive);
  // A file of `size` zeros, which take no memory.
  NodePtr addSizedFile(const std::string& path, std::uint64_t size, std::uint32_t attributes = kArchive);
  // A folder that is a link to the folder `target`, which need not exist.
  void addLink(const std::string& path, const std::string& target);
  // A file whose name the code page cannot hold; only its 8.3 alias can be used. Empty: it has none.
  void addUnspeakable(const std::string& folder, const std::string& alias);
  // From now on enumerations give this size for the file, as a folder does whose entry is older than the latest writes.
  void setListedSize(const std::string& path, std::uint64_t size) { existing(path)->listedSize = size; }
  void setAttributes(const std::string& path, std::uint32_t attributes);
  // Makes the folder its drive's current one, and the drive the current drive.
  void setCurrentFolder(const std::string& path);
  // Another program holds the file, and shares nothing.
  void lock(const std::string& path) { existing(path)->locked = true; }
  void unlock(const std::string& path) { existing(path)->locked = false; }
  // From now on opening the file for writing, and deleting it, are refused.
  void denyWriting(const std::string& path) { existing(path)->deniesWriting = true; }

  // --- What is there, whatever the state of the drive.
  bool exists(const std::string& path) const { return peek(path) != nullptr; }
  // The bytes of a file; nothing when there is none.
  std::optional<std::string> contents(const std::string& path) const;
  // As a query reports them; nothing when there is no such file or folder.
  std::optional<std::uint32_t> attributes(const std::string& path) const;
  // The full paths of the files in a folder and below, sorted bytewise; links are not followed.
  std::vector<std::string> filesBelow(const std::string& folder) const;
  // The names directly in a folder, sorted bytewise.
  std::vector<std::string> namesIn(const std::string& folder) const;

  // --- Drives
  std::vector<Drive> drives() const;
  const std::string& currentFolder() const { return currentFolders_.at(currentDrive_); }
  DiskResult<std::string> currentFolderOf(char letter) const;

  // --- Paths
  // The full path of `path`, relative to the current folder of its drive, with "." and ".." worked in.
  // Fails for a text that can name nothing, and for more characters than calls take (kMaxPath).
  DiskResult<FullPath> fullPath(std::string_view path) const;
  // The node that a path names; links on the way are followed, one at its end is not.
  DiskResult<NodePtr> find(std::string_view path) const;
  // A folder whose entries are wanted: a link at the end is followed too.
  DiskResult<NodePtr> findFolder(std::string_view path) const;
  // What a path says of the folder and of the name in it, for patterns: "C:\a\*.b" gives C:\a and "*.b".
  struct Split {
    std::string folder;
    std::string name;
  };
  static Split split(std::string_view path);
  // The files and folders that a path with or without wildcards in its last part names, in order.
  std::vector<NodePtr> matches(std::string_view path) const;
  // The full path of a node that has not been removed.
  static std::string pathOf(const Node& node);

  // --- Open files
  // Makes an empty file; its folder must be there, and the name not taken.
  DiskResult<NodePtr> create(std::string_view path);
  Handle newHandle() { return lastHandle_ += 4; }
  // Opens a file; another's sharing and this one's must agree.
  DiskResult<Handle> open(const NodePtr& file, std::uint32_t access, std::uint32_t share);
  DiskResult<void> close(Handle handle);
  // Writes at `position`, or at the handle's own position, and moves that behind the written bytes.
  DiskResult<void> write(Handle handle, std::optional<std::uint64_t> position, std::string_view bytes);
  const std::vector<Write>& writes() const { return writes_; }
  // From now on writes are carried out but not noted: what is written need not fit into memory twice.
  void forgetWrites() { notesWrites_ = false; }
  std::size_t openFiles() const { return open_.size(); }
  bool isOpen(Handle handle) const { return open_.contains(handle); }

  // --- Renaming
  // Gives a file or folder another path, on another drive too. Its new folder must be there, and the name not taken.
  DiskResult<void> move(const NodePtr& node, std::string_view path);

  // --- Removal
  // Removes a file, or a folder with all that is in it; stops at the first thing that cannot go. A link goes without
  // what it points to. Read-only files are refused unless `readOnlyToo`.
  DiskResult<void> remove(const NodePtr& node, bool readOnlyToo);
  // The same, into the Recycle Bin: as a whole or not at all.
  DiskResult<void> recycle(const NodePtr& node);
  // Where the things in the Recycle Bin came from (full paths), in the order deleted.
  std::vector<std::string> recycleBin() const;
  // Empties the Recycle Bin of the drive that `root` begins with, of all drives when it is empty; gives how many things
  // lay in it.
  std::size_t emptyRecycleBin(std::string_view root);

 private:
  struct DriveState {
    std::string label;
    bool ready = true;
    NodePtr root;
  };
  struct OpenFile {
    NodePtr file;
    std::uint32_t access = 0;
    std::uint32_t share = 0;
    std::uint64_t position = 0;
  };

  struct Recycled {
    std::string origin;
    NodePtr node;
  };
  enum class Reading { kAsCallsDo, kLiteral };
  enum class Last { kAsItIs, kFollowLink };
  enum class Ready { kMustBe, kNoMatter };

  NodePtr peek(const std::string& path) const;
  NodePtr existing(const std::string& path) const;
  NodePtr existingFolder(const std::string& path) const;
  FullPath parse(std::string_view path, Reading reading) const;
  DiskResult<NodePtr> walk(const FullPath& path, Last last, Ready ready, int linksLeft) const;
  NodePtr addNode(FullPath path, bool folder);
  NodePtr renewedFile(const std::string& path, std::uint32_t attributes);
  bool sharingForbids(const Node& file, std::uint32_t access, std::uint32_t share) const;
  DiskResult<void> mayGo(const Node& node, bool readOnlyToo) const;
  DiskResult<void> mayGoWithAllInIt(const Node& node) const;
  void takeOut(const NodePtr& node);

  std::map<char, DriveState> drives_;
  std::map<char, std::string> currentFolders_;
  char currentDrive_ = 'C';
  std::map<Handle, OpenFile> open_;
  Handle lastHandle_ = 0;
  std::vector<Write> writes_;
  bool notesWrites_ = true;
  std::vector<Recycled> recycleBin_;
  int unspeakables_ = 0;
};

}  // namespace platform::memory
