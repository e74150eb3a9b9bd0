// The shredder window: the list of files to destroy, and the run that destroys them.
#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "controls/FlatButton.h"
#include "controls/Form.h"
#include "controls/Frame.h"
#include "controls/Label.h"
#include "controls/ListView.h"

class frmMain final : public controls::Form {
 public:
  frmMain();

  controls::Box layout() override;
  std::vector<controls::Control*> refuges() override { return {&cmdCancel, &ListView1}; }

  // The current file's progress in percent.
  std::int16_t ShredPercent = 0;
  // Stops the run after the file in progress. Only opening the window again resets it.
  bool CancelShred = false;

  // Adds a file at the end of the list.
  void addFile(const std::string& path);

  // Shows ShredPercent, at most 100, in the progress bar.
  void UpdateProgress();

  controls::Frame Frame1;
  controls::ListView ListView1;
  controls::FlatButton cmdAddFile;
  controls::FlatButton cmdAddFolder;
  controls::FlatButton cmdRemoveFile;
  controls::FlatButton cmdShred;
  controls::FlatButton cmdCancel;
  controls::FlatButton cmdClose;
  // How far the run is.
  controls::Label lblProgress;
  controls::Label lblBlue;
  controls::Label lblGrey;

  // What the open-file dialog shows.
  platform::OpenFileRequest dlgFile;

 protected:
  void formLoad() override;

 private:
  // How a run has ended.
  enum class Outcome { kAllShredded, kCancelled, kListEmptied, kWindowClosed };

  void cmdAddFile_Click();
  void cmdAddFolder_Click();
  void cmdRemoveFile_Click();
  void cmdShred_Click();
  void cmdCancel_Click();
  void cmdClose_Click();
  void ListView1_Delete();
  // Adds what the user has dropped on the window.
  void addDropped(const std::vector<std::string>& paths);

  Outcome shredListedFiles();
  void shredFirstFile();
  // Shows that the first file in the list is the next one, that of this number in the run.
  void announceFile(std::size_t number);
  void showProgress();
  void enterRun();
  void leaveRun(Outcome outcome);
  void enableByList();

  std::set<std::string> addedThroughLinks_;  // the files that had a link among their folders when they were added
  bool running_ = false;
  std::size_t fileNumber_ = 0;      // of the file in progress, from 1 on
  std::size_t fileCount_ = 0;       // of the run
  std::string fileName_;            // of the file in progress
  bool firstIsInProgress_ = false;  // the first row is the file that is being shredded
};
