// A small Windows machine in memory: it runs the program's logic without Windows, and shows what became of it.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/Platform.h"
#include "platform/memory/MemoryCalendar.h"
#include "platform/memory/MemoryDisk.h"
#include "platform/memory/MemoryEnvironment.h"
#include "platform/memory/MemoryFaults.h"
#include "platform/memory/MemoryFileObjects.h"
#include "platform/memory/MemoryFileSystem.h"
#include "platform/memory/MemoryProfileFile.h"
#include "platform/memory/MemoryRegistry.h"
#include "platform/memory/MemoryScriptShell.h"
#include "platform/memory/MemoryShell.h"
#include "platform/memory/MemoryUi.h"
#include "platform/memory/MemoryUrlCache.h"
#include "platform/memory/MemoryUrlHistory.h"
#include "platform/memory/MemoryVersion.h"

namespace platform::memory {

// What stands before the services is set up and looked at from outside: by other programs, by the person, by a test.
// Setting up what cannot be (a file in a file, an unknown drive) throws std::logic_error.
class MemoryMachine final : public platform::Machine {
 public:
  // Windows XP with a drive C: without a label; the program lies in C:\Program Files\Scrubhaven, which is the current
  // folder.
  MemoryMachine();

  platform::FileSystem& files() override { return files_; }
  platform::FileObjects& fileObjects() override { return fileObjects_; }
  platform::Shell& shell() override { return shell_; }
  platform::Registry& registry() override { return registry_; }
  platform::ProfileFile& profiles() override { return profiles_; }
  platform::ScriptShell& scriptShell() override { return scriptShell_; }
  platform::SystemVersion& version() override { return version_; }
  platform::Environment& environment() override { return environment_; }
  platform::Ui& ui() override { return ui_; }
  platform::UrlCache& urlCache() override { return urlCache_; }
  platform::UrlHistory& urlHistory() override { return urlHistory_; }
  platform::Calendar& calendar() override { return calendar_; }

  // --- Disk. Missing parents are made. What is already there gets the new contents and attributes.
  void addDrive(char letter, const std::string& label = "", bool ready = true) { disk_.addDrive(letter, label, ready); }
  void addFolder(const std::string& path, std::uint32_t attributes = 0);
  void addFile(const std::string& path, const std::string& contents = "", std::uint32_t attributes = kArchive);
  // A file of `size` zeros, of which none are held.
  void addSizedFile(const std::string& path, std::uint64_t size, std::uint32_t attributes = kArchive);
  // From now on enumerations give this size for the file, as a folder does that has not heard of the latest writes.
  void setListedSize(const std::string& path, std::uint64_t size) { existing(path)->listedSize = size; }
  // A folder that is a link to the folder `target`, which need not exist.
  void addFolderLink(const std::string& path, const std::string& target) { disk_.addLink(path, target); }
  // A file whose name the code page cannot hold; only its 8.3 alias can be used. Empty: it has none.
  void addUnspeakableFile(const std::string& folder, const std::string& alias) { disk_.addUnspeakable(folder, alias); }
  // Names that end in a blank or a dot are told apart here, though no call of the program can.
  bool exists(const std::string& path) const { return disk_.peek(path) != nullptr; }
  std::optional<std::string> contents(const std::string& path) const;
  // As a query would report them; nothing when there is no such file or folder.
  std::optional<std::uint32_t> attributes(const std::string& path) const;
  void setAttributes(const std::string& path, std::uint32_t attributes);
  // The full paths of the files in a folder and below, sorted bytewise; links are not followed.
  std::vector<std::string> filesBelow(const std::string& folder) const;
  // The names directly in a folder, sorted bytewise.
  std::vector<std::string> namesIn(const std::string& folder) const;
  // Makes the folder its drive's current one, and the drive the current drive.
  void setCurrentFolder(const std::string& path) { disk_.setCurrentFolder(path); }
  void setReady(char drive, bool ready) { disk_.setReady(drive, ready); }
  // Another program holds the file, and shares nothing.
  void lock(const std::string& path);
  void unlock(const std::string& path);
  // From now on opening the file for writing, and deleting it, are refused.
  void denyWriting(const std::string& path);
  // The full paths of what lies in the Recycle Bin, in the order deleted.
  std::vector<std::string> recycleBin() const { return disk_.recycleBin(); }
  // Every write since the start. Writing nothing is none.
  const std::vector<Write>& writes() const { return disk_.writes(); }
  // From now on writes are carried out but not noted, for runs that write more than fits into memory.
  void forgetWrites() { disk_.forgetWrites(); }
  // The handles, enumerations and file numbers that the program has not closed.
  std::size_t openHandles() const {
    return disk_.openFiles() - locks_.size() + files_.openEnumerations() + urlCache_.openEnumerations() +
           urlHistory_.liveObjects();
  }

