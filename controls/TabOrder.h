// Which control of a form has the keyboard next. Tab goes from stop to stop: a stop is a control, or a group of them in
// which the arrow keys go on (Form::makeGroup).
#pragma once

#include <unordered_map>
#include <utility>
#include <vector>

namespace controls {

class Control;
class Form;

class TabOrder {
 public:
  // `order` is that of the form's layout (tabOrder). The form and its controls must outlive this object.
  TabOrder(Form& form, std::vector<Control*> order) : form_(form), order_(std::move(order)) {}
  void setOrder(std::vector<Control*> order) { order_ = std::move(order); }

  // The control of Form::firstFocus, or the first stop. Null when no control takes the keyboard; so do the others.
  Control* first() const;
  // After Tab, or before it with Shift, wrapping around. `from` may be null: the first or the last stop. A group is
  // entered at the control that had the keyboard last, else at its first one.
  Control* tab(const Control* from, bool forward) const;
  // After an arrow key, wrapping around: among the buttons and check boxes of the same group and frame. Null when the
  // control itself uses the arrow keys.
  Control* arrow(const Control& from, bool forward) const;
  // Where the keyboard goes when the control that has it is hidden or disabled: the first of Form::refuges that takes
  // it, else the first control that is not a button. Many buttons destroy something.
  Control* refuge() const;

  // To be called when a control has the keyboard.
  void visit(Control& control);

 private:
  Control* stopOf(Control& control) const;

  Form& form_;
  std::vector<Control*> order_;
  std::unordered_map<int, Control*> visited_;  // the last one of each group
};

}  // namespace controls
