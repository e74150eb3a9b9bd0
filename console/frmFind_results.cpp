// What the console's three result lists share.
#include "console/frmFind.h"

using controls::messageBox;
using platform::Answer;

std::optional<bool> frmFind::toggleAllRows(controls::ListView& list, controls::FlatButton& selection,
                                           const char* emptyText) {
  const bool tick = selection.caption() == kSelectAll;
  if (tick && list.empty()) {
    messageBox(emptyText);
    return std::nullopt;
  }
  for (std::size_t i = 0; i < list.rowCount(); ++i) list.setTicked(i, tick);
  selection.setCaption(tick ? kClearAll : kSelectAll);
  return tick;
}

void frmFind::invertRows(controls::ListView& list, controls::FlatButton& selection) {
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
  messageBox("    Scan Aborted", platform::kBoxOk, "Scan Aborted");
}

bool frmFind::anythingToDelete(const controls::ListView& list) {
  if (list.tickedCount() > 0) return true;
  messageBox(list.empty() ? "Nothing to Delete" : "Nothing Selected");
  return false;
}

bool frmFind::userConfirmsDeletion() {
  return messageBox("Confirm file deletion?", platform::kBoxAsk, "Confirm Deletion") != Answer::kNo;
}
