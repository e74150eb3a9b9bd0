// The shredder window and the folder picker on real files.
#include "tests/desktop/ConsoleTest.h"

namespace desktop {
namespace {

constexpr std::size_t kLarge = 12 << 20;

class ShredderTest : public ConsoleTest {
 protected:
  void SetUp() override { use("Shredder"); }

  Window shredder() { return window("Scrubhaven Pro - Shredder"); }
  List list() { return shredder().list("Files to shred"); }

  void waitForList(const Texts& paths, DWORD limit = kPatience) {
    waitUntil(
        std::to_string(paths.size()) + " listed files", [&] { return list().texts() == paths; }, limit);
  }

  void shred() {
    shredder().control("Shred Files").click();
    answer({"Scrubhaven Pro", "Yes",
            "Are you certain you want to shred these files?\r\nData recovery by any means will be impossible!"});
  }
};

// Files of a folder are added, removed and shredded by NamesTest.
TEST_F(ShredderTest, AFileOfTheDialogIsShreddedAndCancelEndsARun) {
  EXPECT_FALSE(shredder().control("Shred Files").enabled() || console().enabled());
  const std::string second = make("second.txt");
  const std::string fromDialog = make("sub\\Dialog.txt");
  const std::string kept = make("sub\\kept.txt");
  shredder().control("Add File").click();
  const Window dialog = window("Select file(s) to shred");
  typeText(fromDialog);
  pressKey(VK_RETURN);
  waitUntil("the dialog to close", [&dialog] { return !dialog.isOpen(); });
  waitForList({fromDialog});
  shred();
  answer({"Scrubhaven Pro", "OK", "The selected files have been shredded."}, kShredding);
  waitForList({});
  EXPECT_EQ(namesIn(folder() + "sub"), Texts{"kept.txt"});

  // Cancel ends the run after the present file.
  const std::string large = make("Large.bin", kLarge);
  const std::string link = folder() + "sub\\link.bin";
  std::filesystem::create_hard_link(large, link);
  shredder().control("Add Folder").click();
  const Window picker = window("Add folder contents");
  picker.openFolder(folderName());
  waitUntil("the folder's files", [&] { return picker.lines("Files") == Texts{"Large.bin", "second.txt"}; });
  picker.closeWith("OK");
  shred();
  const Control bar = shredder().control("Done of this file");
  const RECT whole = shredder().control("Progress of this file").place();
  waitUntil(
      "the bar half way",
      [&] { return bar.visible() && (bar.place().right - whole.left) * 2 > whole.right - whole.left; }, kShredding);
  shredder().control("Cancel").click();
  waitForList({second}, kShredding);
  waitUntil("the run to end", [this] { return shredder().control("Shred Files").enabled(); });
  EXPECT_FALSE(showsBox() || bar.visible() || exists(large));
  EXPECT_EQ(readFile(link).size(), kLarge + 1);
  EXPECT_FALSE(readFile(link).contains("SSSSSSSS"));
  EXPECT_TRUE(isUntouched(second) && isUntouched(kept));
}

}  // namespace
}  // namespace desktop
