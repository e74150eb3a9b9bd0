#include "settings/frmSR.h"

#include "settings/system_restore.h"

using controls::messageBox;

namespace {

constexpr const char* kService = "System Restore Service";

}  // namespace

frmSR::frmSR()
    : ToggleWindow("frmSR", "Toggle System Restore", "Toggles Enable/Disable System Restore"),
      lblSR(Frame1, "lblSR", controls::ControlInit{.caption = kUnknownSetting}),
      ListView1(Frame1, "ListView1", controls::ControlInit{.visible = false}, {}) {}

controls::Box frmSR::layout() {
  return layoutAround(lblSR, {"System Restore is currently disabled.", "System Restore is currently enabled."});
}

void frmSR::StopService(const std::string& name) { settings::stopService(name); }

void frmSR::StartService(const std::string& name) { settings::startService(name); }

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
  settings::enableRestore();
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
  settings::disableRestore();
  StopService(kService);
  settings::scheduleRemovalOfPoints();
  showDisabled();
  messageBox(
      "System Restore has been successfully disabled.\r\n\r\nAll System Restore Points will be deleted on next "
      "restart.",
      platform::kBoxInformation);
}

void frmSR::disableAndKeepPoints() {
  settings::disableRestore();
  StopService(kService);
  messageBox("System Restore has been disabled.", platform::kBoxInformation, "System Restore Disabled");
  showDisabled();
}

void frmSR::showDisabled() {
  lblSR.setCaption("System Restore is currently disabled.");
  cmdToggle.disable();
}
