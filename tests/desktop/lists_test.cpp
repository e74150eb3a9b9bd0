// The rows of a list by keyboard and mouse, and what a screen reader calls the controls.
#include <algorithm>

#include "tests/desktop/ConsoleTest.h"

namespace desktop {
namespace {

std::string clipboardText() {
  if (!OpenClipboard(nullptr)) return "";
  const auto* const text = static_cast<const char*>(GetClipboardData(CF_TEXT));
  const std::string copy = text == nullptr ? "" : text;
  CloseClipboard();
  return copy;
}

TEST_F(ConsoleTest, RowsAreTickedInGroupsAndCopiedByTheKeyboard) {
  for (const char* name : {"1.bak", "2.bak", "3.bak", "4.bak", "sub\\5.bak"}) make(name);
  console().control(".bak").flip();
  console().openFolder(folderName());
  use("Scan");
  waitForResults("Results: 5 files found in ");
  const Texts all = junk().texts();
  const auto waitForTicks = [this](const std::string& expected) {
    waitUntil("the ticks " + expected, [&] {
      std::string ticks;
      for (int row = 0; row < junk().rowCount(); ++row) ticks += junk().ticked(row) ? 'x' : '-';
      return ticks == expected;
    });
  };
  junk().select(all[1]);
  for (int i = 0; i < 2; ++i) pressKey(VK_DOWN, VK_SHIFT);
  pressKey(VK_SPACE);
  waitForTicks("-xxx-");
  pressKey(VK_APPS);
  pressKey('C');
  waitUntil("the copied paths", [&] { return clipboardText() == all[1] + "\r\n" + all[2] + "\r\n" + all[3]; });
  pressKey(VK_F10, VK_SHIFT);
  pressKey('A');
  waitForTicks("xxxx-");
  pressKey(VK_DELETE);
  answer({"Confirm Deletion", "No", "Confirm file deletion?"});
}

// No control has the name of its variable.
TEST_F(ConsoleTest, ControlsHaveNamesForReaders) {
  use("Shredder");
  for (const Window& window : {console(), this->window("Scrubhaven Pro - Shredder")}) {
    for (const Control& control : window.controls()) {
      const std::string type = control.className();
      const std::string name = control.text();
      // A label may have nothing to say at present; readers read the parts of a status bar.
      const bool mayBeEmpty = type == "Static" || type == "ComboBox" || type == "msctls_statusbar32";
      EXPECT_TRUE(!name.empty() || mayBeEmpty) << type;
      for (const char* prefix : {"cmd", "lbl", "lv", "ListView", "Dir1", "File1", "Picture"}) {
        EXPECT_FALSE(name.starts_with(prefix)) << name;
      }
    }
  }
}

}  // namespace
}  // namespace desktop
