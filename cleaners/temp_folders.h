// Which folders are temporary, and the deletion of what is in them.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/RuntimeError.h"

namespace cleaners {

// The fixed temporary and cookie folders that exist and are no links, in the order in which they are emptied, without
// a closing backslash. The last one belongs to the user that the variable "username" names.
std::vector<std::string> fixedFolders();

// The folder that an environment variable names, with a closing backslash; empty when it names none that may be
// emptied: a root, a relative path, a link, or no folder. GetEnvironmentVariableA.
std::string tempFolder(const std::string& variable);

// Whether `path` is the full path of something below the root of its drive or share.
bool isBelowRoot(std::string_view path);

// Whether a file with these attributes, as file objects report them, counts as read-only in the fixed folders: also
// when it is hidden.
bool countsAsReadOnlyInFixedFolders(std::uint32_t attributes);

// Deletes a temporary file. A file that `countsAsReadOnly` is deleted only if `mayDeleteReadOnly` returns true for its
// full path. A file that is in use or fails at any step is left, without a report; when its attributes cannot be read,
// no deletion is tried.
void deleteTempFile(const std::string& path, bool (*countsAsReadOnly)(std::uint32_t attributes),
                    const std::function<bool(const std::string&)>& mayDeleteReadOnly);

// Deletes the folder with everything in it, read-only files too. A link in it is removed without its target. Fails as
// the file objects' DeleteFolder does; what was deleted before the failure stays deleted.
platform::Result<void> deleteTree(const std::string& path);

}  // namespace cleaners
