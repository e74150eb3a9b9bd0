// The console's cache page: the list of the Internet cache, its commands, and the deletion of ticked entries.
#include <utility>

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
  scanBegins(lvCache, "");
  const platform::Result<void> scanned = ScanCache();
  scanEnds();
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

// Shows the cache list in the place of the lists and hides the commands of the other lists.
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
  // The only time during the scan: an abort must be pressed before the first entry is read.
  platform::machine().ui().serveEvents();
  const platform::Result<void> listed = listCacheEntries();
  leaveCacheScan();
  if (listed && !lvCache.empty()) {
    lvCache.select(0);
    ShowCacheTip();
  }
  return listed;
}

// The first entry is listed whatever its type. Of the others only normal entries are, under their URL when they have no
// file name.
platform::Result<void> frmFind::listCacheEntries() {
  if (!cache_.CacheFindFirst()) return {};
  platform::Result<void> added = addCacheRow(cache_.CacheLocalFileName());
  while (added && cache_.CacheFindNext()) {
    if ((cache_.CacheEntryType() & platform::kNormalCacheEntry) == 0) continue;
    const std::string file = cache_.CacheLocalFileName();
    added = addCacheRow(file.empty() ? cache_.CacheSourceUrl() : file);
    // This closes the enumeration, so that there is no next entry.
    if (added && AbortRequested) abortCacheScan();
  }
  return added;
}

// Lists the current entry under `name`. An entry whose last access is no date is listed without it, and the call fails.
platform::Result<void> frmFind::addCacheRow(const std::string& name) {
  platform::Calendar& calendar = platform::machine().calendar();
  const platform::Result<platform::Date> accessed = cache_.CacheLastAccess();
  lvCache.add(name, {cache_.CacheSourceUrl(), calendar.textOf(cache_.CacheExpires()),
                     accessed ? calendar.textOf(*accessed) : ""});
  if (!accessed) return std::unexpected(accessed.error());
  return {};
}

void frmFind::abortCacheScan() {
  reportAbort();
  leaveCacheScan();
}

void frmFind::leaveCacheScan() {
  cache_.CacheFindClose();
  platform::machine().ui().setPointer(platform::Pointer::kArrow);
  Del_Cache.show();
}

void frmFind::ShowCacheTip() { showSelectedTip(lvCache); }

void frmFind::cmdCleanCache_Click() {
  if (!anythingToDelete(lvCache)) return;
  if (messageBox("Delete Selected Cache Items?", platform::kBoxAsk) != Answer::kYes) return;
  deleteTickedCacheEntries();
  messageBox("All selected cache items have been cleaned.", platform::kBoxInformation, "Cache Cleaned");
  if (lvCache.empty()) {
    leaveEmptyCachePage();
  } else {
    setEnabled(true, {&cmdCleanCache, &cmdCacheInvert});
  }
}

// From the last row to the first. A row is removed even when the system refuses the deletion.
void frmFind::deleteTickedCacheEntries() {
  // Removing rows takes time in proportion to the rows behind them, so many are removed at once.
  constexpr std::size_t kRowsAtOnce = 256;
  std::vector<std::size_t> done;
  const auto removeDone = [&] {
    lvCache.removeRows(std::exchange(done, {}));
    refresh();
  };
  WorkProgress progress(lblFile, lvCache.tickedCount());
  // The result line counts the rows that are removed.
  lblStatus.hide();
  for (std::size_t i = lvCache.rowCount(); i-- > 0;) {
    if (!lvCache.ticked(i)) continue;
    progress.next(lvCache.text(i));
    cache_.CacheDeleteEntry(lvCache.row(i).subItems[kSourceUrl]);
    done.push_back(i);
    if (done.size() == kRowsAtOnce) removeDone();
  }
  removeDone();
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
  const std::optional<bool> ticked = toggleAllRows(lvCache, cmdSelect, "Nothing to Select");
  if (ticked) cmdCleanCache.setEnabled(*ticked);
}

void frmFind::cmdCacheInvert_Click() {
  invertRows(lvCache, cmdSelect);
  cmdCleanCache.setEnabled(anyTicked(lvCache));
}

void frmFind::lvCache_ItemCheck() {
  cmdCleanCache.setEnabled(anyTicked(lvCache));
  captionByTicks(cmdSelect, lvCache);
}
