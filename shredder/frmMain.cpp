#include "shredder/frmMain.h"

#include <algorithm>

#include "platform/FolderHold.h"
#include "platform/Names.h"
#include "platform/Platform.h"
#include "shredder/frmFolder.h"
#include "shredder/modMain.h"

using controls::Box;
using controls::ControlInit;
using controls::messageBox;
using controls::place;
using platform::Answer;

namespace {

constexpr const char* kNameNotInCodePage =
    "The name of this file holds characters that this system's code page lacks. The file has not been added.";
constexpr const char* kNamesNotInCodePage =
    "The names of some of these files hold characters that this system's code page lacks. Those files have not been "
    "added.";

}  // namespace

frmMain::frmMain()
    : Form("frmMain", "Scrubhaven Pro - Shredder"),
      Frame1(*this, "Frame1", ControlInit{.caption = "Select Files to Shred"}),
      ListView1(Frame1, "ListView1", ControlInit{.accessibleName = "Files to shred"},
                {{.title = "File Name and Path", .shortened = true}}, false),
      cmdAddFile(*this, "cmdAddFile", ControlInit{.caption = "Add File", .toolTip = "Add File to Shredder List"}),
      cmdAddFolder(
          *this, "cmdAddFolder",
          ControlInit{.caption = "Add Folder", .toolTip = "Add Contents of an Entire Folder to Shredder List"}),
      cmdRemoveFile(*this, "cmdRemoveFile",
                    ControlInit{.caption = "Remove File", .toolTip = "Remove File From Shredder List"}),
      cmdShred(*this, "cmdShred", ControlInit{.caption = "Shred Files", .toolTip = "Shred Listed Files"}),
      cmdCancel(*this, "cmdCancel", ControlInit{.caption = "Cancel", .toolTip = "Cancel Shredding Operation"}),
      cmdClose(*this, "cmdClose", ControlInit{.caption = "Close", .toolTip = "Close Shredder"}),
      lblProgress(*this, "lblProgress", ControlInit{.visible = false}),
      lblBlue(*this, "lblBlue", ControlInit{.visible = false, .accessibleName = "Done of this file"},
              controls::Ground::kFilled, 0),
      lblGrey(*this, "lblGrey", ControlInit{.accessibleName = "Progress of this file"}, controls::Ground::kTrack) {
  cmdAddFile.onClick = [this] { cmdAddFile_Click(); };
  cmdAddFolder.onClick = [this] { cmdAddFolder_Click(); };
  cmdRemoveFile.onClick = [this] { cmdRemoveFile_Click(); };
  cmdShred.onClick = [this] { cmdShred_Click(); };
  cmdCancel.onClick = [this] { cmdCancel_Click(); };
  cmdClose.onClick = [this] { cmdClose_Click(); };
  ListView1.onDelete = [this] { ListView1_Delete(); };
  onDrop = [this](const std::vector<std::string>& paths) { addDropped(paths); };
  cmdAddFile.setMnemonic('A');
  cmdAddFolder.setMnemonic('F');
  cmdRemoveFile.setMnemonic('R');
  cmdShred.setMnemonic('S');
  cmdCancel.setMnemonic('C');
  cmdClose.setMnemonic('L');
  // There is no cancel button for Esc: Cancel is enabled after a run, and would stop every later run after one file.
}

Box frmMain::layout() {
  const Box files = controls::framed(Frame1, place(ListView1).atLeast(230, 110).stretch(1, 1));
  const Box commands =
      controls::column({place(cmdAddFile), place(cmdAddFolder), place(cmdRemoveFile), controls::space().stretch(0, 1),
                        place(cmdShred), place(cmdCancel), place(cmdClose)});
  const Box bar = controls::stack({place(lblBlue), place(lblGrey)}).stretch(1, 0);
  const Box progress = place(lblProgress).shortening().stretch(1, 0);
  return controls::column({controls::row({files, commands}), progress, bar});
}

void frmMain::formLoad() {
  CancelShred = false;
  ShredPercent = 0;
  cmdShred.disable();
  cmdCancel.disable();
}

// A cancelled dialog changes nothing, and neither does a failed one.
void frmMain::cmdAddFile_Click() {
  dlgFile = {.title = "Select file(s) to shred", .filter = "All files (*.*)|*.*"};
  const platform::Result<std::string> path = platform::machine().ui().openFileDialog(dlgFile);
  if (!path) {
    if (path.error().number == platform::kBadFileName) messageBox(kNameNotInCodePage, platform::kBoxExclamation);
    return;
  }
  addFile(*path);
  enableByList();
}

void frmMain::addFile(const std::string& path) {
  ListView1.add(path);
  if (platform::hasLinkAbove(platform::machine().files(), path)) addedThroughLinks_.insert(path);
}

// Of a folder, the files directly in it are added, as by Add Folder.
void frmMain::addDropped(const std::vector<std::string>& paths) {
  platform::FileSystem& files = platform::machine().files();
  std::size_t refused = 0;
  for (const std::string& path : paths) {
    const bool isRoot = path.ends_with('\\');
    if (!isRoot && !platform::isUsableName(path.substr(path.rfind('\\') + 1))) {
      ++refused;
    } else if (platform::isDirectory(files.getFileAttributes(path))) {
      const std::string folder = isRoot ? path : path + '\\';
      for (const std::string& name : files.filesIn(path).value_or(std::vector<std::string>())) addFile(folder + name);
    } else {
      addFile(path);
    }
  }
  enableByList();
  if (refused > 0) messageBox(refused == 1 ? kNameNotInCodePage : kNamesNotInCodePage, platform::kBoxExclamation);
}

