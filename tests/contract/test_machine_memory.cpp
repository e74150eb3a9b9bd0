// The test machine on the in-memory machine.
#include <cstdlib>

#include "platform/memory/MemoryMachine.h"
#include "tests/contract/ContractTest.h"

namespace contract {
namespace {

class MemoryTestMachine final : public TestMachine {
 public:
  // A Windows of the 95 family where the tests under Wine would have one too.
  MemoryTestMachine() {
    if (std::getenv("SCRUBHAVEN_VERSION") != nullptr)
      machine_.version().set({.major = 4, .minor = 10, .platformId = 1});
    machine_.disk().addDrive('D');
    for (const std::string& folder : {root(), onOtherDrive()}) machine_.addFolder(folder);
  }

  platform::Machine& machine() override { return machine_; }

  void makeFolder(const std::string& path, std::uint32_t attributes) override {
    machine_.disk().addFolder(path, attributes);
  }
  void makeFile(const std::string& path, const std::string& bytes, std::uint32_t attributes) override {
    machine_.addFile(path, bytes, attributes);
  }
  void makeLongFile(const std::string& path, std::uint64_t size) override { machine_.addSizedFile(path, size); }

  std::string readBack(const std::string& path) const override { return machine_.contents(path).value(); }
  std::vector<std::string> namesIn(const std::string& folder) const override { return machine_.disk().namesIn(folder); }

  void setCurrentFolder(const std::string& folder) override { machine_.disk().setCurrentFolder(folder); }
  std::size_t recycledItems() const override { return machine_.disk().recycleBin().size(); }
  void makeFolderLink(const std::string& name, const std::string& target) override {
    machine_.disk().addLink(root() + '\\' + name, root() + '\\' + target);
  }
  bool letsLinksGo() const override { return true; }
  void cachePage(const std::string& url, const platform::FileTime& expires) override {
    machine_.urlCache().add(
        {.url = url, .localFile = "C:\\Cache\\page[1].htm", .expires = expires, .accessed = expires});
  }

 private:
  mutable platform::memory::MemoryMachine machine_;  // its services are not const, nor are their queries
};

}  // namespace

std::unique_ptr<TestMachine> makeTestMachine() { return std::make_unique<MemoryTestMachine>(); }

}  // namespace contract
