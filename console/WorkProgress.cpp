#include "console/WorkProgress.h"

#include "platform/Platform.h"

WorkProgress::WorkProgress(controls::Label& label, std::size_t total)
    : label_(label), total_(total), wasVisible_(label.visible()) {
  label_.setCaption("");
  label_.show();
  platform::machine().ui().setPointer(platform::Pointer::kHourglass);
}

WorkProgress::~WorkProgress() {
  platform::machine().ui().setPointer(platform::Pointer::kDefault);
  label_.setVisible(wasVisible_);
}

void WorkProgress::next(const std::string& what) {
  label_.setCaption(grouped(++done_) + " of " + grouped(total_) + "  " + what);
  platform::machine().ui().serveSystem();
}

std::string grouped(std::size_t number) {
  std::string text = std::to_string(number);
  for (std::size_t end = text.size(); end > 3; end -= 3) text.insert(end - 3, ",");
  return text;
}
