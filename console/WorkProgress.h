// Shows that a long deletion runs and how far it is, and keeps the windows alive meanwhile.
#pragma once

#include <cstddef>
#include <string>

#include "controls/Label.h"

// While it lives, the pointer is the hourglass, and `label` shows what is being worked on; afterwards the pointer is
// the default one, and the label is hidden if it was hidden before.
class WorkProgress {
 public:
  WorkProgress(controls::Label& label, std::size_t total);
  ~WorkProgress();
  WorkProgress(const WorkProgress&) = delete;
  WorkProgress& operator=(const WorkProgress&) = delete;

  // Shows "12 of 3,011" and what is worked on now, counted from 1. The user's clicks and keys are dropped.
  // Ui::serveSystem.
  void next(const std::string& what);

 private:
  controls::Label& label_;
  std::size_t total_;
  std::size_t done_ = 0;
  bool wasVisible_;
};

// `number` with a comma between groups of three digits.
std::string grouped(std::size_t number);
