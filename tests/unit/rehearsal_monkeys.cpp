// A user who clicks at random, on a machine where calls fail and files are in use.
#include <algorithm>
#include <memory>
#include <random>
#include <set>
#include <tuple>
#include <utility>

#include "controls/TextBox.h"
#include "shredder/frmFolder.h"
#include "shredder/frmMain.h"
#include "tests/unit/Rehearsal.h"

using controls::Kind;

namespace {

// What tools change without a question.
constexpr const char* kUnasked = "HKCU\\Software\\|HKLM\\";

constexpr const char* kChosen = R"(C:\Docs\a.txt|C:\P\J\a.tmp)";
const std::set<std::string> kFrequent = {"Delete", "cmdZeroDelete", "cmdCleanCache", "cmdAddFile", "cmdShred"};

class Monkey {
 public:
  explicit Monkey(unsigned seed) : random_(seed) { restart(); }

  void step() {
    if (oneIn(4)) interfere();
    const ListStates lists = listStates();
    mayGo_ = parts(kUnasked);
    behindIsUsed_ = false;
    try {
      act(*world_->console);
    } catch (const platform::memory::Ended&) {
      return restart();  // the program has ended
    }
    world_->machine.faults().clear();
    Snapshot now = world_->everything();
    EXPECT_EQ(World::harmed(before_, now, mayGo_), Paths{});
    before_ = std::move(now);
    EXPECT_EQ(world_->machine.openHandles(), 0U);
    EXPECT_NE(world_->machine.ui().pointer(), platform::Pointer::kHourglass);
    // A list that is not seen before and after an action keeps its ticks or is emptied.
    const ListStates after = listStates();
    for (std::size_t i = 0; i < lists.size(); ++i) {
      const auto& [wasInFront, rowsBefore, ticksBefore] = lists[i];
      const auto& [isInFront, rows, ticks] = after[i];
      if (wasInFront || isInFront || rowsBefore != rows || behindIsUsed_) continue;
      EXPECT_EQ(ticksBefore, ticks) << "list " << i;
    }
  }

  // After all that, an undisturbed user gets what he wants.
  void finish() {
    world_->stock();
    for (const std::string& path : world_->machine.filesBelow("C:\\")) world_->machine.disk().unlock(path);
    frmFind& console = *world_->console;
    console.Check[0].click();  // makes Scan usable again
    console.Drive1.choose(0);
    console.AbortRequested = false;  // an abort between scans stays for the next one
    console.optWipe.setTicked(false);
    world_->expectUsable(true);
    const Scenario& junk = scenarios().front();
    mayGo_.clear();
    isCalm_ = true;
    junk.run(*world_, parts(junk.mayGo));
    for (const std::string& path : parts(junk.mayGo)) EXPECT_FALSE(world_->machine.exists(path)) << path;
  }

  int deletions() const { return deletions_; }

 private:
  // Of the three lists: whether it is in front, its rows, their ticks.
  using ListStates = std::vector<std::tuple<bool, Paths, std::vector<bool>>>;

  std::size_t below(std::size_t count) { return std::uniform_int_distribution<std::size_t>(0, count - 1)(random_); }
  bool oneIn(std::size_t count) { return below(count) == 0; }

  void restart() {
    world_.reset();
    world_ = std::make_unique<World>();
    shredder_ = nullptr;
    world_->machine.ui().onBox([this](const auto& box) { answer(box); });
    world_->machine.ui().everyServing([this] {
      noteShredder();
      if (!isCalm_ && oneIn(25)) act(*window_);
    });
    window_ = &*world_->console;
    before_ = world_->everything();
    expectModal();
  }

  ListStates listStates() {
    ListStates states;
    frmFind& console = *world_->console;
    for (controls::ListView* list : {&console.ListView1, &console.ListView2, &console.lvCache}) {
      auto& [inFront, rows, ticks] = states.emplace_back(list == world_->front(), textsOf(*list), std::vector<bool>());
      for (std::size_t i = 0; i < list->rowCount(); ++i) ticks.push_back(list->ticked(i));
    }
    return states;
  }

