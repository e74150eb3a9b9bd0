#include "controls/Form.h"

#include "controls/ButtonLook.h"
#include "platform/Platform.h"

namespace controls {

platform::Answer messageBox(const std::string& text, std::uint32_t style, const std::string& title) {
  return platform::machine().ui().messageBox(text, title, style);
}

void Form::load() {
  setLooks();
  open_ = true;
  formLoad();
}

void Form::showModal(Form* owner) {
  owner_ = owner;
  if (owner_ != nullptr) owner_->covered_ = true;
  load();
  platform::machine().ui().runModal(*this, owner);
}

void Form::close() {
  if (!open_) return;
  open_ = false;
  if (owner_ != nullptr) owner_->covered_ = false;
  notify(Change::kClosed);
}

void Form::setLooks() {
  const ButtonLooks looks(platform::machine().environment().resourceText("BUTTONS"));
  for (Control* control : controls_) {
    if (control->kind() == Kind::kButton) static_cast<FlatButton*>(control)->setLook(looks.of(name_, control->name()));
  }
}

void Form::refresh() { notify(Change::kRepaint); }

void Form::reportUnhandled(const platform::RuntimeError& error) {
  platform::machine().ui().setPointer(platform::Pointer::kDefault);
  messageBox("Run-time error '" + std::to_string(error.number) + "':\r\n\r\n" + error.text, platform::kBoxCritical);
}

void Form::notify(Change change) {
  if (peer_ != nullptr) peer_->changed(change);
}

}  // namespace controls
