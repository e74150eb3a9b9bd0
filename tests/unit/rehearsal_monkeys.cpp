// A user who clicks at random, on a machine where calls fail and files are in use.
#include <algorithm>
#include <memory>
#include <random>
#include <set>

#include "controls/TextBox.h"
#include "shredder/frmMain.h"
#include "tests/unit/Rehearsal.h"

using controls::Form;
using controls::Kind;
using platform::memory::ShownBox;

namespace {

// What tools change without a question, and after their questions.
constexpr const char* kUnasked = "HKCU\\Software\\|HKLM\\";
constexpr const char* kTemps = R"(C:\Temp\|C:\Windows\Temp\|C:\Documents and Settings\Ann\Cookies\)";
constexpr const char* kPrefetch = R"(C:\Windows\Prefetch\)";

// Buttons that are pressed more often than others.
const std::set<std::string> kFrequent = {"Delete", "cmdZeroDelete", "cmdCleanCache", "cmdAddFile", "cmdShred"};

// The control itself, or null when it is of another kind.
template <typename Type>
Type* as(controls::Control& control, Kind kind) {
  return control.kind() == kind ? static_cast<Type*>(&control) : nullptr;
}

class Monkey {
 public:
  explicit Monkey(unsigned seed) : random_(seed) { restart(); }

  int deletions() const { return deletions_; }

  void step() {
    if (oneIn(4)) interfere();
    const auto ticks = ticksBehind();
    behindIsUsed_ = false;
    mayGo_ = parts(kUnasked);
    try {
      act(*world_->console);
    } catch (const platform::memory::Ended&) {
      return restart();  // the program has ended
    }
    world_->machine.faults().clear();
    Snapshot now = world_->everything();
    EXPECT_EQ(harmed(before_, now, mayGo_), Paths{});
    before_ = std::move(now);
    EXPECT_EQ(world_->machine.openHandles(), 0U);
    EXPECT_NE(world_->machine.ui().pointer(), platform::Pointer::kHourglass);
    // A list that is behind another one before and after an action keeps its ticks, or gets other rows.
    const auto after = ticksBehind();
    for (const auto& [rows, ticked] : ticks) {
      EXPECT_TRUE(behindIsUsed_ || !after.contains(rows) || after.at(rows) == ticked) << rows[0];
    }
  }

  // After all that, an undisturbed user gets what he wants.
  void finish() {
    isCalm_ = true;
    world_->stock();
    for (const std::string& path : world_->machine.filesBelow("C:\\")) world_->machine.disk().unlock(path);
    frmFind& console = *world_->console;
    console.Check[0].click();  // makes Scan usable again
    console.Drive1.choose(0);
    console.AbortRequested = false;  // an abort between scans stays for the next one
    console.optWipe.setTicked(false);
    world_->expectUsable(true);
    const Scenario& junk = scenarios().front();
    junk.run(*world_);
    for (const std::string& path : junk.chosen()) EXPECT_FALSE(world_->machine.exists(path)) << path;
  }

 private:
  std::size_t below(std::size_t count) { return std::uniform_int_distribution<std::size_t>(0, count - 1)(random_); }
  bool oneIn(std::size_t count) { return below(count) == 0; }

  void restart() {
    world_.reset();
    world_ = std::make_unique<World>();
    shredder_ = nullptr;
    window_ = &*world_->console;
    before_ = world_->everything();
    world_->machine.ui().onBox([this](const ShownBox& box) { answer(box); });
    world_->machine.ui().everyServing([this] {
      allowShredderRows();
      if (!isCalm_ && oneIn(25)) act(*window_);
    });
    expectWindow();
  }

  // The ticks of the lists that are not in front, by the list's number and rows.
  std::map<Paths, std::vector<bool>> ticksBehind() {
    std::map<Paths, std::vector<bool>> ticks;
    frmFind& console = *world_->console;
    for (const controls::ListView* list : {&console.ListView1, &console.ListView2, &console.lvCache}) {
      if (list == world_->front()) continue;
      Paths rows = {list->name()};
      std::vector<bool> ticked;
      for (std::size_t i = 0; i < list->rowCount(); ++i) {
        rows.push_back(list->text(i));
        ticked.push_back(list->ticked(i));
      }
      ticks.emplace(std::move(rows), std::move(ticked));
    }
    return ticks;
  }

  // What other programs do, or the system.
  void interfere() {
    if (oneIn(3)) world_->stock();
    before_ = world_->everything();
    const Paths files = world_->machine.filesBelow("C:\\");
    const std::string& file = files[below(files.size())];
    oneIn(2) ? world_->machine.disk().lock(file) : world_->machine.disk().unlock(file);
    constexpr std::int32_t kNumbers[] = {53, 61, 70, 75, 76, 429};
    if (oneIn(2)) world_->machine.faults().failCall(static_cast<int>(below(80)) + 1, kNumbers[below(6)]);
  }

