// The window in which the user enters own file extensions for the junk scan.
#pragma once

#include "controls/ControlArray.h"
#include "controls/FlatButton.h"
#include "controls/Form.h"
#include "controls/Frame.h"
#include "controls/Label.h"
#include "controls/TextBox.h"

class frmFind;

class frmChoose final : public controls::Form {
 public:
  // Shows the extensions of `console`, and puts what the user accepts back there.
  explicit frmChoose(frmFind& console);

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

  frmFind& console_;
};