void frmMain::cmdAddFolder_Click() {
  frmFolder picker(*this);
  picker.showModal(this);
  enableByList();
}

void frmMain::cmdRemoveFile_Click() {
  if (const std::optional<std::size_t> row = ListView1.selected()) {
    if (*row == 0) firstIsInProgress_ = false;
    ListView1.remove(*row);
  }
  refresh();
  enableByList();
}

// The next file is selected, so that several can be removed one after the other.
void frmMain::ListView1_Delete() {
  const std::optional<std::size_t> row = ListView1.selected();
  if (!row) return;
  const std::size_t place = ListView1.placeOf(*row);
  cmdRemoveFile.click();
  if (!ListView1.empty()) ListView1.select(ListView1.rowAt(std::min(place, ListView1.rowCount() - 1)));
}

void frmMain::enableByList() {
  ListView1.sortAgain();
  cmdShred.setEnabled(!ListView1.empty());
  cmdRemoveFile.setEnabled(!ListView1.empty());
}

void frmMain::cmdShred_Click() {
  // Adding a file during a run enables the button, but only one run is possible at a time.
  if (running_) return;
  constexpr const char* kQuestion =
      "Are you certain you want to shred these files?\r\nData recovery by any means will be impossible!";
  if (messageBox(kQuestion, platform::kBoxYesNo | platform::kBoxCritical) != Answer::kYes) return;
  running_ = true;
  enterRun();
  const Outcome outcome = shredListedFiles();
  // Before pending messages are processed again: a click on Shred starts a new run from here on.
  running_ = false;
  leaveRun(outcome);
}

void frmMain::enterRun() {
  fileCount_ = ListView1.rowCount();
  announceFile(1);
  platform::machine().ui().setPointer(platform::Pointer::kHourglass);
  platform::machine().ui().serveEvents();
  cmdCancel.enable();
  cmdShred.disable();
}

// The user may remove or add rows, cancel, or close the window whenever the engine processes pending messages.
frmMain::Outcome frmMain::shredListedFiles() {
  fileCount_ = ListView1.rowCount();
  for (std::size_t number = 1; number <= fileCount_; ++number) {
    if (!isOpen()) return Outcome::kWindowClosed;
    if (ListView1.empty()) return Outcome::kListEmptied;
    announceFile(number);
    // No messages are processed until the first random pass.
    refreshNow();
    shredFirstFile();
    if (isOpen() && CancelShred) return Outcome::kCancelled;
  }
  return isOpen() ? Outcome::kAllShredded : Outcome::kWindowClosed;
}

void frmMain::announceFile(std::size_t number) {
  const std::string path = ListView1.empty() ? "" : ListView1.text(0);
  fileName_ = path.substr(path.rfind('\\') + 1);
  fileNumber_ = number;
  ShredPercent = 0;
  lblBlue.setWidthPercent(0);
  showProgress();
}

void frmMain::shredFirstFile() {
  const std::string path = ListView1.text(0);
  firstIsInProgress_ = true;
  // A folder that has become a link since the file was added leads to a file that was not chosen.
  if (!platform::hasLinkAbove(platform::machine().files(), path) || addedThroughLinks_.contains(path)) {
    ShredFile(path, SHRED_ROUNDS, [this](std::int16_t percent) {
      ShredPercent = percent;
      UpdateProgress();
    });
  }
  if (firstIsInProgress_) ListView1.remove(0);
  firstIsInProgress_ = false;
}

void frmMain::leaveRun(Outcome outcome) {
  platform::Ui& ui = platform::machine().ui();
  if (outcome == Outcome::kAllShredded) ListView1.clear();
  ui.setPointer(platform::Pointer::kDefault);
  if (outcome == Outcome::kWindowClosed) return;
  if (outcome == Outcome::kAllShredded) {
    messageBox("The selected files have been shredded.", platform::kBoxInformation);
  }
  lblBlue.hide();
  lblProgress.hide();
  // After a full run both are enabled, although there is nothing left to shred or to cancel.
  cmdCancel.setEnabled(outcome != Outcome::kCancelled);
  cmdShred.enable();
  if (outcome == Outcome::kCancelled) ui.serveEvents();
}

void frmMain::cmdCancel_Click() {
  CancelShred = true;
  showProgress();
}

void frmMain::cmdClose_Click() { close(); }

void frmMain::UpdateProgress() {
  if (ShredPercent > 100) ShredPercent = 100;
  lblBlue.show();
  lblBlue.setWidthPercent(ShredPercent);
  showProgress();
}

void frmMain::showProgress() {
  if (!running_) return;
  const std::string file = "File " + std::to_string(fileNumber_) + " of " + std::to_string(fileCount_) + ", " +
                           std::to_string(ShredPercent) + "%: " + fileName_;
  lblProgress.show();
  lblProgress.setCaption(CancelShred ? "Stopping after this file. " + file : file);
}
