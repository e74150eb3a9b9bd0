// What the user does with the rows of the console's result lists, beside ticking them: their menu.
#include <algorithm>

#include "console/frmFind.h"
#include "platform/Paths.h"
#include "platform/Platform.h"

using controls::ListView;

namespace {

// The folder of a row's file, with a closing backslash; empty when the row stands for no file, as an entry of the cache
// that has only a URL.
std::string_view folderOf(const std::string& path) {
  const std::size_t end = path.rfind('\\');
  const bool isFull = path.find(":\\") == 1 || path.starts_with("\\\\");
  return isFull ? std::string_view(path).substr(0, end + 1) : std::string_view();
}

}  // namespace

void frmFind::bindRows() {
  for (ListView* list : {&ListView1, &ListView2, &lvCache}) {
    list->onMenu = [this, list] { return rowMenu(*list); };
  }
  const std::pair<ListView*, std::vector<controls::FlatButton*>> commands[] = {
      {&ListView1, {&Select_All, &cmdInvert, &Delete}},
      {&ListView2, {&cmdSelectAll, &cmdZeroInvert, &cmdZeroDelete}},
      {&lvCache, {&cmdSelect, &cmdCacheInvert, &cmdCleanCache, &cmdCacheAbort}}};
  for (const auto& [list, buttons] : commands) {
    for (controls::FlatButton* button : buttons) button->setAccessibleDescription(list->accessibleName());
  }
}

// While a tool runs, nothing can be ticked by the menu: what is ticked may be in work.
controls::Menu frmFind::rowMenu(ListView& list) {
  const std::vector<std::size_t> rows = list.selectedRows();
  const std::size_t row = list.selected().value_or(rows.front());
  const bool idle = !toolRuns_ && isInFront(list);
  const bool anyTickedRow = std::ranges::any_of(rows, [&list](std::size_t one) { return list.ticked(one); });
  const bool allTicked = std::ranges::all_of(rows, [&list](std::size_t one) { return list.ticked(one); });
  const std::string folder(folderOf(list.text(row)));
  const bool hasFolder = idle && !folder.empty();
  return {{"&Tick", [&list, rows] { list.setTicked(rows, true); }, idle && !allTicked},
          {"&Untick", [&list, rows] { list.setTicked(rows, false); }, idle && anyTickedRow},
          {},
          {"Tick &All in This Folder", [&list, row] { tickFolder(list, row, true); }, hasFolder},
          {"U&ntick All in This Folder", [&list, row] { tickFolder(list, row, false); }, hasFolder},
          {},
          {"&Open Folder", [folder] { openFolder(folder); }, hasFolder},
          {"&Copy Path", [&list] { copySelected(list); }}};
}

void frmFind::tickFolder(ListView& list, std::size_t row, bool ticked) {
  const std::string_view folder = folderOf(list.text(row));
  std::vector<std::size_t> rows;
  for (std::size_t i = 0; i < list.rowCount(); ++i) {
    if (folderOf(list.text(i)) == folder) rows.push_back(i);
  }
  list.setTicked(rows, ticked);
}

// The verb "explore" is one of folders only, so that a program of that name is never started.
void frmFind::openFolder(const std::string& folder) {
  platform::machine().shell().execute(
      {.owner = platform::ShellOwner::kDesktopWindow, .verb = "explore", .file = folder, .showCommand = 1});
}

void frmFind::copySelected(const ListView& list) {
  std::string text;
  for (const std::size_t row : list.selectedRows()) text += (text.empty() ? "" : "\r\n") + list.text(row);
  if (!platform::machine().ui().copyText(text)) {
    controls::messageBox("The clipboard is in use by another program.", platform::kBoxExclamation);
  }
}
