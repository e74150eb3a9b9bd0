// A one-line text box.
#pragma once

#include "controls/Control.h"

namespace controls {

class TextBox final : public Control {
 public:
  TextBox(Parent parent, std::string name, ControlInit start = {})
      : Control(parent, Kind::kTextBox, std::move(name), std::move(start)) {}

  const std::string& text() const { return text_; }

  void setText(std::string text) {
    if (text_ == text) return;
    text_ = std::move(text);
    notify(Change::kValue);
  }

  // The user's typing: `text` is the new content. Does nothing while the box does not accept input.
  void type(std::string text) {
    if (acceptsInput()) setText(std::move(text));
  }

 private:
  std::string text_;
};

}  // namespace controls
