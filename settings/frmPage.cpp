#include "settings/frmPage.h"

#include "settings/modRegistry.h"
#include "settings/toggle_window.h"

using controls::messageBox;
using controls::Start;

namespace {

// The status is not looked at: the message that follows comes in any case.
void writeSetting(std::int32_t value) {
  constexpr const char* kControl = "System\\CurrentControlSet\\Control";
  static_cast<void>(WriteRegistryValue("HKLM", std::string(kControl) + "\\Session Manager\\Memory Management\\",
                                       "ClearPageFileAtShutdown", "D", value));
}

}  // namespace

frmPage::frmPage()
    : Form("Cear Pagfile"),
      Frame1(*this, "Frame1", Start{}),
      lblPage(Frame1, "lblPage", Start{.caption = kUnknownSetting}),
      cmdToggle(*this, "cmdToggle",
                Start{.caption = kToggleCaption, .toolTip = "Toggles Enable/Disable Clear Pagefile"}),
      cmd_Cancel(*this, "cmd_Cancel", Start{.caption = "Cancel", .toolTip = "ExitThis Window"}) {
  cmdToggle.onClick = [this] { cmdToggle_Click(); };
  cmd_Cancel.onClick = [this] { close(); };
  cmdToggle.setMnemonic('E');
  cmd_Cancel.setMnemonic('C');
  setCancelButton(cmd_Cancel);
}

controls::Box frmPage::layout() {
  return toggleWindowLayout(
      Frame1, controls::place(lblPage), cmdToggle, cmd_Cancel,
      {"Clear Pagefile on shutdown is currently disabled.", "Clear Swap File at shutdown is currently disabled."});
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
