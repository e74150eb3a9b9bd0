// The console's button for the page file: shows the setting in a window that can switch it.
#include "console/frmFind.h"
#include "console/modOS.h"
#include "settings/frmPage.h"
#include "settings/pagefile.h"

void frmFind::bindPagefile() { bindTool(cmdSwap, &frmFind::cmdSwap_Click); }

void frmFind::cmdSwap_Click() {
  if (!isOnNtLine(GetWindowsVersionName())) return;
  const std::string setting = settings::readClearPagefile();
  if (!isReadable(setting)) return;
  frmPage page;
  if (setting == "0") {
    page.cmdToggle.setCaption(kEnableCaption);
    page.lblPage.setCaption("Clear Swap File at shutdown is currently disabled.");
  } else if (setting == "1") {
    page.cmdToggle.setCaption(kDisableCaption);
    page.lblPage.setCaption("Clear Swap File at shutdown is currently enabled.");
  }
  page.showModal(this);
}
