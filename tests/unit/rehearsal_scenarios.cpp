#include <algorithm>
#include <cstdlib>

#include "finder/frmChoose.h"
#include "settings/frmPage.h"
#include "settings/frmSR.h"
#include "shredder/frmFolder.h"
#include "shredder/frmMain.h"
#include "tests/unit/Rehearsal.h"

using controls::Form;
using platform::Answer;

namespace {

// By name and contents; those that begin with "r" are read-only. Outside has a file of each name that is deleted
// somewhere, for links to it.
const Paths kFiles = parts(
    R"(C:\P\J\a.tmp=a|C:\P\J\b.tmp=b|C:\P\J\r.tmp=r|C:\P\J\Sub\a.tmp=a|C:\P\J\Sub\b.tmp=b|C:\Z\a=|C:\Z\b=|C:\Z\r=|)"
    R"(C:\Z\Sub\a=|C:\Z\full=f|C:\Temp\a=t|C:\Temp\r=t|C:\Temp\Sub\a=t|C:\Windows\Temp\a=t|C:\Windows\Temp\r=t|)"
    R"(C:\Windows\Temp\Sub\a=t|C:\Documents and Settings\Ann\Cookies\a=t|C:\Windows\Prefetch\a=p|)"
    R"(C:\Windows\Prefetch\b=p|C:\Windows\kept=w|C:\Docs\a.txt=plans|C:\Docs\b.txt=b|C:\Outside\a.tmp=o|)"
    R"(C:\Outside\r.tmp=o|C:\Outside\a=|C:\Outside\b=o|C:\Outside\r=|C:\Outside\a.txt=o|C:\Outside\J\a.tmp=o|)"
    R"(C:\Outside\J\r.tmp=o|C:\root.tmp=r|D:\Old\d=d)");
// Texts by key and name.
const Paths kTexts = parts(R"(HKCU\Software\Microsoft\Internet Explorer\TypedURLs=url1|HKCU\Software\WinRAR=keep|)"
                           R"(HKCU\Software\Microsoft\Internet Explorer=keep|HKCU\Software\WinRAR\ArcHistory=0|)"
                           R"(HKLM\SOFTWARE\Microsoft=keep)");

constexpr const char* kJunk = R"(C:\P\J\a.tmp|C:\P\J\r.tmp|C:\P\J\Sub\a.tmp)";
constexpr const char* kTemps = R"(C:\Temp\|C:\Windows\Temp\|C:\Documents and Settings\Ann\Cookies\)";
constexpr const char* kSettings =
    R"(HKLM\SYSTEM\|HKLM\SOFTWARE\Microsoft\Windows NT\CurrentVersion\SystemRestore\DisableSR=)";

void tick(controls::ListView& list, const Paths& texts) {
  for (std::size_t i = 0; i < list.rowCount(); ++i) {
    if (!list.ticked(i) && std::ranges::count(texts, list.text(i)) > 0) list.clickTick(i);
  }
}

void nothing(World&, const Paths&) {}

void scanJunk(World& world, const Paths& chosen) {
  frmFind& console = *world.console;
  World::open(console.Dir1, "C:\\P\\J");
  if (!console.Check[3].ticked()) console.Check[3].click();
  console.Scan.click();
  tick(console.ListView1, chosen);
}

void scanForGood(World& world, const Paths& chosen) {
  scanJunk(world, chosen);
  world.console->optRecycle.click();
}

void scanToWipe(World& world, const Paths& chosen) {
  scanJunk(world, chosen);
  world.console->optWipe.click();
}

void scanZeros(World& world, const Paths& chosen) {
  World::open(world.console->Dir1, "C:\\Z");
  world.console->cmdZero.click();
  tick(world.console->ListView2, chosen);
}

void scanCache(World& world, const Paths& chosen) {
  world.console->Del_Cache.click();
  tick(world.console->lvCache, chosen);
}

void selectCache(World& world, const Paths&) {
  world.console->Del_Cache.click();
  world.console->cmdSelect.click();
}

// In the next window that opens.
template <typename Window>
void inWindow(World& world, std::function<void(Window&)> action) {
  world.machine.ui().whenModal([action = std::move(action)](Form& form) {
    action(dynamic_cast<Window&>(form));
    form.close();
  });
}

template <typename Window>
void toggle(World& world, const Paths&) {
  platform::memory::MemoryRegistry& registry = world.machine.registry();
  registry.setNumber("HKLM\\SYSTEM\\CurrentControlSet\\Control\\Session Manager\\Memory Management",
                     "ClearPageFileAtShutdown", 0);
  registry.setNumber("HKLM\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\SystemRestore", "DisableSR", 0);
  inWindow<Window>(world, [](Window& window) { window.cmdToggle.click(); });
}

void shredFile(World& world, const Paths& chosen) {
  inWindow<frmMain>(world, [&world, chosen](frmMain& shredder) {
    world.machine.ui().chooseFile(chosen[0]);
    shredder.cmdAddFile.click();
    shredder.cmdShred.click();
    EXPECT_TRUE(shredder.cmdShred.enabled() || shredder.ListView1.empty());
    EXPECT_TRUE(!shredder.lblBlue.visible() && shredder.acceptsInput());
    EXPECT_EQ(world.machine.ui().pointer(), platform::Pointer::kDefault);
    for (const std::string& path : world.machine.filesBelow("C:\\")) {
      EXPECT_TRUE(world.machine.contents(path) != "plans" || world.machine.disk().writes().empty()) << path;
    }
  });
}

void addFolderToShred(World& world, const Paths&) {
  inWindow<frmMain>(world, [&world](frmMain& shredder) {
    inWindow<frmFolder>(world, [](frmFolder& picker) {
      picker.Drive1.choose(0);
      World::open(picker.Dir1, "c:\\Docs");
      if (picker.File1.path() == "c:\\Docs") picker.okButton.click();
    });
    shredder.cmdAddFolder.click();
    EXPECT_EQ(shredder.cmdShred.enabled(), !shredder.ListView1.empty());
    for (std::size_t i = shredder.ListView1.rowCount(); i-- > 0;) {
      EXPECT_TRUE(shredder.ListView1.text(i).starts_with("c:\\Docs\\"));
      shredder.ListView1.clickRow(i);
      shredder.cmdRemoveFile.click();
    }
  });
}

void startAndChangeDrives(World& world, const Paths&) {
  world.startConsole();
  for (const std::size_t drive : {1U, 0U}) world.console->Drive1.choose(drive);
  World::open(world.console->Dir1, "C:\\Docs");
  world.console->Picture1.click();
}

void chooseExtensions(World& world, const Paths& chosen) {
  inWindow<frmChoose>(world, [](frmChoose& window) {
    window.txtChoose[0].type("tmp");
    window.cmdAccept.click();
  });
  world.console->cmdChoose.click();
  scanJunk(world, chosen);
}

const Scenario kScenarios[] = {
    {"junk to the bin", scanJunk, &frmFind::Delete, kJunk, true},
    {"junk for good", scanForGood, &frmFind::Delete, kJunk},
    {"junk wiped", scanToWipe, &frmFind::Delete, kJunk, true, "file to link"},
    {"zero bytes", scanZeros, &frmFind::cmdZeroDelete, R"(C:\Z\a|C:\Z\r|C:\Z\Sub\a)", true, "made again"},
    {"temps", nothing, &frmFind::Del_Temps, kTemps},
    {"temps refused", nothing, &frmFind::Del_Temps, "", false, "", "This will clear"},
    {"cache", scanCache, &frmFind::cmdCleanCache, "http://h/1|http://h/2"},
    {"cache emptied", selectCache, &frmFind::cmdCleanCache, "http://h/0|http://h/1|http://h/2|http://h/3"},
    {"history", nothing, &frmFind::Del_History},
    {"recent", nothing, &frmFind::Del_Recent},
    {"bin", nothing, &frmFind::Del_Recycle},
    {"typed URLs", nothing, &frmFind::cmdMRU, R"(HKCU\Software\Microsoft\Internet Explorer\TypedURLs\)"},
    {"lists", nothing, &frmFind::cmdLists, R"(HKCU\Software\WinRAR\ArcHistory\)"},
    {"index files", nothing, &frmFind::cmdIndex},
    {"prefetch", nothing, &frmFind::cmdPrefetch, R"(C:\Windows\Prefetch\a|C:\Windows\Prefetch\b)", true},
    {"page file", toggle<frmPage>, &frmFind::cmdSwap, kSettings},
    {"restore, points deleted", toggle<frmSR>, &frmFind::cmdSysrestore, kSettings},
    {"restore, points kept", toggle<frmSR>, &frmFind::cmdSysrestore, kSettings, false, "", "Do you want to delete"},
    {"shredder", shredFile, &frmFind::cmdFurnace, R"(C:\Docs\a.txt)", true, "file to link"},
    {"shredder's folder", addFolderToShred, &frmFind::cmdFurnace},
    {"extensions", chooseExtensions, &frmFind::Invert},
    {"start-up and drives", startAndChangeDrives, &frmFind::cmdHelp},
};

}  // namespace

