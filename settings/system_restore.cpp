#include "settings/system_restore.h"

#include <cstdint>

#include "platform/Platform.h"
#include "settings/modRegistry.h"

namespace settings {
namespace {

// Without the closing backslash that writing appends.
constexpr const char* kRestoreKey = "SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\SystemRestore";
constexpr const char* kDisabledValue = "DisableSR";
constexpr const char* kDriverKey = "SYSTEM\\CurrentControlSet\\Services\\sr\\";
constexpr const char* kRunOnceKey = "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\RunOnce";

// How the filter driver starts.
constexpr std::int32_t kStartAtBoot = 0;
constexpr std::int32_t kStartNever = 4;

void writeState(std::int32_t disabled, std::int32_t driverStart) {
  static_cast<void>(WriteRegistryValue("HKLM", std::string(kRestoreKey) + '\\', kDisabledValue, "D", disabled));
  static_cast<void>(WriteRegistryValue("HKLM", kDriverKey, "Start", "D", driverStart));
}

void runNet(const std::string& command, const std::string& service) {
  static_cast<void>(platform::machine().shell().launchHidden("net " + command + " \"" + service + "\""));
}

}  // namespace

std::string readRestoreDisabled() { return readNumberText("HKLM", kRestoreKey, kDisabledValue); }

void enableRestore() { writeState(0, kStartAtBoot); }

void disableRestore() { writeState(1, kStartNever); }

void scheduleRemovalOfPoints() {
  const std::string script = platform::machine().environment().programFolder() + "\\svi.cmd";
  static_cast<void>(WriteRegistryValue("HKLM", kRunOnceKey, "Delete SVI", "s", script));
}

void startService(const std::string& name) { runNet("start", name); }

void stopService(const std::string& name) { runNet("stop", name); }

}  // namespace settings
