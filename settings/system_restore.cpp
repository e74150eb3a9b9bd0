// The console's button for System Restore: shows its state in a window that can switch it.
#include "console/frmFind.h"
#include "settings/frmSR.h"

void frmFind::bindSystemRestore() { bindTool(cmdSysrestore, &frmFind::cmdSysrestore_Click); }

void frmFind::cmdSysrestore_Click() {
  if (!runsOnNtLine()) return;
  const std::string setting =
      readSetting("SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\SystemRestore", "DisableSR");
  if (setting.empty()) return;
  frmSR restore;
  if (setting == "1") {
    restore.cmdToggle.setCaption(kEnableCaption);
    restore.lblSR.setCaption("System Restore is currently disabled.");
  } else if (setting == "0") {
    restore.cmdToggle.setCaption(kDisableCaption);
    restore.lblSR.setCaption("System Restore is currently enabled.");
  }
  restore.showModal(this);
}
