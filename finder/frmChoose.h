// The window in which the user enters custom file extensions for the junk scan.
#pragma once

#include "controls/ControlArray.h"
#include "controls/FlatButton.h"
#include "controls/Form.h"
#include "controls/Frame.h"
#include "controls/Label.h"
#include "controls/TextBox.h"
#include "finder/junk_types.h"

class frmChoose final : public controls::Form {
 public:
  // Shows `extensions` and stores in them what the user accepts. They must outlive the window.
  explicit frmChoose(finder::CustomExtensions& extensions);

  controls::Box layout() override;

  controls::Frame Frame1;
  controls::Label Label1;
  controls::ControlArray<controls::TextBox> txtChoose;
  controls::FlatButton cmdAccept;
  controls::FlatButton cmdCancel;

 protected:
  void formLoad() override;

 private:
  void cmdAccept_Click();

  finder::CustomExtensions& extensions_;
};
