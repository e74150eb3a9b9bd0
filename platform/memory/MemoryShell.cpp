#include "platform/memory/MemoryShell.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace platform::memory {
namespace {

constexpr std::int32_t kErrorFileNotFound = 2;
constexpr std::int32_t kErrorAccessDenied = 5;
constexpr std::int32_t kErrorInvalidParameter = 87;
constexpr std::int32_t kUnexpected = static_cast<std::int32_t>(0x8000FFFF);
constexpr std::int32_t kExecuted = 33;
constexpr std::int32_t kNoAssociation = 31;

// The paths of a source list: each is closed by a NUL, an empty one closes the list.
std::vector<std::string> pathsOf(std::string_view list) {
  std::vector<std::string> paths;
  while (!list.empty() && list.front() != '\0') {
    const std::size_t end = std::min(list.find('\0'), list.size());
    paths.emplace_back(list.substr(0, end));
    list.remove_prefix(std::min(end + 1, list.size()));
  }
  return paths;
}

}  // namespace

std::int32_t MemoryShell::fileOperation(const FileOperation& operation) {
  fileOperations_.push_back(operation);
  if (const auto fault = faults_.nextFault("fileOperation", kErrorAccessDenied)) return *fault;
  if (operation.operation != kShellDelete) return kErrorInvalidParameter;

  const bool toRecycleBin = (operation.flags & kAllowUndo) != 0;
  for (const std::string& path : pathsOf(operation.sourceList)) {
    const std::vector<NodePtr> nodes = disk_.matches(path);
    if (nodes.empty()) return kErrorFileNotFound;
    for (const NodePtr& node : nodes) {
      // Without confirmation the shell takes read-only files like any other.
      const DiskResult<void> gone = toRecycleBin ? disk_.recycle(node) : disk_.remove(node, true);
      if (!gone) return static_cast<std::int32_t>(gone.error());
    }
  }
  return 0;
}

std::int32_t MemoryShell::execute(const ShellCommand& command) {
  commands_.push_back(command);
  return faults_.nextFault("execute", kNoAssociation).value_or(kExecuted);
}

Result<void> MemoryShell::launchHidden(const std::string& commandLine) {
  launches_.push_back(commandLine);
  const auto fault = faults_.nextFault("launchHidden", kFileNotFound);
  return fault ? failure(*fault) : Result<void>{};
}

std::int32_t MemoryShell::emptyRecycleBin(const std::string& root, std::uint32_t flags) {
  binEmptyings_.push_back({root, flags});
  if (const auto fault = faults_.nextFault("emptyRecycleBin", kUnexpected)) return *fault;
  return disk_.emptyRecycleBin(root) > 0 ? 0 : kUnexpected;
}

void MemoryShell::addToRecentDocs(std::uint32_t flags, const std::optional<std::string>& path) {
  if (faults_.nextFault("addToRecentDocs") || flags != kRecentByPath) return;
  if (!path) return recentDocuments_.clear();
  std::erase(recentDocuments_, *path);
  recentDocuments_.push_back(*path);
}

}  // namespace platform::memory
