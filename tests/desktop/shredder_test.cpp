// The shredder window and the folder picker, with real files: what is left of them, and where.
#include <filesystem>

#include "tests/desktop/ConsoleTest.h"

namespace desktop {
namespace {

constexpr DWORD kShredding = 60000;  // milliseconds that a run may take
constexpr std::size_t kMegabyte = 1 << 20;

class ShredderTest : public ConsoleTest {
 protected:
  void SetUp() override {
    press("Shredder");
    shredder();
  }

  Window shredder() { return window("Scrubhaven Pro - Shredder"); }
  List list() { return shredder().list({"File Name and Path"}); }
  Control blueBar() { return shredder().label("lblBlue"); }

  void waitForList(const Texts& paths, DWORD limit = kPatience) {
    waitUntil(
        std::to_string(paths.size()) + " listed files", [&] { return list().texts() == paths; }, limit);
  }

  // Adds a file by typing its path into the dialog; the dialog moves the program to the file's folder.
  void addFile(const std::string& path) {
    const int before = list().rowCount();
    shredder().button("Add File").click();
    const Box dialog = box("Select file(s) to shred");
    EXPECT_FALSE(shredder().takesInput());
    typeText(path);
    pressKey(VK_RETURN);
    waitUntil("the dialog to go", [&dialog] { return !dialog.isOpen(); });
    waitUntil(path + " in the list", [this, before] { return list().rowCount() == before + 1; });
  }

  // Opens the picker in the test's folder, which must show these files, and presses the button.
  void pickFolder(const Texts& files, const std::string& button) {
    shredder().button("Add Folder").click();
    const Window picker = window("Add folder contents");
    EXPECT_FALSE(shredder().takesInput());
    picker.openFolder("desktop");
    waitUntil("the folder's files", [&] { return picker.files() == files; });
    picker.button(button).click();
    waitUntil("the picker to go", [&picker] { return !picker.isOpen(); });
  }

  void startShredding(const std::string& button = "Yes") {
    shredder().button("Shred Files").click();
    answer("Scrubhaven Pro",
           "Are you certain you want to shred these files?\r\nData recovery by any means will be impossible!", button);
  }

  void waitForEndOfRun() {
    waitUntil(
        "the run to end", [this] { return shredder().button("Shred Files").enabled() && !blueBar().visible(); },
        kShredding);
  }
};

TEST_F(ShredderTest, ListsWhatIsChosenAndShredsNothingWithoutAYes) {
  EXPECT_FALSE(console().takesInput());
  EXPECT_FALSE(shredder().button("Shred Files").enabled() || shredder().button("Cancel").enabled());
  EXPECT_EQ(shredder().toolTipOf(shredder().button("Add Folder")), "Add Contents of an Entire Folder to Shredder List");

  const std::string alpha = make("alpha.txt");
  const std::string beta = make("Beta.txt");
  const std::string below = make("Sub\\below.txt");
  setAttributes(make("hidden.txt"), FILE_ATTRIBUTE_HIDDEN);
  pickFolder({"alpha.txt", "Beta.txt"}, "Cancel");
  waitForList({});
  pickFolder({"alpha.txt", "Beta.txt"}, "OK");
  waitForList({alpha, beta});
  startShredding("No");
  waitForList({alpha, beta});
  list().clickRow(0);
  shredder().button("Remove File").click();
  waitForList({beta});
  shredder().button("Close").click();
  waitForConsole();
  EXPECT_TRUE(isUntouched(alpha) && isUntouched(beta) && isUntouched(below) && isUntouched(kFolder + "hidden.txt"));
}

// The dialog moves the program to the folder of the file chosen last, and that is where names land.
TEST_F(ShredderTest, OverwrittenFilesGoAndOnesThatCannotStayAsTheyMust) {
  constexpr std::size_t kSize = 48 * kMegabyte;
  const std::string distant = "D:\\desktop\\distant.txt";
  makeFile(distant, sampleBytes("distant", 1000));
  const std::string secret = make("secret.txt", kSize);
  std::filesystem::create_hard_link(secret, kFolder + "link.txt");
  const std::string readOnly = make("protected\\file.txt");
  setAttributes(readOnly, FILE_ATTRIBUTE_READONLY);
  const std::string last = make("here\\last.txt");
  const std::string beside = make("here\\beside.txt");
  for (const std::string& file : {secret, distant, readOnly, last}) addFile(file);
  startShredding();
  const RECT whole = shredder().label("lblGrey").place();
  LONG filled = 0;
  const auto isHalfWay = [&] {
    if (!blueBar().visible()) return false;
    const RECT bar = blueBar().place();
    EXPECT_TRUE(bar.left == whole.left && bar.top == whole.top);
    EXPECT_GE(bar.right - bar.left, filled) << "the bar went back";
    filled = bar.right - bar.left;
    return filled * 100 >= (whole.right - whole.left) * 45;
  };
  waitUntil("the bar half way", isHalfWay, kShredding);
  takeScreenshot("shredder-half-way");
  EXPECT_TRUE(shredder().button("Cancel").enabled() && !shredder().button("Shred Files").enabled());
  answer("Scrubhaven Pro", "The selected files have been shredded.", "OK", kShredding);
  waitForEndOfRun();
  EXPECT_EQ(list().rowCount(), 0);

  EXPECT_EQ(namesIn("C:\\desktop"), (Texts{"here", "link.txt", "protected"}));
  const std::string left = readFile(kFolder + "link.txt");
  ASSERT_EQ(left.size(), kSize + 1);
  EXPECT_EQ(left.find("Sample content"), std::string::npos);

  EXPECT_EQ(namesIn("D:\\desktop"), Texts{"distant.txt"});
  EXPECT_EQ(readFile(distant).size(), 1001U);
  EXPECT_EQ(readFile(distant).find("Sample"), std::string::npos);

  EXPECT_EQ(namesIn(kFolder + "protected"), Texts{});
  EXPECT_TRUE(isUntouched(beside));
  Texts here = namesIn(kFolder + "here");
  std::erase(here, "beside.txt");
  ASSERT_EQ(here.size(), 1U);
  EXPECT_TRUE(here[0].ends_with(".tmp") && here[0].size() > 90) << here[0];
  EXPECT_EQ(readFile(kFolder + "here\\" + here[0]), sampleBytes("protected\\file.txt", 1000));
  removeTree("D:\\desktop");
}

TEST_F(ShredderTest, CancelEndsTheRunAfterTheFileAndTheNextRunToo) {
  const std::string a = make("a.txt", 24 * kMegabyte);
  const std::string b = make("b.txt");
  const std::string c = make("c.txt");
  pickFolder({"a.txt", "b.txt", "c.txt"}, "OK");
  waitForList({a, b, c});
  startShredding();
  waitUntil(
      "the bar to show", [this] { return blueBar().visible(); }, kShredding);
  shredder().button("Cancel").click();
  waitForList({b, c}, kShredding);
  waitForEndOfRun();
  EXPECT_FALSE(shredder().button("Cancel").enabled());
  EXPECT_EQ(namesIn("C:\\desktop"), (Texts{"b.txt", "c.txt"}));

  startShredding();
  waitForList({c}, kShredding);
  waitForEndOfRun();
  EXPECT_FALSE(showsBox());
  EXPECT_EQ(namesIn("C:\\desktop"), Texts{"c.txt"});
  EXPECT_TRUE(isUntouched(c));
}

}  // namespace
}  // namespace desktop
