// Every platform call of every tool's run fails once.
#include <algorithm>
#include <set>
#include <sstream>

#include "tests/unit/Rehearsal.h"

namespace {

// What else operations fail with, beside their usual numbers.
const Paths kCodes = parts(
    "closeKey 5|coCreateInstance -2147467262|deleteFile 53|deleteFolder 76|deleteKey 2|fileOperation 2 120|filesIn 76|"
    "getFile 53 429|holdFolder 76|launchHidden 70|moveFile 53 58 70 76|openBinary 52 55 68 70 76|openFileDialog 64|"
    "openKey 2|putBytes 52 70|putBytesAt 52 70|queryValue 2 234|regDelete 70|regWrite -2147024894|remove 53 70 76|"
    "subfolders 76");

std::vector<std::int32_t> codesOf(const std::string& operation) {
  std::vector<std::int32_t> codes;
  for (const std::string& line : kCodes) {
    std::istringstream in(line);
    std::string name;
    in >> name;
    for (std::int32_t code = 0; name == operation && in >> code;) codes.push_back(code);
  }
  return codes;
}

// What the shredder, the wipe and the lists call many times.
const std::set<std::string> kRepeated = {"closeFile",        "closeKey",        "createKey", "deleteKey",  "freeFile",
                                         "flushFileBuffers", "getFullPathName", "moveFile",  "openBinary", "openKey",
                                         "putBytes",         "putBytesAt",      "setValue"};

// A row that has left the list stands for a file that has gone, and a ticked one for a file.
void expectRowsInStep(World& world, const Paths& listed) {
  controls::ListView& junk = world.console->ListView1;
  Paths left;
  for (controls::ListView* list : {&world.console->ListView2, &junk}) {
    left.clear();
    for (std::size_t i = 0; i < list->rowCount(); ++i) {
      left.push_back(list->text(i));
      const bool mayBeNoFile = !list->ticked(i) && (list != &junk || !world.machine.exists(left.back()));
      EXPECT_TRUE(mayBeNoFile || world.machine.contents(left.back())) << left.back();
    }
  }
  for (const std::string& path : listed) {
    EXPECT_TRUE(std::ranges::count(left, path) > 0 || !world.machine.exists(path)) << path;
  }
}

// Runs the scenario with `count` calls failing, from the n-th on. Returns the operation that has failed last; empty
// when there was no such call.
std::string runWithFault(const Scenario& scenario, int n, std::optional<std::int32_t> code = {}, int count = 1) {
  static const Snapshot before = World().everything();
  World world;
  Paths listed;
  world.machine.ui().onBox([&](const auto& box) {
    const controls::ListView& list = world.console->ListView1;
    for (std::size_t i = 0; box.text.starts_with("Confirm") && i < list.rowCount(); ++i) listed.push_back(list.text(i));
    world.answer(box, !box.text.starts_with(scenario.refused));
  });
  world.machine.faults().failCall(n, code, count);
  scenario.run(world);
  const std::string operation = world.machine.faults().lastFailed();
  world.machine.faults().clear();

  SCOPED_TRACE(scenario.name + (", call " + std::to_string(n)) + ' ' + operation + ' ' +
               std::to_string(code.value_or(0)));
  EXPECT_EQ(harmed(before, world.everything(), scenario.chosen()), Paths{});
  const bool hasCacheRows = world.front() == &world.console->lvCache && !world.console->lvCache.empty();
  world.expectUsable(!scenario.mayDisableScan() && !hasCacheRows);
  // When both looks at a path fail, nothing can tell whether the file is there.
  if (count > 1 && operation == "getFileAttributes") listed.clear();
  expectRowsInStep(world, listed);
  world.console.reset();
  EXPECT_EQ(world.machine.urlCache().blocks(), 0U);
  return operation;
}

// Unless SCRUBHAVEN_EVERY_CALL is 1, a repeated operation that has failed often fails with its usual number only, and
// the calls behind it are left out.
TEST(Rehearsal, AnyFailingCallHarmsNothingElseAndLeavesTheToolsUsable) {
  constexpr int kOften = 6;
  constexpr int kStep = 30;
  const bool every = numberFrom("SCRUBHAVEN_EVERY_CALL", 0) != 0;
  int calls = 0;
  int codes = 0;
  int pairs = 0;
  for (const Scenario& scenario : scenarios()) {
    std::map<std::string, int> failures;
    for (int n = 1; !HasFailure(); ++calls) {
      const std::string operation = runWithFault(scenario, n);
      if (operation.empty()) break;
      const bool often = ++failures[operation] > kOften && kRepeated.contains(operation) && !every;
      n += often ? kStep : 1;
      if (often) continue;
      for (const std::int32_t code : codesOf(operation)) {
        runWithFault(scenario, n - 1, code);
        ++codes;
      }
      if (!scenario.pairs) continue;
      runWithFault(scenario, n - 1, {}, 2);
      ++pairs;
    }
    EXPECT_FALSE(failures.empty()) << scenario.name;
  }
  RecordProperty("calls", calls);
  RecordProperty("codes", codes);
  RecordProperty("pairs", pairs);
}

}  // namespace
