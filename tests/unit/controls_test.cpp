#include <algorithm>

#include "tests/unit/ConsoleTest.h"

namespace {

using Controls = ConsoleTest;

TEST_F(Controls, RemovingRowsKeepsTicksSelectionAndKeysInStep) {
  controls::ListView& list = form.ListView1;
  // The rows to remove, the selected row before (9: none), and what is left: the rows, the selected one in brackets.
  const std::tuple<std::vector<std::size_t>, std::size_t, const char*> cases[] = {
      {{}, 2, "ab[c]de"},   {{2}, 2, "abde"}, {{4, 0}, 2, "b[c]d"},    {{3, 1}, 4, "ac[e]"},
      {{4, 3}, 0, "[a]bc"}, {{0}, 9, "bcde"}, {{0, 1, 2, 3, 4}, 4, ""}};
  for (const auto& [removed, selected, expected] : cases) {
    list.clear();
    for (const char* text : {"a", "b", "c", "d", "e"}) list.add(text);
    list.setTicked(1, true);
    list.setTicked(3, true);
    list.select(selected);
    list.removeRows(removed);
    std::string left;
    for (std::size_t i = 0; i < list.rowCount(); ++i) {
      left += list.selected() == i ? '[' + list.text(i) + ']' : list.text(i);
    }
    EXPECT_EQ(left, expected);
    const auto ticked =
        static_cast<std::size_t>(std::ranges::count_if(left, [](char c) { return c == 'b' || c == 'd'; }));
    EXPECT_EQ(list.tickedCount(), ticked);
    EXPECT_EQ(list.containsKey("A"), left.contains('a'));
  }
  list.add("b");
  list.select(0);
  list.clear();
  EXPECT_FALSE(list.selected() || list.containsKey("B"));
}

}  // namespace
