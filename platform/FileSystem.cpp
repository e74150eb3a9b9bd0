#include "platform/FileSystem.h"

#include <algorithm>

#include "platform/Paths.h"
#include "platform/TreeReader.h"

namespace platform {
namespace {

// Whether both full paths lie on one drive, or on one share of a server.
bool onSameDrive(std::string_view a, std::string_view b) {
  return std::ranges::equal(a.substr(0, rootLength(a)), b.substr(0, rootLength(b)), {}, lowerLetter, lowerLetter);
}

}  // namespace

Result<void> FileSystem::rename(const std::string& from, const std::string& to) {
  const Result<std::string> here = getFullPathName(from);
  if (!here) return std::unexpected(here.error());
  const Result<std::string> there = getFullPathName(to);
  if (!there) return std::unexpected(there.error());
  if (!onSameDrive(*here, *there)) return failure(kDifferentDrive);
  return moveFile(from, to);
}

std::unique_ptr<TreeReader> FileSystem::readTree(const std::string& folder, bool entersHiddenSystemFolders) {
  return std::make_unique<DirectTreeReader>(*this, folder, entersHiddenSystemFolders);
}

}  // namespace platform
