// What only the in-memory machine shows: the finer points of DOS names that the test system does not share, and
// the things that a test orders from it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ctime>
#include <stdexcept>
#include <string>
#include <vector>

#include "controls/Form.h"
#include "platform/memory/MemoryMachine.h"

namespace platform::memory {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> find(MemoryMachine& machine, const std::string& pattern) {
  std::vector<std::string> names;
  FindRecord record;
  const Handle enumeration = machine.files().findFirstFile(pattern, record);
  for (bool more = enumeration != kInvalidHandle; more; more = machine.files().findNextFile(enumeration, record)) {
    names.emplace_back(record.name.data());
  }
  machine.files().findClose(enumeration);
  return names;
}

TEST(MemoryNames, WildcardsMatchAsDosDid) {
  struct Case {
    const char* pattern;
    const char* name;
    bool matches;
  };
  constexpr Case kCases[] = {
      {"*", "a.b", true},
      {"*.*", "nodot", true},
      {"*.", "nodot", true},
      {"*.", "a.b", false},
      {"?", "a", true},
      {"?", "ab", false},
      {"???", "a", true},
      {"a?.txt", "a.txt", true},
      {"a?.txt", "ab.txt", true},
      {"a?b.txt", "ab.txt", false},
      {"foo.*", "foo", true},
      {"foo.*", "foox", false},
      {"foo.???", "foo.a", true},
      {"foo.???", "foo", true},
      {"foo.???", "foo.abcd", false},
      {"*.bak", "a.bak.bak", true},
      {"*.bak", "a.bakx", false},
      {"*a*a*a*b", "aaaaaaaaaaaa", false},
      {"*.b*", "a.x.b", true},
      {"*.tmp.", "a.tmp", true},
      {"*.jpg ", "a.jpg", true},
      {"*. jpg", "a.jpg", false},
      {"\xE9*", "\xC9t\xE9", true},
      {"a|b", "a|b", false},
      {"", "", false},
  };
  for (const Case& c : kCases) {
    EXPECT_EQ(Wildcards(c.pattern).matches(c.name), c.matches) << '"' << c.pattern << "\" and " << c.name;
  }
}

TEST(MemoryNames, LongNamesGetAliasesThatAreTheirOwn) {
  MemoryMachine machine;
  machine.addFile("C:\\t\\longna~1.bak");
  for (int i = 0; i < 20; ++i) machine.addFile("C:\\t\\long name " + std::to_string(i) + ".bakery");
  machine.addFile("C:\\t\\+plus.text");
  machine.addFile("C:\\t\\.bakrc");
  EXPECT_EQ(find(machine, "C:\\t\\*.bak").size(), 21u);
  EXPECT_THAT(find(machine, "C:\\t\\LONGNA~2.BAK"), ElementsAre("long name 0.bakery"));
  EXPECT_THAT(find(machine, "C:\\t\\_PLUS~1.TEX"), ElementsAre("+plus.text"));
  EXPECT_THAT(find(machine, "C:\\t\\BAKRC~1"), ElementsAre(".bakrc"));
  EXPECT_TRUE(machine.fileObjects().deleteFile("C:\\t\\LONGNA~2.BAK", false));
  EXPECT_FALSE(machine.exists("C:\\t\\long name 0.bakery"));
  EXPECT_THAT(find(machine, "C:\\t\\LONGNA~2.BAK"), IsEmpty());
}

TEST(MemoryNames, EntriesThatNoPathReachesAreLeftOut) {
  MemoryMachine machine;
  machine.addFile("C:\\t\\blank.bak ", "other");
  machine.addFile("C:\\t\\blank.bak", "own");
  machine.addFile("C:\\t\\dot.");
  machine.addUnspeakableFile("C:\\t", "UNSPEA~1.BAK");
  machine.addUnspeakableFile("C:\\t", "");
  EXPECT_THAT(find(machine, "C:\\t\\*"), ElementsAre(".", "..", "UNSPEA~1.BAK", "blank.bak"));
  EXPECT_TRUE(machine.fileObjects().deleteFile("C:\\t\\blank.bak ", true));
  EXPECT_TRUE(machine.exists("C:\\t\\blank.bak ")) << "a call cannot name it";
  EXPECT_FALSE(machine.exists("C:\\t\\blank.bak"));
  EXPECT_TRUE(machine.fileObjects().deleteFile("C:\\t\\UNSPEA~1.BAK", true));
}

TEST(MemoryDisk, EnumeratesByNameWithoutCase) {
  MemoryMachine machine;
  for (const char* name : {"b", "A", "a_", "ab", "C"}) machine.addFile(std::string("C:\\t\\") + name);
  EXPECT_THAT(find(machine, "C:\\t\\*"), ElementsAre(".", "..", "A", "ab", "a_", "b", "C"));
  machine.addDrive('D');
  EXPECT_THAT(find(machine, "D:\\*"), IsEmpty()) << "a root has no dot entries";
}

TEST(MemoryDisk, EnumerationSeesWhatComesAndGoes) {
  MemoryMachine machine;
  for (int i = 100; i < 200; ++i) machine.addFile("C:\\t\\f" + std::to_string(i));
  FindRecord record;
  const Handle enumeration = machine.files().findFirstFile("C:\\t\\f*", record);
  for (int i = 100; i < 199; ++i) ASSERT_TRUE(machine.fileObjects().deleteFile("C:\\t\\f" + std::to_string(i), false));
  machine.addFile("C:\\t\\f2");
  ASSERT_TRUE(machine.files().findNextFile(enumeration, record));
  EXPECT_STREQ(record.name.data(), "f199");
  ASSERT_TRUE(machine.files().findNextFile(enumeration, record));
  EXPECT_STREQ(record.name.data(), "f2");
  EXPECT_FALSE(machine.files().findNextFile(enumeration, record));
  EXPECT_TRUE(machine.files().findClose(enumeration));
  EXPECT_FALSE(machine.files().findClose(enumeration));
  EXPECT_FALSE(machine.files().findNextFile(enumeration, record));
}

TEST(MemoryDisk, CallsTakeNoPathBeyondTheLimit) {
  MemoryMachine machine;
  const std::string folder = "C:\\" + std::string(200, 'a');
  const std::string longest = folder + '\\' + std::string(kMaxPath - 1 - folder.size() - 1, 'b');
  machine.addFile(longest, "x");
  machine.addFile(longest + 'b', "y");
  EXPECT_EQ(machine.files().fileLength(longest), 1);
  EXPECT_EQ(machine.files().fileLength(longest + 'b').error().number, kFileNotFound);
  EXPECT_EQ(machine.files().openBinary(1, longest + 'b').error().number, kPathNotFound);
}

TEST(MemoryDisk, LinksLeadElsewhereAndGoWithoutTheirTarget) {
  MemoryMachine machine;
  machine.addFile("C:\\real\\file.txt", "bytes");
  machine.addFolderLink("C:\\link", "C:\\real");
  machine.addFolderLink("C:\\real\\round", "C:\\real");
  machine.addFolderLink("C:\\self", "C:\\self");
  EXPECT_EQ(machine.files().getFileAttributes("C:\\link"), kDirectory | kReparsePoint);
  EXPECT_THAT(find(machine, "C:\\link\\*.txt"), ElementsAre("file.txt"));
  EXPECT_EQ(machine.files().fileLength("C:\\link\\round\\round\\file.txt"), 5);
  EXPECT_THAT(find(machine, "C:\\self\\*"), IsEmpty());
  EXPECT_THAT(machine.filesBelow("C:\\"), ElementsAre("C:\\real\\file.txt"));
  EXPECT_EQ(machine.shell().fileOperation({.sourceList = std::string("C:\\link\0", 8), .flags = kNoConfirmation}), 0);
  EXPECT_FALSE(machine.exists("C:\\link"));
  EXPECT_TRUE(machine.exists("C:\\real\\file.txt"));
}

TEST(MemoryDisk, DrivesThatAreNotReadyGiveNothing) {
  MemoryMachine machine;
  machine.addDrive('a', "FLOPPY", false);
  machine.setReady('A', true);
  machine.addFile("A:\\file.txt");
  EXPECT_EQ(machine.files().drives().front().label, "FLOPPY");
  machine.setReady('A', false);
  EXPECT_EQ(machine.files().drives().front().label, "");
  EXPECT_THAT(find(machine, "A:\\*"), IsEmpty());
  EXPECT_EQ(machine.files().getFileAttributes("A:\\file.txt"), kInvalidAttributes);
  EXPECT_EQ(machine.files().subfolders("A:\\").error().number, kDeviceUnavailable);
  EXPECT_EQ(machine.files().currentFolderOf('a').error().number, kDeviceUnavailable);
  EXPECT_TRUE(machine.exists("A:\\file.txt"));
}

TEST(MemoryDisk, RefusalsOfDeletion) {
  MemoryMachine machine;
  machine.addFile("C:\\t\\denied.txt", "x");
  machine.denyWriting("C:\\t\\denied.txt");
  EXPECT_EQ(machine.files().openBinary(1, "C:\\t\\denied.txt").error().number, kPathFileAccess);
  EXPECT_EQ(machine.fileObjects().deleteFile("C:\\t\\denied.txt", true).error().number, kPermissionDenied);

  machine.addFile("C:\\u\\in use.txt");
  machine.addFile("C:\\u\\free.txt");
  machine.lock("C:\\u\\in use.txt");
  const FileOperation folderToBin{.sourceList = std::string("C:\\u\0", 5), .flags = kNoConfirmation | kAllowUndo};
  EXPECT_NE(machine.shell().fileOperation(folderToBin), 0);
  EXPECT_TRUE(machine.exists("C:\\u\\free.txt")) << "the Recycle Bin takes a folder whole or not at all";
  machine.unlock("C:\\u\\in use.txt");
  EXPECT_EQ(machine.shell().fileOperation(folderToBin), 0);
  EXPECT_THAT(machine.recycleBin(), ElementsAre("C:\\u"));

  machine.addFile("C:\\v\\protected.txt", "", kReadOnly);
  EXPECT_EQ(machine.shell().fileOperation({.sourceList = std::string("C:\\v\0", 5), .flags = kNoConfirmation}), 0);
  EXPECT_FALSE(machine.exists("C:\\v"));
  EXPECT_NE(machine.shell().fileOperation({.sourceList = std::string("C:\\\0", 4), .flags = kNoConfirmation}), 0);
}

TEST(MemoryDisk, KeepsALogOfWritesAndHoldsOnlyTheseBytes) {
  MemoryMachine machine;
  machine.addSizedFile("C:\\t\\Huge.bin", std::uint64_t{1} << 40);
  ASSERT_TRUE(machine.files().openBinary(3, "c:\\T\\HUGE.BIN"));
  EXPECT_EQ(machine.openHandles(), 1u);
  EXPECT_TRUE(machine.files().putBytes(3, "ab"));
  EXPECT_TRUE(machine.files().putBytesAt(3, 4096, "xy"));
  EXPECT_TRUE(machine.files().putBytesAt(3, 1, ""));
  machine.files().closeFile(3);
  EXPECT_EQ(machine.openHandles(), 0u);
  ASSERT_EQ(machine.writes().size(), 2u);
  EXPECT_EQ(machine.writes()[0].path, "C:\\t\\Huge.bin");
  EXPECT_EQ(machine.writes()[1].position, 4095u);
  EXPECT_EQ(machine.writes()[1].bytes, "xy");
}

TEST(MemoryDisk, EnumeratesLargeFoldersInLinearTime) {
  constexpr int kSmall = 1000;
  constexpr int kLarge = 20 * kSmall;
  MemoryMachine machine;
  const auto fill = [&machine](const std::string& folder, int files) {
    for (int i = 0; i < files; ++i) machine.addFile(folder + "\\a long name " + std::to_string(i) + ".txt");
  };
  const auto processorTime = [&machine](const std::string& pattern) {
    const std::clock_t start = std::clock();
    find(machine, pattern);
    return static_cast<double>(std::clock() - start);
  };
  fill("C:\\small", kSmall);
  fill("C:\\large", kLarge);
  EXPECT_EQ(find(machine, "C:\\large\\*").size(), std::size_t{kLarge} + 2);
  // Twenty times the files: in quadratic time it would be four hundred times as long.
  EXPECT_LT(processorTime("C:\\large\\*7*.txt"), 120 * processorTime("C:\\small\\*7*.txt"));
}

TEST(MemoryFaults, HappenOnceAtTheOrderedCall) {
  MemoryMachine machine;
  machine.addFile("C:\\t\\a.txt");
  machine.failAt("getFile", 2, 53);
  machine.failAt("findFirstFile");
  EXPECT_THAT(find(machine, "C:\\t\\*"), IsEmpty());
  EXPECT_EQ(find(machine, "C:\\t\\*").size(), 3u);
  EXPECT_TRUE(machine.fileObjects().getFile("C:\\t\\a.txt"));
  EXPECT_TRUE(machine.faultsLeft());
  EXPECT_EQ(machine.fileObjects().getFile("C:\\t\\a.txt").error().number, 53);
  EXPECT_FALSE(machine.faultsLeft());
  EXPECT_TRUE(machine.fileObjects().getFile("C:\\t\\a.txt"));
  EXPECT_EQ(machine.calls("getFile"), 3);
  EXPECT_EQ(machine.calls("deleteFile"), 0);

  machine.failAt("closeHandle");
  EXPECT_FALSE(machine.files().closeHandle(machine.files().createFile("C:\\t\\a.txt", {})));
  EXPECT_EQ(machine.openHandles(), 0u);
}

class OneWindow final : public controls::Form {
 public:
  OneWindow() : Form("Window") {}
  controls::Box layout() override { return {}; }
};

TEST(MemoryUi, BoxesAnswerAsToldOrByTheirDefaultButton) {
  MemoryMachine machine;
  Ui& ui = machine.ui();
  EXPECT_EQ(ui.messageBox("a", "t", kBoxOk), Answer::kOk);
  EXPECT_EQ(ui.messageBox("b", "t", kBoxYesNo), Answer::kYes);
  EXPECT_EQ(ui.messageBox("c", "t", kBoxYesNo + kBoxQuestion + kBoxSecondButtonDefault), Answer::kNo);
  EXPECT_EQ(ui.messageBox("d", "t", kBoxOkCancel + kBoxCritical + kBoxSecondButtonDefault), Answer::kCancel);
  machine.answer(Answer::kNo);
  machine.onBox([&](const ShownBox& box) {
    machine.advance(1500);
    if (box.text == "f") machine.answer(Answer::kOk);
  });
  EXPECT_EQ(ui.messageBox("e", "t", kBoxYesNo), Answer::kNo);
  EXPECT_EQ(ui.messageBox("f", "t", kBoxOkCancel + kBoxSecondButtonDefault), Answer::kOk);
  EXPECT_EQ(machine.environment().getTickCount(), 3000u);
  ASSERT_EQ(machine.boxes().size(), 6u);
  EXPECT_EQ(machine.boxes()[4].answer, Answer::kNo);
  machine.answer(Answer::kYes);
  EXPECT_THROW(ui.messageBox("g", "t", kBoxOk), std::logic_error);
}

TEST(MemoryUi, ServingRunsOneQueuedActionAndEveryStandingOne) {
  MemoryMachine machine;
  std::string log;
  machine.whenServing([&] { log += '1'; });
  machine.whenServing([&] { log += '2'; });
  machine.everyServing([&] {
    log += 'e';
    machine.ui().serveEvents();
  });
  machine.ui().serveEvents();
  EXPECT_EQ(log, "1e2");
  machine.ui().serveEvents();
  EXPECT_EQ(log, "1e2e");
}

TEST(MemoryUi, ModalWindowsFollowTheirScript) {
  MemoryMachine machine;
  const Use use(machine);
  OneWindow window;
  window.showModal(nullptr);
  EXPECT_FALSE(window.isOpen()) << "without a script the user closes it at once";
  bool seen = false;
  machine.whenModal([&](controls::Form& form) {
    seen = form.acceptsInput();
    form.close();
  });
  window.showModal(nullptr);
  EXPECT_TRUE(seen);
  machine.whenModal([](controls::Form&) {});
  EXPECT_THROW(window.showModal(nullptr), std::logic_error);
  machine.whenModal([&](controls::Form&) { machine.ui().end(); });
  EXPECT_THROW(window.showModal(nullptr), Ended);
}

}  // namespace
}  // namespace platform::memory