std::span<const Scenario> scenarios() { return kScenarios; }

int numberFrom(const char* variable, int otherwise) {
  const char* const text = std::getenv(variable);
  return text == nullptr ? otherwise : std::atoi(text);
}

bool isAllowed(const Paths& mayGo, const std::string& path) {
  return std::ranges::any_of(mayGo, [&path](const std::string& one) {
    return path == one || ((one.ends_with('\\') || one.ends_with('=')) && path.starts_with(one));
  });
}

Paths harmed(const Snapshot& before, const Snapshot& now, const Paths& mayGo) {
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

World::World() {
  machine.disk().addDrive('D', "BACKUP");
  stock();
  machine.addFolder("C:\\P\\J\\folder.tmp");
  for (const char* link : {"C:\\P\\J\\Link", "C:\\Temp\\Link"}) machine.disk().addLink(link, "C:\\Outside");
  for (const char* variable : {"TEMP", "Temp"}) machine.environment().setVariable(variable, "C:\\Temp");
  machine.environment().setVariable("username", "Ann");
  for (const char* url : {"http://h/0", "http://h/1", "http://h/2", "http://h/3"}) machine.urlCache().add({.url = url});
  for (const std::string& text : kTexts) {
    const std::size_t end = text.find('=');
    machine.registry().setText(text.substr(0, end), text.substr(end + 1), "text");
  }
  startConsole();
}

void World::stock() {
  for (const std::string& line : kFiles) {
    const std::string path = line.substr(0, line.find('='));
    const bool isReadOnly = path[path.rfind('\\') + 1] == 'r';
    machine.addFile(path, line.substr(path.size() + 1), isReadOnly ? platform::kReadOnly : platform::kArchive);
  }
}

void World::startConsole() {
  console.emplace();
  console->load();
}

Snapshot World::everything() {
  Snapshot all;
  for (const char* root : {"C:\\", "D:\\"}) {
    for (const std::string& path : machine.filesBelow(root)) all.emplace(path, machine.contents(path).value());
  }
  for (const std::string& url : machine.urlCache().urls()) all.emplace(url, "");
  for (const std::string root : {"HKCU", "HKLM"}) {
    for (const std::string& line : machine.registry().contents(root)) all.emplace(root + '\\' + line, "");
  }
  return all;
}

controls::ListView* World::front() {
  for (controls::ListView* list : {&console->lvCache, &console->ListView1, &console->ListView2}) {
    if (list->visible()) return list;
  }
  return nullptr;
}

void World::answer(const platform::memory::ShownBox& box, bool agrees) {
  if ((box.style & platform::kBoxYesNo) != 0) return machine.answer(agrees ? Answer::kYes : Answer::kNo);
  const bool canCancel = (box.style & platform::kBoxOkCancel) != 0;
  machine.answer(agrees || !canCancel ? Answer::kOk : Answer::kCancel);
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
  if (front() != &console->ListView1) return;
  EXPECT_EQ(console->Delete.acceptsInput(), console->ListView1.tickedCount() > 0);
}
