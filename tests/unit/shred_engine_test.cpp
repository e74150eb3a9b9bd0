#include <set>

#include "platform/Conversions.h"
#include "tests/unit/ShredderTest.h"

namespace {

class ShredEngine : public ShredderTest {
 protected:
  frmMain window;

  void shred(const std::string& path) { ShredFile(path, SHRED_ROUNDS, window); }

  // What a file of `length` bytes must be overwritten with under a key, and the last of its names.
  struct Fate {
    Paths writes;
    std::string name;
  };
  static Fate fate(const std::string& key, std::int32_t length) {
    Fate all;
    for (int round = 0; round < SHRED_ROUNDS && length > 0; ++round) {
      all.writes.emplace_back(length, '\0');
      all.writes.emplace_back(length, '\xFF');
    }
    SeedKeystream(key);
    for (int round = 0; round < SHRED_ROUNDS; ++round) all.writes.push_back(RandomBytes(length).value());
    for (int round = 0; round < SHRED_ROUNDS; ++round) all.name = RandomName();
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

// In whole numbers: a byte's share of the 65 letters, rounded. The two highest bytes come to one letter too many.
TEST_F(ShredEngine, NamesUseTheWholeAlphabetAndSkipTheTwoHighestBytes) {
  const std::string letters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ1234567890-_ ";
  SeedKeystream("names");
  std::set<char> used;
  for (int i = 0; i < 300; ++i) {
    const KeystreamState before = keystream();
    std::string expected;
    const std::string bytes = RandomBytes(100).value();
    for (const char byte : bytes) {
      const std::size_t index = (static_cast<unsigned char>(byte) * 65U * 2 + 255) / 510;
      if (index < letters.size()) expected += letters[index];
    }
    keystream() = before;
    ASSERT_EQ(RandomName(), expected + ".tmp");
    used.insert(expected.begin(), expected.end());
  }
  EXPECT_EQ(used, std::set<char>(letters.begin(), letters.end()));
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
  machine.setDay("22/11/2026", "00:00:01", 1.5F);
  machine.failAt("remove");
  shred("C:\\Docs\\b.txt");
  EXPECT_EQ(machine.calls("flushFileBuffers"), 2 * 2 * 84);
  EXPECT_EQ(machine.calls("moveFile"), 2 * 28);
  ASSERT_EQ(machine.writes().size(), 2 * 84U);
  EXPECT_EQ(machine.filesBelow("C:\\").size(), 2U);

  // The characters drawn for the keys are 0.7055475 and 0.533424 of 255.
  keystream() = {};
  const Fate fates[] = {fate("21/11/2026 45296.1212:34:56\xB4", 10), fate("22/11/2026 1.500:00:01\x88", 5)};
  for (std::size_t i = 0; i < machine.writes().size(); ++i) {
    EXPECT_EQ(machine.writes()[i].path, i < 84 ? "C:\\Docs\\a.txt" : "C:\\Docs\\b.txt");
    EXPECT_EQ(machine.writes()[i].position, 0U);
    EXPECT_EQ(machine.writes()[i].bytes, fates[i / 84].writes[i % 84]);
  }
  for (const Fate& one : fates) {
    EXPECT_EQ(machine.contents(std::string(kHere) + '\\' + one.name), one.writes.back());
  }
}

TEST_F(ShredEngine, ProgressIsTheRoundedShareOfTheRandomPasses) {
  std::vector<int> percents;
  machine.everyServing([&] { percents.push_back(window.ShredPercent); });
  shred("C:\\Docs\\a.txt");
  EXPECT_EQ(percents, (std::vector<int>{4,  7,  11, 14, 18, 21, 25, 29, 32, 36, 39, 43, 46, 50,
                                        54, 57, 61, 64, 68, 71, 75, 79, 82, 86, 89, 93, 96, 100}));
  // An eighth is a half that goes to the even neighbour.
  percents.clear();
  ShredFile("C:\\Docs\\b.txt", 8, window);
  EXPECT_EQ(percents, (std::vector<int>{12, 25, 38, 50, 62, 75, 88, 100}));
}

TEST_F(ShredEngine, EmptyAndMissingFilesGetOneByteAndFilesOfAnotherDriveStay) {
  machine.addDrive('D');
  machine.addFile("D:\\a.txt", "secret");
  shred("D:\\a.txt");
  EXPECT_EQ(machine.contents("D:\\a.txt"), machine.writes()[kPasses - 1].bytes);
  machine.addFile("C:\\empty.txt");
  shred("C:\\empty.txt");
  shred("C:\\missing.txt");
  EXPECT_TRUE(machine.filesBelow("C:\\").empty());
  shred("D:\\missing.txt");
  EXPECT_EQ(machine.contents("D:\\missing.txt")->size(), 1U);
  EXPECT_EQ(machine.namesIn("D:\\"), (Paths{"a.txt", "missing.txt"}));
  EXPECT_EQ(machine.writes().size(), kPasses + 3U * SHRED_ROUNDS);
}

TEST_F(ShredEngine, ProtectedLockedAndHugeFilesEndAsTheyMust) {
  machine.addFile("C:\\Docs\\protected.txt", "kept", platform::kReadOnly);
  shred("C:\\Docs\\protected.txt");
  ASSERT_EQ(machine.namesIn(kHere).size(), 1U);
  const std::string left = std::string(kHere) + '\\' + machine.namesIn(kHere)[0];
  EXPECT_EQ(machine.contents(left), "kept");
  EXPECT_EQ(machine.attributes(left), platform::kReadOnly);
  EXPECT_FALSE(machine.exists("C:\\Docs\\protected.txt"));

  machine.addFile("C:\\Docs\\locked.txt", "held");
  machine.lock("C:\\Docs\\locked.txt");
  shred("C:\\Docs\\locked.txt");
  EXPECT_EQ(machine.contents("C:\\Docs\\locked.txt"), "held");

  // A length that is no count of bytes leaves no buffer to write.
  machine.addSizedFile("C:\\Docs\\huge.bin", (std::uint64_t{1} << 32) - 1);
  shred("C:\\Docs\\huge.bin");
  EXPECT_FALSE(machine.exists("C:\\Docs\\huge.bin"));
  EXPECT_TRUE(machine.writes().empty());
}

// Each platform call of a run fails once: the run goes on, nothing stays open, the neighbour is unharmed, and what the
// file held is gone.
TEST_F(ShredEngine, AnyFailureIsPassedOverAndTheOldBytesAreGone) {
  machine.addFile("C:\\Docs\\neighbour.txt", "neighbour");
  const std::set<std::string> kLeavesBehind = {"getFullPathName", "moveFile", "remove"};
  for (const std::string operation : {"fileLength", "freeFile", "openBinary", "putBytesAt", "flushFileBuffers",
                                      "closeFile", "getFullPathName", "moveFile", "remove"}) {
    bool failed = true;
    for (int n = 1; failed; ++n) {
      machine.addFile("C:\\Docs\\a.txt", "s");
      machine.failAt(operation, n);
      shred("C:\\Docs\\a.txt");
      EXPECT_EQ(machine.openHandles(), 0U) << operation << n;
      EXPECT_EQ(machine.contents("C:\\Docs\\neighbour.txt"), "neighbour");
      for (const std::string& path : machine.filesBelow("C:\\")) {
        if (path == "C:\\Docs\\neighbour.txt") continue;
        // A renaming that fails lets go of the file, because the next one looks for it under the new name.
        EXPECT_TRUE(kLeavesBehind.contains(operation)) << operation << n << path;
        EXPECT_EQ(machine.contents(path)->size(), 2U);
        ASSERT_TRUE(machine.files().remove(path));
      }
      failed = !machine.faultsLeft();
      machine.clearFaults();
    }
  }
}

}  // namespace
