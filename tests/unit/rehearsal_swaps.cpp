// Another program exchanges what a tool works on, each time that a message box stands open or messages are processed.
#include <algorithm>

#include "tests/unit/Rehearsal.h"

using platform::memory::MemoryDisk;

namespace {

std::string folderOf(const std::string& path) { return path.substr(0, path.rfind('\\')); }

// Each returns false when something there is open.
struct Exchange {
  const char* name;
  int depth;  // the least number of names behind the drive in the file's path
  bool (*act)(MemoryDisk& disk, const std::string& file);
};

const Exchange kExchanges[] = {
    {"file to folder", 1, [](MemoryDisk& disk, const std::string& file) { return disk.replaceByFolder(file); }},
    {"folder to link", 2,
     [](MemoryDisk& disk, const std::string& file) { return disk.replaceByLink(folderOf(file), "C:\\Outside"); }},
    {"folder above to link", 3,
     [](MemoryDisk& disk, const std::string& file) {
       return disk.replaceByLink(folderOf(folderOf(file)), "C:\\Outside");
     }},
    {"file to link", 1, [](MemoryDisk& disk, const std::string& file) { return disk.replaceByFileLink(file); }},
    {"made again", 1,
     [](MemoryDisk& disk, const std::string& file) {
       if (!disk.replaceByFolder(file) || !disk.remove(*disk.find(file), true)) return false;
       disk.addFile(file, "again");
       return true;
     }},
};

enum class Outcome { kNoMoreTimes, kNothingThere, kRefused, kDone };

// Runs the scenario; at the n-th box, or the n-th time that messages are processed (1-based), the file is exchanged.
Outcome runWithExchange(const Scenario& scenario, const Exchange& exchange, const std::string& file, bool atBoxes,
                        int n) {
  World world;
  const Paths mayGo = parts(scenario.mayGo);
  Snapshot before = world.everything();
  Outcome outcome = Outcome::kNoMoreTimes;
  const auto takeTime = [&] {
    if (--n != 0) return;
    EXPECT_EQ(World::harmed(before, world.everything(), mayGo), Paths{});
    outcome = Outcome::kNothingThere;
    if (std::ranges::count(world.machine.filesBelow("C:\\"), file) == 0) return;
    outcome = exchange.act(world.machine.disk(), file) ? Outcome::kDone : Outcome::kRefused;
    before = world.everything();
  };
  if (!atBoxes) world.machine.ui().everyServing(takeTime);
  world.machine.ui().onBox([&](const auto& box) {
    if (atBoxes) takeTime();
    world.answer(box, !box.text.starts_with(scenario.refused));
  });
  scenario.run(world, mayGo);
  EXPECT_EQ(World::harmed(before, world.everything(), mayGo), Paths{});
  const bool isSpared = outcome == Outcome::kDone && std::string(scenario.spares) == exchange.name;
  EXPECT_TRUE(!isSpared || world.machine.exists(file));
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
        if (std::ranges::count(file, '\\') < exchange.depth) continue;
        for (const bool boxes : {true, false}) exchangeAt(scenario, file, exchange, boxes);
      }
    }
  }
  EXPECT_GT(outcomes[Outcome::kDone], 200);
  EXPECT_GT(outcomes[Outcome::kRefused], 5);
}

}  // namespace
