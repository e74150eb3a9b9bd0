#include <cmath>
#include <set>
#include <tuple>
#include <utility>

#include "platform/Conversions.h"
#include "tests/unit/ShredderTest.h"

namespace {

class ShredEngine : public ShredderTest {
 protected:
  std::vector<int> percents;

  void shred(const std::string& path, std::int16_t rounds = SHRED_ROUNDS) {
    ShredFile(path, rounds, [this](std::int16_t percent) { percents.push_back(percent); });
  }
};

TEST_F(ShredEngine, KeystreamIsThePublishedRc4) {
  SeedKeystream("Key");
  EXPECT_EQ(RandomBytes(9).value(), "\xEB\x9F\x77\x81\xB7\x34\xCA\x72\xA7\x19");
  const std::uint32_t j = keystream().j;
  SeedKeystream("\x01\x02\x03\x04\x05");
  EXPECT_TRUE(keystream().i == 10 && keystream().j == j) << "the indices go on";
  keystream().i = keystream().j = 0;
  EXPECT_EQ(RandomBytes(1000).value().size() + RandomBytes(3094).value().size(), 4096U);
  EXPECT_EQ(RandomBytes(-1).error().number, platform::kInvalidCall);
  for (const int byte : {0xFF, 0x25, 0xB5, 0x89}) EXPECT_EQ(NextKeystreamFraction(), byte / 255.0);
  EXPECT_EQ(RandomBytes(3).value(), "\x95\x99\x67\x07");
}

// The same stream byte by byte, in bulk (in long stretches and a rest) and as names, whose letters are a byte's rounded
// share of the alphabet; the two highest bytes come to one letter too many.
TEST_F(ShredEngine, BulkAndNamesFollowTheSameStreamThroughTheWholeAlphabet) {
  const std::string letters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ1234567890-_ ";
  SeedKeystream("names");
  std::set<char> used;
  for (std::int32_t count = 1; count < 600; ++count) {
    const KeystreamState before = keystream();
    std::string bytes;
    for (int i = 0; i < count; ++i) bytes += static_cast<char>(std::lround(NextKeystreamFraction() * 255));
    const KeystreamState after = std::exchange(keystream(), before);
    ASSERT_EQ(RandomBytes(count - 1).value(), bytes);
    ASSERT_EQ(keystream().S, after.S);
    keystream() = before;
    const std::string name = RandomName();
    keystream() = before;
    std::string expected;
    const std::string draws = RandomBytes(100).value();
    for (const char drawn : draws) {
      const std::size_t index = (static_cast<unsigned char>(drawn) * 65U * 2 + 255) / 510;
      if (index < letters.size()) expected += letters[index];
    }
    ASSERT_EQ(name, expected + ".tmp");
    used.insert(name.begin(), name.end());
  }
  EXPECT_EQ(used.size(), letters.size() + 1) << "the letters, and the point";
}

TEST_F(ShredEngine, SecondsOfTheKeyAreClassic) {
  EXPECT_EQ(platform::signedText(86399.99F), " 86399.99");
  EXPECT_EQ(platform::signedText(0.015625F), " .015625");
  EXPECT_EQ(platform::signedText(43200), " 43200");
}

// The key is the day, the seconds, the time and a character drawn; here 0.7055475 and 0.533424 of 255.
TEST_F(ShredEngine, FilesGetTheirPassesInPlaceAndNamesFromOneRunOfTheIndices) {
  machine.addFile("C:\\Docs\\a.txt", "0123456789");
  machine.addFile("C:\\Docs\\b.txt", "other");
  machine.failAt("remove");
  shred("C:\\Docs\\a.txt");
  machine.environment().setDay("22/11/2026", "00:00:01", 1.5F);
  machine.failAt("remove");
  shred("C:\\Docs\\b.txt");
  EXPECT_EQ(machine.faults().calls("flushFileBuffers"), 2 * 2 * 84);
  ASSERT_EQ(machine.disk().writes().size(), 2 * kPasses);
  EXPECT_EQ(machine.filesBelow("C:\\").size(), 2U);

  keystream() = {};
  auto write = machine.disk().writes().begin();
  for (const auto& [path, length, key] : {std::tuple("C:\\Docs\\a.txt", 10, "21/11/2026 45296.1212:34:56\xB4"),
                                          {"C:\\Docs\\b.txt", 5, "22/11/2026 1.500:00:01\x88"}}) {
    SeedKeystream(key);
    for (int pass = 0; pass < 84; ++pass, ++write) {
      const std::string fixed(static_cast<std::size_t>(length), pass % 2 == 0 ? '\0' : '\xFF');
      EXPECT_EQ(write->bytes, pass < 56 ? fixed : RandomBytes(length).value());
      EXPECT_TRUE(write->path == path && write->position == 0);
    }
    std::string name;
    for (int renaming = 0; renaming < 28; ++renaming) name = RandomName();
    EXPECT_EQ(machine.contents(std::string(kHere) + '\\' + name), (write - 1)->bytes);
  }
}

TEST_F(ShredEngine, ProgressIsTheRoundedShareOfTheRandomPasses) {
  shred("C:\\Docs\\a.txt");
  EXPECT_EQ(percents, (std::vector<int>{4,  7,  11, 14, 18, 21, 25, 29, 32, 36, 39, 43, 46, 50,
                                        54, 57, 61, 64, 68, 71, 75, 79, 82, 86, 89, 93, 96, 100}));
  percents.clear();
  shred("C:\\Docs\\b.txt", 8);
  EXPECT_EQ(percents, (std::vector<int>{12, 25, 38, 50, 62, 75, 88, 100})) << "halves go to the even one";
}

TEST_F(ShredEngine, EmptyAndMissingFilesGetOneByteAndFilesOfAnotherDriveStay) {
  machine.disk().addDrive('D');
  machine.addFile("D:\\a.txt", "secret");
  shred("D:\\a.txt");
  EXPECT_EQ(machine.contents("D:\\a.txt"), machine.disk().writes()[kPasses - 1].bytes);
  machine.addFile("C:\\empty.txt");
  shred("C:\\empty.txt");
  shred("C:\\missing.txt");
  EXPECT_TRUE(machine.filesBelow("C:\\").empty());
  shred("D:\\missing.txt");
  EXPECT_EQ(machine.contents("D:\\missing.txt")->size(), 1U);
  EXPECT_EQ(machine.disk().namesIn("D:\\"), (Paths{"a.txt", "missing.txt"}));
  EXPECT_EQ(machine.disk().writes().size(), kPasses + 3U * SHRED_ROUNDS);
}

TEST_F(ShredEngine, ReadOnlyLockedAndHugeFilesKeepTheirBytes) {
  machine.addFile("C:\\Docs\\read-only.txt", "kept", platform::kReadOnly);
  shred("C:\\Docs\\read-only.txt");
  const Paths left = machine.filesBelow("C:\\");
  ASSERT_EQ(left.size(), 1U);
  EXPECT_TRUE(left[0].starts_with(kHere) && left[0].ends_with(".tmp"));
  EXPECT_EQ(machine.contents(left[0]), "kept");
  EXPECT_EQ(machine.disk().attributes(left[0]), platform::kReadOnly);
  machine.addFile("C:\\Docs\\locked.txt", "held");
  machine.disk().lock("C:\\Docs\\locked.txt");
  shred("C:\\Docs\\locked.txt");
  EXPECT_EQ(machine.contents("C:\\Docs\\locked.txt"), "held");
  // A length that is no count of bytes leaves no buffer to write.
  machine.addSizedFile("C:\\Docs\\huge.bin", (std::uint64_t{1} << 32) - 1);
  shred("C:\\Docs\\huge.bin");
  EXPECT_FALSE(machine.exists("C:\\Docs\\huge.bin"));
  EXPECT_TRUE(machine.disk().writes().empty());
}

}  // namespace
