// The shell of the in-memory machine.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/Shell.h"
#include "platform/memory/MemoryDisk.h"
#include "platform/memory/MemoryFaults.h"

namespace platform::memory {

// How the shell was asked to empty the Recycle Bin.
struct BinEmptying {
  std::string root;
  std::uint32_t flags = 0;
  bool operator==(const BinEmptying&) const = default;
};

class MemoryShell final : public Shell {
 public:
  MemoryShell(MemoryDisk& disk, MemoryFaults& faults) : disk_(disk), faults_(faults) {}

  // Deletes; other operations need a destination, which the record does not have, and are refused. Works through the
  // list up to the first path that cannot go.
  std::int32_t fileOperation(const FileOperation& operation) override;
  // Starts nothing: the command is kept in commands().
  std::int32_t execute(const ShellCommand& command) override;
  // Starts nothing: the command line is kept in launches().
  Result<void> launchHidden(const std::string& commandLine) override;
  // Asks nothing and shows nothing, whatever the flags are. An empty bin is a failure, as it is on most systems.
  std::int32_t emptyRecycleBin(const std::string& root, std::uint32_t flags) override;
  void addToRecentDocs(std::uint32_t flags, const std::optional<std::string>& path) override;

  // What has been asked for since the start, failed calls too.
  const std::vector<ShellCommand>& commands() const { return commands_; }
  const std::vector<FileOperation>& fileOperations() const { return fileOperations_; }
  const std::vector<std::string>& launches() const { return launches_; }
  const std::vector<BinEmptying>& binEmptyings() const { return binEmptyings_; }
  // The documents used, the latest last.
  const std::vector<std::string>& recentDocuments() const { return recentDocuments_; }

 private:
  MemoryDisk& disk_;
  MemoryFaults& faults_;
  std::vector<ShellCommand> commands_;
  std::vector<FileOperation> fileOperations_;
  std::vector<std::string> launches_;
  std::vector<BinEmptying> binEmptyings_;
  std::vector<std::string> recentDocuments_;
};

}  // namespace platform::memory
