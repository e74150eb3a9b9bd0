#include <array>
#include <numeric>
#include <set>
#include <utility>

#include "platform/Conversions.h"
#include "tests/unit/ShredderTest.h"

namespace {

// RC4 apart from the program's own, with indices that go on from key to key.
class Rc4 {
 public:
  void seed(const std::string& key) {
    std::iota(s_.begin(), s_.end(), 0);
    unsigned char y = 0;
    for (std::size_t x = 0; x < s_.size(); ++x) {
      y += s_[x] + static_cast<unsigned char>(key[x % key.size()]);
      std::swap(s_[x], s_[y]);
    }
  }
  unsigned char next() {
    j_ += s_[++i_];
    std::swap(s_[i_], s_[j_]);
    return s_[static_cast<unsigned char>(s_[i_] + s_[j_])];
  }
  std::string bytes(std::size_t count) {
    std::string all(count, '\0');
    for (char& byte : all) byte = static_cast<char>(next());
    return all;
  }
  // In whole numbers: a byte's share of the 65 letters, rounded. The two highest bytes come to one letter too many.
  std::string name() {
    std::string all;
    for (int draw = 0; draw < 101; ++draw) {
      const std::size_t index = (next() * 65U * 2 + 255) / 510;
      if (index < kLetters.size()) all += kLetters[index];
    }
    return all + ".tmp";
  }

  static constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ1234567890-_ ";

 private:
  std::array<unsigned char, 256> s_{};
  unsigned char i_ = 0;
  unsigned char j_ = 0;
};

class ShredEngine : public ShredderTest {
 protected:
  std::vector<int> percents;

  void shred(const std::string& path, std::int16_t rounds = SHRED_ROUNDS) {
    ShredFile(path, rounds, [this](std::int16_t percent) { percents.push_back(percent); });
  }

