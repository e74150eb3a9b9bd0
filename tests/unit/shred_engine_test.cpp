#include <algorithm>
#include <set>

#include "platform/Conversions.h"
#include "shredder/frmMain.h"
#include "tests/unit/ShredderTest.h"

using platform::kReadOnly;

namespace {

using Paths = std::vector<std::string>;

std::string fromHex(const std::string& hex) {
  std::string bytes;
  for (std::size_t i = 0; i < hex.size(); i += 2) bytes += static_cast<char>(std::stoi(hex.substr(i, 2), nullptr, 16));
  return bytes;
}

class ShredEngine : public ShredderTest {
 protected:
  frmMain window;

  void shred(const std::string& path) { ShredFile(path, kRounds, window); }

  // What was written, in order; fails when a write did not begin at the first byte of `path`.
  Paths writtenTo(const std::string& path) const {
    Paths all;
    for (const auto& write : machine.writes()) {
      EXPECT_EQ(write.path, path);
      EXPECT_EQ(write.position, 0U);
      all.push_back(write.bytes);
    }
    return all;
  }

  // The writes that a file of `length` bytes gets; leaves `rc4` where the names begin.
  static Paths expectedWrites(std::size_t length, ReferenceRc4& rc4) {
    Paths all;
    for (int round = 0; round < kRounds && length > 0; ++round) {
      all.emplace_back(length, '\0');
      all.emplace_back(length, '\xFF');
    }
    for (int round = 0; round < kRounds; ++round) all.push_back(rc4.bytes(length + 1));
    return all;
  }

