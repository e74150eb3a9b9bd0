// A loaded console on an in-memory machine.
#pragma once

#include "console/frmFind.h"
#include "tests/unit/UnitTest.h"

class ConsoleTest : public UnitTest {
 protected:
  frmFind form;

  void SetUp() override { form.load(); }

  // Ticks the file types at these indices and scans from `folder` down. Returns the texts of the boxes shown.
  Paths scan(std::initializer_list<std::size_t> types, const std::string& folder) {
    for (const std::size_t i : types) form.Check[i].setTicked(true);
    EXPECT_TRUE(form.Dir1.setPath(folder));
    return press(form.Scan);
  }

  Paths paths() const { return textsOf(form.ListView1); }

  // The names of the buttons and check boxes that a person can press now.
  Paths usableCommands() const {
    Paths names;
    for (const controls::Control* control : form.controls()) {
      const bool isCommand = control->kind() == controls::Kind::kButton || control->kind() == controls::Kind::kCheckBox;
      if (isCommand && control->acceptsInput()) names.push_back(control->name());
    }
    return names;
  }
};

inline constexpr std::size_t kTypeBak = 1;
inline constexpr std::size_t kTypeTmp = 3;
