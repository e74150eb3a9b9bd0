#include <algorithm>

#include "finder/frmChoose.h"
#include "settings/frmPage.h"
#include "settings/frmSR.h"
#include "shredder/frmFolder.h"
#include "shredder/frmMain.h"
#include "tests/unit/Rehearsal.h"

using platform::Answer;

namespace {

constexpr std::size_t kTypeTmp = 3;
const std::string kPageKey = "HKLM\\SYSTEM\\CurrentControlSet\\Control\\Session Manager\\Memory Management";
const std::string kRestoreKey = "HKLM\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\SystemRestore";

// By name and contents; those that begin with "r" are read-only. Outside has a file of each name that is deleted
// somewhere, for links to it.
const Paths kFiles = parts(
    R"(C:\P\J\a.tmp=a|C:\P\J\b.tmp=b|C:\P\J\r.tmp=r|C:\P\J\Sub\a.tmp=a|C:\P\J\Sub\b.tmp=b|C:\Z\a=|C:\Z\b=|C:\Z\r=|C:\Z\Sub\a=|)"
    R"(C:\Z\full=f|C:\Temp\a=t|C:\Temp\r=t|C:\Temp\Sub\a=t|C:\Windows\Temp\a=t|C:\Windows\Temp\r=t|)"
    R"(C:\Windows\Temp\Sub\a=t|C:\Documents and Settings\Ann\Cookies\a=t|C:\Windows\Prefetch\a=p|)"
    R"(C:\Windows\Prefetch\b=p|C:\Windows\kept=w|C:\Docs\a.txt=plans|C:\Docs\b.txt=b|C:\Outside\a.tmp=o|C:\Outside\r.tmp=o|)"
    R"(C:\Outside\a=|C:\Outside\b=o|C:\Outside\r=|C:\Outside\a.txt=o|C:\Outside\J\a.tmp=o|C:\Outside\J\r.tmp=o|C:\root.tmp=r|D:\Old\d=d)");

const Paths kValues =
    parts(R"(HKCU\Software\Microsoft\Internet Explorer\TypedURLs\url1|HKCU\Software\Microsoft\Internet Explorer\keep|)"
          R"(HKCU\Software\WinRAR\ArcHistory\0|HKCU\Software\WinRAR\keep|HKLM\SOFTWARE\Microsoft\keep)");

void scanJunk(World& world, const Paths& chosen) {
  frmFind& console = *world.console;
  World::open(console.Dir1, "C:\\P\\J");
  if (!console.Check[kTypeTmp].ticked()) console.Check[kTypeTmp].click();
  console.Scan.click();
  tick(console.ListView1, chosen);
}

using Tool = controls::FlatButton frmFind::*;

template <Tool tool>
void use(World& world, const Paths&) {
  (world.console.value().*tool).click();
}

template <controls::CheckBox frmFind::*way>
void deleteJunk(World& world, const Paths& chosen) {
  scanJunk(world, chosen);
  if constexpr (way != nullptr) (world.console.value().*way).click();
  use<&frmFind::Delete>(world, chosen);
}

// Opens the window by the tool, acts in it and closes it.
template <typename Window>
void inModal(World& world, controls::FlatButton& tool, std::function<void(Window&)> act) {
  world.machine.ui().whenModal([act = std::move(act)](controls::Form& form) {
    act(dynamic_cast<Window&>(form));
    EXPECT_TRUE(form.acceptsInput());
    form.close();
  });
  tool.click();
}

template <typename Window, Tool tool>
void toggle(World& world, const Paths&) {
  world.machine.registry().setNumber(kPageKey, "ClearPageFileAtShutdown", 0);
  world.machine.registry().setNumber(kRestoreKey, "DisableSR", 0);
  inModal<Window>(world, world.console.value().*tool, [](Window& window) { window.cmdToggle.click(); });
}

void shred(World& world, const Paths& chosen) {
  inModal<frmMain>(world, world.console->cmdFurnace, [&](frmMain& shredder) {
    for (const std::string& path : chosen) {
      world.machine.ui().chooseFile(path);
      shredder.cmdAddFile.click();
    }
    shredder.cmdShred.click();
    EXPECT_TRUE(shredder.cmdShred.enabled() || shredder.ListView1.empty());
    EXPECT_FALSE(shredder.lblBlue.visible());
    for (const std::string& path : world.machine.filesBelow("C:\\")) {
      EXPECT_TRUE(world.machine.contents(path) != "plans" || world.machine.disk().writes().empty()) << path;
    }
    EXPECT_EQ(world.machine.ui().pointer(), platform::Pointer::kDefault);
  });
}

void shredFolder(World& world, const Paths&) {
  inModal<frmMain>(world, world.console->cmdFurnace, [&](frmMain& shredder) {
    inModal<frmFolder>(world, shredder.cmdAddFolder, [](frmFolder& picker) {
      picker.Drive1.choose(0);
      World::open(picker.Dir1, "c:\\Docs");
      if (picker.File1.path() == "c:\\Docs") picker.okButton.click();
      if (!picker.isOpen()) picker.load();
    });
    EXPECT_EQ(shredder.cmdShred.enabled(), !shredder.ListView1.empty());
    for (std::size_t i = shredder.ListView1.rowCount(); i-- > 0;) {
      EXPECT_TRUE(shredder.ListView1.text(i).starts_with("c:\\Docs\\"));
      shredder.ListView1.clickRow(i);
      shredder.cmdRemoveFile.click();
    }
    EXPECT_TRUE(shredder.ListView1.empty());
  });
}

void changeDrives(World& world, const Paths&) {
  world.console.emplace().load();
  for (const std::size_t drive : {1U, 0U}) world.console->Drive1.choose(drive);
  World::open(world.console->Dir1, "C:\\Docs");
  for (controls::FlatButton* button : {&world.console->cmdHelp, &world.console->cmdZero}) button->click();
  world.console->Picture1.click();
}

void chooseExtensions(World& world, const Paths& chosen) {
  inModal<frmChoose>(world, world.console->cmdChoose, [](frmChoose& window) {
    window.txtChoose[0].type("tmp");
    window.cmdAccept.click();
    window.load();
  });
  scanJunk(world, chosen);
}

void deleteEmpty(World& world, const Paths& chosen) {
  World::open(world.console->Dir1, "C:\\Z");
  use<&frmFind::cmdZero>(world, chosen);
  tick(world.console->ListView2, chosen);
  use<&frmFind::cmdZeroDelete>(world, chosen);
}

void cleanCache(World& world, const Paths& chosen) {
  use<&frmFind::Del_Cache>(world, chosen);
  if (chosen.size() == 4) use<&frmFind::cmdSelect>(world, chosen);
  tick(world.console->lvCache, chosen);
  use<&frmFind::cmdCleanCache>(world, chosen);
}

constexpr const char* kJunk = R"(C:\P\J\a.tmp|C:\P\J\r.tmp|C:\P\J\Sub\a.tmp)";
constexpr const char* kEmpty = R"(C:\Z\a|C:\Z\r|C:\Z\Sub\a)";
constexpr const char* kPrefetched = R"(C:\Windows\Prefetch\a|C:\Windows\Prefetch\b)";
constexpr const char* kTyped = R"(HKCU\Software\Microsoft\Internet Explorer\TypedURLs\)";
constexpr const char* kSettings =
    R"(HKLM\SYSTEM\|HKLM\SOFTWARE\Microsoft\Windows NT\CurrentVersion\SystemRestore\DisableSR=)";
constexpr auto kRestore = toggle<frmSR, &frmFind::cmdSysrestore>;

const Scenario kScenarios[] = {
    {.name = "junk to the bin", .run = deleteJunk<nullptr>, .mayGo = kJunk, .pairs = true},
    {.name = "junk for good", .run = deleteJunk<&frmFind::optRecycle>, .mayGo = kJunk},
    {.name = "junk wiped",
     .run = deleteJunk<&frmFind::optWipe>,
     .mayGo = kJunk,
     .spares = "file to link",
     .pairs = true},
    {.name = "zero bytes", .run = deleteEmpty, .mayGo = kEmpty, .spares = "made again", .pairs = true},
    {.name = "temps", .run = use<&frmFind::Del_Temps>, .mayGo = kTemps, .mayDisableScan = true},
    {.name = "temps refused", .run = use<&frmFind::Del_Temps>, .refused = "This will clear", .mayDisableScan = true},
    {.name = "cache", .run = cleanCache, .mayGo = "http://h/1|http://h/2"},
    {.name = "cache emptied", .run = cleanCache, .mayGo = "http://h/0|http://h/1|http://h/2|http://h/3"},
    {.name = "history", .run = use<&frmFind::Del_History>},
    {.name = "recent", .run = use<&frmFind::Del_Recent>},
    {.name = "bin", .run = use<&frmFind::Del_Recycle>},
    {.name = "typed URLs", .run = use<&frmFind::cmdMRU>, .mayGo = kTyped},
    {.name = "lists", .run = use<&frmFind::cmdLists>, .mayGo = R"(HKCU\Software\WinRAR\ArcHistory\)"},
    {.name = "index files", .run = use<&frmFind::cmdIndex>},
    {.name = "prefetch", .run = use<&frmFind::cmdPrefetch>, .mayGo = kPrefetched, .pairs = true},
    {.name = "page file", .run = toggle<frmPage, &frmFind::cmdSwap>, .mayGo = kSettings},
    {.name = "restore, points deleted", .run = kRestore, .mayGo = kSettings},
    {.name = "restore, points kept", .run = kRestore, .mayGo = kSettings, .refused = "Do you want to delete all"},
    {.name = "shredder", .run = shred, .mayGo = R"(C:\Docs\a.txt)", .spares = "file to link", .pairs = true},
    {.name = "shredder's folder", .run = shredFolder},
    {.name = "extensions", .run = chooseExtensions},
    {.name = "start-up and drives", .run = changeDrives},
};

}  // namespace

