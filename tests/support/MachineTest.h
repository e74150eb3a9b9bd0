// The fixture of tests that run the program's logic on an in-memory machine.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/memory/MemoryMachine.h"

// A machine of its own for each test, installed while the test runs. Afterwards the test fails when the program has
// left a handle open, and when a failure or an answer that the test ordered was never used: the test then did not
// test what it says.
class MachineTest : public testing::Test {
 protected:
  platform::memory::MemoryMachine machine;

  void TearDown() override {
    EXPECT_EQ(machine.openHandles(), 0u) << "the program left something open";
    EXPECT_FALSE(machine.faults().left()) << "an ordered failure never happened";
    EXPECT_FALSE(machine.ui().answersLeft()) << "an answer was prepared for a box that never came";
  }

  // The texts of the boxes shown so far.
  std::vector<std::string> boxTexts() const {
    std::vector<std::string> texts;
    for (const platform::memory::ShownBox& box : machine.boxes()) texts.push_back(box.text);
    return texts;
  }

 private:
  platform::ScopedMachine use_{machine};
};
