// Every platform call of every tool's run fails once.
#include <algorithm>
#include <set>

#include "tests/unit/Rehearsal.h"

namespace {

// What else an operation fails with, beside its usual number.
const std::map<std::string, std::vector<std::int32_t>> kCodes = {
    {"closeKey", {platform::kRegistryAccessDenied}},
    {"coCreateInstance", {static_cast<std::int32_t>(0x80004002)}},
    {"deleteFile", {platform::kFileNotFound}},
    {"deleteFolder", {platform::kPathNotFound}},
    {"deleteKey", {platform::kRegistryNotFound}},
    {"fileOperation", {2, 120}},
    {"filesIn", {platform::kPathNotFound}},
    {"getFile", {platform::kFileNotFound, platform::kCannotCreateObject}},
    {"holdFolder", {platform::kPathNotFound}},
    {"launchHidden", {platform::kPermissionDenied}},
    {"moveFile",
     {platform::kFileNotFound, platform::kFileAlreadyExists, platform::kPermissionDenied, platform::kPathNotFound}},
    {"openBinary",
     {platform::kBadFileNumber, platform::kFileAlreadyOpen, platform::kDeviceUnavailable, platform::kPermissionDenied,
      platform::kPathNotFound}},
    {"openFileDialog", {platform::kBadFileName}},
    {"openKey", {platform::kRegistryNotFound}},
    {"putBytes", {platform::kBadFileNumber, platform::kPermissionDenied}},
    {"putBytesAt", {platform::kBadFileNumber, platform::kPermissionDenied}},
    {"queryValue", {platform::kRegistryNotFound, platform::kRegistryMoreData}},
    {"regDelete", {platform::kPermissionDenied}},
    {"regWrite", {static_cast<std::int32_t>(0x80070002)}},
    {"remove", {platform::kFileNotFound, platform::kPermissionDenied, platform::kPathNotFound}},
    {"subfolders", {platform::kPathNotFound}},
};

// Runs the scenario with the n-th call, and `more` behind it, failing. Returns the operation that failed last; empty
// when there was no such call.
std::string runWithFault(const Scenario& scenario, int n, std::optional<std::int32_t> code, int more) {
  static const Snapshot before = World().everything();
  World world;
  const Paths mayGo = parts(scenario.mayGo);
  controls::ListView& list = world.console->ListView1;
  Paths listed;
  world.machine.ui().onBox([&](const auto& box) {
    if (box.text.starts_with("Confirm")) {
      for (std::size_t i = 0; i < list.rowCount(); ++i) listed.push_back(list.text(i));
    }
    world.answer(box, !box.text.starts_with(scenario.refused));
  });
  world.machine.faults().failCall(n, code, 1 + more);
  scenario.run(world, mayGo);
  const std::string operation = world.machine.faults().lastFailed();
  world.machine.faults().clear();

  SCOPED_TRACE(std::string(scenario.name) + ", call " + std::to_string(n) + ' ' + operation + ' ' +
               std::to_string(code.value_or(0)));
  EXPECT_EQ(World::harmed(before, world.everything(), mayGo), Paths{});
  const bool hasCacheRows = world.front() == &world.console->lvCache && !world.console->lvCache.empty();
  world.expectUsable(!scenario.mayDisableScan && !hasCacheRows);
  for (controls::ListView* shown : {&world.console->ListView1, &world.console->ListView2}) {
    for (std::size_t i = 0; i < shown->rowCount(); ++i) {
      const std::string& path = shown->text(i);
      const bool mayBeNoFile = !shown->ticked(i) && (shown != &list || !world.machine.exists(path));
      EXPECT_TRUE(mayBeNoFile || world.machine.contents(path)) << path;
    }
  }
  // When both looks at a path fail, nothing can tell whether the file is there.
  if (more > 0 && operation == "getFileAttributes") listed.clear();
  for (const std::string& path : listed) {
    bool isListed = false;
    for (std::size_t i = 0; i < list.rowCount(); ++i) isListed = isListed || list.text(i) == path;
    EXPECT_TRUE(isListed || !world.machine.exists(path)) << path;
  }
  world.console.reset();
  EXPECT_EQ(world.machine.urlCache().blocks(), 0U);
  return operation;
}

// What the shredder, the wipe and the lists call many times. Unless SCRUBHAVEN_EVERY_CALL is 1, such an operation that
// has failed often fails with its usual number only, and calls behind it are left out.
const std::set<std::string> kRepeated = {"closeFile",        "closeKey",        "createKey", "deleteKey",  "freeFile",
                                         "flushFileBuffers", "getFullPathName", "moveFile",  "openBinary", "openKey",
                                         "putBytes",         "putBytesAt",      "setValue"};

TEST(Rehearsal, AnyFailingCallHarmsNothingElseAndLeavesTheToolsUsable) {
  constexpr int kOften = 6;
  constexpr int kStep = 29;
  const bool every = numberFrom("SCRUBHAVEN_EVERY_CALL", 0) != 0;
  int calls = 0;
  int runs = 0;
  int pairs = 0;
  for (const Scenario& scenario : scenarios()) {
    std::map<std::string, int> failures;
    for (int n = 1;; ++calls, ++runs) {
      const std::string operation = runWithFault(scenario, n, std::nullopt, 0);
      if (operation.empty()) break;
      if (HasFailure()) return;
      const bool often = ++failures[operation] > kOften && kRepeated.contains(operation) && !every;
      const auto codes = kCodes.find(operation);
      if (codes != kCodes.end() && !often) {
        for (const std::int32_t code : codes->second) {
          runWithFault(scenario, n, code, 0);
          ++runs;
        }
      }
      if (scenario.pairs && !often) {
        runWithFault(scenario, n, std::nullopt, 1);
        ++pairs;
      }
      n += often ? kStep : 1;
    }
    EXPECT_FALSE(failures.empty()) << scenario.name;
  }
  RecordProperty("calls", calls);
  RecordProperty("runs", runs);
  RecordProperty("pairs", pairs);
}

}  // namespace
