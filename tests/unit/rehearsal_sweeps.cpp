// Every platform call of every tool's run fails once. Another program exchanges what a tool works on, each time that a
// message box stands open or messages are processed.
#include <algorithm>

#include "tests/unit/Rehearsal.h"

using platform::memory::MemoryDisk;

namespace {

// What operations fail with beside their usual numbers; each name ends in a blank.
const std::pair<std::int32_t, std::string> kCodes[] = {
    {2, "fileOperation "},
    {120, "fileOperation "},
    {platform::kBadFileName, "openFileDialog "},
    {platform::kBadFileNumber, "openBinary putBytes putBytesAt "},
    {platform::kCannotCreateObject, "getFile "},
    {platform::kDeviceUnavailable, "openBinary "},
    {platform::kFileAlreadyExists, "moveFile "},
    {platform::kFileAlreadyOpen, "openBinary "},
    {platform::kFileNotFound, "deleteFile getFile moveFile remove "},
    {platform::kPathNotFound, "deleteFolder filesIn holdFolder moveFile openBinary remove subfolders "},
    {platform::kPermissionDenied, "launchHidden moveFile openBinary putBytes putBytesAt remove "},
    {platform::kRegistryAccessDenied, "closeKey "},
    {platform::kRegistryMoreData, "queryValue "},
    {platform::kRegistryNotFound, "deleteKey openKey queryValue "},
    {static_cast<std::int32_t>(0x80004002), "coCreateInstance "},
};

bool names(const std::string& list, const std::string& operation) {
  return (' ' + list).contains(' ' + operation + ' ');
}

// Runs the scenario with the n-th call, and `more` behind it, failing. Returns the operation that failed last; empty
// when there was no such call.
std::string runWithFault(const Scenario& scenario, int n, std::optional<std::int32_t> code, int more) {
  static const Snapshot before = World().everything();
  World world;
  const Paths mayGo = parts(scenario.mayGo);
  controls::ListView& list = world.console->ListView1;
  Paths listed;
  world.machine.faults().failCall(n, code, 1 + more);
  world.play(scenario, [&](const auto& box) {
    if (box.text.starts_with("Confirm")) listed = textsOf(list);
  });
  const std::string operation(world.machine.faults().lastFailed());
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
    EXPECT_TRUE(std::ranges::count(textsOf(list), path) > 0 || !world.machine.exists(path)) << path;
  }
  world.console.reset();
  EXPECT_EQ(world.machine.urlCache().blocks(), 0U);
  return operation;
}

// What the shredder, the wipe and the lists call many times. Unless SCRUBHAVEN_EVERY_CALL is 1, such an operation that
// has failed often fails with its usual number only, and calls behind it are left out.
const std::string kRepeated =
    "closeFile closeKey createKey deleteKey freeFile flushFileBuffers getFullPathName moveFile openBinary openKey "
    "putBytes putBytesAt setValue ";

TEST(Rehearsal, AnyFailingCallHarmsNothingElseAndLeavesTheToolsUsable) {
  constexpr int kOften = 6;
  constexpr int kStep = 29;
  const bool every = numberFrom("SCRUBHAVEN_EVERY_CALL", 0) != 0;
  for (const Scenario& scenario : scenarios()) {
    std::map<std::string, int> failures;
    for (int n = 1; !HasFailure();) {
      const std::string operation = runWithFault(scenario, n, std::nullopt, 0);
      if (operation.empty()) break;
      const bool often = ++failures[operation] > kOften && names(kRepeated, operation) && !every;
      for (const auto& [code, operations] : kCodes) {
        if (!often && names(operations, operation)) runWithFault(scenario, n, code, 0);
      }
      if (scenario.pairs && !often) runWithFault(scenario, n, std::nullopt, 1);
      n += often ? kStep : 1;
    }
    EXPECT_FALSE(failures.empty()) << scenario.name;
  }
}

// ---- Exchanges

struct Exchange {
  const char* name;
  int above;  // what is exchanged: the file, its folder, the folder above that
  void (*put)(MemoryDisk& disk, const std::string& path);
};

void putLink(MemoryDisk& disk, const std::string& path) { disk.addLink(path, "C:\\Outside"); }

