#include "controls/Control.h"

#include <utility>

#include "controls/Form.h"
#include "controls/Frame.h"

namespace controls {

Parent::Parent(Frame& in) : form(in.form()), frame(&in) {}

Control::Control(Parent parent, Kind kind, std::string name, ControlInit start)
    : form_(parent.form),
      frame_(parent.frame),
      kind_(kind),
      name_(std::move(name)),
      caption_(std::move(start.caption)),
      toolTip_(std::move(start.toolTip)),
      accessibleName_(std::move(start.accessibleName)),
      visible_(start.visible),
      enabled_(start.enabled) {
  form_.adopt(*this);
}

void Control::setVisible(bool visible) {
  if (visible_ == visible) return;
  visible_ = visible;
  notify(Change::kVisible);
}

void Control::setEnabled(bool enabled) {
  if (enabled_ == enabled) return;
  enabled_ = enabled;
  notify(Change::kEnabled);
}

void Control::setCaption(std::string caption) {
  if (caption_ == caption) return;
  caption_ = std::move(caption);
  notify(Change::kCaption);
}

void Control::setToolTip(std::string toolTip) {
  if (toolTip_ == toolTip) return;
  toolTip_ = std::move(toolTip);
  notify(Change::kToolTip);
}

bool Control::shown() const { return visible_ && (frame_ == nullptr || frame_->shown()); }

bool Control::usable() const { return enabled_ && (frame_ == nullptr || frame_->usable()); }

bool Control::acceptsInput() const { return shown() && usable() && form_.acceptsInput(); }

bool Control::takesFocus() const {
  const bool isSilent = kind_ == Kind::kLabel || kind_ == Kind::kFrame || kind_ == Kind::kStatusBar;
  return !isSilent && shown() && usable();
}

void Control::notify(Change change) {
  if (peer_ != nullptr) peer_->changed(change);
}

}  // namespace controls
