// Which Windows the in-memory machine says it runs.
#pragma once

#include "platform/SystemVersion.h"
#include "platform/memory/MemoryFaults.h"

namespace platform::memory {

class MemoryVersion final : public SystemVersion {
 public:
  // Windows XP until told otherwise.
  explicit MemoryVersion(MemoryFaults& faults) : faults_(faults) {}

  // What the next queries fill in; `size` does not matter.
  void set(const VersionRecord& record) { record_ = record; }
  bool isNtLine() const { return record_.platformId == 2; }

  bool getVersionEx(VersionRecord& record) override {
    if (faults_.nextFault("getVersionEx") || record.size != kVersionRecordSize) return false;
    record = record_;
    record.size = kVersionRecordSize;
    return true;
  }

 private:
  MemoryFaults& faults_;
  VersionRecord record_{kVersionRecordSize, 5, 1, 2600, 2, {}};
};

}  // namespace platform::memory
