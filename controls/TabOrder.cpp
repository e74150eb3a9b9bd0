#include "controls/TabOrder.h"

#include <algorithm>

#include "controls/Form.h"

namespace controls {
namespace {

bool takesFocus(const Control* control) { return control != nullptr && control->takesFocus(); }

// The other kinds move in themselves by the arrow keys.
bool isLeftByArrows(const Control& control) {
  return control.kind() == Kind::kButton || control.kind() == Kind::kCheckBox || control.kind() == Kind::kPicture;
}

bool isInGroupOf(const Control& control, const Control* other) {
  return other != nullptr && control.group() != 0 && control.group() == other->group();
}

// The controls in the order in which the search meets them, from the one behind `from` round to `from` itself.
std::vector<Control*> roundFrom(const std::vector<Control*>& order, const Control* from, bool forward) {
  std::vector<Control*> round = order;
  if (!forward) std::ranges::reverse(round);
  const auto start = std::ranges::find(round, from);
  if (start != round.end()) std::ranges::rotate(round, start + 1);
  return round;
}

}  // namespace

Control* TabOrder::first() const {
  Control* const wanted = form_.firstFocus();
  return takesFocus(wanted) ? wanted : tab(nullptr, true);
}

Control* TabOrder::tab(const Control* from, bool forward) const {
  for (Control* control : roundFrom(order_, from, forward)) {
    if (control->takesFocus() && !isInGroupOf(*control, from)) return stopOf(*control);
  }
  return nullptr;
}

Control* TabOrder::stopOf(Control& control) const {
  const auto visited = visited_.find(control.group());
  if (visited != visited_.end() && visited->second->takesFocus()) return visited->second;
  const auto isFirst = [&control](const Control* one) {
    return one == &control || (isInGroupOf(*one, &control) && one->takesFocus());
  };
  return *std::ranges::find_if(order_, isFirst);
}

Control* TabOrder::arrow(const Control& from, bool forward) const {
  if (!isLeftByArrows(from)) return nullptr;
  for (Control* control : roundFrom(order_, &from, forward)) {
    const bool isNear = control->frame() == from.frame() && control->group() == from.group();
    if (isNear && isLeftByArrows(*control) && control->takesFocus()) return control;
  }
  return nullptr;
}

Control* TabOrder::refuge() const {
  for (Control* control : form_.refuges()) {
    if (takesFocus(control)) return control;
  }
  const auto isHarmless = [](const Control* control) {
    return control->takesFocus() && control->kind() != Kind::kButton;
  };
  const auto found = std::ranges::find_if(order_, isHarmless);
  return found == order_.end() ? nullptr : *found;
}

void TabOrder::visit(Control& control) {
  if (control.group() != 0) visited_[control.group()] = &control;
}

}  // namespace controls
