#include "shredder/frmFolder.h"

#include "shredder/frmMain.h"

using controls::ControlInit;
using controls::place;

frmFolder::frmFolder(frmMain& shredder)
    : Form("frmFolder", "Add folder contents"),
      Frame1(*this, "Frame1", ControlInit{.caption = "Select a folder (folder contents will be shredded)"}),
      Drive1(Frame1, "Drive1", ControlInit{.accessibleName = "Drive"}),
      Dir1(Frame1, "Dir1", ControlInit{.accessibleName = "Folders"}),
      File1(Frame1, "File1", ControlInit{.accessibleName = "Files"}),
      okButton(*this, "okButton", ControlInit{.caption = "OK"}),
      cancelButton(*this, "cancelButton", ControlInit{.caption = "Cancel"}),
      shredder_(shredder) {
  Drive1.onChange = [this] { Drive1_Change(); };
  Dir1.onChange = [this] { Dir1_Change(); };
  Dir1.onFailure = [](const platform::RuntimeError& error) { reportUnhandled(error); };
  okButton.onClick = [this] { okButton_Click(); };
  cancelButton.onClick = [this] { cancelButton_Click(); };
  okButton.setMnemonic('O');
  cancelButton.setMnemonic('C');
  setDefaultButton(okButton);
  setCancelButton(cancelButton);
}

controls::Box frmFolder::layout() {
  const controls::Box folders = controls::column({place(Drive1), place(Dir1).atLeast(110, 100).stretch(1, 1)});
  const controls::Box files = place(File1).atLeast(110, 100).stretch(1, 1);
  return controls::column({controls::framed(Frame1, controls::row({folders, files})),
                           controls::row({controls::space().stretch(1, 0), place(okButton).atLeast(50, 0),
                                          place(cancelButton).atLeast(50, 0)})});
}

void frmFolder::formLoad() {
  const platform::Result<void> shown = Dir1.setPath("C:\\");
  if (!shown) reportUnhandled(shown.error());
}

void frmFolder::Drive1_Change() {
  const platform::Result<void> shown = Dir1.setPath(Drive1.drive());
  if (!shown) return reportUnhandled(shown.error());
  // Only a text in small letters and without a label starts at the root; every other one stays in the drive's current
  // folder.
  if (Drive1.drive() != "c:") return;
  const platform::Result<void> root = Dir1.setPath("c:\\");
  if (!root) reportUnhandled(root.error());
}

void frmFolder::Dir1_Change() {
  const platform::Result<void> shown = File1.setPath(Dir1.path());
  if (!shown) reportUnhandled(shown.error());
}

void frmFolder::okButton_Click() {
  std::string path = File1.path();
  if (!path.ends_with('\\')) path += '\\';
  for (std::size_t i = 0; i < File1.files().size(); ++i) {
    File1.select(i);
    shredder_.addFile(path + File1.files()[i]);
  }
  close();
}

void frmFolder::cancelButton_Click() { close(); }
