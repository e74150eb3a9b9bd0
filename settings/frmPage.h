// The window that switches the clearing of the page file at shutdown on or off.
#pragma once

#include "settings/toggle_window.h"

class frmPage final : public ToggleWindow {
 public:
  frmPage();

  controls::Box layout() override;

  controls::Label lblPage;

 protected:
  void cmdToggle_Click() override;
};
