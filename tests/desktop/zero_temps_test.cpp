// The zero-byte finder and the temporary folders: what stands in the list and on the disk afterwards, file by file.
#include <algorithm>

#include "tests/desktop/ConsoleTest.h"
#include "tests/support/HostLink.h"

namespace desktop {
namespace {

constexpr const char* kWarning = "Use extreme caution when deleting 0 byte files - see help for details";
constexpr const char* kCleaned = "All temporary files not in use have been deleted";
constexpr DWORD kWalkPatience = 30000;

class ZeroByteTest : public ConsoleTest {
 protected:
  List zeros() { return console().list({"File Path and Name"}); }
  Control command(const std::string& text) { return console().buttonAfter("0 byte files:", text); }

  std::string makeEmpty(const std::string& name, DWORD attributes = FILE_ATTRIBUTE_NORMAL) {
    const std::string path = make(name, 0);
    setAttributes(path, attributes);
    return path;
  }

  void startScan() {
    console().button("Find 0 Byte Files").click();
    const Box warning = program().box("Warning!");
    EXPECT_EQ(warning.message(), kWarning);
    warning.press("OK");
  }

  void waitForResultLine(int count) {
    const std::string beginning = "Results: " + std::to_string(count) + " 0 Byte files found in ";
    const auto shown = [&] {
      return std::ranges::any_of(console().labelTexts(),
                                 [&](const std::string& text) { return text.starts_with(beginning); });
    };
    waitUntil("\"" + beginning + "\"", shown, kWalkPatience);
  }

  std::vector<std::string> listed() {
    std::vector<std::string> paths;
    for (int row = 0; row < zeros().rowCount(); ++row) paths.push_back(zeros().cell(row, 0));
    return paths;
  }
};

TEST_F(ZeroByteTest, ListsEmptyFilesAndDeletesTheTickedOnes) {
  const std::vector<std::string> empty = {
      makeEmpty("a plain.txt"), makeEmpty("b read-only.txt", FILE_ATTRIBUTE_READONLY),
      makeEmpty("c hidden.txt", FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN), makeEmpty("desktop.ini")};
  makeEmpty("sub\\Desktop.ini");
  const std::string full = make("full.txt", 10);
  console().folderList().open("desktop");
  startScan();
  waitForResultLine(4);
  EXPECT_EQ(listed(), empty) << "desktop.ini, but not Desktop.ini";
  EXPECT_FALSE(junk().visible());
  EXPECT_FALSE(command("Delete").enabled());
  takeScreenshot("zero-byte-files");

  const std::size_t recycled = recycledItems();
  command("Select All").click();
  waitUntil("ticks", [this] { return command("Delete").enabled(); });
  zeros().clickTick(0);
  waitUntil("the tick to go", [this] { return !zeros().ticked(0); });
  command("Delete").click();
  program().box("Confirm Deletion").press("Yes");
  const Box question = program().box("Delete File");
  EXPECT_EQ(question.message(), empty[1] + "\r\nis a read only file - OK to delete?") << "the hidden one does not ask";
  question.press("No");
  const Box closing = program().box("Files Deleted");
  EXPECT_EQ(closing.message(), "The selected 0 Byte files have been deleted to the Recycle Bin");
  closing.press("OK");
  EXPECT_EQ(listed(), (std::vector<std::string>{empty[0], empty[1]}));
  EXPECT_FALSE(zeros().ticked(0) || zeros().ticked(1)) << "No takes the tick away";
  EXPECT_TRUE(exists(empty[0]) && exists(empty[1]) && exists(full));
  EXPECT_FALSE(exists(empty[2]) || exists(empty[3]));
  EXPECT_EQ(recycledItems(), recycled + 2);
}

TEST_F(ZeroByteTest, ResultLineOfAnAbortedScanFollowsItsBox) {
  constexpr int kFolders = 30;
  constexpr int kFilesEach = 100;
  for (int folder = 0; folder < kFolders; ++folder) {
    const std::string path = std::string(kFolder) + "\\" + std::to_string(folder);
    makeFolders(path);
    for (int file = 0; file < kFilesEach; ++file) makeEmptyFile(path + "\\" + std::to_string(file));
  }
  console().folderList().open("desktop");
  const Control abort = console().button("Abort Scan");
  startScan();
  waitUntil("the first rows", [this] { return zeros().rowCount() > 0; });
  for (const char* tool : {"Delete Temps", "Close", "Shredder", "Custom Ext."}) {
    EXPECT_FALSE(console().button(tool).enabled()) << tool;
  }
  EXPECT_FALSE(console().buttonAfter("Junk files:", "Invert").enabled());
  EXPECT_FALSE(console().buttonAfter("Internet cache:", "Abort").enabled());
  abort.click();
  const Box box = program().box("Scan Aborted", kWalkPatience);
  EXPECT_EQ(box.message(), "    Scan Aborted");
  const std::vector<std::string> labels = console().labelTexts();
  EXPECT_TRUE(std::ranges::none_of(labels, [](const std::string& text) { return text.starts_with("Results"); }));
  const int found = zeros().rowCount();
  EXPECT_LT(found, kFolders * kFilesEach);
  box.press("OK");
  waitForResultLine(found);
  waitUntil("the tools", [this] { return console().button("Delete Temps").enabled(); });
  EXPECT_TRUE(console().buttonAfter("Internet cache:", "Abort").enabled());
}

// The program's temporary folder is the test's own; Windows' is there as well.
class TempFoldersTest : public ConsoleTest {
 protected:
  void SetUp() override {}