  // What a file of `length` bytes must be overwritten with under a key, and the last of its names.
  struct Fate {
    Paths writes;
    std::string name;
  };
  static Fate fate(Rc4& rc4, const std::string& key, std::size_t length) {
    Fate all;
    for (int round = 0; round < SHRED_ROUNDS && length > 0; ++round) {
      all.writes.emplace_back(length, '\0');
      all.writes.emplace_back(length, '\xFF');
    }
    rc4.seed(key);
    for (int round = 0; round < SHRED_ROUNDS; ++round) all.writes.push_back(rc4.bytes(length + 1));
    for (int round = 0; round < SHRED_ROUNDS; ++round) all.name = rc4.name();
    return all;
  }
};

TEST_F(ShredEngine, KeystreamIsThePublishedRc4InBulkAndByteByByte) {
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

// Bytes in bulk come in long stretches, and a rest.
TEST_F(ShredEngine, BulkAndNamesFollowAnIndependentRc4ThroughTheWholeAlphabet) {
  Rc4 rc4;
  rc4.seed("names");
  SeedKeystream("names");
  std::set<char> used;
  for (std::int32_t count = 1; count < 600; ++count) {
    ASSERT_EQ(RandomBytes(count - 1).value(), rc4.bytes(static_cast<std::size_t>(count)));
    const std::string name = RandomName();
    ASSERT_EQ(name, rc4.name());
    used.insert(name.begin(), name.end());
  }
  EXPECT_EQ(used.size(), Rc4::kLetters.size() + 1) << "the letters, and the point";
}

TEST_F(ShredEngine, SecondsOfTheKeyAreClassic) {
  EXPECT_EQ(platform::signedText(86399.99F), " 86399.99");
  EXPECT_EQ(platform::signedText(0.015625F), " .015625");
  EXPECT_EQ(platform::signedText(43200), " 43200");
  EXPECT_EQ(platform::signedText(-0.25F), "-.25");
}

TEST_F(ShredEngine, FilesGetTheirPassesInPlaceAndNamesFromOneRunOfTheIndices) {
  machine.addFile("C:\\Docs\\a.txt", "0123456789");
  machine.addFile("C:\\Docs\\b.txt", "other");
  machine.failAt("remove");
  shred("C:\\Docs\\a.txt");
  machine.environment().setDay("22/11/2026", "00:00:01", 1.5F);
  machine.failAt("remove");
  shred("C:\\Docs\\b.txt");
  EXPECT_EQ(machine.faults().calls("flushFileBuffers"), 2 * 2 * 84);
  EXPECT_EQ(machine.faults().calls("moveFile"), 2 * 28);
  ASSERT_EQ(machine.disk().writes().size(), 2 * 84U);
  EXPECT_EQ(machine.filesBelow("C:\\").size(), 2U);

  // The characters drawn for the keys are 0.7055475 and 0.533424 of 255.
  Rc4 rc4;
  const Fate fates[] = {fate(rc4, "21/11/2026 45296.1212:34:56\xB4", 10), fate(rc4, "22/11/2026 1.500:00:01\x88", 5)};
  for (std::size_t i = 0; i < machine.disk().writes().size(); ++i) {
    EXPECT_EQ(machine.disk().writes()[i].path, i < 84 ? "C:\\Docs\\a.txt" : "C:\\Docs\\b.txt");
    EXPECT_EQ(machine.disk().writes()[i].position, 0U);
    EXPECT_EQ(machine.disk().writes()[i].bytes, fates[i / 84].writes[i % 84]);
  }
  for (const Fate& one : fates) {
    EXPECT_EQ(machine.contents(std::string(kHere) + '\\' + one.name), one.writes.back());
  }
}

TEST_F(ShredEngine, ProgressIsTheRoundedShareOfTheRandomPasses) {
  shred("C:\\Docs\\a.txt");
  EXPECT_EQ(percents, (std::vector<int>{4,  7,  11, 14, 18, 21, 25, 29, 32, 36, 39, 43, 46, 50,
                                        54, 57, 61, 64, 68, 71, 75, 79, 82, 86, 89, 93, 96, 100}));
  // An eighth is a half that goes to the even neighbour.
  percents.clear();
  shred("C:\\Docs\\b.txt", 8);
  EXPECT_EQ(percents, (std::vector<int>{12, 25, 38, 50, 62, 75, 88, 100}));
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

TEST_F(ShredEngine, ProtectedLockedAndHugeFilesEndAsTheyMust) {
  machine.addFile("C:\\Docs\\protected.txt", "kept", platform::kReadOnly);
  shred("C:\\Docs\\protected.txt");
  ASSERT_EQ(machine.disk().namesIn(kHere).size(), 1U);
  const std::string left = std::string(kHere) + '\\' + machine.disk().namesIn(kHere)[0];
  EXPECT_EQ(machine.contents(left), "kept");
  EXPECT_EQ(machine.disk().attributes(left), platform::kReadOnly);
  EXPECT_FALSE(machine.exists("C:\\Docs\\protected.txt"));

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

// Each platform call of a run fails once: the run goes on, nothing stays open, the neighbour is unharmed, and what the
// file held is gone.
TEST_F(ShredEngine, AnyFailureIsPassedOverAndTheOldBytesAreGone) {
  machine.addFile("C:\\Docs\\neighbour.txt", "neighbour");
  const auto shredOnce = [&](const std::string& call) {
    machine.addFile("C:\\Docs\\a.txt", "s");
    shred("C:\\Docs\\a.txt");
    EXPECT_EQ(machine.openHandles(), 0U) << call;
    EXPECT_EQ(machine.contents("C:\\Docs\\neighbour.txt"), "neighbour");
  };
  withEachCallFailing({"fileLength", "freeFile", "openBinary", "putBytesAt", "flushFileBuffers", "closeFile"},
                      [&](const std::string& call) {
                        shredOnce(call);
                        EXPECT_EQ(machine.filesBelow("C:\\").size(), 1U) << call;
                      });
  // A renaming that fails lets go of the file, because the next one looks for it under the new name.
  withEachCallFailing({"getFullPathName", "moveFile", "remove"}, [&](const std::string& call) {
    shredOnce(call);
    for (const std::string& path : machine.filesBelow("C:\\")) {
      if (path == "C:\\Docs\\neighbour.txt") continue;
      EXPECT_EQ(machine.contents(path)->size(), 2U) << call;
      ASSERT_TRUE(machine.files().remove(path));
    }
  });
}

}  // namespace
