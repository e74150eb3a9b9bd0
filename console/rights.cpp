#include "console/rights.h"

#include "platform/Platform.h"

std::string rightsNotice() {
  if (platform::machine().environment().isAdministrator()) return {};
  return "Without administrator rights: Wipe Index Files, Clear Prefetch, Clear Swap File and System Restore will not "
         "work.";
}