std::span<const Scenario> scenarios() { return kScenarios; }

World::World() {
  machine.disk().addDrive('D', "BACKUP");
  stock();
  machine.addFolder("C:\\P\\J\\folder.tmp");
  for (const char* link : {"C:\\P\\J\\Link", "C:\\Temp\\Link"}) machine.disk().addLink(link, "C:\\Outside");
  for (const char* name : {"TEMP", "Temp"}) machine.environment().setVariable(name, "C:\\Temp");
  machine.environment().setVariable("username", "Ann");
  for (const char* url : {"http://h/0", "http://h/1", "http://h/2", "http://h/3"}) machine.urlCache().add({.url = url});
  for (const std::string& line : kValues) {
    const std::size_t name = line.rfind('\\');
    machine.registry().setText(line.substr(0, name), line.substr(name + 1), "kept or not");
  }
  console.emplace().load();
}

void World::stock() {
  for (const std::string& line : kFiles) {
    const std::string path = line.substr(0, line.find('='));
    const bool isReadOnly = path[path.rfind('\\') + 1] == 'r';
    machine.addFile(path, line.substr(path.size() + 1), isReadOnly ? platform::kReadOnly : platform::kArchive);
  }
}

Snapshot World::everything() {
  Snapshot all;
  for (const char* root : {"C:\\", "D:\\"}) {
    for (const std::string& path : machine.filesBelow(root)) all.emplace(path, machine.contents(path).value());
  }
  for (const std::string& url : machine.urlCache().urls()) all.emplace(url, "");
  for (const std::string root : {"HKCU\\", "HKLM\\"}) {
    for (const std::string& line : machine.registry().contents(root.substr(0, 4))) all.emplace(root + line, "");
  }
  return all;
}

