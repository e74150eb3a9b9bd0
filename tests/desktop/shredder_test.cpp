// The shredder window and the folder picker, with real files: what is left of them, and where.
#include <algorithm>
#include <array>

#include "tests/desktop/ConsoleTest.h"

namespace desktop {
namespace {

constexpr const char* kShredderTitle = "Scrubhaven Pro - Shredder";
constexpr const char* kPickerTitle = "Add folder contents";
constexpr const char* kBoxTitle = "Scrubhaven Pro";
constexpr const char* kOnOtherDrive = "D:\\desktop";
constexpr DWORD kShredding = 60000;  // milliseconds that a run may take
constexpr std::size_t kMegabyte = 1 << 20;

using Names = std::vector<std::string>;

Names namesIn(const std::string& folder) {
  Names names;
  WIN32_FIND_DATAA found;
  const HANDLE enumeration = FindFirstFileA((folder + "\\*").c_str(), &found);
  for (BOOL more = enumeration != INVALID_HANDLE_VALUE; more; more = FindNextFileA(enumeration, &found)) {
    const std::string name = found.cFileName;
    if (name != "." && name != "..") names.push_back(name);
  }
  FindClose(enumeration);
  std::ranges::sort(names);
  return names;
}

// A second name for a file: what was written to it stays readable there. NT only.
void makeHardLink(const std::string& link, const std::string& file) {
  using CreateHardLinkFunction = BOOL(WINAPI*)(LPCSTR, LPCSTR, LPSECURITY_ATTRIBUTES);
  const auto create =
      reinterpret_cast<CreateHardLinkFunction>(GetProcAddress(GetModuleHandleA("kernel32.dll"), "CreateHardLinkA"));
  if (create == nullptr || !create(link.c_str(), file.c_str(), nullptr)) throw Failed("no hard link " + link);
}

class ShredderTest : public ConsoleTest {
 protected:
  void SetUp() override {
    removeTree(kOnOtherDrive);
    ConsoleTest::SetUp();
    console().button("Shredder").click();
    shredder();
  }

  void TearDown() override {
    ConsoleTest::TearDown();
    removeTree(kOnOtherDrive);
  }

  Window shredder() { return program().window(kShredderTitle); }
  List list() { return shredder().list({"File Name and Path"}); }

  Names listed() {
    Names paths;
    const List all = list();
    for (int i = 0; i < all.rowCount(); ++i) paths.push_back(all.cell(i, 0));
    return paths;
  }

  void waitForList(const Names& paths, DWORD limit = kPatience) {
    waitUntil(
        std::to_string(paths.size()) + " listed files", [&] { return listed() == paths; }, limit);
  }

  // Adds a file by typing its path into the dialog; the dialog moves the program to the file's folder.
  void addFile(const std::string& path) {
    const int before = list().rowCount();
    shredder().button("Add File").click();
    const Box dialog = program().box("Select file(s) to shred");
    EXPECT_FALSE(shredder().takesInput());
    typeText(path);
    pressKey(VK_RETURN);
    waitUntil("the dialog to go", [&dialog] { return !dialog.isOpen(); });
    waitUntil(path + " in the list", [this, before] { return list().rowCount() == before + 1; });
  }

  // Adds the files of the test's folder through the picker.
  void addFolder() {
    shredder().button("Add Folder").click();
    const Window picker = program().window(kPickerTitle);
    picker.folderList().open("desktop");
    waitUntil("the folder's files", [&picker] { return picker.fileList() == namesIn(kFolder); });
    picker.button("OK").click();
    waitUntil("the picker to go", [&picker] { return !picker.isOpen(); });
  }

  void startShredding() {
    shredder().button("Shred Files").click();
    const Box question = program().box(kBoxTitle);
    EXPECT_EQ(question.message(),
              "Are you certain you want to shred these files?\r\nData recovery by any means will be impossible!");
    EXPECT_EQ(question.buttons(), (Names{"Yes", "No"}));
    question.press("Yes");
  }

