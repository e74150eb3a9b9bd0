// A loaded console on an in-memory machine.
#pragma once

#include <fstream>
#include <iterator>

#include "console/frmFind.h"
#include "finder/frmChoose.h"
#include "settings/frmPage.h"
#include "settings/frmSR.h"
#include "shredder/frmFolder.h"
#include "shredder/frmMain.h"
#include "tests/unit/UnitTest.h"

// One of each other window of the console.
struct OtherWindows {
  explicit OtherWindows(frmFind& console) : choose(console.CustomExtensions) {}

  frmMain shredder;
  frmFolder picker{shredder};
  frmPage page;
  frmSR restore;
  frmChoose choose;
  const std::vector<controls::Form*> all = {&shredder, &picker, &page, &restore, &choose};
};

class ConsoleTest : public UnitTest {
 protected:
  frmFind form;

  void SetUp() override { form.load(); }

  // The contents of a file of the program's resources.
  static std::string resource(const char* name) {
    std::ifstream file(std::string(SCRUBHAVEN_RESOURCES) + '/' + name);
    return {std::istreambuf_iterator<char>(file), {}};
  }

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
