// The console's shell: its controls, start-up, help, web site, shredder, abort, close and drive change.
#include "console/frmFind.h"

#include "console/help_topics.h"
#include "console/product.h"
#include "platform/Platform.h"
#include "shredder/frmMain.h"

using controls::ControlInit;

namespace {

constexpr const char* kMakersAddress = "http://www.velmatrix.example/";

std::string compiledHelp() { return platform::machine().environment().programFolder() + "\\scrubhaven.chm"; }

}  // namespace

frmFind::frmFind()
    : Form("frmFind", std::string("Velmatrix Scrubhaven Pro ") + kProductVersion),
      Picture1(*this, "Picture1", ControlInit{.toolTip = "Visit Velmatrix on the Web"}),

      lblFileTools(*this, "lblFileTools", ControlInit{.caption = "Files"}, controls::Ground::kHeading),
      cmdZero(*this, "cmdZero", ControlInit{.caption = "Find 0 Byte Files", .toolTip = "Find 0 byte (empty) Files"}),
      cmdFurnace(*this, "cmdFurnace",
                 ControlInit{.caption = "Shredder", .toolTip = "Open the Scrubhaven Pro Shredder"}),
      Del_Temps(
          *this, "Del_Temps",
          ControlInit{.caption = "Delete Temps", .toolTip = "Deletes ALL Temporary Files in the Windows Temp Folders"}),
      Del_Recycle(*this, "Del_Recycle",
                  ControlInit{.caption = "Empty Recycle Bin", .toolTip = "Empty the Windows Recycle Bin"}),
      lblPrivacyTools(*this, "lblPrivacyTools", ControlInit{.caption = "Privacy"}, controls::Ground::kHeading),
      Del_Cache(*this, "Del_Cache",
                ControlInit{.caption = "IE Cache/Cookies", .toolTip = "Clean Internet Explorer Temporary Files"}),
      Del_History(
          *this, "Del_History",
          ControlInit{.caption = "Clear IE History", .toolTip = "Clear Internet Explorer Visited Page History"}),
      Del_Recent(*this, "Del_Recent",
                 ControlInit{.caption = "Clear Recent Docs", .toolTip = "Clear Recently Used Documents List"}),
      cmdMRU(*this, "cmdMRU",
             ControlInit{.caption = "Clear Typed URLs", .toolTip = "Clear Internet Explorer Typed URL List"}),
      cmdLists(*this, "cmdLists",
               ControlInit{.caption = "Clean MRU Lists", .toolTip = "Cleans MRU Lists of Common Programs"}),
      cmdIndex(*this, "cmdIndex",
               ControlInit{.caption = "Wipe Index Files", .toolTip = "Delete index.dat Files on Next Restart"}),
      lblSystemTools(*this, "lblSystemTools", ControlInit{.caption = "System"}, controls::Ground::kHeading),
      cmdPrefetch(*this, "cmdPrefetch",
                  ControlInit{.caption = "Clear Prefetch", .toolTip = "Clears the Windows Prefetch Folder"}),
      cmdSwap(*this, "cmdSwap",
              ControlInit{.caption = "Clear Swap File", .toolTip = "Toggle Clear Windows Pagefile on Shutdown"}),
      cmdSysrestore(*this, "cmdSysrestore",
                    ControlInit{.caption = "System Restore", .toolTip = "Toggle Enable/Disable System Restore"}),
      cmdHelp(*this, "cmdHelp", ControlInit{.caption = "Help", .toolTip = "Scrubhaven Pro Help"}),
      cmdExit(*this, "cmdExit", ControlInit{.caption = "Close", .toolTip = "Close Scrubhaven Pro"}),

      Label4(*this, "Label4", ControlInit{.caption = "Select Drive to Scan"}),
      Drive1(*this, "Drive1", ControlInit{.toolTip = "Choose a drive to scan (local or network)"}),
      Label1(*this, "Label1", ControlInit{.caption = "Start In"}),
      Dir1(*this, "Dir1", ControlInit{.toolTip = "Choose a folder to scan"}),
      Scan(*this, "Scan", ControlInit{.toolTip = "Scan Selected Drive and Folders"}),
      cmdAbort(*this, "cmdAbort", ControlInit{.caption = "Abort Scan", .visible = false}),

      Frame1(*this, "Frame1", ControlInit{.caption = "File Types"}),
      Specials(Frame1, "Specials", ControlInit{.caption = "Special Files"}),
      Select_Check(Frame1, "Select_Check",
                   ControlInit{.caption = "Select All", .toolTip = "Toggle Select All or Clear All checkboxes"}),
      Invert(Frame1, "Invert", ControlInit{.toolTip = "Inverts Current Selection(s)"}),
      cmdChoose(Frame1, "cmdChoose", ControlInit{.caption = "Custom Ext.", .toolTip = "Choose Custom File Extensions"}),

      Frame2(*this, "Frame2", ControlInit{.caption = "Scan results"}),
      ListView1(Frame2, "ListView1", ControlInit{.toolTip = "Scan results"},
                {{.title = "File Path and Name", .share = 6}, {.title = "Size", .share = 1, .rightAligned = true}}),
      ListView2(Frame2, "ListView2", ControlInit{.visible = false}, {{.title = "File Path and Name"}}),
      lvCache(Frame2, "lvCache", ControlInit{.visible = false},
              {{.title = "File Name", .share = 4},
               {.title = "Source URL", .share = 4},
               {.title = "Expires", .share = 3},
               {.title = "Last Access", .share = 3}}),

      lblJunkCommands(Frame2, "lblJunkCommands", ControlInit{.caption = "Junk:"}),
      Select_All(Frame2, "Select_All",
                 ControlInit{.caption = "Select All", .toolTip = "Select or clear all items", .enabled = false}),
      cmdInvert(Frame2, "cmdInvert", ControlInit{.caption = "Invert", .toolTip = "Invert Selection", .enabled = false}),
      Delete(Frame2, "Delete",
             ControlInit{.caption = "Delete Files", .toolTip = "Delete selected items", .enabled = false}),
      optRecycle(Frame2, "optRecycle",
                 ControlInit{.caption = "Delete to Recycle Bin",
                             .toolTip = "Checked = deletes to recycle bin - unchecked bypasses recycle bin",
                             .enabled = false},
                 true),
      optWipe(
          Frame2, "optWipe",
          ControlInit{
              .caption = "Shred Files?", .toolTip = "Check to send selected files to the shredder", .enabled = false}),

      lblZeroCommands(Frame2, "lblZeroCommands", ControlInit{.caption = "0 byte files:"}),
      cmdSelectAll(Frame2, "cmdSelectAll", ControlInit{.caption = "Select All", .toolTip = "Select All Listed Files"}),
      cmdZeroInvert(Frame2, "cmdZeroInvert", ControlInit{.caption = "Invert"}),
      cmdZeroDelete(Frame2, "cmdZeroDelete", ControlInit{.caption = "Delete", .toolTip = "Delete Selected Files"}),

      lblCacheCommands(Frame2, "lblCacheCommands", ControlInit{.caption = "Cache:"}),
      cmdSelect(Frame2, "cmdSelect",
                ControlInit{.caption = "Select All", .toolTip = "Select or clear all items", .enabled = false}),
      cmdCacheInvert(Frame2, "cmdCacheInvert",
                     ControlInit{.caption = "Invert", .toolTip = "Scan selected drive and folders", .enabled = false}),
      cmdCleanCache(Frame2, "cmdCleanCache",
                    ControlInit{.caption = "Clean", .toolTip = "Delete selected cache items", .enabled = false}),

      Frame3(*this, "Frame3", ControlInit{.caption = "Scan Results"}),
      Label6(Frame3, "Label6", ControlInit{.visible = false}),
      lblStatus(Frame3, "lblStatus", ControlInit{.visible = false}),
      lblFile(Frame3, "lblFile", ControlInit{.visible = false}),
      cmdCacheAbort(Frame3, "cmdCacheAbort", ControlInit{.caption = "Abort"}),

      Status(*this, "Status") {
  makeFileTypeBoxes();
  setMnemonics();
  // Esc aborts a scan. There is no default button, because most buttons here destroy something.
  setCancelButton(cmdAbort);
  setStatusBar(Status);
  setFirstFocus(Dir1);
  bindShell();
  bindJunkScan();
  bindDelete();
  bindZeroBytes();
  bindTempFolders();
  bindCachePage();
  bindHistory();
  bindLists();
  bindIndexFiles();
  bindPrefetch();
  bindPagefile();
  bindRestore();
}