Paths World::harmed(const Snapshot& before, const Snapshot& now, const Paths& mayGo) {
  Paths paths;
  for (const auto& [path, contents] : before) {
    const auto found = now.find(path);
    const bool same = found != now.end() && found->second == contents;
    if (!same && !isAllowed(mayGo, path)) paths.push_back(path);
  }
  for (const auto& [path, contents] : now) {
    const bool isNewFile = path[1] == ':' && !before.contains(path);
    if (isNewFile && !isAllowed(mayGo, path) && !path.ends_with(".tmp")) paths.push_back("new: " + path);
  }
  return paths;
}

void World::open(controls::DirList& list, const std::string& folder) {
  list.open(0);
  for (std::size_t i = 1; i < list.entries().size(); ++i) {
    const std::string path = list.entries()[i].path;
    if (!(folder + '\\').starts_with(path + '\\')) continue;
    list.open(i);
    if (list.path() == path) i = list.current();
  }
}

controls::ListView* World::front() {
  const auto lists = {&console->lvCache, &console->ListView1, &console->ListView2};
  const auto shown = std::ranges::find_if(lists, &controls::ListView::visible);
  return shown == lists.end() ? nullptr : *shown;
}

void World::play(const Scenario& scenario, std::function<void(const platform::memory::ShownBox&)> atBox) {
  machine.ui().onBox([this, &scenario, atBox = std::move(atBox)](const auto& box) {
    atBox(box);
    answer(box, !box.text.starts_with(scenario.refused));
  });
  scenario.run(*this, parts(scenario.mayGo));
}

void World::answer(const platform::memory::ShownBox& box, bool agrees) {
  expectKnown(box);
  if ((box.style & platform::kBoxYesNo) != 0) return machine.answer(agrees ? Answer::kYes : Answer::kNo);
  const bool canCancel = (box.style & platform::kBoxOkCancel) != 0;
  machine.answer(agrees || !canCancel ? Answer::kOk : Answer::kCancel);
}

void World::expectUsable(bool scanToo) {
  EXPECT_EQ(machine.openHandles(), 0U);
  EXPECT_NE(machine.ui().pointer(), platform::Pointer::kHourglass);
  EXPECT_TRUE(console->acceptsInput() && !console->cmdAbort.visible());
  for (const controls::Control* control : console->controls()) {
    const bool isTool = control->kind() == controls::Kind::kButton && control->frame() != &console->Frame2 &&
                        control != &console->Scan && control != &console->cmdAbort;
    EXPECT_TRUE(!isTool || control->acceptsInput()) << control->name();
  }
  EXPECT_TRUE(!scanToo || console->Scan.acceptsInput());
  const bool ticked = console->Check[0].ticked();
  console->Invert.click();
  EXPECT_NE(console->Check[0].ticked(), ticked) << "a tool seems to run";
  console->Invert.click();
  const bool canDelete = console->ListView1.tickedCount() > 0;
  EXPECT_TRUE(front() != &console->ListView1 || console->Delete.acceptsInput() == canDelete);
}
