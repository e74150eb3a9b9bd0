// The machine that the program runs on: all its services together.
#pragma once

#include "platform/Calendar.h"
#include "platform/Environment.h"
#include "platform/FileObjects.h"
#include "platform/FileSystem.h"
#include "platform/ProfileFile.h"
#include "platform/Registry.h"
#include "platform/ScriptShell.h"
#include "platform/Shell.h"
#include "platform/SystemVersion.h"
#include "platform/Ui.h"
#include "platform/UrlCache.h"
#include "platform/UrlHistory.h"

namespace platform {

class Machine {
 public:
  virtual ~Machine() = default;

  virtual FileSystem& files() = 0;
  virtual FileObjects& fileObjects() = 0;
  virtual Shell& shell() = 0;
  virtual Registry& registry() = 0;
  virtual ProfileFile& profiles() = 0;
  virtual ScriptShell& scriptShell() = 0;
  virtual SystemVersion& version() = 0;
  virtual Environment& environment() = 0;
  virtual Ui& ui() = 0;
  virtual UrlCache& urlCache() = 0;
  virtual UrlHistory& urlHistory() = 0;
  virtual Calendar& calendar() = 0;
};

// The machine in use. There must be one: main() or a test has installed it before any logic runs.
Machine& machine();

// Installs a machine for as long as this object lives, and then the one that was installed before. Does not own it.
class ScopedMachine {
 public:
  explicit ScopedMachine(Machine& machine);
  ~ScopedMachine();
  ScopedMachine(const ScopedMachine&) = delete;
  ScopedMachine& operator=(const ScopedMachine&) = delete;

 private:
  Machine* previous_;
};

}  // namespace platform
