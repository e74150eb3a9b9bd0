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

// Whether there is no file of that path.
bool isGone(const std::string& path);

// Deletes one file with the flags of a shell file operation, of which 16 bits are used. Appends a NUL to `path`. The
// shell's result is ignored. SHFileOperationA.
void shellDelete(std::string& path, std::int32_t flags);

enum class Deletion { kHandedToShell, kReadOnlyKept, kInUse };

// The questions that a deletion asks. Both get the file's full path.
struct DeletionQuestions {
  std::function<bool(const std::string&)> mayDeleteReadOnly;
  std::function<bool(const std::string&)> isInUse;  // tests, and may tell the user
};

// Deletes one file with the flags above, unless it is read-only and may not be deleted, or is in use. Fails with the
// file objects' number when there is no such file; nothing is asked then.
platform::Result<Deletion> deleteThroughShell(const std::string& path, std::int32_t flags,
                                              const DeletionQuestions& questions);

// Overwrites the first 200 bytes of the file in place and removes it, `rounds` times: the second round finds the file
// gone and fails with 53. Files that are read-only, or read-only, hidden and archive, and files in use are left without
// a failure. A file that cannot be opened for writing is not removed.
platform::Result<void> wipe(const std::string& path, std::size_t rounds);

}  // namespace finder
