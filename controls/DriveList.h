// The drop-down list of the machine's drives.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "controls/Control.h"

namespace controls {

class DriveList final : public Control {
 public:
  // Reads the machine's drives; the drive of the process's current folder is the chosen one.
  DriveList(Parent parent, std::string name, ControlInit start);

  // The user has chosen a drive.
  Event onChange;

  // The drives as the list shows them, "c:" or "c: [LABEL]", in lower case, by letter.
  const std::vector<std::string>& items() const { return items_; }
  // 0-based; items().size() when none is chosen, as after the chosen one has gone.
  std::size_t chosen() const { return chosen_; }
  // The text of the chosen drive; empty when there is none.
  std::string drive() const { return chosen_ < items_.size() ? items_[chosen_] : std::string(); }

  // Reads the machine's drives anew, because one was plugged in or taken away. When the chosen one has gone, none is
  // chosen: another one's name would not be that of the folder last shown.
  void reload();

  // What a person does: picks the drive at `index`. Nothing happens while the list takes no input.
  void choose(std::size_t index);

 private:
  std::vector<std::string> items_;
  std::size_t chosen_ = 0;
};

}  // namespace controls
