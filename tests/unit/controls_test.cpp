// The controls by themselves: what they tell the peer that draws them, and a list's rows.
#include <algorithm>
#include <tuple>

#include "shredder/frmFolder.h"
#include "shredder/frmMain.h"
#include "tests/unit/ConsoleTest.h"

namespace {

class Controls : public ConsoleTest {};

TEST_F(Controls, RemovingRowsKeepsTicksSelectionAndKeysInStep) {
  controls::ListView& list = form.ListView1;
  int checks = 0;
  list.onItemCheck = [&checks] { ++checks; };
  const auto fill = [&list] {
    list.clear();
    for (const char* text : {"a", "b", "c", "d", "e"}) list.add(text);
    list.setTicked(1, true);
    list.setTicked(3, true);
  };
  // The rows to remove, the selected row before (9: none), and what is left: the rows, the selected one in brackets.
  const std::tuple<std::vector<std::size_t>, std::size_t, const char*> cases[] = {
      {{}, 2, "ab[c]de"},   {{2}, 2, "abde"}, {{4, 0}, 2, "b[c]d"},    {{3, 1}, 4, "ac[e]"},
      {{4, 3}, 0, "[a]bc"}, {{0}, 9, "bcde"}, {{0, 1, 2, 3, 4}, 4, ""}};
  for (const auto& [removed, selected, expected] : cases) {
    fill();
    list.select(selected);
    checks = 0;
    list.removeRows(removed);
    std::string left;
    for (std::size_t i = 0; i < list.rowCount(); ++i)
      left += list.selected() == i ? '[' + list.text(i) + ']' : list.text(i);
    EXPECT_EQ(left, expected);
    const auto ticked =
        static_cast<std::size_t>(std::ranges::count_if(left, [](char c) { return c == 'b' || c == 'd'; }));
    EXPECT_EQ(list.tickedCount(), ticked);
    EXPECT_EQ(checks, ticked < 2 ? 1 : 0) << "once, and only when ticked rows have left";
    EXPECT_EQ(list.containsKey("A"), left.contains('a'));
  }
  fill();
  list.clickRow(1);
  checks = 0;
  list.clickTick(5);
  list.clickRow(5);
  list.hide();
  list.clickTick(1);
  list.clickRow(2);
  EXPECT_TRUE(checks == 0 && list.selected() == 1U) << "no such row, and no row that a person sees";
  list.clear();
  EXPECT_FALSE(list.selected() || list.containsKey("B"));
  EXPECT_EQ(checks, 1);
}

// Notes each change by a letter: Visible, Enabled, Caption, Tooltip, vaLue, Rows, rePaint, closeD.
struct NotingPeer final : controls::Peer {
  std::string seen;
  void changed(controls::Change change) override { seen += "VECTLRPD"[static_cast<int>(change)]; }
};

TEST_F(Controls, TellTheirPeerOfEachChangeOnce) {
  frmMain shredder;
  frmFolder picker(shredder);
  picker.load();
  NotingPeer peer;
  form.attach(&peer);
  for (controls::Control* control : std::initializer_list<controls::Control*>{
           &form.Label6, &form.ListView2, &form.Drive1, &form.Dir1, &form.optWipe, &picker.File1}) {
    control->attach(&peer);
  }
  const auto told = [&peer](const std::function<void()>& act) {
    peer.seen.clear();
    act();
    return std::exchange(peer.seen, "");
  };
  const auto twice = [&told](const std::function<void()>& act) { return told([&] { act(), act(); }); };
  EXPECT_EQ(twice([&] { form.Label6.show(); }), "V");
  EXPECT_EQ(twice([&] { form.Label6.disable(); }), "E");
  EXPECT_EQ(twice([&] { form.Label6.setCaption("a"); }), "C");
  EXPECT_EQ(twice([&] { form.Label6.setToolTip("a"); }), "T");
  EXPECT_EQ(twice([&] { form.Label6.setWidthPercent(50); }), "L");
  EXPECT_EQ(twice([&] { form.optWipe.setTicked(true); }), "L");
  EXPECT_EQ(twice([&] { form.ListView2.add("a"); }), "RR");
  EXPECT_EQ(twice([&] { form.ListView2.setTicked(0, true); }), "R");
  EXPECT_EQ(told([&] { form.ListView2.select(0); }), "L");
  EXPECT_EQ(told([&] { form.ListView2.removeRows({}); }), "");
  EXPECT_EQ(told([&] { form.ListView2.remove(0); }) + told([&] { form.ListView2.clear(); }), "RR");
  machine.disk().addDrive('D');
  EXPECT_EQ(told([&] { form.Drive1.reload(); }), "L");
  EXPECT_EQ(twice([&] { form.Drive1.choose(1); }), "LL") << "with the folders of the drive";
  EXPECT_EQ(told([&] { EXPECT_TRUE(picker.File1.setPath("C:\\")); }), "R");
  EXPECT_EQ(told([&] { picker.File1.select(0); }), "L");
  EXPECT_EQ(told([&] { form.refresh(); }) + twice([&] { form.close(); }), "PD");
}

}  // namespace
