// The window that switches System Restore on or off and arranges for the removal of the restore points.
#pragma once

#include <string>

#include "controls/FlatButton.h"
#include "controls/Form.h"
#include "controls/Frame.h"
#include "controls/Label.h"
#include "controls/ListView.h"

// The toggle's caption is its state: "Enable" while System Restore is off, "Disable" while it is on. Whoever opens the
// window sets it; one change can be made at each opening.
class frmSR final : public controls::Form {
 public:
  frmSR();

  controls::Box layout() override;

  controls::Frame Frame1;
  controls::Label lblSR;
  controls::ListView ListView1;  // nothing is ever listed in it, so it has no place in the layout
  controls::FlatButton cmdToggle;
  controls::FlatButton cmd_Cancel;

  // Has the system stop or start a service by its display name; neither waits nor learns how it went.
  void StopService(const std::string& name);
  void StartService(const std::string& name);

 private:
  void cmdToggle_Click();
  void enableRestore();
  void disableRestore();
  void disableAndDeletePoints();
  void disableAndKeepPoints();
  void showDisabled();
};
