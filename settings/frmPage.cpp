#include "settings/frmPage.h"

#include "settings/pagefile.h"

using controls::messageBox;

frmPage::frmPage()
    : ToggleWindow("frmPage", "Cear Pagfile", "Toggles Enable/Disable Clear Pagefile"),
      lblPage(Frame1, "lblPage", controls::ControlInit{.caption = kUnknownSetting}) {}

controls::Box frmPage::layout() {
  return layoutAround(lblPage, {"Clear Pagefile on shutdown is currently disabled.",
                                "Clear Swap File at shutdown is currently disabled."});
}

void frmPage::cmdToggle_Click() {
  if (cmdToggle.caption() == kEnableCaption) {
    settings::writeClearPagefile(1);
    messageBox("Clear Pagefile has been enabled.", platform::kBoxInformation, "Clear Pagefile Enabled");
    lblPage.setCaption("Clear Pagefile on shutdown is currently enabled.");
    cmdToggle.disable();
  } else if (cmdToggle.caption() == kDisableCaption) {
    settings::writeClearPagefile(0);
    messageBox("Clear Pagefile has been disabled.", platform::kBoxInformation, "Clear Pagefile Disabled");
    lblPage.setCaption("Clear Pagefile on shutdown is currently disabled.");
    cmdToggle.disable();
  }
}