  void TearDown() override {
    if (!isStarted_) return;
    for (const char* folder : {kTemp, "C:\\desktop\\temp\\tree"}) {
      const bool isThere = exists(folder + std::string("\\link"));
      EXPECT_TRUE(!isThere || support::removeFolderLink(folder, "link"));
    }
    ConsoleTest::TearDown();
    removeTree(kWindowsTemp);
    makeFolders(kWindowsTemp);
  }

  // Null: the program has no such variable.
  void start(const char* temp) {
    SetEnvironmentVariableA("TEMP", temp);
    ConsoleTest::SetUp();
    isStarted_ = true;
  }

  void warnAndGoOn() {
    console().button("Delete Temps").click();
    const Box warning = program().box("Scrubhaven Pro - Warning!");
    EXPECT_EQ(warning.message(), "This will clear ALL your profile and Windows temporary folders without backup!");
    EXPECT_EQ(warning.defaultButton(), "Cancel");
    warning.press("OK");
  }

  void answer(const std::string& file, const std::string& button) {
    const Box question = program().box("Delete File", kWalkPatience);
    EXPECT_EQ(question.message(), file + "\r\nis a read only file - OK to Delete?");
    question.press(button);
  }

  void waitForEnd() {
    const Box done = program().box("Done", kWalkPatience);
    EXPECT_EQ(done.message(), kCleaned);
    done.press("OK");
  }

  static void makeOfEachAttribute(const std::string& folder) {
    for (const int attributes : {0, 1, 3, 33, 35}) {
      const std::string file = folder + "\\" + std::to_string(attributes);
      makeFile(file, "bytes");
      setAttributes(file, attributes == 0 ? FILE_ATTRIBUTE_NORMAL : static_cast<DWORD>(attributes));
    }
  }

  // The names in a folder, sorted, and on the test's output too.
  static std::vector<std::string> left(const std::string& folder) {
    std::vector<std::string> names;
    WIN32_FIND_DATAA found;
    const HANDLE enumeration = FindFirstFileA((folder + "\\*").c_str(), &found);
    if (enumeration == INVALID_HANDLE_VALUE) return names;
    do {
      names.emplace_back(found.cFileName);
    } while (FindNextFileA(enumeration, &found) != FALSE);
    FindClose(enumeration);
    std::erase_if(names, [](const std::string& name) { return name == "." || name == ".."; });
    std::ranges::sort(names);
    std::printf("left in %s:", folder.c_str());
    for (const std::string& name : names) std::printf(" %s", name.c_str());
    std::printf("\n");
    return names;
  }

