// What a hidden launch does on the real machine: the in-memory one starts nothing.
#include <windows.h>

#include "tests/contract/ContractTest.h"

namespace contract {
namespace {

class Launch : public ContractTest {};

TEST_F(Launch, RunsTheCommandLineWithItsQuotedArguments) {
  const std::string file = at("made by a command.txt");
  EXPECT_TRUE(machine().shell().launchHidden("cmd /c echo x>\"" + file + "\""));
  constexpr int kPatience = 200;
  for (int i = 0; i < kPatience && !testMachine().exists(file); ++i) Sleep(50);
  EXPECT_TRUE(testMachine().exists(file));
  // The command may still hold its file open.
  for (int i = 0; i < kPatience && !opensForReading(file, kShareNone); ++i) Sleep(50);
  EXPECT_EQ(numberOf(machine().shell().launchHidden("no-such-program \"x\"")), kFileNotFound);
}

}  // namespace
}  // namespace contract
