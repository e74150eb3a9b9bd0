// The console's button for System Restore: shows its state in a window that can switch it.
#include "console/frmFind.h"
#include "console/modOS.h"
#include "settings/frmSR.h"
#include "settings/system_restore.h"

void frmFind::bindRestore() { bindTool(cmdSysrestore, &frmFind::cmdSysrestore_Click); }

void frmFind::cmdSysrestore_Click() {
  if (!isOnNtLine(GetWindowsVersionName())) return;
  const std::string setting = settings::readRestoreDisabled();
  if (!isReadable(setting)) return;
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
