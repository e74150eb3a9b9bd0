// An in-memory machine as the shredder finds it after the program has started.
#pragma once

#include <string>
#include <vector>

#include "shredder/frmMain.h"
#include "shredder/modMain.h"
#include "tests/support/MachineTest.h"

using Paths = std::vector<std::string>;

class ShredderTest : public MachineTest {
 protected:
  static constexpr const char* kHere = "C:\\Here";
  static constexpr std::size_t kPasses = 3U * SHRED_ROUNDS;  // over a file that is not empty

  ShredderTest() {
    keystream() = {};
    machine.addFolder(kHere);
    machine.disk().setCurrentFolder(kHere);
    machine.environment().setDay("21/11/2026", "12:34:56", 45296.12F);
  }
};
