#include "settings/toggle_window.h"

#include <algorithm>
#include <array>
#include <utility>

using controls::ControlInit;
using controls::messageBox;
using controls::place;

namespace {

// Compared letter for letter: "Windows Me", as the version is named, passes.
constexpr std::array kRefusedVersions = {"Windows ME", "Windows 98SE", "Windows 98 SE", "Windows 98", "Windows 95"};

constexpr int kButtonWidth = 50;

}  // namespace

ToggleWindow::ToggleWindow(std::string name, std::string caption, std::string toggleToolTip)
    : Form(std::move(name), std::move(caption)),
      Frame1(*this, "Frame1", ControlInit{}),
      cmdToggle(*this, "cmdToggle", ControlInit{.caption = kToggleCaption, .toolTip = std::move(toggleToolTip)}),
      cmd_Cancel(*this, "cmd_Cancel", ControlInit{.caption = "Cancel", .toolTip = "ExitThis Window"}) {
  cmdToggle.onClick = [this] { cmdToggle_Click(); };
  cmd_Cancel.onClick = [this] { close(); };
  cmdToggle.setMnemonic('E');
  cmd_Cancel.setMnemonic('C');
  setCancelButton(cmd_Cancel);
  setFirstFocus(cmd_Cancel);
}

controls::Box ToggleWindow::layoutAround(controls::Label& state, std::vector<std::string> states) {
  const controls::Box text = place(state).reserve(std::move(states)).stretch(1, 1);
  const controls::Box buttons =
      controls::row({controls::space().stretch(1, 0),
                     place(cmdToggle).reserve({kEnableCaption, kDisableCaption}).atLeast(kButtonWidth, 0),
                     place(cmd_Cancel).atLeast(kButtonWidth, 0)});
  return controls::column({controls::framed(Frame1, text), buttons});
}

bool isOnNtLine(const std::string& windowsVersionName) {
  if (std::ranges::find(kRefusedVersions, windowsVersionName) == kRefusedVersions.end()) return true;
  messageBox("Sorry, this tool is for Windows NT/2000/XP only.", platform::kBoxExclamation, "Windows NT/2000/XP Only");
  return false;
}

bool isReadable(const std::string& setting) {
  if (!setting.empty()) return true;
  messageBox("The registry has reported that this key does not exist or is corrupted.", platform::kBoxCritical,
             "Registry Access Error");
  return false;
}
