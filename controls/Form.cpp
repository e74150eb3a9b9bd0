#include "controls/Form.h"

#include <algorithm>
#include <ranges>
#include <utility>

#include "controls/ButtonLook.h"
#include "controls/DirList.h"
#include "platform/Platform.h"

namespace controls {

platform::Answer messageBox(const std::string& text, std::uint32_t style, const std::string& title) {
  return platform::machine().ui().messageBox(text, title, style);
}

Form::Form(std::string name, std::string caption) : name_(std::move(name)), caption_(std::move(caption)) {
  addShortcut({{Key::kF1}, [this](const Control* focus) {
                 helpRequested(owner_ == nullptr && focus != nullptr ? focus->name() : name_);
               }});
  addShortcut({{Key::kEscape},
               [this](Control*) { cancelButton_->click(); },
               [this](const Control*) { return cancelButton_ != nullptr; }});
  addShortcut({{Key::kBackspace},
               [](Control* focus) { static_cast<DirList*>(focus)->openParent(); },
               [](const Control* focus) { return focus != nullptr && focus->kind() == Kind::kDirList; }});
}

bool Form::pressKey(KeyPress press, Control* focus, bool repeated) {
  if (!acceptsInput()) return false;
  const auto means = [&](const Shortcut& one) { return one.press == press && (!one.where || one.where(focus)); };
  const auto newestFirst = std::views::reverse(shortcuts_);
  const auto found = std::ranges::find_if(newestFirst, means);
  if (found == newestFirst.end()) return false;
  if (!repeated || press.key == Key::kBackspace) found->act(focus);
  return true;
}

void Form::helpRequested(const std::string& name) {
  if (owner_ != nullptr) owner_->helpRequested(name);
}

void Form::clickSystemMenuItem() {
  if (acceptsInput() && systemMenuItem_.onClick) systemMenuItem_.onClick();
}

void Form::makeGroup(const std::vector<Control*>& controls) {
  ++groups_;
  for (Control* control : controls) control->setGroup(groups_);
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

void Form::refreshNow() { notify(Change::kRepaintNow); }

void Form::reportUnhandled(const platform::RuntimeError& error) {
  platform::machine().ui().setPointer(platform::Pointer::kDefault);
  messageBox("Run-time error '" + std::to_string(error.number) + "':\r\n\r\n" + error.text, platform::kBoxCritical);
}

void Form::notify(Change change) {
  if (peer_ != nullptr) peer_->changed(change);
}

}  // namespace controls
