// What the keys do in the windows, and where they take the focus.
#include <cctype>
#include <set>

#include "controls/TabOrder.h"
#include "tests/unit/ConsoleTest.h"

using controls::Control;
using controls::Key;
using controls::KeyPress;

namespace {

constexpr KeyPress kTickAll = {Key::kA, true};
constexpr KeyPress kInvert = {Key::kI, true};

controls::TabOrder orderOf(controls::Form& window) { return {window, controls::tabOrder(window.layout())}; }

class Keys : public ConsoleTest {
 protected:
  void SetUp() override {
    ConsoleTest::SetUp();
    addFiles("C:\\J", {"a.tmp", "b.tmp", "c.tmp"});
    addFiles("C:\\J", {"empty.txt", "empty too.txt"}, "");
    for (const char* name : {"a", "b", "c", "d"}) machine.urlCache().add({.url = name, .localFile = name});
    EXPECT_TRUE(form.Dir1.setPath("C:\\J"));
    form.Check[kTypeTmp].setTicked(true);
  }

  // Presses the key; returns the texts of the boxes that it has caused.
  Paths key(KeyPress press, Control& focus) {
    return boxesOf([&] { EXPECT_TRUE(form.pressKey(press, &focus)); });
  }
};

TEST_F(Keys, ScanTickInvertAndDeleteInTheListInFrontByItsCommands) {
  EXPECT_FALSE(form.pressKey({Key::kA}, &form.Dir1)) << "a letter goes on to the control";
  EXPECT_FALSE(form.pressKey({Key::kDelete}, &form.Dir1));
  key(kTickAll, form.Dir1);
  key(kInvert, form.Dir1);
  key({Key::kF5}, form.Dir1);
  const auto use = [this](controls::ListView& list, const char* question) {
    ASSERT_GE(list.rowCount(), 2U);
    list.clickTick(0);
    for (Control* focus : std::initializer_list<Control*>{&form.Dir1, &list}) key(kTickAll, *focus);
    EXPECT_EQ(list.tickedCount(), list.rowCount());
    key(kInvert, list);
    EXPECT_EQ(key({Key::kDelete}, list), Paths{}) << "nothing is ticked";
    list.clickTick(1);
    key(kInvert, list);
    EXPECT_EQ(list.tickedCount(), list.rowCount() - 1);
    EXPECT_EQ(key({Key::kDelete}, list), Paths{question});
  };
  use(form.ListView1, "Confirm file deletion?");
  press(form.cmdZero);
  use(form.ListView2, "Confirm file deletion?");
  press(form.Del_Cache);
  use(form.lvCache, "Delete Selected Cache Items?");
}

TEST_F(Keys, OfTheConsoleOnlyAbortAndHelpActWhileAToolRuns) {
  EXPECT_EQ(key({Key::kEscape}, form.Dir1), Paths{});
  EXPECT_FALSE(form.AbortRequested) << "it would end the next scan";
  const auto pressAll = [this] {
    const std::string folder = form.Dir1.path();
    for (const KeyPress press : {KeyPress{Key::kF5}, kTickAll, kInvert, {Key::kDelete}}) key(press, form.ListView1);
    key({Key::kBackspace}, form.Dir1);
    form.clickSystemMenuItem();
    EXPECT_EQ(form.Dir1.path(), folder);
    key({Key::kF1}, form.Scan);
    key({Key::kEscape}, form.Dir1);
    EXPECT_TRUE(form.AbortRequested);
  };
  for (controls::FlatButton* tool : {&form.Scan, &form.cmdZero, &form.Del_Cache}) {
    machine.whenServing(pressAll);
    EXPECT_EQ(press(*tool).back(), "    Scan Aborted");
  }
  EXPECT_EQ(machine.shell().commands().size(), 3U) << "there is no help file";
}

TEST_F(Keys, BackspaceGoesUpAndOnlyItGoesOnWhileItIsHeldDown) {
  EXPECT_TRUE(form.Dir1.setPath("C:\\Program Files\\Scrubhaven"));
  EXPECT_TRUE(form.pressKey({Key::kBackspace}, &form.Dir1));
  EXPECT_EQ(form.Dir1.path(), "C:\\Program Files");
  for (int i = 0; i < 3; ++i) EXPECT_TRUE(form.pressKey({Key::kBackspace}, &form.Dir1, true));
  EXPECT_EQ(form.Dir1.path(), "C:\\");
  EXPECT_TRUE(form.pressKey({Key::kF5}, &form.Dir1, true));
  EXPECT_TRUE(form.ListView1.empty());
  EXPECT_FALSE(form.pressKey({Key::kBackspace}, &form.Drive1));
}

TEST_F(Keys, AskForHelpAboutAControlOrWindowWhichIsShownUntilTheProgramEnds) {
  const std::string file = "C:\\Program Files\\Scrubhaven\\scrubhaven.chm";
  key({Key::kF1}, form.cmdZero);
  EXPECT_EQ(machine.shell().commands().at(0).file, file) << "as the Help button does";
  EXPECT_FALSE(machine.shell().helpPage());
  machine.addFile(file);
  Paths topics;
  const auto help = [&](controls::Form& window, Control* focus) {
    EXPECT_TRUE(window.pressKey({Key::kF1}, focus));
    topics.push_back(machine.shell().helpPage()->second);
  };
  const auto helpAndEscape = [&](controls::Form& window) {
    help(window, window.controls().front());
    if (window.cancelButton() == nullptr) return window.close();
    EXPECT_FALSE(form.pressKey({Key::kF1}, nullptr)) << "the console does not take input";
    EXPECT_TRUE(window.pressKey({Key::kEscape}, nullptr));
  };
  machine.ui().whenModal([&](controls::Form& shredder) {
    machine.ui().whenModal(helpAndEscape);
    static_cast<frmMain&>(shredder).cmdAddFolder.click();
    EXPECT_FALSE(shredder.pressKey({Key::kEscape}, nullptr));
    helpAndEscape(shredder);
  });
  form.cmdFurnace.click();
  machine.ui().whenModal(helpAndEscape);
  form.cmdChoose.click();
  EXPECT_EQ(topics, (Paths{"add-folder.html", "shredder.html", "custom-extensions.html"}));
  topics.clear();
  for (Control* focus : std::initializer_list<Control*>{&form.cmdZero, &form.Check[0], &form.Check[19], &form.ListView1,
                                                        &form.ListView2, &form.Label6}) {
    help(form, focus);
  }
  EXPECT_EQ(topics, (Paths{"zero-byte-files.html", "junk-files.html", "junk-files.html", "deleting.html",
                           "zero-byte-files.html", "overview.html"}));
  EXPECT_EQ(machine.shell().helpPage()->first, file);
  EXPECT_THROW(form.cmdExit.click(), platform::memory::Ended);
  EXPECT_FALSE(machine.shell().helpPage()) << "its window would be destroyed with the process while it is in use";
}

TEST_F(Keys, TabGoesRoundBothWaysAndGroupsAreOneStop) {
  controls::TabOrder order = orderOf(form);
  Control* const first = order.first();
  ASSERT_EQ(first, &form.Dir1);
  std::vector<const Control*> stops;
  for (Control* at = order.tab(first, true); at != first; at = order.tab(at, true)) stops.push_back(at);
  EXPECT_LE(stops.size(), 24U);
  // Back the same way.
  std::vector<const Control*> back;
  for (Control* at = order.tab(first, false); at != first; at = order.tab(at, false)) back.push_back(at);
  std::ranges::reverse(back);
  EXPECT_EQ(back, stops);

  // Arrow keys go round in the group, and Tab comes back to where it was left.
  std::set<const Control*> types;
  Control* type = &form.Check[0];
  for (; types.insert(type).second; type = order.arrow(*type, true)) order.visit(*type);
  EXPECT_EQ(types.size(), form.Check.size());
  EXPECT_EQ(order.arrow(form.Check[0], false), &form.Check[19]);
  EXPECT_EQ(order.tab(order.tab(&form.Check[5], true), false), &form.Check[19]);
  form.Check[19].disable();
  EXPECT_EQ(order.tab(order.tab(&form.Check[5], true), false), &form.Check[0]);
  EXPECT_EQ(order.arrow(form.Dir1, true), nullptr) << "the list moves in itself";
}

TEST_F(Keys, ALostFocusGoesToTheAbortButtonOrTheListNeverToAButtonThatActs) {
  const auto refugeOf = [](controls::Form& window) { return orderOf(window).refuge(); };
  machine.whenServing([&] { EXPECT_EQ(refugeOf(form), &form.cmdAbort); });
  key({Key::kF5}, form.Dir1);
  EXPECT_EQ(refugeOf(form), &form.ListView1);
  press(form.cmdZero);
  EXPECT_EQ(refugeOf(form), &form.ListView2);
  machine.whenServing([&] { EXPECT_EQ(refugeOf(form), &form.lvCache); });
  press(form.Del_Cache);
  EXPECT_EQ(refugeOf(form), &form.lvCache);

  OtherWindows others(form);
  for (controls::Form* window : others.all) window->load();
  EXPECT_EQ(refugeOf(others.shredder), &others.shredder.ListView1);
  others.shredder.cmdCancel.enable();
  EXPECT_EQ(refugeOf(others.shredder), &others.shredder.cmdCancel);
  EXPECT_TRUE(orderOf(others.page).first() == &others.page.cmd_Cancel &&
              refugeOf(others.page) == &others.page.cmd_Cancel);
}

// The captions that a box's control may show, beside the present one.
void collectCaptions(const controls::Box& box, std::multimap<const Control*, std::string>& captions) {
  for (const std::string& caption : box.alsoShows) captions.emplace(box.control, caption);
  if (box.control != nullptr) captions.emplace(box.control, box.control->caption());
  for (const controls::Box& part : box.parts) collectCaptions(part, captions);
}

TEST_F(Keys, LettersAreUsedOnceAndCanBeSeenInEveryCaption) {
  const OtherWindows others(form);
  std::vector<controls::Form*> windows = others.all;
  windows.push_back(&form);
  for (controls::Form* window : windows) {
    std::multimap<const Control*, std::string> captions;
    collectCaptions(window->layout(), captions);
    std::set<char> used;
    for (const Control* control : window->controls()) {
      const char letter = control->mnemonic();
      if (letter == 0) continue;
      EXPECT_TRUE(used.insert(letter).second) << control->name();
      for (auto [one, end] = captions.equal_range(control); one != end; ++one) {
        const std::string& caption = one->second;
        const auto isLetter = [letter](char its) { return std::toupper(static_cast<unsigned char>(its)) == letter; };
        EXPECT_TRUE(std::ranges::any_of(caption, isLetter)) << letter << " in " << caption;
      }
    }
    EXPECT_FALSE(used.empty());
  }
}

TEST_F(Keys, TheSystemMenuSaysWhatTheProgramIs) {
  EXPECT_EQ(form.systemMenuItem().caption, "A&bout Scrubhaven Pro...");
  form.clickSystemMenuItem();
  EXPECT_EQ(boxTexts(), Paths{"Scrubhaven Pro 1.32\r\n\r\nVelmatrix\r\nhttp://www.velmatrix.example/"});
}

}  // namespace
