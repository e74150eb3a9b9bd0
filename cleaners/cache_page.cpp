// The Internet cache: listing its entries, ticking them, and deleting what is ticked.
#include "cleaners/Cache.h"
#include "console/frmFind.h"
#include "controls/ControlLists.h"
#include "platform/Platform.h"

using controls::messageBox;
using controls::setEnabled;
using controls::setVisible;
using platform::Answer;

namespace {

constexpr std::size_t kSourceUrl = 0;  // among a row's sub-items

}  // namespace

void frmFind::bindCachePage() {
  lvCache.onItemCheck = [this] { lvCache_ItemCheck(); };
  lvCache.onItemClick = [this] { ShowCacheTip(); };
  bindTool(Del_Cache, &frmFind::Del_Cache_Click);
  bindTool(cmdSelect, &frmFind::cmdSelect_Click);
  bindTool(cmdCacheInvert, &frmFind::cmdCacheInvert_Click);
  bindTool(cmdCleanCache, &frmFind::cmdCleanCache_Click);
}

void frmFind::Del_Cache_Click() {
  openCachePage();
  const platform::Result<void> scanned = ScanCache();
  if (!scanned) {
    reportUnhandled(scanned.error());
    Scan.enable();
    return;
  }
  if (lvCache.empty()) {
    messageBox("No cache items found.", platform::kBoxOk, "No Items Found");
    Scan.enable();
    return;
  }
  setVisible(false, {&ListView1, &cmdZeroInvert, &cmdZeroDelete});
  cmdCacheInvert.enable();
  cmdSelect.show();
  cmdSelect.enable();
  lblStatus.setCaption(" Results: Found " + std::to_string(lvCache.rowCount()) + " cache entries.");
  lblStatus.show();
}

// Gives the place of the lists to the cache, and takes the commands of the other lists away.
void frmFind::openCachePage() {
  setVisible(true, {&lvCache, &cmdCleanCache, &cmdSelect, &cmdCacheInvert});
  setVisible(false, {&ListView2, &cmdSelectAll, &Delete, &Select_All, &Label6, &cmdInvert, &optRecycle, &optWipe});
  setEnabled(false, {&cmdCacheInvert, &Scan});
  cmdSelect.setCaption(kSelectAll);
  ListView1.clear();
}

platform::Result<void> frmFind::ScanCache() {
  lvCache.clear();
  Del_Cache.hide();
  platform::machine().ui().setPointer(platform::Pointer::kHourglass);
  // Once only: an abort reaches this scan when it is pressed before the first entry is read.
  platform::machine().ui().serveEvents();
  const platform::Result<void> listed = listCacheEntries();
  leaveCacheScan();
  if (listed && !lvCache.empty()) {
    lvCache.select(0);
    ShowCacheTip();
  }
  return listed;
}

// The first entry is listed whatever it is. Of the others only ordinary ones are, and their URL stands in for a file
// name that they lack.
platform::Result<void> frmFind::listCacheEntries() {
  if (!CacheFindFirst()) return {};
  platform::Result<void> added = addCacheRow(CacheLocalFileName());
  while (added && CacheFindNext()) {
    if ((CacheEntryType() & platform::kNormalCacheEntry) == 0) continue;
    const std::string file = CacheLocalFileName();
    added = addCacheRow(file.empty() ? CacheSourceUrl() : file);
    // Closing the walk ends it: there is no next entry then.
    if (added && AbortRequested) abortCacheScan();
  }
  return added;
}

// Lists the entry that the walk stands on under `name`. A row whose last access is no date is listed without it.
platform::Result<void> frmFind::addCacheRow(const std::string& name) {
  platform::Calendar& calendar = platform::machine().calendar();
  const platform::Result<platform::Date> accessed = CacheLastAccess();
  lvCache.add(name, {CacheSourceUrl(), calendar.textOf(CacheExpires()), accessed ? calendar.textOf(*accessed) : ""});
  if (!accessed) return std::unexpected(accessed.error());
  return {};
}

void frmFind::abortCacheScan() {
  AbortRequested = false;
  messageBox("    Scan Aborted", platform::kBoxOk, "Scan Aborted");
  leaveCacheScan();
}

void frmFind::leaveCacheScan() {
  CacheFindClose();
  platform::machine().ui().setPointer(platform::Pointer::kArrow);
  Del_Cache.show();
}

void frmFind::ShowCacheTip() { showSelectedTip(lvCache); }

void frmFind::cmdCleanCache_Click() {
  if (!anythingToDelete(lvCache)) return;
  if (messageBox("Delete Selected Cache Items?", platform::kBoxAsk) == Answer::kNo) return;

  platform::machine().ui().setPointer(platform::Pointer::kHourglass);
  deleteTickedCacheEntries();
  platform::machine().ui().setPointer(platform::Pointer::kDefault);
  messageBox("All selected cache items have been cleaned.", platform::kBoxInformation, "Cache Cleaned");
  if (lvCache.empty()) {
    leaveEmptyCachePage();
  } else {
    setEnabled(true, {&cmdCleanCache, &cmdCacheInvert});
  }
}

// Last row first, so that a row that goes never moves one still to come. A row goes even when the system keeps the
// entry: it may be in use, or have gone since the scan.
void frmFind::deleteTickedCacheEntries() {
  for (std::size_t i = lvCache.rowCount(); i-- > 0;) {
    if (!lvCache.ticked(i)) continue;
    CacheDeleteEntry(lvCache.row(i).subItems[kSourceUrl]);
    lvCache.remove(i);
    refresh();
  }
}

void frmFind::leaveEmptyCachePage() {
  lvCache.setToolTip("");
  setVisible(false, {&lblStatus, &Select_All});
  cmdSelect.show();
  setEnabled(false, {&cmdSelect, &cmdCleanCache, &cmdCacheInvert});
  refresh();
  Scan.enable();
}

void frmFind::cmdSelect_Click() {
  const bool tick = cmdSelect.caption() == kSelectAll;
  if (tick && lvCache.empty()) {
    messageBox("Nothing to Select");
    return;
  }
  tickAllRows(lvCache, tick);
  cmdSelect.setCaption(tick ? kClearAll : kSelectAll);
  cmdCleanCache.setEnabled(tick);
}

void frmFind::cmdCacheInvert_Click() {
  invertRows(lvCache, cmdSelect);
  cmdCleanCache.setEnabled(lvCache.tickedCount() > 0);
}

void frmFind::lvCache_ItemCheck() {
  cmdCleanCache.setEnabled(lvCache.tickedCount() > 0);
  captionByTicks(cmdSelect, lvCache);
}
