// The zero-byte finder and the temporary folders: what stands in the list and on the disk afterwards, file by file.
#include "tests/desktop/ConsoleTest.h"
#include "tests/support/HostLink.h"

namespace desktop {
namespace {

constexpr const char* kDone = "All temporary files not in use have been deleted";
constexpr DWORD kWalkPatience = 30000;  // milliseconds

TEST_F(ConsoleTest, EmptyFilesAreListedAndTheTickedOnesGo) {
  const std::string plain = make("a plain.txt", 0);
  const std::string readOnly = make("b read-only.txt", 0);
  const std::string hidden = make("c hidden.txt", 0);
  const std::string lower = make("desktop.ini", 0);
  const std::string kept = make("sub\\Desktop.ini", 0);
  const std::string full = make("full.txt", 10);
  setAttributes(readOnly, FILE_ATTRIBUTE_READONLY);
  setAttributes(hidden, FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN);
  const std::size_t recycled = recycledItems();
  const List zeros = console().list({"File Path and Name"});
  const Control remove = console().buttonAfter("0 byte files:", "Delete");
  console().openFolder("desktop");
  press("Find 0 Byte Files");
  answer("Warning!", "Use extreme caution when deleting 0 byte files - see help for details");
  waitForResults("Results: 4 0 Byte files found in ");
  EXPECT_EQ(zeros.texts(), (Texts{plain, readOnly, hidden, lower}));
  EXPECT_FALSE(junk().visible() || remove.enabled());
  takeScreenshot("zero-byte-files");

  console().buttonAfter("0 byte files:", "Select All").click();
  waitUntil("ticks", [&] { return remove.enabled(); });
  zeros.flip(plain);
  remove.click();
  box("Confirm Deletion").press("Yes");
  // The hidden one does not ask.
  answer("Delete File", readOnly + "\r\nis a read only file - OK to delete?", "No");
  answer("Files Deleted", "The selected 0 Byte files have been deleted to the Recycle Bin");
  EXPECT_EQ(zeros.texts(), (Texts{plain, readOnly}));
  EXPECT_TRUE(exists(plain) && exists(readOnly) && exists(kept) && isUntouched(full, 10));
  EXPECT_FALSE(exists(hidden) || exists(lower));
  EXPECT_EQ(recycledItems(), recycled + 2);
}

// Sets the program's temporary folder; null: it has no such variable.
struct TempVariable {
  explicit TempVariable(const char* value = "C:\\desktop\\temp") { SetEnvironmentVariableA("TEMP", value); }
};

void emptyTempFolders(const Program& program, const std::string& button) {
  program.press("Delete Temps");
  EXPECT_EQ(program.box("Scrubhaven Pro - Warning!").defaultButton(), "Cancel");
  program.answer("Scrubhaven Pro - Warning!",
                 "This will clear ALL your profile and Windows temporary folders without backup!", button);
}

class TempFoldersTest : TempVariable, public ConsoleTest {
 protected:
  void TearDown() override {
    for (const std::string folder : {"C:\\desktop\\temp", "C:\\desktop\\temp\\tree"}) {
      EXPECT_TRUE(!exists(folder + "\\link") || support::removeFolderLink(folder, "link"));
    }
    removeTree("C:\\windows\\temp");
    std::filesystem::create_directories("C:\\windows\\temp");
  }
};

TEST_F(TempFoldersTest, LeaveWhatIsInUseRefusedOrElsewhere) {
  const std::string windowsTemp = "C:\\windows\\temp";
  const std::string temp = kFolder + "temp";
  for (const std::string& folder : {windowsTemp, temp}) {
    for (const std::string name : {"1", "32", "33"}) {
      makeFile(folder + "\\" + name, "bytes");
      setAttributes(folder + "\\" + name, std::stoul(name));
    }
  }
  make("temp\\locked");
  make("temp\\nested\\deep\\file");
  setAttributes(make("temp\\nested\\read-only"), FILE_ATTRIBUTE_READONLY);
  std::filesystem::create_directories(temp + "\\tree");
  std::filesystem::create_directories(kFolder + "outside\\empty");
  const std::string outside = make("outside\\kept");
  const std::string deepOutside = make("outside\\deep\\kept");
  ASSERT_TRUE(support::makeFolderLink(temp, "link", "..\\outside"));
  ASSERT_TRUE(support::makeFolderLink(temp + "\\tree", "link", "..\\..\\outside\\empty"));

  emptyTempFolders(*this, "Cancel");
  waitForConsole();
  EXPECT_EQ(namesIn(temp), (Texts{"1", "32", "33", "link", "locked", "nested", "tree"}));
  EXPECT_FALSE(console().button("Scan").enabled());
  {
    const Lock lock(temp + "\\locked");
    emptyTempFolders(*this, "OK");
    const auto onReadOnly = [this](const std::string& file, const std::string& button) {
      answer("Delete File", file + "\r\nis a read only file - OK to Delete?", button, kWalkPatience);
    };
    onReadOnly("C:\\Windows\\Temp\\1", "Yes");
    onReadOnly("C:\\Windows\\Temp\\33", "No");
    onReadOnly(temp + "\\1", "Yes");
    onReadOnly(temp + "\\33", "No");
    answer("Done", kDone, "OK", kWalkPatience);
  }
  EXPECT_EQ(namesIn(windowsTemp), Texts{"33"});
  // Wine can only follow links, so the two stay; what they point to is as it was.
  EXPECT_EQ(namesIn(temp), (Texts{"33", "link", "locked", "tree"}));
  EXPECT_EQ(namesIn(temp + "\\tree"), Texts{"link"});
  EXPECT_EQ(namesIn(kFolder + "outside"), (Texts{"deep", "empty", "kept"}));
  EXPECT_TRUE(isUntouched(outside) && isUntouched(deepOutside));
  EXPECT_TRUE(console().button("Scan").enabled());
}

TEST(TempFolders, ARootAndNothingNameNoFolder) {
  for (const char* value : {static_cast<const char*>(nullptr), "C:", "C:\\"}) {
    const TempVariable temp(value);
    const TestFolder folder;
    const Program program;
    const Texts files = {"C:\\root.txt", "C:\\desktop\\file", "C:\\Program Files\\kept\\file"};
    for (const std::string& file : files) makeFile(file, "kept");
    const Texts root = namesIn("C:\\");
    emptyTempFolders(program, "OK");
    program.answer("Done", kDone, "OK", kWalkPatience);
    EXPECT_EQ(namesIn("C:\\"), root);
    for (const std::string& file : files) EXPECT_EQ(readFile(file), "kept") << (value == nullptr ? "none" : value);
  }
}

}  // namespace
}  // namespace desktop
