// An in-memory machine as the shredder finds it after the program has started.
#pragma once

#include "shredder/modMain.h"
#include "tests/unit/UnitTest.h"

class ShredderTest : public UnitTest {
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
