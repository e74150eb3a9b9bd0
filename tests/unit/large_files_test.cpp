// Files that are longer than one write of the shredder.
#include "tests/unit/ShredderTest.h"

namespace {

class LargeFiles : public ShredderTest {};

TEST_F(LargeFiles, BeyondFourGibibytesAreOverwrittenToTheirEnd) {
  constexpr std::uint64_t kSize = (std::uint64_t{5} << 30) + 3;
  constexpr std::uint64_t kMostMemory = 64 << 20;
  machine.addSizedFile("C:\\large.bin", kSize);
  machine.disk().forgetWrites();
  // So many random bytes would take minutes: that pass cannot open the file.
  machine.failAt("openBinary", 3);
  ShredFile("C:\\large.bin", 1, [](std::int16_t) {});
  std::vector<std::uint64_t> passes;
  for (const auto& write : machine.disk().writes()) {
    EXPECT_LE(write.size, kMostMemory);
    if (write.position == 0) passes.push_back(0);
    EXPECT_EQ(write.position, passes.back()) << "a gap in pass " << passes.size();
    passes.back() += write.size;
  }
  EXPECT_EQ(passes, (std::vector{kSize, kSize}));
}

}  // namespace