  // What other programs do, or the system.
  void interfere() {
    if (oneIn(3)) {
      world_->stock();
      before_ = world_->everything();
    }
    const Paths files = world_->machine.filesBelow("C:\\");
    const std::string& file = files[below(files.size())];
    (oneIn(2) ? world_->machine.disk().lock(file) : world_->machine.disk().unlock(file));
    constexpr std::int32_t kNumbers[] = {53, 61, 70, 75, 76, 429};
    if (oneIn(2)) world_->machine.faults().failCall(static_cast<int>(below(80)) + 1, kNumbers[below(6)]);
  }

  // What the answer allows to go.
  void answer(const platform::memory::ShownBox& box) {
    noteShredder();
    const bool agrees = isCalm_ || !oneIn(3);
    world_->answer(box, agrees);
    if (agrees && box.text == kWarnTemps) std::ranges::copy(parts(kTemps), std::back_inserter(mayGo_));
    if (agrees && box.text.contains("Prefetch Folder")) mayGo_.push_back("C:\\Windows\\Prefetch\\");
    const bool ofCache = box.text.starts_with("Delete Selected Cache");
    if (!ofCache && !box.text.starts_with("Confirm file")) return;
    controls::ListView* const list = world_->front();
    ASSERT_NE(list, nullptr);
    EXPECT_TRUE(list->tickedCount() > 0 && ofCache == (list == &world_->console->lvCache));
    for (std::size_t i = 0; agrees && i < list->rowCount(); ++i) {
      if (list->ticked(i)) allow(ofCache ? list->row(i).subItems[0] : list->text(i));
    }
    deletions_ += agrees ? 1 : 0;
  }

  // Of a path through a folder that was a link when the user chose it, the target's file.
  void allow(std::string path) {
    path[0] = path[0] == 'c' ? 'C' : path[0];
    for (const std::string link : {"C:\\P\\J\\Link", "C:\\Temp\\Link"}) {
      if (path.starts_with(link + '\\')) path.replace(0, link.size(), "C:\\Outside");
    }
    mayGo_.push_back(path);
  }

  void noteShredder() {
    if (shredder_ == nullptr) return;
    for (std::size_t i = 0; i < shredder_->ListView1.rowCount(); ++i) allow(shredder_->ListView1.text(i));
  }

  void expectModal() {
    world_->machine.ui().whenModal([this](controls::Form& form) {
      expectModal();
      controls::Form* const owner = std::exchange(window_, &form);
      frmMain* const outer = shredder_;
      if (auto* const shredder = dynamic_cast<frmMain*>(&form)) shredder_ = shredder;
      for (std::size_t left = below(12); left > 0 && form.isOpen(); --left) act(form);
      form.close();
      window_ = owner;
      shredder_ = outer;
    });
  }

  // One action of the user on a window, on the console mostly in the lists and their commands.
  void act(controls::Form& form) {
    if (oneIn(200)) return form.closeRequested();
    controls::FlatButton* const key = oneIn(2) ? form.cancelButton() : form.defaultButton();
    if (key != nullptr && oneIn(20)) return key->click();
    if (oneIn(10)) return pressKey(form);
    frmFind& console = *world_->console;
    std::vector<controls::Control*> usable;
    const bool anywhere = oneIn(4);
    for (controls::Control* control : form.controls()) {
      const bool isOfLists = control->frame() == &console.Frame2 || control == &console.Scan ||
                             control == &console.cmdZero || (control == &console.Dir1 && oneIn(4));
      const bool isFrequent = control->kind() == Kind::kListView || kFrequent.contains(control->name());
      const bool isChosen = control->acceptsInput() && (anywhere || isOfLists || &form != &console);
      usable.insert(usable.end(), isChosen ? (isFrequent ? 4 : 1) : 0, control);
    }
    if (!usable.empty()) use(*usable[below(usable.size())]);
  }

