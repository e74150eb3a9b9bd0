// A menu that opens at a control, such as that of a list's rows.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace controls {

struct MenuItem {
  std::string caption;  // with "&" before the access key; empty for a line between groups
  std::function<void()> choose = {};
  bool enabled = true;
};

// From the top down. Empty: there is no menu.
using Menu = std::vector<MenuItem>;

}  // namespace controls
