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
  controls::ListView ListView1;  // always empty and not in the layout

  // Stops or starts a service by its display name, without waiting for the result.
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
