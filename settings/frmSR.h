// The window that switches System Restore on or off and arranges for the removal of the restore points.
#pragma once

#include <string>

#include "controls/ListView.h"
#include "settings/toggle_window.h"

class frmSR final : public ToggleWindow {
 public:
  frmSR();

  controls::Box layout() override;

  controls::Label lblSR;
  controls::ListView ListView1;  // nothing is ever listed in it, so it has no place in the layout

  // Has the system stop or start a service by its display name; neither waits nor learns how it went.
  void StopService(const std::string& name);
  void StartService(const std::string& name);

 protected:
  void cmdToggle_Click() override;

 private:
  void enableRestore();
  void disableRestore();
  void disableAndDeletePoints();
  void disableAndKeepPoints();
  void showDisabled();
};
