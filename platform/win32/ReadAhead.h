// Reads a tree in a thread of its own, ahead of the walk that uses it: while the program draws, the disk works, and
// while a drive takes its time, the window answers.
#pragma once

#include <memory>
#include <string>

#include "platform/TreeReader.h"

namespace platform::win32 {

class ReadAhead final : public TreeReader {
 public:
  // See FileSystem::readTree. Starts to read at once. CreateThread.
  ReadAhead(const std::string& folder, bool entersHiddenSystemFolders);
  // Stops the thread. Waits a moment for it, but not for a drive that does not answer.
  ~ReadAhead() override;
  ReadAhead(const ReadAhead&) = delete;
  ReadAhead& operator=(const ReadAhead&) = delete;

  Step next(FolderContents& contents) override;

 private:
  struct Shared;

  std::shared_ptr<Shared> shared_;
  void* thread_ = nullptr;  // null when the system has none to give: folders are then read when they are asked for
};

}  // namespace platform::win32
