// The loop over the entries of a folder.
#pragma once

#include <string>

#include "platform/FileSystem.h"

namespace platform {

// Calls `visit(name, record)` for each entry that matches `pattern`, "." and ".." too, until it returns false, and
// `afterStep()` after each step of the enumeration. Returns false when `visit` has ended it. A folder that cannot be
// read has no entries. FindFirstFileA, FindNextFileA, FindClose.
template <typename Visit, typename AfterStep>
bool forEachEntry(FileSystem& files, const std::string& pattern, Visit visit, AfterStep afterStep) {
  FindRecord record;
  const Handle enumeration = files.findFirstFile(pattern, record);
  if (enumeration == kInvalidHandle) return true;
  bool goesOn = true;
  for (bool more = true; more && goesOn;) {
    goesOn = visit(std::string(record.name.data()), record);
    if (!goesOn) break;
    more = files.findNextFile(enumeration, record);
    afterStep();
  }
  files.findClose(enumeration);
  return goesOn;
}

template <typename Visit>
bool forEachEntry(FileSystem& files, const std::string& pattern, Visit visit) {
  return forEachEntry(files, pattern, visit, [] {});
}

}  // namespace platform