  void waitForEndOfRun() {
    const Box done = program().box(kBoxTitle, kShredding);
    EXPECT_EQ(done.message(), "The selected files have been shredded.");
    done.press("OK");
    waitUntil("the buttons after a full run",
              [this] { return shredder().button("Shred Files").enabled() && shredder().button("Cancel").enabled(); });
    waitUntil("the bar to go", [this] { return !bar("lblBlue").visible(); });
    EXPECT_EQ(list().rowCount(), 0);
  }

  Control bar(const std::string& name) { return shredder().label(name); }

  // The share of the progress bar that is filled, 0 while it does not show.
  double filled() {
    const Control blue = bar("lblBlue");
    if (!blue.visible()) return 0;
    const RECT part = blue.place();
    const RECT whole = bar("lblGrey").place();
    EXPECT_EQ(part.left, whole.left);
    EXPECT_EQ(part.top, whole.top);
    return static_cast<double>(part.right - part.left) / (whole.right - whole.left);
  }
};

TEST_F(ShredderTest, OpensWithNothingToShredAndHoldsTheConsole) {
  EXPECT_FALSE(console().takesInput());
  EXPECT_FALSE(shredder().button("Shred Files").enabled());
  EXPECT_FALSE(shredder().button("Cancel").enabled());
  for (const char* button : {"Add File", "Add Folder", "Remove File", "Close"}) {
    EXPECT_TRUE(shredder().button(button).enabled()) << button;
  }
  EXPECT_TRUE(shredder().frame("Select Files to Shred").visible());
  EXPECT_EQ(shredder().toolTipOf(shredder().button("Add Folder")), "Add Contents of an Entire Folder to Shredder List");
  EXPECT_TRUE(bar("lblGrey").visible());
  EXPECT_FALSE(bar("lblBlue").visible());

  make("a.txt", 10);
  addFolder();
  waitForList({"C:\\desktop\\a.txt"});
  shredder().button("Shred Files").click();
  program().box(kBoxTitle).press("No");
  EXPECT_EQ(listed(), Names{"C:\\desktop\\a.txt"});
  list().clickText(0);
  shredder().button("Remove File").click();
  waitForList({});
  EXPECT_FALSE(shredder().button("Remove File").enabled());

  const Window window = shredder();
  window.button("Close").click();
  waitUntil("the console to take input again", [this] { return console().takesInput(); });
  waitUntil("the shredder to go", [&window] { return !window.isOpen(); });
  EXPECT_EQ(namesIn(kFolder), Names{"a.txt"});
}

TEST_F(ShredderTest, WhatIsLeftOfAFileIsTheLastRandomPassAndTheBarMoves) {
  const std::size_t size = 48 * kMegabyte;
  const std::string bytes = sampleBytes("secret", size);
  const std::string file = kFolder + std::string("\\secret.txt");
  const std::string link = kFolder + std::string("\\link.txt");
  makeFile(file, bytes);
  makeHardLink(link, file);
  addFile(file);
  waitForList({file});
  startShredding();
  double last = 0;
  waitUntil(
      "the bar half way",
      [&] {
        const double now = filled();
        EXPECT_GE(now, last) << "the bar went back";
        last = now;
        return now >= 0.45;
      },
      kShredding);
  takeScreenshot("shredder-half-way");
  EXPECT_TRUE(shredder().button("Cancel").enabled());
  EXPECT_FALSE(shredder().button("Shred Files").enabled());
  waitForEndOfRun();

  EXPECT_EQ(namesIn(kFolder), Names{"link.txt"});
  const std::string left = readFile(link);
  ASSERT_EQ(left.size(), size + 1);
  EXPECT_EQ(left.find("Sample content"), std::string::npos);
  std::array<std::size_t, 256> counts{};
  for (const char byte : left) ++counts[static_cast<unsigned char>(byte)];
  const auto [least, most] = std::ranges::minmax(counts);
  EXPECT_GT(least, size / 256 * 95 / 100) << "a random pass has all bytes about equally often";
  EXPECT_LT(most, size / 256 * 105 / 100);
}

// The dialog moves the program to the folder of the file chosen last, and that is where names land.
TEST_F(ShredderTest, OtherDriveKeepsItsOverwrittenFileAndReadOnlyOnesTheirBytes) {
  const std::string distant = std::string(kOnOtherDrive) + "\\distant.txt";
  makeFile(distant, sampleBytes("distant", 1000));
  const std::string readOnly = make("folder\\protected.txt", 500);
  setAttributes(readOnly, FILE_ATTRIBUTE_READONLY);
  const std::string last = make("here\\last.txt", 100);
  addFile(distant);
  addFile(readOnly);
  addFile(last);
  waitForList({distant, readOnly, last});
  startShredding();
  waitForEndOfRun();

  EXPECT_EQ(namesIn(kOnOtherDrive), Names{"distant.txt"});
  EXPECT_EQ(readFile(distant).size(), 1001U);
  EXPECT_EQ(readFile(distant).find("Sample"), std::string::npos);

  EXPECT_EQ(namesIn(kFolder + std::string("\\folder")), Names{});
  const Names here = namesIn(kFolder + std::string("\\here"));
  ASSERT_EQ(here.size(), 1U);
  EXPECT_TRUE(here[0].ends_with(".tmp") && here[0].size() > 90) << here[0];
  const std::string survivor = kFolder + std::string("\\here\\") + here[0];
  EXPECT_EQ(readFile(survivor), sampleBytes("folder\\protected.txt", 500));
  EXPECT_TRUE((attributesOf(survivor) & FILE_ATTRIBUTE_READONLY) != 0);
}

TEST_F(ShredderTest, CancelEndsTheRunAfterTheFileAndTheNextRunToo) {
  make("a.txt", 24 * kMegabyte);
  const std::string b = make("b.txt", 3000);
  const std::string c = make("c.txt", 3000);
  addFolder();
  waitForList({"C:\\desktop\\a.txt", b, c});
  startShredding();
  waitUntil(
      "the bar to show", [this] { return bar("lblBlue").visible(); }, kShredding);
  shredder().button("Cancel").click();
  waitForList({b, c}, kShredding);
  waitUntil("the run to end", [this] { return shredder().button("Shred Files").enabled(); });
  EXPECT_FALSE(shredder().button("Cancel").enabled());
  EXPECT_FALSE(bar("lblBlue").visible());
  EXPECT_EQ(namesIn(kFolder), (Names{"b.txt", "c.txt"}));

  startShredding();
  waitForList({c}, kShredding);
  waitUntil("the second run to end", [this] { return shredder().button("Shred Files").enabled(); });
  EXPECT_TRUE(shredder().takesInput()) << "no message";
  EXPECT_EQ(namesIn(kFolder), Names{"c.txt"});
  EXPECT_EQ(readFile(c), sampleBytes("c.txt", 3000));
}

TEST_F(ShredderTest, PickerShowsTheFilesOfTheFolderItIsIn) {
  make("Beta.txt", 1);
  make("alpha.txt", 1);
  make("Sub\\below.txt", 1);
  setAttributes(make("hidden.txt", 1), FILE_ATTRIBUTE_HIDDEN);
  shredder().button("Add Folder").click();
  const Window picker = program().window(kPickerTitle);
  EXPECT_FALSE(shredder().takesInput());
  EXPECT_TRUE(picker.frame("Select a folder (folder contents will be shredded)").visible());
  EXPECT_EQ(picker.folderList().entries().at(0), "C:\\");
  picker.folderList().open("desktop");
  waitUntil("the folder's files", [&picker] { return picker.fileList() == Names{"alpha.txt", "Beta.txt"}; });
  picker.waitUntilDrawn();
  takeScreenshot("shredder-picker");
  picker.button("Cancel").click();
  waitUntil("the picker to go", [&picker] { return !picker.isOpen(); });
  EXPECT_EQ(list().rowCount(), 0);
}

}  // namespace
}  // namespace desktop
