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

Use::Use(Machine& machine) : previous_(installed) { installed = &machine; }

Use::~Use() { installed = previous_; }

}  // namespace platform
