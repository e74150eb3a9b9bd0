// The window that switches the clearing of the page file at shutdown on or off.
#pragma once

#include "controls/FlatButton.h"
#include "controls/Form.h"
#include "controls/Frame.h"
#include "controls/Label.h"

// The toggle's caption is its state: "Enable" while the setting is off, "Disable" while it is on. Whoever opens the
// window sets it; one change can be made at each opening.
class frmPage final : public controls::Form {
 public:
  frmPage();

  controls::Box layout() override;

  controls::Frame Frame1;
  controls::Label lblPage;
  controls::FlatButton cmdToggle;
  controls::FlatButton cmd_Cancel;

 private:
  void cmdToggle_Click();
};