void frmFind::bindShell() {
  cmdHelp.onClick = [this] { cmdHelp_Click(); };
  Picture1.onClick = [this] { Picture1_Click(); };
  cmdExit.onClick = [this] { cmdExit_Click(); };
  cmdAbort.onClick = [this] { requestAbort(); };
  // During a scan the pointer is the hourglass; over the abort button it is the arrow, so that it looks clickable.
  cmdAbort.onPointerEnters = [] { platform::machine().ui().setPointer(platform::Pointer::kDefault); };
  cmdCacheAbort.onClick = [this] { requestAbort(); };
  bindTool(cmdFurnace, &frmFind::cmdFurnace_Click);
  Drive1.onChange = [this] { Drive1_Change(); };
  Dir1.onFailure = [](const platform::RuntimeError& error) { reportUnhandled(error); };
}

void frmFind::bindTool(controls::FlatButton& button, Handler handler) {
  button.onClick = [this, handler] {
    if (toolRuns_) return;
    toolRuns_ = true;
    (this->*handler)();
    toolRuns_ = false;
  };
}

void frmFind::formLoad() {
  // Whatever the process's current folder is.
  const platform::Result<void> shown = Dir1.setPath("C:\\");
  if (!shown) reportUnhandled(shown.error());
}

void frmFind::gotFocus() { refresh(); }

