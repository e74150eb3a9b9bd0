// What the machine in memory cannot show: a hidden launch, and the limits of a process of 32 bits.
#include <windows.h>

#include "shredder/modMain.h"
#include "tests/contract/ContractTest.h"

namespace contract {
namespace {

class Launch : public ContractTest {};

TEST_F(Launch, RunsTheCommandLineWithItsQuotedArguments) {
  const std::string file = at("made by a command.txt");
  EXPECT_TRUE(machine().shell().launchHidden("cmd /c echo x>\"" + file + "\""));
  constexpr int kPatience = 200;
  for (int i = 0; i < kPatience && !exists(file); ++i) Sleep(50);
  EXPECT_TRUE(exists(file));
  // The command may still hold its file open.
  for (int i = 0; i < kPatience && !opensForReading(file, kShareNone); ++i) Sleep(50);
  EXPECT_EQ(numberOf(machine().shell().launchHidden("no-such-program \"x\"")), kFileNotFound);
}

// Two gigabytes in one piece are more than such a process can get.
TEST(MemoryLimit, RandomBytesThatDoNotFitLeaveTheKeystreamWhereItWas) {
  SeedKeystream("limit");
  const KeystreamState before = keystream();
  EXPECT_EQ(numberOf(RandomBytes(0x7F000000)), platform::kOutOfMemory);
  EXPECT_TRUE(keystream().S == before.S && keystream().i == before.i && keystream().j == before.j);
}

}  // namespace
}  // namespace contract
