// Whole runs of every tool, through its windows as a user makes them, on a machine that has something for each tool.
// The rehearsals repeat them with failing calls, with other programs that exchange files meanwhile, and at random.
#pragma once

#include <map>
#include <optional>
#include <span>
#include <string>

#include "console/frmFind.h"
#include "tests/unit/UnitTest.h"

// Everything that a tool could destroy, by path: files with their contents, URLs of the cache, registry values.
using Snapshot = std::map<std::string, std::string>;

// What of `before` has gone or changed, and which files have come, although no path of `mayGo` allows it: that path, or
// what lies below it when it ends in a backslash (or "=", for a registry value). Files that the shredder has renamed
// may come.
Paths harmed(const Snapshot& before, const Snapshot& now, const Paths& mayGo);
bool isAllowed(const Paths& mayGo, const std::string& path);

struct World {
  platform::memory::MemoryMachine machine;
  platform::ScopedMachine use{machine};
  std::optional<frmFind> console;

  World();
  // Puts back every file that is missing or changed.
  void stock();
  void startConsole();
  Snapshot everything();
  // The list that the user sees; null when there is none.
  controls::ListView* front();
  // Answers a box, by its first button or by its last.
  void answer(const platform::memory::ShownBox& box, bool agrees);
  // Opens the root's line of a folder list, and from there line by line the folder.
  static void open(controls::DirList& list, const std::string& folder);
  // Nothing is open, and the user can go on with every tool.
  void expectUsable(bool scanToo);
};

struct Scenario {
  const char* name;
  // What the user does first. `chosen` is what he ticks or adds: the paths of `mayGo`.
  void (*prepare)(World& world, const Paths& chosen);
  controls::FlatButton frmFind::*button;
  const char* mayGo = "";     // see harmed(), with "|" between the paths
  bool pairs = false;         // two calls in a row fail too
  const char* spares = "";    // the exchange (by name) that keeps a file from being deleted
  const char* refused = "-";  // how the text begins of the box that the user answers with its last button

  Paths chosen() const { return parts(mayGo); }
  void run(World& world) const {
    prepare(world, chosen());
    (*world.console.*button).click();
  }
  // A refused or cancelled deletion of temporary files leaves the scan disabled.
  bool mayDisableScan() const { return button == &frmFind::Del_Temps; }
};

std::span<const Scenario> scenarios();

// The number in an environment variable, or `otherwise`.
int numberFrom(const char* variable, int otherwise);