  void answer(const ShownBox& box) {
    allowShredderRows();
    const bool agrees = isCalm_ || !oneIn(3);
    world_->answer(box, agrees);
    const bool ofCache = box.text.starts_with("Delete Selected Cache");
    if (ofCache || box.text.starts_with("Confirm file")) return allowTicked(ofCache, agrees);
    if (!agrees) return;
    if (box.text == kWarnTemps) std::ranges::copy(parts(kTemps), std::back_inserter(mayGo_));
    if (box.text.contains("Prefetch Folder")) allow(kPrefetch);
  }

  void allowTicked(bool ofCache, bool agrees) {
    const controls::ListView* const list = world_->front();
    ASSERT_NE(list, nullptr);
    EXPECT_TRUE(list->tickedCount() > 0 && ofCache == (list == &world_->console->lvCache));
    deletions_ += agrees ? 1 : 0;
    for (std::size_t i = 0; agrees && i < list->rowCount(); ++i) {
      if (list->ticked(i)) allow(ofCache ? list->row(i).subItems[0] : list->text(i));
    }
  }

  void allowShredderRows() {
    for (std::size_t i = 0; shredder_ != nullptr && i < shredder_->ListView1.rowCount(); ++i) {
      allow(shredder_->ListView1.text(i));
    }
  }

  // A path through a folder that was a link when the user chose it stands for the target's file.
  void allow(std::string path) {
    if (path.starts_with("c:")) path[0] = 'C';
    for (const std::string link : {"C:\\P\\J\\Link\\", "C:\\Temp\\Link\\"}) {
      if (path.starts_with(link)) path.replace(0, link.size(), "C:\\Outside\\");
    }
    mayGo_.push_back(path);
  }

  // The user does some things in the next window that opens, and closes it.
  void expectWindow() {
    world_->machine.ui().whenModal([this](Form& form) {
      expectWindow();
      Form* const owner = std::exchange(window_, &form);
      frmMain* const outer = shredder_;
      if (auto* const shredder = dynamic_cast<frmMain*>(&form)) shredder_ = shredder;
      for (std::size_t left = below(12); left > 0 && form.isOpen(); --left) act(form);
      form.close();
      window_ = owner;
      shredder_ = outer;
    });
  }

  // One action of the user on a window, on the console mostly in the lists and their commands.
  void act(Form& form) {
    if (oneIn(200)) return form.closeRequested();
    if (oneIn(20)) {
      controls::FlatButton* const key = oneIn(2) ? form.cancelButton() : form.defaultButton();
      if (key != nullptr) key->click();
      return;
    }
    frmFind& console = *world_->console;
    const bool anywhere = &form != &console || oneIn(4);
    std::vector<controls::Control*> usable;
    for (controls::Control* control : form.controls()) {
      const bool isOfLists = control->frame() == &console.Frame2 || control == &console.Scan ||
                             control == &console.cmdZero || (control == &console.Dir1 && oneIn(4));
      const bool isFrequent = control->kind() == Kind::kListView || kFrequent.contains(control->name());
      if (control->acceptsInput() && (anywhere || isOfLists)) usable.insert(usable.end(), isFrequent ? 4 : 1, control);
    }
    if (!usable.empty()) use(*usable[below(usable.size())]);
  }

  void use(controls::Control& control) {
    frmFind& console = *world_->console;
    if (auto* const button = as<controls::FlatButton>(control, Kind::kButton)) {
      if (button == &console.Scan && !console.Check[3].ticked()) console.Check[3].click();
      const char* const file = oneIn(2) ? "C:\\Docs\\a.txt" : "C:\\P\\J\\a.tmp";
      if (button->name() == "cmdAddFile") world_->machine.ui().chooseFile(file);
      button->click();
    } else if (auto* const list = as<controls::ListView>(control, Kind::kListView)) {
      behindIsUsed_ = behindIsUsed_ || list != world_->front();  // with the keyboard
      oneIn(4) ? list->clickRow(below(list->rowCount() + 1)) : list->clickTick(below(list->rowCount() + 1));
    } else if (auto* const folders = as<controls::DirList>(control, Kind::kDirList)) {
      if (oneIn(8)) return folders->open(below(folders->entries().size() + 1));
      World::open(*folders, oneIn(2) ? "C:\\P\\J" : "C:\\Z");
    } else if (auto* const drives = as<controls::DriveList>(control, Kind::kDriveList)) {
      drives->choose(oneIn(4) ? 1 : 0);
    } else if (auto* const box = as<controls::CheckBox>(control, Kind::kCheckBox)) {
      box->click();
    } else if (auto* const text = as<controls::TextBox>(control, Kind::kTextBox)) {
      text->type(oneIn(2) ? "txt" : "");
    }
  }

  std::mt19937 random_;
  std::unique_ptr<World> world_;
  Snapshot before_;
  Paths mayGo_;
  Form* window_ = nullptr;  // the one in front
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
  RecordProperty("deletions", deletions);
  EXPECT_GT(deletions, steps / 100);
}

}  // namespace
