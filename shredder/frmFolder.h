// The window in which the user picks a folder whose files are to be shredded.
#pragma once

#include "controls/DirList.h"
#include "controls/DriveList.h"
#include "controls/FileList.h"
#include "controls/FlatButton.h"
#include "controls/Form.h"
#include "controls/Frame.h"

class frmMain;

class frmFolder final : public controls::Form {
 public:
  // What the user picks is added to the list of `shredder`.
  explicit frmFolder(frmMain& shredder);

  controls::Box layout() override;

  controls::Frame Frame1;
  controls::DriveList Drive1;
  controls::DirList Dir1;
  controls::FileList File1;
  controls::FlatButton okButton;
  controls::FlatButton cancelButton;

 protected:
  void formLoad() override;

 private:
  void Drive1_Change();
  void Dir1_Change();
  void okButton_Click();
  void cancelButton_Click();

  frmMain& shredder_;
};
