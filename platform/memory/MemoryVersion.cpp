#include "platform/memory/MemoryVersion.h"

namespace platform::memory {

bool MemoryVersion::getVersionEx(VersionRecord& record) {
  if (faults_.nextFault("getVersionEx") || record.size != kVersionRecordSize) return false;
  record = record_;
  record.size = kVersionRecordSize;
  return true;
}

}  // namespace platform::memory
