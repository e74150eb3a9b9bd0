#include <array>
#include <utility>

#include "shredder/frmMain.h"
#include "shredder/modMain.h"
#include "tests/unit/UnitTest.h"

using platform::Answer;

namespace {

constexpr const char* kHere = "C:\\Here";
constexpr std::size_t kPasses = 3U * SHRED_ROUNDS;  // over a file that is not empty
const Paths kShredded = {kAskShred, "The selected files have been shredded."};
const Paths kQuiet = {kAskShred};

// The published algorithm. The indices go on when it is seeded again.
struct Rc4 {
  std::array<std::uint8_t, 256> s{};
  std::uint8_t i = 0;
  std::uint8_t j = 0;

  void seed(const std::string& key) {
    for (std::size_t k = 0; k < s.size(); ++k) s[k] = static_cast<std::uint8_t>(k);
    std::uint8_t other = 0;
    for (std::size_t k = 0; k < s.size(); ++k) {
      other = static_cast<std::uint8_t>(other + s[k] + static_cast<std::uint8_t>(key[k % key.size()]));
      std::swap(s[k], s[other]);
    }
  }
  std::string bytes(std::size_t count) {
    std::string drawn;
    while (drawn.size() < count) {
      j = static_cast<std::uint8_t>(j + s[++i]);
      std::swap(s[i], s[j]);
      drawn += static_cast<char>(s[static_cast<std::uint8_t>(s[i] + s[j])]);
    }
    return drawn;
  }
  // A letter is a byte's rounded share of the alphabet; the two highest bytes come to one letter too many.
  std::string name() {
    const std::string letters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ1234567890-_ ";
    std::string name;
    for (const char drawn : bytes(101))
      name += letters.substr((static_cast<std::uint8_t>(drawn) * 130U + 255) / 510, 1);
    return name + ".tmp";
  }
};

// A loaded shredder, and a folder to which renamed files move.
class Shredder : public UnitTest {
 protected:
  frmMain form;
  std::vector<std::int16_t> progress;

  void SetUp() override {
    keystream() = {};
    machine.addFolder(kHere);
    machine.disk().setCurrentFolder(kHere);
    machine.environment().setDay({"21/11/2026", "12:34:56", 45296.12F});
    form.load();
  }

  void shredFile(const std::string& path) {
    ShredFile(path, SHRED_ROUNDS, [this](std::int16_t percent) { progress.push_back(percent); });
  }

  // Adds files of these names in C:\Docs to the list, through the dialog.
  void add(std::initializer_list<const char*> names) {
    for (const char* name : names) {
      const std::string path = std::string("C:\\Docs\\") + name;
      machine.addFile(path, name);
      machine.ui().chooseFile(path);
      form.cmdAddFile.click();
    }
  }

  void removeRow(std::size_t row) {
    form.ListView1.clickRow(row);
    form.cmdRemoveFile.click();
  }

