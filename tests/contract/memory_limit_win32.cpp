// A process of 32 bits has no room for two gigabytes in one piece: the shredder must bear that.
#include <gtest/gtest.h>

#include <limits>

#include "shredder/modMain.h"

namespace contract {
namespace {

TEST(MemoryLimit, RandomBytesThatDoNotFitLeaveTheKeystreamWhereItWas) {
  SeedKeystream("limit");
  const KeystreamState before = keystream();
  for (const std::int32_t n : {std::numeric_limits<std::int32_t>::max(), 0x7F000000}) {
    const platform::Result<std::string> bytes = RandomBytes(n);
    ASSERT_FALSE(bytes);
    EXPECT_EQ(bytes.error().number, platform::kOutOfMemory);
  }
  EXPECT_TRUE(keystream().S == before.S && keystream().i == before.i && keystream().j == before.j);
  EXPECT_EQ(RandomBytes(9).value().size(), 10U);
}

}  // namespace
}  // namespace contract
