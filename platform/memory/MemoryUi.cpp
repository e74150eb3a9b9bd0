#include "platform/memory/MemoryUi.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "controls/Form.h"

namespace platform::memory {
namespace {

// The buttons of a box, from left to right.
std::vector<Answer> buttonsOf(std::uint32_t style) {
  constexpr std::uint32_t kButtons = 0xF;
  switch (style & kButtons) {
    case kBoxOk:
      return {Answer::kOk};
    case kBoxOkCancel:
      return {Answer::kOk, Answer::kCancel};
    case kBoxYesNo:
      return {Answer::kYes, Answer::kNo};
    default:
      throw std::logic_error("in-memory machine: a box with buttons that it does not know");
  }
}

template <typename T>
T takeFirst(std::deque<T>& queue) {
  T first = std::move(queue.front());
  queue.pop_front();
  return first;
}

// Holds a flag up for as long as it lives, however the block is left.
class Raised {
 public:
  explicit Raised(bool& flag) : flag_(flag) { flag_ = true; }
  ~Raised() { flag_ = false; }
  Raised(const Raised&) = delete;
  Raised& operator=(const Raised&) = delete;

 private:
  bool& flag_;
};

}  // namespace

Answer MemoryUi::messageBox(const std::string& text, const std::string& title, std::uint32_t style) {
  faults_.nextFault("messageBox");
  const std::vector<Answer> buttons = buttonsOf(style);
  const bool second = (style & kBoxSecondButtonDefault) != 0 && buttons.size() > 1;
  ShownBox box{text, title, style, buttons[second ? 1 : 0]};
  const std::size_t index = boxes_.size();
  boxes_.push_back(box);
  if (onBox_) onBox_(box);
  if (answers_.empty()) return box.answer;

  const Answer answer = takeFirst(answers_);
  if (std::ranges::find(buttons, answer) == buttons.end()) {
    throw std::logic_error("in-memory machine: no such button in the box: " + text);
  }
  boxes_[index].answer = answer;
  return answer;
}

Result<std::string> MemoryUi::openFileDialog(const OpenFileRequest& request) {
  fileDialogs_.push_back(request);
  if (const auto fault = faults_.nextFault("openFileDialog", kDialogCancelled)) return failure(*fault);
  if (chosenFiles_.empty()) return failure(kDialogCancelled);
  std::string path = takeFirst(chosenFiles_);
  disk_.setCurrentFolder(MemoryDisk::split(path).folder);
  return path;
}

void MemoryUi::serveEvents() {
  faults_.nextFault("serveEvents");
  if (!queued_.empty()) takeFirst(queued_)();
  if (inAlways_) return;
  const Raised raised(inAlways_);
  // By index: an action may add another, which ends the life of iterators.
  for (std::size_t i = 0; i < always_.size(); ++i) always_[i]();  // NOLINT(modernize-loop-convert)
}

void MemoryUi::runModal(controls::Form& form, controls::Form*) {
  faults_.nextFault("runModal");
  if (modal_.empty()) {
    form.close();
    return;
  }
  takeFirst(modal_)(form);
  if (form.isOpen()) throw std::logic_error("in-memory machine: the script left a modal window open");
}

void MemoryUi::end() {
  faults_.nextFault("end");
  throw Ended{};
}

}  // namespace platform::memory
