// The user of the in-memory machine: answers message boxes and acts while events are served.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "controls/Form.h"
#include "platform/Ui.h"
#include "platform/memory/MemoryDisk.h"
#include "platform/memory/MemoryFaults.h"

namespace platform::memory {

// Thrown by Ui::end(): nothing after it runs.
struct Ended {};

// A message box that was shown, and what it answered. While it is open, `answer` is its default button.
struct ShownBox {
  std::string text;
  std::string title;
  std::uint32_t style = kBoxOk;
  Answer answer = Answer::kOk;
};

class MemoryUi final : public Ui {
 public:
  MemoryUi(MemoryDisk& disk, MemoryFaults& faults) : disk_(disk), faults_(faults) {}

  // Queues the answer for a next box; a box without a queued answer gets its default button. An answer that the box
  // has no button for throws std::logic_error.
  void answer(Answer answer) { answers_.push_back(answer); }
  bool answersLeft() const { return !answers_.empty() || !chosenFiles_.empty(); }
  // Runs the action while a box is open, at each box from now on; an answer that it queues may be for this box.
  void onBox(std::function<void(const ShownBox&)> action) { onBox_ = std::move(action); }
  // In the order opened.
  const std::vector<ShownBox>& boxes() const { return boxes_; }

  // Queues the full path of the file that the user chooses in a next open-file dialog, in a folder that is there.
  // Without one the user cancels.
  void chooseFile(const std::string& path) { chosenFiles_.push_back(path); }

  // Queues an action of the user; each call of serveEvents carries out one of them.
  void whenServing(std::function<void()> action) { queued_.push_back(std::move(action)); }
  // Runs the action at every call of serveEvents and serveSystem, except those that the action itself leads to, until
  // it throws.
  void everyServing(std::function<void()> action) { always_ = std::move(action); }
  // Queues what the user does in a next modal window, and which must close it (std::logic_error if not). Without a
  // script the user closes the window at once.
  void whenModal(std::function<void(controls::Form&)> action) { modal_.push_back(std::move(action)); }

  // The files played, in their order.
  const std::vector<std::string>& sounds() const { return sounds_; }

  Answer messageBox(const std::string& text, const std::string& title, std::uint32_t style) override {
    const auto [first, last] = buttonsOf(style);
    const ShownBox box{text, title, style, (style & kBoxSecondButtonDefault) != 0 ? last : first};
    const std::size_t index = boxes_.size();
    boxes_.push_back(box);
    // A box that cannot be shown answers with its last button.
    if (faults_.nextFault("messageBox")) return boxes_[index].answer = last;
    if (onBox_) onBox_(box);
    if (answers_.empty()) return box.answer;

    const Answer answer = takeFirst(answers_);
    if (answer != first && answer != last) throw std::logic_error("no such button in the box: " + text);
    boxes_[index].answer = answer;
    return answer;
  }
  Result<std::string> openFileDialog(const OpenFileRequest&) override {
    if (const auto fault = faults_.nextFault("openFileDialog", kDialogCancelled)) return failure(*fault);
    if (chosenFiles_.empty()) return failure(kDialogCancelled);
    std::string path = takeFirst(chosenFiles_);
    disk_.setCurrentFolder(MemoryDisk::split(path).folder);
    return path;
  }
  void serveEvents() override {
    faults_.nextFault("serveEvents");
    if (!queued_.empty()) takeFirst(queued_)();
    runAlways();
  }
  void serveSystem() override {
    faults_.nextFault("serveSystem");
    runAlways();
  }
  void playSound(const std::string& path) override { sounds_.push_back(path); }
  bool copyText(const std::string& text) override {
    if (faults_.nextFault("copyText")) return false;
    clipboard_ = text;
    return true;
  }
  const std::string& clipboard() const { return clipboard_; }
  void setPointer(Pointer pointer) override { pointer_ = pointer; }
  Pointer pointer() const override { return pointer_; }
  void runModal(controls::Form& form, controls::Form*) override {
    faults_.nextFault("runModal");
    if (modal_.empty()) {
      form.close();
      return;
    }
    takeFirst(modal_)(form);
    if (form.isOpen()) throw std::logic_error("the script left a modal window open");
  }
  [[noreturn]] void end() override { throw Ended{}; }

 private:
  void runAlways() {
    std::function<void()> action = std::exchange(always_, nullptr);
    if (!action) return;
    action();
    always_ = std::move(action);
  }

  // The first and the last button of a box.
  static std::pair<Answer, Answer> buttonsOf(std::uint32_t style) {
    if ((style & kBoxYesNo) != 0) return {Answer::kYes, Answer::kNo};
    return {Answer::kOk, (style & kBoxOkCancel) != 0 ? Answer::kCancel : Answer::kOk};
  }

  template <typename T>
  static T takeFirst(std::deque<T>& queue) {
    T first = std::move(queue.front());
    queue.pop_front();
    return first;
  }

  MemoryDisk& disk_;
  MemoryFaults& faults_;
  std::deque<Answer> answers_;
  std::function<void(const ShownBox&)> onBox_;
  std::vector<ShownBox> boxes_;
  std::deque<std::string> chosenFiles_;
  std::deque<std::function<void()>> queued_;
  std::function<void()> always_;
  std::deque<std::function<void(controls::Form&)>> modal_;
  std::vector<std::string> sounds_;
  std::string clipboard_;
  Pointer pointer_ = Pointer::kDefault;
};

}  // namespace platform::memory
