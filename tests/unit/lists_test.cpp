// What the user does with the rows of lists: select several, sort, open the menu, drop files.
#include <algorithm>

#include "tests/unit/ConsoleTest.h"

using platform::FileTime;

namespace {

class Lists : public ConsoleTest {
 protected:
  controls::ListView& list = form.ListView1;

  // Rows "C:\a\1", "C:\a\2" ... with these sizes.
  void fill(const Paths& sizes) {
    list.clear();
    for (const std::string& size : sizes) list.add("C:\\a\\" + std::to_string(list.rowCount() + 1), {size});
  }

  // The last letters of the rows in the order shown, capitals for ticked ones, the selected ones in brackets.
  static std::string shown(const controls::ListView& rows) {
    std::string text;
    for (std::size_t place = 0; place < rows.rowCount(); ++place) {
      const std::size_t row = rows.rowAt(place);
      EXPECT_EQ(rows.placeOf(row), place);
      std::string one(1, rows.text(row).back());
      if (rows.ticked(row)) one += '*';
      text += rows.isSelected(row) ? '[' + one + ']' : one;
    }
    return text;
  }
  std::string shown() const { return shown(list); }

  // Chooses an entry of the menu. Returns whether it is there and enabled.
  static bool choose(const controls::ListView& rows, const std::string& caption) {
    for (const controls::MenuItem& item : rows.menu()) {
      std::string plain = item.caption;
      std::erase(plain, '&');
      if (plain != caption || !item.enabled) continue;
      item.choose();
      return true;
    }
    return false;
  }
};

TEST_F(Lists, KeepTicksSelectionAndKeysWhenRowsAreRemoved) {
  // The rows to remove, the selected row before (9: none), and what is left.
  const std::tuple<std::vector<std::size_t>, std::size_t, const char*> cases[] = {
      {{}, 2, "12*[3]4*5"},  {{2}, 2, "12*4*5"}, {{4, 0}, 2, "2*[3]4*"},  {{3, 1}, 4, "13[5]"},
      {{4, 3}, 0, "[1]2*3"}, {{0}, 9, "2*34*5"}, {{0, 1, 2, 3, 4}, 4, ""}};
  for (const auto& [removed, selected, expected] : cases) {
    fill({"", "", "", "", ""});
    for (const std::size_t row : {1U, 3U}) list.setTicked(row, true);
    list.select(selected);
    list.removeRows(removed);
    EXPECT_EQ(shown(), expected);
    const bool isInStep = list.selected() ? list.isSelected(*list.selected()) : !shown().contains('[');
    EXPECT_TRUE(isInStep) << expected;
    EXPECT_EQ(list.tickedCount(), static_cast<std::size_t>(std::ranges::count(shown(), '*')));
    EXPECT_EQ(list.containsKey("C:\\A\\1"), shown().contains('1'));
  }
  fill({""});
  list.select(0);
  list.clear();
  EXPECT_FALSE(list.selected() || list.containsKey("C:\\A\\1"));
}

TEST_F(Lists, AreSortedForTheEyeOnly) {
  fill({"9 Kb", "512 bytes", "10 Kb", "-2147483648 bytes", "9 Kb"});
  list.select(2);
  list.clickColumn(1);
  EXPECT_EQ(shown(), "215[3]4") << "by bytes, equal ones in their own order";
  list.clickColumn(1);
  EXPECT_EQ(shown(), "4[3]152");
  list.add("C:\\b\\6", {"1 bytes"});
  EXPECT_EQ(shown(), "4[3]1526") << "rows are appended until the scan ends";
  list.removeRows({1, 3, 5});
  EXPECT_EQ(shown(), "[3]15");
  list.add("c:\\A\\0", {"9 Kb"});
  list.sortAgain();
  EXPECT_EQ(shown(), "[3]150");
  list.clickColumn(0);
  EXPECT_EQ(shown(), "01[3]5") << "without case";
  EXPECT_EQ(textsOf(list), (Paths{"C:\\a\\1", "C:\\a\\3", "C:\\a\\5", "c:\\A\\0"}));
  list.clear();
  EXPECT_FALSE(list.sortOrder());

  // The 5th of March 2004, seven minutes before, and the following October.
  for (const auto& [name, high] : {std::pair("a", 0x1C402BBU), {"b", 0x1C402BAU}, {"c", 0x1C4AF9CU}}) {
    const FileTime accessed{0x8D8A2F80, high};
    machine.urlCache().add({.url = name, .localFile = name, .type = 1, .accessed = accessed});
  }
  press(form.Del_Cache);
  form.lvCache.clickColumn(3);
  EXPECT_EQ(shown(form.lvCache), "b[a]c") << "by date";
}

TEST_F(Lists, AreDeletedInTheirOwnOrderHoweverTheyAreShown) {
  addFiles("C:\\J", {"b.bak", "a.bak", "c.bak"});
  scan({kTypeBak}, "C:\\J");
  const Paths found = paths();
  list.clickColumn(0);
  list.clickColumn(0);
  press(form.Select_All);
  press(form.Delete, {platform::Answer::kYes});
  EXPECT_EQ(machine.disk().recycleBin(), found);
}

TEST_F(Lists, TickAllSelectedRowsAsTheFocusedOneAndTellOnce) {
  fill({"1 Kb", "2 Kb", "3 Kb", "4 Kb"});
  int told = 0;
  const controls::Event before = list.onItemCheck;
  list.onItemCheck = [&] {
    ++told;
    before();
  };
  list.clickTick(3);
  list.clickRow(0);
  for (const std::size_t row : {1U, 3U}) list.markSelected(row, true);
  list.toggleTicks(1);
  EXPECT_EQ(shown(), "[1*][2*]3[4*]");
  list.toggleTicks(2);
  EXPECT_EQ(shown(), "[1*][2*]3*[4*]") << "a row beside the selected ones is ticked alone";
  list.toggleTicks(3);
  EXPECT_EQ(shown(), "[1][2]3*[4]");
  EXPECT_TRUE(told == 4 && form.Delete.enabled());
  list.clickSelected(3);
  EXPECT_EQ(list.toolTip(), "C:\\a\\4") << "of the row clicked last";
  list.removeRows({0, 3});
  EXPECT_TRUE(shown() == "[2]3*" && list.selectedCount() == 1 && !list.selected());
  list.clickRow(1);
  EXPECT_EQ(shown(), "2[3*]");
}

TEST_F(Lists, HaveAMenuOfTheirSelectedRows) {
  addFiles("C:\\J", {"1.bak", "2.bak"});
  addFiles("C:\\J\\sub", {"3.bak"});
  scan({kTypeBak}, "C:\\J");
  EXPECT_TRUE(list.menu().empty()) << "no row is selected";
  list.clickRow(0);
  EXPECT_FALSE(choose(list, "Untick"));
  EXPECT_TRUE(choose(list, "Tick All in This Folder"));
  EXPECT_EQ(shown(), "[k*]k*k");
  EXPECT_TRUE(choose(list, "Untick All in This Folder") && shown() == "[k]kk");
  list.markSelected(2, true);
  EXPECT_TRUE(choose(list, "Tick") && shown() == "[k*]k[k*]" && choose(list, "Untick") && shown() == "[k]k[k]");
  list.clickColumn(0);
  list.clickColumn(0);
  EXPECT_TRUE(choose(list, "Copy Path"));
  EXPECT_EQ(machine.ui().clipboard(), "C:\\J\\sub\\3.bak\r\nC:\\J\\1.bak");
  EXPECT_TRUE(choose(list, "Open Folder"));
  const platform::ShellCommand& opened = machine.shell().commands().back();
  EXPECT_TRUE(opened.file == "C:\\J\\" && opened.verb == "explore") << "a program of that name is not started";

  // While a scan runs, only the path can be copied; so it is with a row that has no file.
  machine.whenServing([this] {
    list.add("C:\\J\\1.bak", {"1 bytes"});
    list.clickRow(0);
    EXPECT_FALSE(choose(list, "Tick") || choose(list, "Tick All in This Folder") || choose(list, "Open Folder"));
    EXPECT_TRUE(choose(list, "Copy Path"));
    machine.faults().failAt("copyText", 1);
    EXPECT_TRUE(choose(list, "Copy Path"));
  });
  press(form.Scan);
  EXPECT_EQ(boxTexts(), Paths{"The clipboard is in use by another program."});
  machine.urlCache().add({.url = "http://h/x"});
  press(form.Del_Cache);
  EXPECT_FALSE(choose(form.lvCache, "Open Folder") || choose(form.lvCache, "Untick All in This Folder"));
  EXPECT_TRUE(choose(form.lvCache, "Copy Path"));
}

TEST_F(Lists, OfTheShredderTakesDroppedFilesAndGivesUpTheSelectedOne) {
  addFiles("C:\\Docs", {"a.txt", "b.txt"});
  addFiles("C:\\Docs\\sub", {"c.txt"});
  frmMain shredder;
  shredder.drop({"C:\\Docs\\a.txt"});
  EXPECT_TRUE(shredder.ListView1.empty()) << "the window is not open";
  shredder.load();
  shredder.drop({"C:\\Docs\\a.txt", "", "C:\\Docs", "C:\\Docs\\nul.txt"});
  EXPECT_EQ(textsOf(shredder.ListView1), (Paths{"C:\\Docs\\a.txt", "C:\\Docs\\a.txt", "C:\\Docs\\b.txt"}));
  EXPECT_EQ(boxTexts().size(), 1U);
  EXPECT_TRUE(shredder.cmdShred.enabled());
  shredder.ListView1.markSelected(0, true);
  shredder.ListView1.markSelected(1, true);
  EXPECT_EQ(shown(shredder.ListView1), "t[t]t") << "one at a time";
  shredder.ListView1.clickSelected(1);
  for (int i = 0; i < 2; ++i) shredder.ListView1.pressDelete();
  EXPECT_EQ(textsOf(shredder.ListView1), Paths{"C:\\Docs\\a.txt"});
  EXPECT_TRUE(machine.exists("C:\\Docs\\b.txt"));
}

}  // namespace
