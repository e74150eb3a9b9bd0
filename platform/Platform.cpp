#include "platform/Platform.h"

#include <cassert>

namespace platform {
namespace {

Machine* installed = nullptr;

}  // namespace

Machine& machine() {
  assert(installed != nullptr && "no machine installed");
  return *installed;
}

ScopedMachine::ScopedMachine(Machine& machine) : previous_(installed) { installed = &machine; }

ScopedMachine::~ScopedMachine() { installed = previous_; }

}  // namespace platform
