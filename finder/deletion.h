// Deleting one file: through the shell, or by overwriting its first bytes and removing it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

#include "platform/RuntimeError.h"

namespace finder {

// The flags of a shell deletion, which never asks.
inline constexpr std::int32_t kForGood = 16;
inline constexpr std::int32_t kToRecycleBin = 80;

// Whether a file with these attributes, as file objects report them, counts as read-only before a deletion: exactly
// read-only, alone or with archive. A hidden read-only file does not.
bool countsAsReadOnly(std::uint32_t attributes);

// Whether another program holds the file at `path` open; false when there is no such file. CreateFileA.
bool isInUse(const std::string& path);

// The same for a file that is known to be there.
bool isLocked(const std::string& path);

// Whether there is nothing of exactly that path. FindFirstFileA, GetFileAttributesA.
bool isGone(const std::string& path);

// Looks at the path right before a deletion. Deletable: a file, or a link to one, which goes without its target.
// Overwritable: a file that is no link. Folders and devices are neither, nor is a file whose name differs in case: a
// disk that distinguishes case may hold both. FindFirstFileA.
bool isDeletable(const std::string& path);
bool isOverwritable(const std::string& path);

// Deletes one file with the flags of a shell file operation, of which 16 bits are used. Appends a NUL to `path`. The
// shell's result is ignored. SHFileOperationA.
void shellDelete(std::string& path, std::int32_t flags);

// What has become of a file: handed to the shell or removed, or left for one of the reasons.
enum class Deletion { kDone, kReadOnlyKept, kInUse, kChanged };

// What a deletion asks and tells about a file, each with its full path.
struct DeletionQuestions {
  std::function<bool(const std::string&)> mayDeleteReadOnly;
  std::function<void(const std::string&)> reportInUse;
  // Asked last, right before the deletion; when not set, isDeletable is asked.
  std::function<bool(const std::string&)> isStillWanted = {};
};

// Deletes one file with the flags above, unless it is read-only and may not be deleted, is in use, or has become
// something else meanwhile. Fails with the file objects' number when there is no such file; nothing is asked then.
platform::Result<Deletion> deleteThroughShell(const std::string& path, std::int32_t flags,
                                              const DeletionQuestions& questions);

// Overwrites the first 200 bytes of the file in place and removes it. Files that are read-only, or read-only, hidden
// and archive, files in use, links, folders and devices are left without a failure. A file that cannot be opened for
// writing is not removed.
platform::Result<Deletion> wipe(const std::string& path);

}  // namespace finder
