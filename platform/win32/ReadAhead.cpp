#include "platform/win32/ReadAhead.h"

#include <windows.h>

#include <atomic>
#include <deque>
#include <utility>

#include "platform/win32/Win32FileSystem.h"

namespace platform::win32 {
namespace {

constexpr DWORD kLongestWait = 10;            // milliseconds for one folder
constexpr DWORD kLongestEnd = 100;            // milliseconds for the end of the thread
constexpr std::size_t kMostEntries = 20'000;  // that wait to be used

// Empty folders take room too.
std::size_t weightOf(const FolderContents& contents) { return contents.entries.size() + 1; }

}  // namespace

// What both threads use; it lives until the later of them is done with it. Only `read` and what is below it are used by
// both, under the lock.
struct ReadAhead::Shared {
  Shared(const std::string& folder, bool entersHiddenSystemFolders)
      : tree(files, folder, entersHiddenSystemFolders, [this] { return isStopped.load(); }) {
    InitializeCriticalSection(&lock);
  }
  ~Shared() {
    CloseHandle(hasRead);
    CloseHandle(hasRoom);
    DeleteCriticalSection(&lock);
  }
  Shared(const Shared&) = delete;
  Shared& operator=(const Shared&) = delete;

  static DWORD WINAPI threadProcedure(void* argument);
  void readAll();
  // Returns false when no more are wanted.
  bool store(FolderContents&& contents);

  Win32FileSystem files;
  DirectTreeReader tree;
  HANDLE hasRead = CreateEventA(nullptr, FALSE, FALSE, nullptr);
  HANDLE hasRoom = CreateEventA(nullptr, FALSE, FALSE, nullptr);
  CRITICAL_SECTION lock;
  std::deque<FolderContents> read;
  std::size_t entries = 0;  // the weights of `read`
  bool isAtEnd = false;
  std::atomic<bool> isStopped = false;
};

namespace {

class Locked {
 public:
  explicit Locked(CRITICAL_SECTION& lock) : lock_(lock) { EnterCriticalSection(&lock_); }
  ~Locked() { LeaveCriticalSection(&lock_); }
  Locked(const Locked&) = delete;
  Locked& operator=(const Locked&) = delete;

 private:
  CRITICAL_SECTION& lock_;
};

}  // namespace

DWORD WINAPI ReadAhead::Shared::threadProcedure(void* argument) {
  const std::unique_ptr<std::shared_ptr<Shared>> shared(static_cast<std::shared_ptr<Shared>*>(argument));
  (*shared)->readAll();
  return 0;
}

void ReadAhead::Shared::readAll() {
  FolderContents contents;
  while (tree.next(contents) == Step::kRead) {
    if (!store(std::move(contents))) return;
  }
  {
    const Locked locked(lock);
    isAtEnd = true;
  }
  SetEvent(hasRead);
}

bool ReadAhead::Shared::store(FolderContents&& contents) {
  for (;;) {
    {
      const Locked locked(lock);
      if (isStopped) return false;
      if (read.empty() || entries < kMostEntries) {
        entries += weightOf(contents);
        read.push_back(std::move(contents));
        break;
      }
    }
    WaitForSingleObject(hasRoom, INFINITE);
  }
  SetEvent(hasRead);
  return true;
}

ReadAhead::ReadAhead(const std::string& folder, bool entersHiddenSystemFolders)
    : shared_(std::make_shared<Shared>(folder, entersHiddenSystemFolders)) {
  if (shared_->hasRead == nullptr || shared_->hasRoom == nullptr) return;
  auto argument = std::make_unique<std::shared_ptr<Shared>>(shared_);
  DWORD id = 0;
  thread_ = CreateThread(nullptr, 0, Shared::threadProcedure, argument.get(), 0, &id);
  if (thread_ != nullptr) static_cast<void>(argument.release());
}

ReadAhead::~ReadAhead() {
  if (thread_ == nullptr) return;
  shared_->isStopped = true;
  SetEvent(shared_->hasRoom);
  WaitForSingleObject(thread_, kLongestEnd);
  CloseHandle(thread_);
}

TreeReader::Step ReadAhead::next(FolderContents& contents) {
  Shared& shared = *shared_;
  if (thread_ == nullptr) return shared.tree.next(contents);
  for (bool hasWaited = false;; hasWaited = true) {
    {
      const Locked locked(shared.lock);
      if (!shared.read.empty()) {
        contents = std::move(shared.read.front());
        shared.read.pop_front();
        shared.entries -= weightOf(contents);
        break;
      }
      if (shared.isAtEnd) return Step::kEnd;
    }
    if (hasWaited) return Step::kNotYet;
    WaitForSingleObject(shared.hasRead, kLongestWait);
  }
  SetEvent(shared.hasRoom);
  return Step::kRead;
}

}  // namespace platform::win32
