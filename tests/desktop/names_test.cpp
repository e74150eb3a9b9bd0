// Exactly what was chosen goes: names of other scripts beside similar plain ones, names that differ in case only, the
// folder that is highlighted, and questions closed with Esc.
#include <algorithm>
#include <fstream>
#include <iterator>

#include "tests/desktop/ConsoleTest.h"

namespace desktop {
namespace {

namespace fs = std::filesystem;

// Texts are UTF-8, the program's code page.
const Texts kChosen = {"A.tmp", "ą.tmp", "отчёт.tmp", "表＼x.tmp", "😀.tmp"};
const Texts kKept = {"a.tmp", "x.tmp", "ａ.tmp"};

fs::path widePath(const std::string& text) { return std::u8string(text.begin(), text.end()); }

class NamesTest : public ConsoleTest {
 protected:
  // Makes all files in a subfolder, `size` bytes of one letter in each. Only the host makes names that differ in case
  // only.
  void makeAll(const std::string& subfolder, std::size_t size) {
    const std::string path = folder() + subfolder;
    fs::create_directories(path);
    for (const Texts& names : {kChosen, kKept}) {
      for (const std::string& name : names) {
        std::ofstream(widePath(path + '\\' + (name == "A.tmp" ? "second" : name))) << std::string(size, name[0]);
      }
    }
    support::startHostProgram(path, "mv", "second A.tmp");
    require(support::waitForPath(path + "\\second", false), "make A.tmp");
  }

  void expectOnlyKept(const std::string& subfolder, std::size_t size) {
    Texts names;
    for (const auto& entry : fs::directory_iterator(folder() + subfolder)) {
      const std::u8string name = entry.path().filename().u8string();
      names.emplace_back(name.begin(), name.end());
      std::ifstream file(entry.path(), std::ios::binary);
      EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), std::string(size, names.back()[0]));
    }
    std::ranges::sort(names);
    EXPECT_EQ(names, kKept) << subfolder;
  }

  // Leaves ticks at the chosen names of the subfolder only.
  void tickChosen(const List& list, const std::string& subfolder) {
    const Texts rows = list.texts();
    for (std::size_t row = 0; row < rows.size(); ++row) {
      const bool isWanted = std::ranges::any_of(
          kChosen, [&](const std::string& name) { return rows[row] == folder() + subfolder + '\\' + name; });
      if (list.ticked(static_cast<int>(row)) != isWanted) list.flip(rows[row]);
    }
  }
};

TEST_F(NamesTest, OnlyTheTickedTwinIsDeletedOrWiped) {
  for (const char* subfolder : {"bin", "now", "wiped"}) makeAll(subfolder, 300);
  makeAll("zero", 0);
  console().openFolder(folderName());
  const List zeros = console().list("0 byte files found");
  use("Find 0 Byte Files", {{"Warning!"}});
  waitForResults("Results: " + std::to_string(kChosen.size() + kKept.size()) + " 0 Byte files found in ");
  tickChosen(zeros, "zero");
  const std::size_t recycled = recycledItems();
  console().control("Delete", "0 byte files:").click();
  answer({"Confirm Deletion", "Yes"});
  answer({"Files Deleted", "OK", "The selected 0 Byte files have been deleted to the Recycle Bin"});
  expectOnlyKept("zero", 0);
  EXPECT_FALSE(junk().visible());

  console().control(".tmp").flip();
  use("Scan");
  waitForResults("Results: " + std::to_string(3 * kChosen.size() + 4 * kKept.size()) + " files found in ");
  const std::pair<const char*, const char*> ways[] = {
      {"bin", ""}, {"now", "Delete to Recycle Bin"}, {"wiped", "Shred Files?"}};
  for (const auto& [subfolder, box] : ways) {
    tickChosen(junk(), subfolder);
    if (*box != '\0') console().control(box).flip();
    const int rows = junk().rowCount();
    use("Delete Files", {{"Confirm Deletion", "Yes"}});
    if (subfolder == std::string("wiped")) answer({"Files Shredded"});
    waitUntil("the rows to go", [&] { return junk().rowCount() == rows - static_cast<int>(kChosen.size()); });
    expectOnlyKept(subfolder, 300);
  }
  EXPECT_EQ(recycledItems(), recycled + 2 * kChosen.size()) << "of the empty ones, and those of the first way";
}

TEST_F(NamesTest, OnlyTheListedTwinIsShredded) {
  makeAll("shred", 300);
  make("beside\\a.tmp");
  use("Shredder");
  const Window shredder = window("Scrubhaven Pro - Shredder");
  shredder.control("Add Folder").click();
  const Window picker = window("Add folder contents");
  picker.openFolder(folderName());
  picker.openFolder("shred");
  EXPECT_EQ(picker.lines("Files").size(), kChosen.size() + kKept.size());
  picker.closeWith("OK");
  const List list = shredder.list("Files to shred");
  int rows = list.rowCount();
  for (const std::string& name : kKept) {
    list.select(folder() + "shred\\" + name);
    shredder.control("Remove File").click();
    --rows;
    waitUntil("the row to go", [&] { return list.rowCount() == rows; });
  }
  shredder.control("Shred Files").click();
  for (const char* button : {"Yes", "OK"}) answer({"Scrubhaven Pro", button}, kShredding);
  expectOnlyKept("shred", 300);
}

TEST_F(ConsoleTest, TheHighlightedFolderIsScannedAndEscapeIsNo) {
  const std::string one = make("one\\file.bak");
  const std::string prefetched = "C:\\windows\\prefetch\\a.pf";
  makeFile(prefetched, "x");
  make("two\\file.bak");
  console().openFolder(folderName());
  console().clickFolder("one");
  console().control(".bak").flip();
  use("Scan");
  waitForResults("Results: 1 files found in ");
  EXPECT_EQ(junk().texts(), Texts{one});
  junk().flip(one);

  const std::string runOnce = "HKLM\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\RunOnce";
  const Texts scheduled = contentsOf(runOnce);
  const std::pair<const char*, const char*> questions[] = {{"Delete Files", "Confirm Deletion"},
                                                           {"Wipe Index Files", "Index.dat File Deletion"},
                                                           {"Clear Prefetch", "Clear Prefetch Folder"}};
  for (const auto& [tool, title] : questions) {
    use(tool);
    const Window question = window(title);
    waitUntil("the question's keyboard", [&] { return question.focused().handle() != nullptr; });
    pressKey(VK_ESCAPE);
    waitUntil("the question to close", [&] { return !question.isOpen(); });
    waitForConsole();
  }
  EXPECT_TRUE(isUntouched(one) && exists(prefetched));

  setNumber("HKLM\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\SystemRestore", "DisableSR", 0);
  use("System Restore");
  window("Toggle System Restore").control("Disable").click();
  window("Delete Restore Point");
  pressKey(VK_ESCAPE);
  answer({"System Restore Disabled"});
  EXPECT_EQ(contentsOf(runOnce), scheduled);
}

}  // namespace
}  // namespace desktop
