// What the console's three result lists share.
#include "console/frmFind.h"

using controls::messageBox;
using platform::Answer;

std::optional<bool> frmFind::toggleAllRows(controls::ListView& list, controls::FlatButton& selection,
                                           const char* emptyText) {
  const bool tick = selection.caption() == kSelectAll;
  const std::size_t rows = isInFront(list) ? list.rowCount() : 0;
  if (tick && rows == 0) {
    messageBox(emptyText);
    return std::nullopt;
  }
  for (std::size_t i = 0; i < rows; ++i) list.setTicked(i, tick);
  selection.setCaption(tick ? kClearAll : kSelectAll);
  return tick;
}

void frmFind::invertRows(controls::ListView& list, controls::FlatButton& selection) {
  if (!isInFront(list)) return;
  for (std::size_t i = 0; i < list.rowCount(); ++i) {
    const bool wasTicked = list.ticked(i);
    list.setTicked(i, !wasTicked);
    selection.setCaption(wasTicked ? kSelectAll : kClearAll);
  }
}

void frmFind::captionByTicks(controls::FlatButton& selection, const controls::ListView& list) {
  selection.setCaption(list.tickedCount() > 0 ? kClearAll : kSelectAll);
}

void frmFind::showSelectedTip(controls::ListView& list) {
  if (const std::optional<std::size_t> row = list.selected()) list.setToolTip(list.text(*row));
}

void frmFind::reportAbort() {
  AbortRequested = false;
  scan_.aborted = true;
  messageBox("    Scan Aborted", platform::kBoxOk, "Scan Aborted");
}

bool frmFind::anythingToDelete(const controls::ListView& list) {
  if (anyTicked(list)) return true;
  messageBox(list.empty() || !isInFront(list) ? "Nothing to Delete" : "Nothing Selected");
  return false;
}

bool frmFind::anyTicked(const controls::ListView& list) const { return list.tickedCount() > 0 && isInFront(list); }

const controls::ListView* frmFind::listInFront() const {
  for (const controls::ListView* one : {&lvCache, &ListView1, &ListView2}) {
    if (one->visible()) return one;
  }
  return nullptr;
}

bool frmFind::isInFront(const controls::ListView& list) const { return listInFront() == &list; }

std::vector<std::size_t> frmFind::tickedRows(const controls::ListView& list) {
  std::vector<std::size_t> rows;
  for (std::size_t i = 0; i < list.rowCount(); ++i) {
    if (list.ticked(i)) rows.push_back(i);
  }
  return rows;
}

bool frmFind::userConfirmsDeletion() {
  return messageBox("Confirm file deletion?", platform::kBoxAsk, "Confirm Deletion") == Answer::kYes;
}