  static std::string lastName(ReferenceRc4& rc4) {
    std::string name;
    for (int round = 0; round < kRounds; ++round) name = rc4.name();
    return name;
  }
};

struct Vector {
  std::string key;
  std::size_t offset;
  std::string bytes;
};

TEST_F(ShredEngine, KeystreamIsThePublishedRc4) {
  const Vector vectors[] = {
      {"Key", 0, fromHex("eb9f7781b734ca72a719")},
      {"Wiki", 0, fromHex("6044db6d41b7")},
      {"Secret", 0, fromHex("04d46b053ca87b59")},
      {fromHex("0102030405"), 0, fromHex("b2396305f03dc027ccc3524a0a1118a8")},
      {fromHex("0102030405"), 4096, fromHex("ff25b58995996707e51fbdf08b34d875")},
      {fromHex("0102030405060708090a0b0c0d0e0f101112131415161718191a1b1c1d1e1f20"), 0,
       fromHex("eaa6bd25880bf93d3f5d1e4ca2611d91")},
  };
  for (const Vector& vector : vectors) {
    keystream() = {};
    SeedKeystream(vector.key);
    const std::size_t end = vector.offset + vector.bytes.size();
    EXPECT_EQ(RandomBytes(static_cast<std::int32_t>(end) - 1).value().substr(vector.offset), vector.bytes);
  }
}

TEST_F(ShredEngine, BytesInBulkAreTheFractionsTimes255) {
  for (const std::int32_t n : {0, 1, 2, 3, 4, 6, 250, 1021, 4096}) {
    SeedKeystream("fractions");
    const KeystreamState before = keystream();
    const std::string bulk = RandomBytes(n).value();
    const KeystreamState after = keystream();
    ASSERT_EQ(bulk.size(), static_cast<std::size_t>(n) + 1);
    keystream() = before;
    for (const char byte : bulk) {
      const double fraction = NextKeystreamFraction();
      EXPECT_TRUE(fraction >= 0 && fraction <= 1);
      EXPECT_EQ(static_cast<char>(platform::roundedHalfEven(fraction * 255)), byte);
    }
    EXPECT_TRUE(keystream().S == after.S && keystream().i == after.i && keystream().j == after.j);
  }
  EXPECT_EQ(RandomBytes(-1).error().number, platform::kInvalidCall);
}

TEST_F(ShredEngine, SecondsAndLetterOfTheKeyAreClassic) {
  EXPECT_EQ(platform::signedText(45296.12F), " 45296.12");
  EXPECT_EQ(platform::signedText(86399.99F), " 86399.99");
  EXPECT_EQ(platform::signedText(7.5F), " 7.5");
  EXPECT_EQ(platform::signedText(0.015625F), " .015625");
  EXPECT_EQ(platform::signedText(43200), " 43200");
  EXPECT_EQ(platform::signedText(0), " 0");
  EXPECT_EQ(platform::signedText(-0.25F), "-.25");
  EXPECT_NEAR(machine.environment().nextUniform(), 0.7055475, 1e-7);
  EXPECT_NEAR(machine.environment().nextUniform(), 0.533424, 1e-7);
}

TEST_F(ShredEngine, TenBytesGet84PassesInPlaceAndTheLastIsOneLonger) {
  machine.addFile("C:\\Docs\\ten.txt", "0123456789");
  machine.failAt("remove");
  shred("C:\\Docs\\ten.txt");
  ReferenceRc4 rc4;
  rc4.seed(firstKey());
  const Paths expected = expectedWrites(10, rc4);
  ASSERT_EQ(expected.size(), 84U);
  EXPECT_EQ(writtenTo("C:\\Docs\\ten.txt"), expected);
  EXPECT_TRUE(machine.namesIn("C:\\Docs").empty());
  const std::string name = lastName(rc4);
  EXPECT_EQ(machine.namesIn(kHere), Paths{name});
  EXPECT_EQ(machine.contents(std::string(kHere) + '\\' + name), expected.back());
  EXPECT_EQ(expected.back().size(), 11U);
  EXPECT_EQ(machine.calls("flushFileBuffers"), 2 * 84);
  EXPECT_EQ(machine.calls("moveFile"), 28);
}

TEST_F(ShredEngine, TwoFilesShareOneRunOfTheKeystreamsIndices) {
  machine.addFile("C:\\Docs\\a.txt", "first");
  machine.addFile("C:\\Docs\\b.txt", "the second");
  shred("C:\\Docs\\a.txt");
  const std::size_t writesOfFirst = machine.writes().size();
  machine.setDay("22/11/2026", "00:00:01", 1.5F);
  machine.failAt("remove");
  shred("C:\\Docs\\b.txt");

  ReferenceRc4 rc4;
  rc4.seed(firstKey());
  expectedWrites(5, rc4);
  lastName(rc4);
  // The generator's second number is 0.533424.
  rc4.seed("22/11/2026 1.500:00:01\x88");
  const Paths expected = expectedWrites(10, rc4);
  ASSERT_EQ(machine.writes().size(), writesOfFirst + expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) EXPECT_EQ(machine.writes()[writesOfFirst + i].bytes, expected[i]);
  EXPECT_EQ(machine.filesBelow("C:\\"), Paths{std::string(kHere) + '\\' + lastName(rc4)});
}

TEST_F(ShredEngine, NamesUseTheWholeAlphabetAndSkipTheTwoHighestBytes) {
  SeedKeystream("names");
  ReferenceRc4 rc4;
  rc4.seed("names");
  std::string letters;
  std::size_t shortest = 105;
  for (int i = 0; i < 300; ++i) {
    const std::string name = RandomName();
    ASSERT_EQ(name, rc4.name());
    ASSERT_TRUE(name.ends_with(".tmp"));
    letters += name.substr(0, name.size() - 4);
    shortest = std::min(shortest, name.size());
  }
  EXPECT_EQ(letters.find_first_not_of(NAME_ALPHABET), std::string::npos);
  for (const char letter : NAME_ALPHABET) EXPECT_TRUE(letters.contains(letter)) << letter;
  EXPECT_LT(shortest, 105U);
}

TEST_F(ShredEngine, ProgressIsTheRoundedShareOfTheRandomPasses) {
  machine.addFile("C:\\Docs\\a.txt", "abc");
  std::vector<int> percents;
  machine.everyServing([&] { percents.push_back(window.ShredPercent); });
  shred("C:\\Docs\\a.txt");
  EXPECT_EQ(percents, (std::vector<int>{4,  7,  11, 14, 18, 21, 25, 29, 32, 36, 39, 43, 46, 50,
                                        54, 57, 61, 64, 68, 71, 75, 79, 82, 86, 89, 93, 96, 100}));
  // A quarter of 2 is a half that goes to the even neighbour.
  percents.clear();
  ShredFile("C:\\Docs\\b.txt", 8, window);
  EXPECT_EQ(percents, (std::vector<int>{12, 25, 38, 50, 62, 75, 88, 100}));
}

TEST_F(ShredEngine, EmptyAndMissingFilesGetOneByteAndGo) {
  machine.addFile("C:\\Docs\\empty.txt");
  shred("C:\\Docs\\empty.txt");
  ReferenceRc4 rc4;
  rc4.seed(firstKey());
  EXPECT_EQ(writtenTo("C:\\Docs\\empty.txt"), expectedWrites(0, rc4));
  shred("C:\\Docs\\missing.txt");
  EXPECT_EQ(machine.writes().size(), 2U * kRounds);
  EXPECT_TRUE(machine.filesBelow("C:\\").empty());
}

TEST_F(ShredEngine, OnAnotherDriveTheFileIsOverwrittenAndStays) {
  machine.addDrive('D');
  machine.addFile("D:\\Docs\\a.txt", "secret");
  shred("D:\\Docs\\a.txt");
  shred("D:\\Docs\\missing.txt");
  EXPECT_EQ(machine.filesBelow("C:\\"), Paths{});
  EXPECT_EQ(machine.filesBelow("D:\\"), (Paths{"D:\\Docs\\a.txt", "D:\\Docs\\missing.txt"}));
  EXPECT_EQ(machine.contents("D:\\Docs\\a.txt"), machine.writes()[83].bytes);
  EXPECT_EQ(machine.contents("D:\\Docs\\a.txt")->size(), 7U);
  EXPECT_EQ(machine.contents("D:\\Docs\\missing.txt")->size(), 1U);
  EXPECT_EQ(machine.calls("moveFile"), 2 * 27) << "only names that are not there any more reach the disk";
}

TEST_F(ShredEngine, ProtectedLockedAndHugeFilesEndAsTheyMust) {
  machine.addFile("C:\\Docs\\protected.txt", "kept", kReadOnly);
  shred("C:\\Docs\\protected.txt");
  ReferenceRc4 rc4;
  rc4.seed(firstKey());
  expectedWrites(4, rc4);
  const std::string left = std::string(kHere) + '\\' + lastName(rc4);
  EXPECT_EQ(machine.filesBelow("C:\\"), Paths{left});
  EXPECT_EQ(machine.contents(left), "kept");
  EXPECT_EQ(machine.attributes(left), kReadOnly);

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
    for (int n = 1;; ++n) {
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
      const bool failed = !machine.faultsLeft();
      machine.clearFaults();
      if (!failed) break;
    }
  }
}

}  // namespace
