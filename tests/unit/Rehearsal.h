// Whole runs of every tool, through its windows as a user makes them, on a machine that has something for each tool.
// The rehearsals repeat them with failing calls, with other programs that change files meanwhile, and at random.
#pragma once

#include <map>
#include <optional>
#include <span>
#include <string>

#include "console/frmFind.h"
#include "tests/unit/UnitTest.h"

// Everything that a tool could destroy, by path: files with their contents, URLs of the cache, registry values.
using Snapshot = std::map<std::string, std::string>;

struct Scenario;

struct World {
  platform::memory::MemoryMachine machine;
  platform::ScopedMachine use{machine};
  std::optional<frmFind> console;

  World();
  // Puts back every file that is missing or changed.
  void stock();

  Snapshot everything();
  // What of `before` has gone or changed, and which files have come, although no path of `mayGo` allows it: that path,
  // or what lies below it when it ends in a backslash (or "=", for a registry value). Files that the shredder has
  // renamed may come.
  static Paths harmed(const Snapshot& before, const Snapshot& now, const Paths& mayGo);

  // The list that the user sees.
  controls::ListView* front();
  // Runs the scenario; at each box `atBox` is called before it is answered as the scenario says.
  void play(const Scenario& scenario, std::function<void(const platform::memory::ShownBox&)> atBox);
  // Answers a box, by its first button or by its last.
  void answer(const platform::memory::ShownBox& box, bool agrees);
  // Opens the root's line of a folder list, and from there line by line the folder.
  static void open(controls::DirList& list, const std::string& folder);

  // Nothing is open, and the user can go on with every tool.
  void expectUsable(bool scanToo);
};

struct Scenario {
  const char* name;
  // `chosen` is what the user ticks or adds: the paths of `mayGo`.
  void (*run)(World& world, const Paths& chosen);
  const char* mayGo = "";        // see harmed(), with "|" between the paths
  const char* refused = "none";  // how the text begins of the box that the user answers with its last button
  const char* spares = "";       // the exchange (by name) of a file that keeps it from being deleted
  bool pairs = false;            // two calls in a row fail too
  bool mayDisableScan = false;
};

// What Delete Temps may delete.
inline constexpr const char* kTemps = R"(C:\Temp\|C:\Windows\Temp\|C:\Documents and Settings\Ann\Cookies\)";

std::span<const Scenario> scenarios();

inline bool isAllowed(const Paths& mayGo, const std::string& path) {
  return std::ranges::any_of(mayGo, [&path](const std::string& one) {
    return path == one || ((one.ends_with('\\') || one.ends_with('=')) && path.starts_with(one));
  });
}
