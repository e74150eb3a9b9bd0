#include "controls/FlatButton.h"

#include <utility>

#include "platform/Platform.h"

namespace controls {
namespace {

// A sound of the folder "resources" beside the program.
void play(const char* name) {
  platform::Machine& machine = platform::machine();
  machine.ui().playSound(machine.environment().programFolder() + "\\resources\\" + name);
}

}  // namespace

void FlatButton::setLook(ButtonLook look) {
  look_ = std::move(look);
  if (caption().empty()) setCaption(look_.Caption);
  if (!look_.Enabled) disable();
  if (look_.Mark) setAccessibleDescription("Acts at once");
}

void FlatButton::click() {
  if (!acceptsInput()) return;
  if (look_.SoundClick) play("click.wav");
  if (!look_.URL.empty()) platform::machine().shell().execute({.verb = "open", .file = look_.URL});
  if (onClick) onClick();
}

void FlatButton::pointerEnters() {
  if (!acceptsInput()) return;
  if (look_.SoundOver) play("over.wav");
  if (onPointerEnters) onPointerEnters();
}

}  // namespace controls
