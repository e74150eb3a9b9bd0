#include "finder/frmChoose.h"

#include <algorithm>

using controls::ControlInit;
using controls::place;

frmChoose::frmChoose(finder::CustomExtensions& extensions)
    : Form("frmChoose", "Custom File Extensions"),
      Frame1(*this, "Frame1", ControlInit{.caption = "Custom File Extensions"}),
      Label1(
          Frame1, "Label1",
          ControlInit{.caption = "You can enter up to five custom file extensions here. You do not need to enter the . "
                                 "just the extension; for example:  jpg or 001"}),
      cmdAccept(*this, "cmdAccept", ControlInit{.caption = "Accept"}),
      cmdCancel(*this, "cmdCancel", ControlInit{.caption = "Cancel"}),
      extensions_(extensions) {
  for (std::size_t i = 0; i < finder::kCustomExtensions; ++i) {
    txtChoose.add(Frame1, "txtChoose" + std::to_string(i),
                  ControlInit{.accessibleName = "Extension " + std::to_string(i + 1)});
  }
  cmdAccept.onClick = [this] { cmdAccept_Click(); };
  cmdCancel.onClick = [this] { close(); };
  cmdAccept.setMnemonic('A');
  cmdCancel.setMnemonic('C');
  setDefaultButton(cmdAccept);
  setCancelButton(cmdCancel);
}

controls::Box frmChoose::layout() {
  std::vector<controls::Box> boxes;
  for (controls::TextBox& box : txtChoose) boxes.push_back(place(box).atLeast(36, 0).stretch(1, 0));
  const controls::Box text = place(Label1).textLines(3).atLeast(200, 0).stretch(1, 1);
  return controls::column({controls::framed(Frame1, controls::column({text, controls::row(std::move(boxes))})),
                           controls::row({controls::space().stretch(1, 0), place(cmdAccept).atLeast(50, 0),
                                          place(cmdCancel).atLeast(50, 0)})});
}

void frmChoose::formLoad() {
  for (std::size_t i = 0; i < finder::kCustomExtensions; ++i) txtChoose[i].setText(extensions_[i]);
}

// Five empty boxes change nothing: the last extension can only be replaced, not removed.
void frmChoose::cmdAccept_Click() {
  const bool anyEntered =
      std::ranges::any_of(txtChoose, [](const controls::TextBox& box) { return !box.text().empty(); });
  for (std::size_t i = 0; anyEntered && i < finder::kCustomExtensions; ++i) extensions_[i] = txtChoose[i].text();
  close();
}