  // Shreds what is listed, the question answered with Yes; the user acts while the first file is in progress.
  Paths shred(std::function<void()> whileShredding = [] {}) {
    machine.whenServing([] {});
    machine.whenServing(std::move(whileShredding));
    return press(form.cmdShred, {Answer::kYes});
  }
};

// The key is the day, the seconds, the time and a character drawn; here 0.7055475 and 0.533424 of 255.
TEST_F(Shredder, FilesGetTheirPassesInPlaceAndNamesFromOneRunOfTheIndices) {
  machine.addFile("C:\\Docs\\a.txt", "0123456789");
  machine.addFile("C:\\Docs\\b.txt", std::string(1000, 'b'));
  for (const int file : {1, 2}) machine.faults().failAt("remove", file);
  shredFile("C:\\Docs\\a.txt");
  EXPECT_EQ(progress, (std::vector<std::int16_t>{4,  7,  11, 14, 18, 21, 25, 29, 32, 36, 39, 43, 46, 50,
                                                 54, 57, 61, 64, 68, 71, 75, 79, 82, 86, 89, 93, 96, 100}));
  machine.environment().setDay({"22/11/2026", "00:00:01", 1.5F});
  shredFile("C:\\Docs\\b.txt");
  EXPECT_EQ(machine.faults().calls("flushFileBuffers"), 2 * 2 * 84);
  ASSERT_EQ(machine.disk().writes().size(), 2 * kPasses);
  EXPECT_EQ(machine.filesBelow("C:\\").size(), 2U);
  Rc4 rc4;
  auto write = machine.disk().writes().begin();
  for (const auto& [path, length, key] : {std::tuple("C:\\Docs\\a.txt", 10U, "21/11/2026 45296.1212:34:56\xB4"),
                                          {"C:\\Docs\\b.txt", 1000U, "22/11/2026 1.500:00:01\x88"}}) {
    rc4.seed(key);
    for (int pass = 0; pass < 84; ++pass, ++write) {
      const std::string fixed(length, pass % 2 == 0 ? '\0' : '\xFF');
      EXPECT_EQ(write->bytes, pass < 56 ? fixed : rc4.bytes(length + 1)) << pass;
      EXPECT_TRUE(write->path == path && write->position == 0);
    }
    for (int renaming = 0; renaming < 27; ++renaming) rc4.name();
    EXPECT_EQ(machine.contents(std::string(kHere) + '\\' + rc4.name()), (write - 1)->bytes);
  }
  for (int i = 0; i < 300; ++i) ASSERT_EQ(RandomName(), rc4.name());
}

TEST_F(Shredder, FilesThatCannotBeOverwrittenOrMovedStayAndEmptyOnesGetOneByte) {
  machine.disk().addDrive('D');
  machine.addFile("D:\\a.txt", "secret");
  shredFile("D:\\a.txt");
  EXPECT_EQ(machine.contents("D:\\a.txt"), machine.disk().writes()[kPasses - 1].bytes) << "no renaming to a drive";
  machine.addFile("C:\\empty.txt");
  shredFile("C:\\empty.txt");
  EXPECT_TRUE(machine.filesBelow("C:\\").empty());
  EXPECT_EQ(machine.disk().writes().size(), kPasses + SHRED_ROUNDS);
  machine.addFile("C:\\Docs\\read-only.txt", "kept", platform::kReadOnly);
  shredFile("C:\\Docs\\read-only.txt");
  const Paths left = machine.filesBelow("C:\\");
  EXPECT_TRUE(left.at(0).starts_with(kHere) && machine.contents(left[0]) == "kept");
}

// ---- The window

TEST_F(Shredder, CancelEndsTheRunAfterTheFileAndStaysInForce) {
  add({"a.txt", "b.txt", "c.txt"});
  EXPECT_EQ(shred([&] {
              EXPECT_EQ(form.lblProgress.caption(), "File 1 of 3, 4%: a.txt");
              form.cmdCancel.click();
              EXPECT_EQ(form.lblProgress.caption(), "Stopping after this file. File 1 of 3, 4%: a.txt");
            }),
            kQuiet);
  EXPECT_FALSE(form.lblProgress.visible());
  EXPECT_EQ(rowsOf(form.ListView1), (Paths{"C:\\Docs\\b.txt", "C:\\Docs\\c.txt"}));
  EXPECT_EQ(machine.disk().writes().size(), kPasses) << "the file in progress is finished";
  EXPECT_FALSE(form.cmdCancel.enabled() || form.lblBlue.visible());
  EXPECT_EQ(shred(), kQuiet);
  EXPECT_EQ(machine.filesBelow("C:\\"), Paths{"C:\\Docs\\c.txt"});
}

TEST_F(Shredder, ListMayChangeDuringARunAndNoWrongFileIsTaken) {
  add({"a.txt", "b.txt", "c.txt", "d.txt"});
  EXPECT_EQ(shred([&] {
              // The file in progress and the one behind it leave the list, another comes at its end.
              removeRow(0);
              removeRow(0);
              add({"late.txt"});
              // It has enabled the button, yet no second run begins.
              EXPECT_EQ(press(form.cmdShred), Paths{});
            }),
            kShredded);
  EXPECT_EQ(machine.filesBelow("C:\\"), Paths{"C:\\Docs\\b.txt"});
  add({"a.txt"});
  EXPECT_EQ(shred([&] { add({"later.txt"}); }), kShredded);
  EXPECT_EQ(machine.filesBelow("C:\\"), (Paths{"C:\\Docs\\b.txt", "C:\\Docs\\later.txt"}));
}

TEST_F(Shredder, OverwritesFilesBeyondFourGibibytesToTheirEnd) {
  constexpr std::uint64_t kSize = (std::uint64_t{5} << 30) + 3;
  constexpr std::uint64_t kMostMemory = 64 << 20;
  machine.addSizedFile("C:\\large.bin", kSize);
  machine.disk().forgetWrites();
  // So many random bytes would take minutes: that pass cannot open the file.
  machine.faults().failAt("openBinary", 3);
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
