// The tree walk on a real tree: everything on the drive that Windows is on.
#include <cstdio>

#include "tests/contract/ContractTest.h"
#include "tests/contract/PatternWalk.h"
#include "tests/support/WinFiles.h"

namespace contract {
namespace {

using RealWalk = ContractTest;

TEST_F(RealWalk, ListsWhatThePatternsFindInTheSameOrder) {
  // Two names that differ in case only, which no call of Windows can make.
  for (const char* name : {"twin.tmp", "TWIN.tmp"}) {
    ASSERT_TRUE(support::startHostProgram(TestMachine::root(), "touch", name) && support::waitForPath(at(name), true));
  }
  const std::size_t rows = compareWalks("C:", {"exe", "d?l", "i*", "", "sys"});
  std::printf("%zu rows\n", rows);
  EXPECT_GT(rows, 500u);
}

}  // namespace
}  // namespace contract
