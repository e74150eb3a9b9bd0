// The shell of the in-memory machine.
#pragma once

#include <cstdint>
#include <optional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "platform/Shell.h"
#include "platform/memory/MemoryDisk.h"
#include "platform/memory/MemoryFaults.h"

namespace platform::memory {

// A page of a help file: the file and its topic.
using HelpPage = std::pair<std::string, std::string>;

class MemoryShell final : public Shell {
 public:
  MemoryShell(MemoryDisk& disk, MemoryFaults& faults) : disk_(disk), faults_(faults) {}

  // Deletes what the list names, up to the first path that cannot go.
  std::int32_t fileOperation(const FileOperation& operation) override {
    if (const auto fault = faults_.nextFault("fileOperation", kErrorAccessDenied)) return *fault;
    const bool toRecycleBin = (operation.flags & kAllowUndo) != 0;
    std::istringstream list(operation.sourceList);
    for (std::string path; std::getline(list, path, '\0') && !path.empty();) {
      const std::vector<NodePtr> nodes = disk_.matches(path);
      if (nodes.empty()) return kErrorFileNotFound;
      for (const NodePtr& node : nodes) {
        // Without confirmation the shell takes read-only files like any other.
        const Result<void> gone = toRecycleBin ? disk_.recycle(node) : disk_.remove(node, true);
        if (!gone) return kErrorAccessDenied;
      }
    }
    return 0;
  }
  // Starts nothing: the command is kept in commands().
  std::int32_t execute(const ShellCommand& command) override {
    commands_.push_back(command);
    return faults_.nextFault("execute", kNoAssociation).value_or(kExecuted);
  }
  // Starts nothing: the command line is kept in launches().
  Result<void> launchHidden(const std::string& commandLine) override {
    launches_.push_back(commandLine);
    const auto fault = faults_.nextFault("launchHidden", kFileNotFound);
    return fault ? failure(*fault) : Result<void>{};
  }
  // Does not look for the topic in the file.
  bool showHelp(const std::string& file, const std::string& topic) override {
    if (faults_.nextFault("showHelp") || disk_.matches(file).empty()) return false;
    helpPage_.emplace(file, topic);
    return true;
  }
  void closeHelp() override { helpPage_.reset(); }
  // Asks nothing and shows nothing, whatever the flags are, and empties the bins of all drives. An empty bin is a
  // failure, as it is on most systems.
  std::int32_t emptyRecycleBin(const std::string& root, std::uint32_t flags) override {
    binEmptyings_.emplace_back(root, flags);
    if (const auto fault = faults_.nextFault("emptyRecycleBin", kUnexpected)) return *fault;
    if (disk_.recycleBin().empty()) return kUnexpected;
    disk_.emptyRecycleBin();
    return 0;
  }
  void addToRecentDocs(std::uint32_t, const std::optional<std::string>&) override {
    faults_.nextFault("addToRecentDocs");
  }

  // What has been asked for since the start, failed calls too.
  const std::vector<ShellCommand>& commands() const { return commands_; }
  const std::vector<std::string>& launches() const { return launches_; }
  // The root and the flags of each.
  const std::vector<std::pair<std::string, std::uint32_t>>& binEmptyings() const { return binEmptyings_; }
  // What the help window shows; nothing while it is closed.
  const std::optional<HelpPage>& helpPage() const { return helpPage_; }

 private:
  static constexpr std::int32_t kErrorFileNotFound = 2;
  static constexpr std::int32_t kErrorAccessDenied = 5;
  static constexpr std::int32_t kNoAssociation = 31;
  static constexpr std::int32_t kExecuted = 33;
  static constexpr auto kUnexpected = static_cast<std::int32_t>(0x8000FFFF);

  MemoryDisk& disk_;
  MemoryFaults& faults_;
  std::vector<ShellCommand> commands_;
  std::vector<std::string> launches_;
  std::vector<std::pair<std::string, std::uint32_t>> binEmptyings_;
  std::optional<HelpPage> helpPage_;
};

}  // namespace platform::memory
