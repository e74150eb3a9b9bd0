// Every platform call of every tool's run fails once.
#include <algorithm>

#include "tests/unit/Rehearsal.h"

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
    {platform::kPermissionDenied, "launchHidden moveFile openBinary putBytes putBytesAt regDelete remove "},
    {platform::kRegistryAccessDenied, "closeKey "},
    {platform::kRegistryMoreData, "queryValue "},
    {platform::kRegistryNotFound, "deleteKey openKey queryValue "},
    {static_cast<std::int32_t>(0x80004002), "coCreateInstance "},
    {static_cast<std::int32_t>(0x80070002), "regWrite "},
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
  world.machine.ui().onBox([&](const auto& box) {
    if (box.text.starts_with("Confirm")) listed = textsOf(list);
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

}  // namespace