const Exchange kExchanges[] = {
    {"file to folder", 0, [](MemoryDisk& disk, const std::string& path) { disk.addFile(path + "\\inside", "inside"); }},
    {"folder to link", 1, putLink},
    {"folder above to link", 2, putLink},
    {"file to link", 0,
     [](MemoryDisk& disk, const std::string& path) {
       disk.addFile(path, "target")->attributes |= platform::kReparsePoint;
     }},
    {"made again", 0, [](MemoryDisk& disk, const std::string& path) { disk.addFile(path, "again"); }},
};

// False when something there is open.
bool perform(const Exchange& exchange, MemoryDisk& disk, std::string path) {
  for (int i = 0; i < exchange.above; ++i) path.resize(path.rfind('\\'));
  if (!disk.takeAway(path)) return false;
  exchange.put(disk, path);
  return true;
}

enum class Outcome { kNoMoreTimes, kNothingThere, kRefused, kDone };

// Runs the scenario; at the n-th box, or the n-th time that messages are processed (1-based), the file is exchanged.
Outcome runWithExchange(const Scenario& scenario, const Exchange& exchange, const std::string& file, bool atBoxes,
                        int n) {
  World world;
  const Paths mayGo = parts(scenario.mayGo);
  Snapshot before = world.everything();
  Outcome outcome = Outcome::kNoMoreTimes;
  const bool isFirstBox = atBoxes && n == 1;
  const auto takeTime = [&] {
    if (--n != 0) return;
    EXPECT_EQ(World::harmed(before, world.everything(), mayGo), Paths{});
    outcome = Outcome::kNothingThere;
    if (std::ranges::count(world.machine.filesBelow("C:\\"), file) == 0) return;
    outcome = perform(exchange, world.machine.disk(), file) ? Outcome::kDone : Outcome::kRefused;
    before = world.everything();
  };
  if (!atBoxes) world.machine.ui().everyServing(takeTime);
  world.play(scenario, [&](const auto&) {
    if (atBoxes) takeTime();
  });
  EXPECT_EQ(World::harmed(before, world.everything(), mayGo), Paths{});
  const bool isSpared = outcome == Outcome::kDone && std::string(scenario.spares) == exchange.name;
  EXPECT_TRUE(!isSpared || world.machine.exists(file));
  const controls::ListView& junk = world.console->ListView1;
  for (std::size_t i = 0; i < junk.rowCount() && isFirstBox; ++i) {
    EXPECT_TRUE(!junk.ticked(i) || world.machine.contents(junk.text(i))) << junk.text(i);
  }
  world.expectUsable(!scenario.mayDisableScan);
  return outcome;
}

// Unless SCRUBHAVEN_EVERY_CALL is 1, not every time that messages are processed is taken, but others with each file and
// exchange.
TEST(Rehearsal, WhatAnotherProgramPutsInTheWayIsNotDestroyed) {
  const int step = numberFrom("SCRUBHAVEN_EVERY_CALL", 0) != 0 ? 1 : 7;
  std::map<Outcome, int> outcomes;
  int combination = 0;
  const auto exchangeAt = [&](const Scenario& scenario, const std::string& file, const Exchange& exchange, bool boxes) {
    Outcome outcome = Outcome::kDone;
    const int first = boxes ? 1 : 1 + ++combination % step;
    for (int n = first; outcome >= Outcome::kRefused && !HasFailure(); n += boxes ? 1 : step) {
      SCOPED_TRACE(std::string(scenario.name) + ", " + file + ", " + exchange.name + ' ' + std::to_string(n));
      outcome = runWithExchange(scenario, exchange, file, boxes, n);
      ++outcomes[outcome];
    }
  };
  const Snapshot everything = World().everything();
  for (const Scenario& scenario : scenarios()) {
    for (const auto& [file, contents] : everything) {
      if (file[1] != ':' || !isAllowed(parts(scenario.mayGo), file)) continue;
      for (const Exchange& exchange : kExchanges) {
        if (std::ranges::count(file, '\\') <= exchange.above) continue;
        for (const bool boxes : {true, false}) exchangeAt(scenario, file, exchange, boxes);
      }
    }
  }
  EXPECT_GT(outcomes[Outcome::kDone], 200);
  EXPECT_GT(outcomes[Outcome::kRefused], 5);
}

}  // namespace
