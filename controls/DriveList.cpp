#include "controls/DriveList.h"

#include <algorithm>
#include <utility>

#include "platform/Paths.h"
#include "platform/Platform.h"

namespace controls {

using platform::lowerLetter;

namespace {

std::string driveText(const platform::Drive& drive) {
  std::string text{lowerLetter(drive.letter), ':'};
  if (!drive.label.empty()) text += " [" + drive.label + "]";
  return text;
}

}  // namespace

DriveList::DriveList(Parent parent, std::string name, ControlInit start)
    : Control(parent, Kind::kDriveList, std::move(name), std::move(start)) {
  items_.push_back(platform::machine().files().currentFolder());
  reload();
}

void DriveList::reload() {
  const char letter = drive().empty() ? '\0' : lowerLetter(drive().front());
  items_.clear();
  for (const platform::Drive& drive : platform::machine().files().drives()) items_.push_back(driveText(drive));
  const auto same = [letter](const std::string& item) { return item.front() == letter; };
  const auto found = std::find_if(items_.begin(), items_.end(), same);
  chosen_ = static_cast<std::size_t>(found - items_.begin());
  notify(Change::kValue);
}

void DriveList::choose(std::size_t index) {
  if (!acceptsInput() || index >= items_.size() || index == chosen_) return;
  chosen_ = index;
  notify(Change::kValue);
  if (onChange) onChange();
}

}  // namespace controls
