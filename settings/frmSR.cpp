#include "settings/frmSR.h"

#include "platform/Platform.h"
#include "settings/modRegistry.h"

using controls::messageBox;

namespace {

constexpr const char* kService = "System Restore Service";
constexpr const char* kRestoreKey = "SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\SystemRestore\\";
constexpr const char* kDriverKey = "SYSTEM\\CurrentControlSet\\Services\\sr\\";
constexpr const char* kRunOnceKey = "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\RunOnce";

// How the filter driver starts.
constexpr std::int32_t kStartAtBoot = 0;
constexpr std::int32_t kStartNever = 4;

// The statuses are not looked at: the messages that follow come in any case.
void writeState(std::int32_t disabled, std::int32_t driverStart) {
  static_cast<void>(WriteRegistryValue("HKLM", kRestoreKey, "DisableSR", "D", disabled));
  static_cast<void>(WriteRegistryValue("HKLM", kDriverKey, "Start", "D", driverStart));
}

void scheduleDeletionOfPoints() {
  const std::string script = platform::machine().environment().programFolder() + "\\svi.cmd";
  static_cast<void>(WriteRegistryValue("HKLM", kRunOnceKey, "Delete SVI", "s", script));
}

void runNet(const std::string& command, const std::string& service) {
  static_cast<void>(platform::machine().shell().launchHidden("net " + command + " \"" + service + "\""));
}

}  // namespace

frmSR::frmSR()
    : ToggleWindow("Toggle System Restore", "Toggles Enable/Disable System Restore"),
      lblSR(Frame1, "lblSR", controls::ControlInit{.caption = kUnknownSetting}),
      ListView1(Frame1, "ListView1", controls::ControlInit{.visible = false}, {}) {}

controls::Box frmSR::layout() {
  return layoutAround(lblSR, {"System Restore is currently disabled.", "System Restore is currently enabled."});
}

void frmSR::StopService(const std::string& name) { runNet("stop", name); }

void frmSR::StartService(const std::string& name) { runNet("start", name); }

// The service is started even when the click is going to disable it.
void frmSR::cmdToggle_Click() {
  StartService(kService);
  if (cmdToggle.caption() == kEnableCaption) {
    enableRestore();
  } else if (cmdToggle.caption() == kDisableCaption) {
    disableRestore();
  }
}

void frmSR::enableRestore() {
  writeState(0, kStartAtBoot);
  messageBox("System Restore has been successfully enabled.", platform::kBoxInformation, "System Restore Enabled");
  lblSR.setCaption("System Restore is currently enabled.");
  cmdToggle.disable();
}

void frmSR::disableRestore() {
  if (messageBox("Do you want to delete all existing Restore Points?", platform::kBoxAsk, "Delete Restore Point") ==
      platform::Answer::kYes) {
    disableAndDeletePoints();
  } else {
    disableAndKeepPoints();
  }
}

void frmSR::disableAndDeletePoints() {
  writeState(1, kStartNever);
  StopService(kService);
  scheduleDeletionOfPoints();
  showDisabled();
  messageBox(
      "System Restore has been successfully disabled.\r\n\r\nAll System Restore Points will be deleted on next "
      "restart.",
      platform::kBoxInformation);
}

void frmSR::disableAndKeepPoints() {
  writeState(1, kStartNever);
  StopService(kService);
  messageBox("System Restore has been disabled.", platform::kBoxInformation, "System Restore Disabled");
  showDisabled();
}

void frmSR::showDisabled() {
  lblSR.setCaption("System Restore is currently disabled.");
  cmdToggle.disable();
}
