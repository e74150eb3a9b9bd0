// System Restore: its setting, its service, and the removal of its restore points at the next start.
#pragma once

#include <string>

namespace settings {

// Whether System Restore is disabled, as text: "0", "1" or another number; empty when it cannot be read.
std::string readRestoreDisabled();

// Stores the setting and how the filter driver starts. Failures are not reported.
void enableRestore();
void disableRestore();

// Registers the script that removes the restore points for the next start. A failure is not reported.
void scheduleRemovalOfPoints();

// Runs "net start" or "net stop" for a service by its display name, in a hidden window. Returns without waiting, and
// the result is unknown.
void startService(const std::string& name);
void stopService(const std::string& name);

}  // namespace settings
