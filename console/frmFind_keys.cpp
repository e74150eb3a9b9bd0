// The console's keyboard: its shortcuts, which controls are one stop of Tab, and where the focus goes.
#include "console/frmFind.h"

using controls::Control;
using controls::Key;
using controls::Kind;

void frmFind::bindKeys() {
  const auto whenIdle = [this](void (frmFind::*command)()) {
    return [this, command](Control*) {
      if (!toolRuns_) (this->*command)();
    };
  };
  const auto inFolders = [](const Control* focus) { return focus != nullptr && focus->kind() == Kind::kDirList; };
  const auto inResults = [](const Control* focus) { return focus != nullptr && focus->kind() == Kind::kListView; };

  addShortcut({{Key::kF5}, whenIdle(&frmFind::scanByKey)});
  addShortcut({{Key::kEscape}, [this](Control*) { abortByKey(); }});
  addShortcut({{Key::kA, true}, whenIdle(&frmFind::tickAllByKey)});
  addShortcut({{Key::kI, true}, whenIdle(&frmFind::invertByKey)});
  addShortcut({{Key::kDelete}, whenIdle(&frmFind::deleteByKey), inResults});
  addShortcut({{Key::kBackspace}, whenIdle(&frmFind::openParentByKey), inFolders});

  makeGroup({&cmdZero, &cmdFurnace, &Del_Temps, &Del_Recycle});
  makeGroup({&Del_Cache, &Del_History, &Del_Recent, &cmdMRU, &cmdLists, &cmdIndex});
  makeGroup({&cmdPrefetch, &cmdSwap, &cmdSysrestore});
  std::vector<Control*> types;
  for (controls::CheckBox& box : Check) types.push_back(&box);
  makeGroup(types);
}

std::vector<Control*> frmFind::refuges() {
  const std::optional<ListCommands> front = commandsInFront();
  return {&cmdAbort, front ? &front->list : nullptr};
}

std::optional<frmFind::ListCommands> frmFind::commandsInFront() {
  for (const ListCommands& one : {ListCommands{ListView1, Select_All, cmdInvert, Delete},
                                  ListCommands{ListView2, cmdSelectAll, cmdZeroInvert, cmdZeroDelete},
                                  ListCommands{lvCache, cmdSelect, cmdCacheInvert, cmdCleanCache}}) {
    if (isInFront(one.list)) return one;
  }
  return std::nullopt;
}

void frmFind::scanByKey() { Scan.click(); }

// An abort button that is pressed while nothing runs would end the next scan.
void frmFind::abortByKey() {
  if (cmdAbort.acceptsInput()) return cmdAbort.click();
  if (scan_.runs) cmdCacheAbort.click();
}

// The selection button unticks the rows while it shows "Clear All", as it does when only some are ticked.
void frmFind::tickAllByKey() {
  const std::optional<ListCommands> front = commandsInFront();
  if (!front || (front->list.tickedCount() == front->list.rowCount() && !front->list.empty())) return;
  if (front->selection.caption() == kClearAll) front->selection.click();
  front->selection.click();
}

void frmFind::invertByKey() {
  if (const std::optional<ListCommands> front = commandsInFront()) front->inversion.click();
}

void frmFind::deleteByKey() {
  if (const std::optional<ListCommands> front = commandsInFront()) front->deletion.click();
}

void frmFind::openParentByKey() { Dir1.openParent(); }

void frmFind::helpRequested(const std::string& name) { openHelp(name); }