  void pressKey(controls::Form& form) {
    using controls::Key;
    constexpr controls::KeyPress kPresses[] = {{Key::kF1},     {Key::kF5},        {Key::kEscape},  {Key::kDelete},
                                               {Key::kDelete}, {Key::kBackspace}, {Key::kA, true}, {Key::kI, true}};
    frmFind& console = *world_->console;
    controls::Control* const focus = oneIn(2) ? world_->front() : form.controls()[below(form.controls().size())];
    form.pressKey(kPresses[below(std::size(kPresses))], &form == &console ? focus : nullptr);
  }

  template <typename Of>
  static Of* as(controls::Control& control, Kind kind) {
    return control.kind() == kind ? static_cast<Of*>(&control) : nullptr;
  }

  void use(controls::Control& control) {
    frmFind& console = *world_->console;
    if (&control == &console.Scan && !console.Check[3].ticked()) console.Check[3].click();
    if (control.name() == "cmdAddFile") world_->machine.ui().chooseFile(parts(kChosen)[below(2)]);
    if (auto* button = as<controls::FlatButton>(control, Kind::kButton)) return button->click();
    if (auto* box = as<controls::CheckBox>(control, Kind::kCheckBox)) return box->click();
    if (auto* drives = as<controls::DriveList>(control, Kind::kDriveList))
      return drives->choose(oneIn(4) ? below(3) : 0);
    if (auto* files = as<controls::FileList>(control, Kind::kFileList)) return files->click(below(3));
    if (auto* text = as<controls::TextBox>(control, Kind::kTextBox)) return text->type(oneIn(2) ? "txt" : "");
    if (auto* folders = as<controls::DirList>(control, Kind::kDirList)) {
      if (folders == &console.Dir1 && !oneIn(8)) return World::open(*folders, oneIn(2) ? "C:\\P\\J" : "C:\\Z");
      return folders->open(below(folders->entries().size() + 1));
    }
    auto* const list = as<controls::ListView>(control, Kind::kListView);
    if (list == nullptr) return;
    behindIsUsed_ = behindIsUsed_ || list != world_->front();  // with the keyboard
    const std::size_t row = below(list->rowCount() + 1);
    return oneIn(4) ? list->clickRow(row) : list->clickTick(row);
  }

  std::mt19937 random_;
  std::unique_ptr<World> world_;
  Snapshot before_;
  Paths mayGo_;
  controls::Form* window_ = nullptr;  // the one in front
  frmMain* shredder_ = nullptr;
  bool isCalm_ = false;
  bool behindIsUsed_ = false;
  int deletions_ = 0;
};

// SCRUBHAVEN_SEED is the first seed, SCRUBHAVEN_MONKEY_STEPS the number of actions of them all.
TEST(Rehearsal, NoSeriesOfClicksDestroysWhatWasNotChosen) {
  constexpr int kStepsOfASeed = 250;
  const int steps = numberFrom("SCRUBHAVEN_MONKEY_STEPS", 2000);
  int seed = numberFrom("SCRUBHAVEN_SEED", 1);
  int deletions = 0;
  for (int done = 0; done < steps && !HasFailure(); done += kStepsOfASeed, ++seed) {
    Monkey monkey(static_cast<unsigned>(seed));
    for (int i = 0; i < kStepsOfASeed && !HasFailure(); ++i) {
      SCOPED_TRACE("seed " + std::to_string(seed) + ", action " + std::to_string(i));
      monkey.step();
    }
    SCOPED_TRACE("seed " + std::to_string(seed));
    if (!HasFailure()) monkey.finish();
    deletions += monkey.deletions();
  }
  EXPECT_GT(deletions, steps / 100);
}

}  // namespace
