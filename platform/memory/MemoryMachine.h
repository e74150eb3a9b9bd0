// A small Windows machine in memory, on which tests run the program's logic without Windows.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/Platform.h"
#include "platform/RegistryScriptShell.h"
#include "platform/memory/MemoryCalendar.h"
#include "platform/memory/MemoryDisk.h"
#include "platform/memory/MemoryEnvironment.h"
#include "platform/memory/MemoryFaults.h"
#include "platform/memory/MemoryFileObjects.h"
#include "platform/memory/MemoryFileSystem.h"
#include "platform/memory/MemoryProfileFile.h"
#include "platform/memory/MemoryRegistry.h"
#include "platform/memory/MemoryShell.h"
#include "platform/memory/MemoryUi.h"
#include "platform/memory/MemoryUrlCache.h"
#include "platform/memory/MemoryUrlHistory.h"
#include "platform/memory/MemoryVersion.h"

namespace platform::memory {

// Each getter returns the service with its methods for tests: they set it up as another program or the user would, and
// show what the program did to it.
class MemoryMachine : public Machine {
 public:
  // Windows XP with a drive C: without a label; the program is in C:\Program Files\Scrubhaven, which is the current
  // folder.
  MemoryMachine() {
    disk_.addDrive('C');
    disk_.addFolder(kProgramFolder);
    disk_.setCurrentFolder(kProgramFolder);
  }

  MemoryFileSystem& files() override { return files_; }
  MemoryFileObjects& fileObjects() override { return fileObjects_; }
  MemoryShell& shell() override { return shell_; }
  MemoryRegistry& registry() override { return registry_; }
  MemoryProfileFile& profiles() override { return profiles_; }
  RegistryScriptShell& scriptShell() override { return scriptShell_; }
  MemoryVersion& version() override { return version_; }
  MemoryEnvironment& environment() override { return environment_; }
  MemoryUi& ui() override { return ui_; }
  MemoryUrlCache& urlCache() override { return urlCache_; }
  MemoryUrlHistory& urlHistory() override { return urlHistory_; }
  MemoryCalendar& calendar() override { return calendar_; }
  MemoryDisk& disk() { return disk_; }
  const MemoryDisk& disk() const { return disk_; }
  MemoryFaults& faults() { return faults_; }

  // The handles, enumerations and file numbers that the program has not closed.
  std::size_t openHandles() const {
    return disk_.openFiles() + files_.openHandles() + urlCache_.openEnumerations() + urlHistory_.liveObjects();
  }

  // Short forms of what most tests use.
  void addFolder(const std::string& path) { disk_.addFolder(path); }
  void addFile(const std::string& path, const std::string& contents = "", std::uint32_t attributes = kArchive) {
    disk_.addFile(path, contents, attributes);
  }
  void addSizedFile(const std::string& path, std::uint64_t size, std::uint32_t attributes = kArchive) {
    disk_.addSizedFile(path, size, attributes);
  }
  bool exists(const std::string& path) const { return disk_.exists(path); }
  std::optional<std::string> contents(const std::string& path) const { return disk_.contents(path); }
  std::vector<std::string> filesBelow(const std::string& folder) const { return disk_.filesBelow(folder); }
  void answer(Answer answer) { ui_.answer(answer); }
  const std::vector<ShownBox>& boxes() const { return ui_.boxes(); }
  void whenServing(std::function<void()> action) { ui_.whenServing(std::move(action)); }

 private:
  static constexpr const char* kProgramFolder = "C:\\Program Files\\Scrubhaven";

  MemoryFaults faults_;
  MemoryDisk disk_;
  MemoryFileSystem files_{disk_, faults_};
  MemoryFileObjects fileObjects_{disk_, faults_};
  MemoryShell shell_{disk_, faults_};
  MemoryVersion version_{faults_};
  MemoryRegistry registry_{version_, faults_};
  MemoryProfileFile profiles_{disk_, faults_};
  RegistryScriptShell scriptShell_{registry_};
  MemoryEnvironment environment_{kProgramFolder, faults_};
  MemoryUi ui_{disk_, faults_};
  MemoryUrlCache urlCache_{faults_};
  MemoryUrlHistory urlHistory_{faults_};
  MemoryCalendar calendar_{faults_};
};

}  // namespace platform::memory
