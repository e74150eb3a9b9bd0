// What the keys do in the windows, and where they take the focus.
#include <cctype>
#include <set>

#include "controls/TabOrder.h"
#include "finder/frmChoose.h"
#include "settings/frmPage.h"
#include "settings/frmSR.h"
#include "shredder/frmFolder.h"
#include "shredder/frmMain.h"
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
    const auto before = static_cast<std::ptrdiff_t>(machine.boxes().size());
    EXPECT_TRUE(form.pressKey(press, &focus));
    const Paths all = boxTexts();
    return {all.begin() + before, all.end()};
  }
};

TEST_F(Keys, ScanTickInvertAndDeleteInTheListInFrontByItsCommands) {
  EXPECT_FALSE(form.pressKey({Key::kA}, &form.Dir1)) << "a letter goes on to the control";
  EXPECT_FALSE(form.pressKey({Key::kDelete}, &form.Dir1));
  key(kTickAll, form.Dir1);
  key(kInvert, form.Dir1);
  key({Key::kF5}, form.Dir1);
  const auto use = [this](controls::ListView& list, const controls::FlatButton& deletion, const char* question) {
    ASSERT_GE(list.rowCount(), 2U);
    const auto expectTicked = [&](std::size_t count) {
      EXPECT_EQ(list.tickedCount(), count);
      EXPECT_EQ(deletion.enabled(), count > 0);
    };
    list.clickTick(0);
    key(kTickAll, form.Dir1);
    expectTicked(list.rowCount());
    key(kTickAll, list);
    expectTicked(list.rowCount());
    key(kInvert, list);
    expectTicked(0);
    EXPECT_EQ(key({Key::kDelete}, list), Paths{});
    list.clickTick(1);
    key(kInvert, list);
    expectTicked(list.rowCount() - 1);
    EXPECT_EQ(key({Key::kDelete}, list), Paths{question});
  };
  use(form.ListView1, form.Delete, "Confirm file deletion?");
  press(form.cmdZero);
  use(form.ListView2, form.cmdZeroDelete, "Confirm file deletion?");
  press(form.Del_Cache);
  use(form.lvCache, form.cmdCleanCache, "Delete Selected Cache Items?");
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
  machine.whenServing(pressAll);
  EXPECT_EQ(key({Key::kF5}, form.Dir1), Paths{"    Scan Aborted"});
  machine.whenServing(pressAll);
  EXPECT_THAT(press(form.cmdZero), testing::Contains("    Scan Aborted"));
  machine.whenServing(pressAll);
  EXPECT_EQ(press(form.Del_Cache), Paths{"    Scan Aborted"});
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

TEST_F(Keys, AskForHelpAboutAControlOfTheConsoleOrAWindow) {
  machine.addFile("C:\\Program Files\\Scrubhaven\\scrubhaven.chm");
  Paths topics;
  const auto help = [&](controls::Form& window, Control* focus) {
    EXPECT_TRUE(window.pressKey({Key::kF1}, focus));
    topics.push_back(machine.shell().helpPage()->second);
  };
  help(form, &form.cmdZero);
  help(form, nullptr);
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
  EXPECT_EQ(topics, (Paths{"zero-byte-files.html", "overview.html", "add-folder.html", "shredder.html",
                           "custom-extensions.html"}));
}

TEST_F(Keys, TabReachesTheScanSoonAndGroupsOfToolsAndTypesAreOneStop) {
  controls::TabOrder order = orderOf(form);
  Control* const first = order.first();
  ASSERT_EQ(first, &form.Dir1);
  std::vector<const Control*> stops;
  for (Control* at = order.tab(first, true); at != first; at = order.tab(at, true)) stops.push_back(at);
  EXPECT_LE(std::ranges::find(stops, &form.Scan) - stops.begin(), 11);
  EXPECT_LE(stops.size(), 24U);
  const auto isStop = [&stops](const Control& control) { return std::ranges::find(stops, &control) != stops.end(); };
  for (const Control* one : std::initializer_list<const Control*>{&form.Picture1, &form.Drive1, &form.ListView1,
                                                                  &form.cmdZero, &form.Del_Cache, &form.Check[0]}) {
    EXPECT_TRUE(isStop(*one)) << one->name();
  }
  EXPECT_FALSE(isStop(form.Del_Temps) || isStop(form.Check[1]));

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

  frmMain shredder;
  shredder.load();
  EXPECT_EQ(refugeOf(shredder), &shredder.ListView1);
  shredder.cmdCancel.enable();
  EXPECT_EQ(refugeOf(shredder), &shredder.cmdCancel);
  frmPage page;
  page.load();
  EXPECT_EQ(orderOf(page).first(), &page.cmd_Cancel);
  EXPECT_EQ(refugeOf(page), &page.cmd_Cancel);
}

// The captions that a box's control may show, beside the present one.
void collectCaptions(const controls::Box& box, std::multimap<const Control*, std::string>& captions) {
  for (const std::string& caption : box.alsoShows) captions.emplace(box.control, caption);
  if (box.control != nullptr) captions.emplace(box.control, box.control->caption());
  for (const controls::Box& part : box.parts) collectCaptions(part, captions);
}

TEST_F(Keys, LettersAreUsedOnceAndCanBeSeenInEveryCaption) {
  frmMain shredder;
  frmFolder picker(shredder);
  frmPage page;
  frmSR restore;
  frmChoose choose(form.CustomExtensions);
  for (controls::Form* window :
       std::initializer_list<controls::Form*>{&form, &shredder, &picker, &page, &restore, &choose}) {
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