  // --- Faults. The n-th next call (1-based) of an operation, named as in its interface ("findFirstFile"), fails once.
  // `number` is the failure it gives; without it the operation's usual one. A closing that fails still closes.
  void failAt(const std::string& operation, int n = 1, std::optional<std::int32_t> number = std::nullopt);
  int calls(const std::string& operation) const { return faults_.calls(operation); }
  bool faultsLeft() const { return faults_.left(); }
  void clearFaults() { faults_.clear(); }

  // --- Clock: milliseconds. It stands still otherwise.
  void setTickCount(std::uint32_t ms) { environment_.setTickCount(ms); }
  void advance(std::uint32_t ms) { environment_.advance(ms); }

  // The calendar and the time of day, as the user's formats show them; seconds since midnight.
  void setDay(std::string dateText, std::string timeText, float seconds) {
    environment_.setDay(std::move(dateText), std::move(timeText), seconds);
  }
  // --- Environment variables. There are none at first; case does not matter in names.
  void setVariable(const std::string& name, const std::string& value) { environment_.setVariable(name, value); }

  // --- Version
  void setVersion(const VersionRecord& record) { version_.set(record); }

  // --- User interface; see MemoryUi.
  void answer(Answer answer) { ui_.answer(answer); }
  bool answersLeft() const { return ui_.answersLeft(); }
  void chooseFile(const std::string& path) { ui_.chooseFile(path); }
  const std::vector<OpenFileRequest>& fileDialogs() const { return ui_.fileDialogs(); }
  void onBox(std::function<void(const ShownBox&)> action) { ui_.onBox(std::move(action)); }
  const std::vector<ShownBox>& boxes() const { return ui_.boxes(); }
  void whenServing(std::function<void()> action) { ui_.whenServing(std::move(action)); }
  void everyServing(std::function<void()> action) { ui_.everyServing(std::move(action)); }
  void whenModal(std::function<void(controls::Form&)> action) { ui_.whenModal(std::move(action)); }

  // --- Shell: what it has been asked for since the start, failed calls too.
  const std::vector<ShellCommand>& shellCommands() const { return shell_.commands(); }
  const std::vector<FileOperation>& fileOperations() const { return shell_.fileOperations(); }
  const std::vector<std::string>& launches() const { return shell_.launches(); }

  // --- Registry; see MemoryRegistry. Paths begin with a root's short name: "HKCU\Software".
  void addRegistryKey(const std::string& path) { registry_.addKey(path); }
  void setRegistryText(const std::string& path, const std::string& name, const std::string& text) {
    registry_.set(path, name, {kRegistryText, text + '\0'});
  }
  void setRegistryNumber(const std::string& path, const std::string& name, std::uint32_t number);
  void setRegistryValue(const std::string& path, const std::string& name, RegistryValue value) {
    registry_.set(path, name, std::move(value));
  }
  std::optional<RegistryValue> registryValue(const std::string& path, const std::string& name) const {
    return registry_.value(path, name);
  }
  bool hasRegistryKey(const std::string& path) const { return registry_.hasKey(path); }
  std::vector<std::string> registryContents(const std::string& path) const { return registry_.contents(path); }
  const std::vector<std::string>& registryCalls() const { return registry_.calls(); }
  std::size_t openRegistryKeys() const { return registry_.openKeys(); }

  const std::vector<BinEmptying>& binEmptyings() const { return shell_.binEmptyings(); }
  // The list of recently used documents, by path, in the order of their use.
  void useDocument(const std::string& path) { shell_.addToRecentDocs(kRecentByPath, path); }
  const std::vector<std::string>& recentDocuments() const { return shell_.recentDocuments(); }

  // --- The browser's cache and history; see MemoryUrlCache.
  void addCachedPage(CachedPage page) { urlCache_.add(std::move(page)); }
  void useCachedPage(const std::string& url) { urlCache_.use(url); }
  std::vector<std::string> cachedUrls() const { return urlCache_.urls(); }
  std::size_t memoryBlocks() const { return urlCache_.blocks(); }
  void visit(const std::string& url) { urlHistory_.visit(url); }
  const std::vector<std::string>& visitedUrls() const { return urlHistory_.visited(); }
  void unregisterUrlHistory() { urlHistory_.unregister(); }

 private:
  NodePtr existing(const std::string& path) const;
  NodePtr existingFolder(const std::string& path) const;

  MemoryFaults faults_;
  MemoryDisk disk_;
  MemoryFileSystem files_;
  MemoryFileObjects fileObjects_;
  MemoryShell shell_;
  MemoryVersion version_;
  MemoryRegistry registry_;
  MemoryProfileFile profiles_;
  MemoryScriptShell scriptShell_;
  MemoryEnvironment environment_;
  MemoryUi ui_;
  MemoryUrlCache urlCache_;
  MemoryUrlHistory urlHistory_;
  MemoryCalendar calendar_;
  std::map<NodePtr, Handle> locks_;
};

}  // namespace platform::memory
