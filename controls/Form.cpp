#include "controls/Form.h"

#include "platform/Platform.h"

namespace controls {

platform::Answer messageBox(const std::string& text, std::uint32_t style, const std::string& title) {
  return platform::machine().ui().messageBox(text, title, style);
}

void Form::load() {
  open_ = true;
  formLoad();
}

void Form::showModal(Form* owner) {
  load();
  if (owner != nullptr) owner->covered_ = true;
  platform::machine().ui().runModal(*this, owner);
  if (owner != nullptr) owner->covered_ = false;
}

void Form::close() {
  if (!open_) return;
  open_ = false;
  notify(Change::kClosed);
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
