#include "settings/frmPage.h"

#include "settings/modRegistry.h"

using controls::messageBox;

namespace {

// The status is not looked at: the message that follows comes in any case.
void writeSetting(std::int32_t value) {
  constexpr const char* kControl = "System\\CurrentControlSet\\Control";
  static_cast<void>(WriteRegistryValue("HKLM", std::string(kControl) + "\\Session Manager\\Memory Management\\",
                                       "ClearPageFileAtShutdown", "D", value));
}

}  // namespace

frmPage::frmPage()
    : ToggleWindow("Cear Pagfile", "Toggles Enable/Disable Clear Pagefile"),
      lblPage(Frame1, "lblPage", controls::ControlInit{.caption = kUnknownSetting}) {}

controls::Box frmPage::layout() {
  return layoutAround(lblPage, {"Clear Pagefile on shutdown is currently disabled.",
                                "Clear Swap File at shutdown is currently disabled."});
}

void frmPage::cmdToggle_Click() {
  if (cmdToggle.caption() == kEnableCaption) {
    writeSetting(1);
    messageBox("Clear Pagefile has been enabled.", platform::kBoxInformation, "Clear Pagefile Enabled");
    lblPage.setCaption("Clear Pagefile on shutdown is currently enabled.");
    cmdToggle.disable();
  } else if (cmdToggle.caption() == kDisableCaption) {
    writeSetting(0);
    messageBox("Clear Pagefile has been disabled.", platform::kBoxInformation, "Clear Pagefile Disabled");
    lblPage.setCaption("Clear Pagefile on shutdown is currently disabled.");
    cmdToggle.disable();
  }
}