  static constexpr const char* kTemp = "C:\\desktop\\temp";
  static constexpr const char* kWindowsTemp = "C:\\windows\\temp";

 private:
  bool isStarted_ = false;
};

using Names = std::vector<std::string>;

TEST_F(TempFoldersTest, LeaveWhatIsInUseRefusedOrElsewhere) {
  start(kTemp);
  makeOfEachAttribute(kTemp);
  makeOfEachAttribute(kWindowsTemp);
  makeFile("C:\\desktop\\temp\\locked", "locked");
  makeFile("C:\\desktop\\temp\\nested\\deep\\file", "bytes");
  makeFile("C:\\desktop\\temp\\nested\\read-only", "bytes");
  setAttributes("C:\\desktop\\temp\\nested\\read-only", FILE_ATTRIBUTE_READONLY);
  makeFolders("C:\\desktop\\temp\\tree");
  makeFile("C:\\desktop\\outside\\kept", "kept");
  makeFile("C:\\desktop\\outside\\deep\\kept", "kept");
  ASSERT_TRUE(support::makeFolderLink(kTemp, "link", "..\\outside"));
  ASSERT_TRUE(support::makeFolderLink("C:\\desktop\\temp\\tree", "link", "..\\..\\outside"));
  {
    const Lock lock("C:\\desktop\\temp\\locked");
    warnAndGoOn();
    // The Windows folder asks for all four, the user's one for two.
    answer("C:\\Windows\\Temp\\1", "Yes");
    answer("C:\\Windows\\Temp\\3", "Yes");
    answer("C:\\Windows\\Temp\\33", "No");
    answer("C:\\Windows\\Temp\\35", "No");
    answer("C:\\desktop\\temp\\1", "Yes");
    answer("C:\\desktop\\temp\\33", "No");
    waitForEnd();
  }
  EXPECT_EQ(left(kWindowsTemp), (Names{"33", "35"}));
  // Wine can only follow links, so the two stay; what they point to is as it was.
  EXPECT_EQ(left(kTemp), (Names{"3", "33", "35", "link", "locked", "tree"}));
  EXPECT_EQ(left("C:\\desktop\\temp\\tree"), Names{"link"});
  EXPECT_EQ(left("C:\\desktop\\outside"), (Names{"deep", "kept"}));
  EXPECT_EQ(readFile("C:\\desktop\\outside\\kept") + readFile("C:\\desktop\\outside\\deep\\kept"), "keptkept");
  EXPECT_TRUE(console().button("Scan").enabled());
}

TEST_F(TempFoldersTest, CancelTouchesNothing) {
  start(kTemp);
  makeFile("C:\\desktop\\temp\\nested\\file", "bytes");
  console().button("Delete Temps").click();
  program().box("Scrubhaven Pro - Warning!").press("Cancel");
  waitUntil("the console to take input again", [this] { return console().takesInput(); });
  EXPECT_TRUE(exists("C:\\desktop\\temp\\nested\\file"));
  EXPECT_FALSE(console().button("Scan").enabled());
}

TEST_F(TempFoldersTest, ARootAndNothingNameNoFolder) {
  for (const char* value : {static_cast<const char*>(nullptr), "", "C:", "C:\\"}) {
    start(value);
    for (const char* file : {"C:\\root.txt", "C:\\desktop\\file", "C:\\Program Files\\kept\\file"}) {
      makeFile(file, "kept");
    }
    const Names root = left("C:");
    warnAndGoOn();
    waitForEnd();
    EXPECT_EQ(left("C:"), root);
    for (const char* file : {"C:\\root.txt", "C:\\desktop\\file", "C:\\Program Files\\kept\\file"}) {
      EXPECT_EQ(readFile(file), "kept") << (value == nullptr ? "none" : value);
    }
    ConsoleTest::TearDown();
  }
}

}  // namespace
}  // namespace desktop