// The title bar's close button acts as Close, also during a scan.
void frmFind::closeRequested() { cmdExit_Click(); }

void frmFind::Drive1_Change() {
  const platform::Result<void> shown = Dir1.setPath(Drive1.drive());
  if (!shown) return reportUnhandled(shown.error());
  // Only a text in capitals and without a label starts at the root; any other shows the drive's current folder.
  if (Drive1.drive() != "C:") return;
  const platform::Result<void> root = Dir1.setPath("C:\\");
  if (!root) reportUnhandled(root.error());
}

void frmFind::cmdHelp_Click() {
  CommonDialog1.helpFile = platform::machine().environment().programFolder() + "\\scrubhaven.hlp";
  RunShellExecute("Open", compiledHelp(), 0, 0, 1);
}

void frmFind::openHelp(const std::string& name) {
  if (!platform::machine().shell().showHelp(compiledHelp(), helpTopicOf(name))) cmdHelp_Click();
}

void frmFind::cmdFurnace_Click() {
  frmMain shredder;
  shredder.showModal(this);
}

void frmFind::Picture1_Click() { platform::machine().shell().execute({.file = kMakersAddress, .showCommand = 0}); }

void frmFind::cmdExit_Click() {
  platform::machine().shell().closeHelp();
  platform::machine().ui().end();
}

void frmFind::requestAbort() { AbortRequested = true; }

void frmFind::RunShellExecute(const std::string& sTopic, const platform::Variant& sFile,
                              const platform::Variant& sParams, const platform::Variant& sDirectory,
                              std::int32_t nShowCmd) {
  platform::machine().shell().execute({.owner = platform::ShellOwner::kDesktopWindow,
                                       .verb = sTopic,
                                       .file = platform::textOf(sFile),
                                       .parameters = platform::textOf(sParams),
                                       .folder = platform::textOf(sDirectory),
                                       .showCommand = nShowCmd});
}

void frmFind::setCommandsEnabled(bool enabled) {
  controls::FlatButton* const commands[] = {&cmdHelp,       &cmdFurnace,  &cmdExit,     &Del_Temps,   &Del_Cache,
                                            &Del_Recent,    &Del_History, &Del_Recycle, &cmdLists,    &cmdSwap,
                                            &cmdSysrestore, &cmdIndex,    &cmdZero,     &cmdPrefetch, &cmdMRU,
                                            &Select_Check,  &Invert,      &cmdChoose};
  for (controls::FlatButton* command : commands) command->setEnabled(enabled);
  Specials.setEnabled(enabled);
  Frame1.setEnabled(enabled);
  for (controls::CheckBox& box : Check) box.setEnabled(enabled);
}
