// The drop-down list of the machine's drives.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "controls/Control.h"

namespace controls {

class DriveList final : public Control {
 public:
  // Reads the machine's drives and chooses the one of the process's current folder. FileSystem::drives.
  DriveList(Parent parent, std::string name, ControlInit start);

  // Raised after the user has chosen another drive.
  Event onChange;

  // The drives as the list shows them, "c:" or "c: [LABEL]", sorted by letter, which is in lower case.
  const std::vector<std::string>& items() const { return items_; }
  // 0-based index of the chosen drive; items().size() when none is chosen.
  std::size_t chosen() const { return chosen_; }
  // The text of the chosen drive; empty when there is none.
  std::string drive() const { return chosen_ < items_.size() ? items_[chosen_] : std::string(); }

  // Reads the machine's drives again. When the chosen one is no longer there, none is chosen, because the folder and
  // file lists still show that drive.
  void reload();

  // A choice by the user: the drive at the 0-based `index`. Does nothing while the list does not accept input, or when
  // there is no such drive.
  void choose(std::size_t index);

 private:
  std::vector<std::string> items_;
  std::size_t chosen_ = 0;
};

}  // namespace controls
