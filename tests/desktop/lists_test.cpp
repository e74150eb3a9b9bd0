// The rows of the lists by keyboard and mouse, and what a screen reader is told of the windows.
#include <algorithm>

#include "tests/desktop/ConsoleTest.h"

namespace desktop {
namespace {

// Scans the test's folder for these files, in the order of the list.
class ListsTest : public ConsoleTest {
 protected:
  Texts scan(const std::vector<std::pair<std::string, std::size_t>>& files) {
    for (const auto& [name, size] : files) make(name, size);
    console().control(".bak").flip();
    console().openFolder(folderName());
    use("Scan");
    waitForResults("Results: " + std::to_string(files.size()) + " files found in ");
    return junk().texts();
  }

  std::string ticks() const {
    std::string ticks;
    for (int row = 0; row < junk().rowCount(); ++row) ticks += junk().ticked(row) ? 'x' : '-';
    return ticks;
  }
};

TEST_F(ListsTest, LookAtThem) {
  std::vector<std::pair<std::string, std::size_t>> files;
  for (int i = 0; i < 12; ++i)
    files.emplace_back("file" + std::to_string(i) + ".bak", static_cast<std::size_t>((i * 7919) % 40000));
  files.emplace_back(
      "sub\\a folder with a rather long name\\another folder below it\\and one more to be sure\\the file at the end of "
      "it all.bak",
      5000);
  scan(files);
  takeScreenshot("list-1");
  junk().select(junk().texts()[2]);
  takeScreenshot("list-1b");
  pressKey(VK_DOWN, VK_SHIFT);
  pressKey(VK_DOWN, VK_SHIFT);
  pressKey(VK_SPACE);
  Sleep(300);
  std::printf("%s\n", ticks().c_str());
  takeScreenshot("list-2");
  pressKey(VK_APPS);
  Sleep(500);
  takeScreenshot("list-3");
  pressKey(VK_ESCAPE);
  Sleep(300);
  RECT at = junk().place();
  SetCursorPos(at.right - 60, at.top + 10);
  Sleep(100);
  mouse_event(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0);
  mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
  Sleep(300);
  for (auto& t : junk().texts(1)) std::printf("%s ", t.c_str());
  std::printf("\n%s\n", ticks().c_str());
  takeScreenshot("list-4");
  SetCursorPos(at.left + 200, at.top + 20 + 18 * 9);
  Sleep(2000);
  takeScreenshot("list-5");
  mouse_event(MOUSEEVENTF_RIGHTDOWN, 0, 0, 0, 0);
  mouse_event(MOUSEEVENTF_RIGHTUP, 0, 0, 0, 0);
  Sleep(500);
  takeScreenshot("list-6");
  pressKey(VK_ESCAPE);
}

}  // namespace
}  // namespace desktop
