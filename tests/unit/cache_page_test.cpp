#include "cleaners/Cache.h"
#include "controls/ControlLists.h"
#include "tests/unit/ConsoleTest.h"

using platform::Answer;
using platform::FileTime;
using platform::Pointer;

namespace {

constexpr std::uint32_t kCookie = 0x00100000;

// The 5th of March 2004, 14:10:03 UTC.
constexpr FileTime kAfternoon{0x8D8A2F80, 0x1C402BB};
constexpr FileTime kNever{0xFFFFFFFF, 0x7FFFFFFF};

class CachePage : public ConsoleTest {
 protected:
  void addPages(int count) {
    for (int i = 0; i < count; ++i) {
      const std::string name = "p" + std::to_string(i);
      machine.urlCache().add({.url = "http://h/" + name, .localFile = "C:\\Cache\\" + name});
    }
  }

  // The rows, "file|url|expires|last access".
  Paths entries() const {
    Paths all;
    for (std::size_t i = 0; i < form.lvCache.rowCount(); ++i) {
      std::string text = form.lvCache.text(i);
      for (const std::string& cell : form.lvCache.row(i).subItems) text += "|" + cell;
      all.push_back(text);
    }
    return all;
  }

  void tick(std::initializer_list<std::size_t> rows) {
    for (const std::size_t row : rows) form.lvCache.clickTick(row);
  }

  void clean(Answer answer) {
    machine.answer(answer);
    form.cmdCleanCache.click();
  }
};

TEST_F(CachePage, ListsTheFirstEntryAsItIsAndOfTheOthersOnlyOrdinaryOnes) {
  machine.urlCache().add({.url = "Cookie:me@first", .type = kCookie, .expires = kAfternoon, .accessed = kAfternoon});
  machine.urlCache().add({.url = "http://h/file", .localFile = "C:\\Cache\\file[1].htm", .accessed = kAfternoon});
  machine.urlCache().add({.url = "Cookie:me@later", .localFile = "C:\\Cookies\\later.txt", .type = kCookie});
  machine.urlCache().add({.url = "http://h/nofile", .type = kCookie | 1, .expires = kNever});
  form.Del_Cache.click();
  EXPECT_EQ(entries(), (Paths{"|Cookie:me@first|3/5/2004 2:10:03 PM|3/5/2004 2:10:03 PM",
                              "C:\\Cache\\file[1].htm|http://h/file|1/1/1601|3/5/2004 2:10:03 PM",
                              "http://h/nofile|http://h/nofile|12:00:00 AM|1/1/1601"}));
  EXPECT_EQ(form.lvCache.selected(), 0U);
  EXPECT_EQ(form.lvCache.toolTip(), "");
  form.lvCache.clickRow(1);
  EXPECT_EQ(form.lvCache.toolTip(), "C:\\Cache\\file[1].htm");
  EXPECT_TRUE(machine.boxes().empty());
}

TEST_F(CachePage, TakesThePlaceOfTheOtherLists) {
  machine.addFile("C:\\J\\a.tmp", "x");
  scan({kTypeTmp}, "C:\\J");
  addPages(3);
  controls::setVisible(true, {&form.cmdZeroDelete, &form.cmdZeroInvert, &form.ListView2});
  form.Del_Cache.click();
  const std::initializer_list<controls::Control*> gone = {
      &form.ListView1, &form.ListView2, &form.cmdSelectAll,  &form.Delete,        &form.Select_All, &form.Label6,
      &form.cmdInvert, &form.optWipe,   &form.cmdZeroInvert, &form.cmdZeroDelete, &form.optRecycle};
  for (const controls::Control* control : gone) EXPECT_FALSE(control->visible()) << control->name();
  EXPECT_TRUE(form.lvCache.visible() && form.cmdCleanCache.visible() && form.lblStatus.visible());
  EXPECT_TRUE(form.ListView1.empty());
  EXPECT_TRUE(form.cmdSelect.enabled() && form.cmdCacheInvert.enabled());
  EXPECT_FALSE(form.cmdCleanCache.enabled());
  EXPECT_FALSE(form.Scan.enabled()) << "stays so until the list is empty";
  EXPECT_EQ(form.lblStatus.caption(), " Results: Found 3 cache entries.");
  EXPECT_EQ(machine.ui().pointer(), Pointer::kArrow);
}

TEST_F(CachePage, AnAbortEndsTheListAfterTheSecondRowAndOnlyOnce) {
  addPages(5);
  form.cmdCacheAbort.click();  // nothing runs: it waits for the next scan
  machine.ui().onBox([this](const platform::memory::ShownBox&) {
    EXPECT_FALSE(form.AbortRequested || form.Del_Cache.visible());
    EXPECT_EQ(machine.ui().pointer(), Pointer::kHourglass);
  });
  form.Del_Cache.click();
  ASSERT_EQ(machine.boxes().size(), 1U);
  expectBox("    Scan Aborted", "Scan Aborted");
  EXPECT_EQ(form.lvCache.rowCount(), 2U);

  machine.ui().onBox({});
  form.Del_Cache.click();
  EXPECT_EQ(form.lvCache.rowCount(), 5U);
  machine.whenServing([this] { form.cmdCacheAbort.click(); });
  form.Del_Cache.click();
  EXPECT_EQ(form.lvCache.rowCount(), 2U) << "pressed during the one yield";
}

TEST_F(CachePage, AnAccessTimeThatIsNoDateIsReportedAndEndsTheScan) {
  addPages(1);
  machine.urlCache().add({.url = "http://h/bad", .localFile = "C:\\Cache\\bad", .accessed = kNever});
  machine.urlCache().add({.url = "http://h/next"});
  form.Del_Cache.click();
  EXPECT_EQ(boxTexts(), Paths{"Run-time error '13':\r\n\r\nType mismatch"});
  EXPECT_EQ(entries().back(), "C:\\Cache\\bad|http://h/bad|1/1/1601|");
  EXPECT_EQ(form.lvCache.rowCount(), 2U);
  EXPECT_FALSE(form.lvCache.selected() || form.lblStatus.visible()) << "not as if all had been listed";
  EXPECT_EQ(machine.ui().pointer(), Pointer::kDefault);
  EXPECT_TRUE(form.Del_Cache.visible() && form.Scan.enabled());
}

TEST_F(CachePage, DeletesTheTickedEntriesAndNoOther) {
  addPages(5);
  machine.urlCache().use("http://h/p3");
  form.Del_Cache.click();
  tick({1, 3});
  clean(Answer::kNo);
  expectBox("Delete Selected Cache Items?", "Scrubhaven Pro", 292);
  EXPECT_TRUE(form.lvCache.ticked(1) && form.lvCache.ticked(3));
  EXPECT_EQ(machine.faults().calls("deleteUrlCacheEntry"), 0);

  clean(Answer::kYes);
  expectBox("All selected cache items have been cleaned.", "Cache Cleaned", 64);
  EXPECT_EQ(machine.urlCache().urls(), (Paths{"http://h/p0", "http://h/p2", "http://h/p3", "http://h/p4"}));
  EXPECT_EQ(form.lvCache.rowCount(), 3U) << "the row of an entry in use goes too";
  EXPECT_EQ(machine.ui().pointer(), Pointer::kDefault);
  EXPECT_TRUE(form.cmdCleanCache.enabled() && form.cmdCacheInvert.enabled());
  EXPECT_FALSE(form.Scan.enabled());
  form.cmdCleanCache.click();
  EXPECT_EQ(lastBox(), "Nothing Selected");
}

TEST_F(CachePage, CleaningEveryRowLeavesThePageIdleAndTheNextScanSaysThatTheCacheIsEmpty) {
  addPages(3);
  form.Del_Cache.click();
  form.cmdSelect.click();
  clean(Answer::kYes);
  EXPECT_TRUE(machine.urlCache().urls().empty());
  EXPECT_EQ(form.lvCache.toolTip(), "");
  EXPECT_TRUE(form.cmdSelect.visible() && form.Scan.enabled());
  EXPECT_FALSE(form.cmdSelect.enabled() || form.cmdCleanCache.enabled() || form.cmdCacheInvert.enabled());
  EXPECT_FALSE(form.lblStatus.visible() || form.Select_All.visible());
  form.cmdCleanCache.enable();
  form.cmdCleanCache.click();
  EXPECT_EQ(lastBox(), "Nothing to Delete");
  form.Del_Cache.click();
  expectBox("No cache items found.", "No Items Found");
  EXPECT_TRUE(form.Scan.enabled() && form.Del_Cache.visible());
}

TEST_F(CachePage, TicksAndCaptionsStayInStep) {
  addPages(3);
  form.Del_Cache.click();
  form.cmdSelect.click();
  EXPECT_EQ(form.lvCache.tickedCount(), 3U);
  EXPECT_EQ(form.cmdSelect.caption(), "Clear All");
  EXPECT_TRUE(form.cmdCleanCache.enabled());
  tick({0, 1});
  form.cmdCacheInvert.click();
  EXPECT_TRUE(form.lvCache.ticked(0) && form.lvCache.ticked(1) && !form.lvCache.ticked(2));
  EXPECT_EQ(form.cmdSelect.caption(), "Select All") << "follows the last row";
  EXPECT_TRUE(form.cmdCleanCache.enabled());
  tick({0, 1});
  EXPECT_FALSE(form.cmdCleanCache.enabled());

  form.cmdSelect.click();
  machine.failAt("findFirstUrlCacheEntry");
  form.Del_Cache.click();
  EXPECT_FALSE(form.cmdCleanCache.enabled());
  form.cmdSelect.click();
  EXPECT_EQ(lastBox(), "Nothing to Select");
}

// Every platform call of a scan fails once, one after the other: the list shows entries that are there, or nothing.
TEST_F(CachePage, SurvivesAnyFailingCall) {
  addPages(3);
  form.Del_Cache.click();
  const Paths good = entries();
  const std::size_t blocks = machine.urlCache().blocks();
  withEachCallFailing({"findFirstUrlCacheEntry", "findNextUrlCacheEntry", "findCloseUrlCache", "localAlloc",
                       "fileTimeToSystemTime", "localFree"},
                      [&](const std::string& call) {
                        form.Del_Cache.click();
                        const bool failed = !machine.faults().left();
                        EXPECT_TRUE(form.Del_Cache.visible()) << call;
                        EXPECT_TRUE(failed ? form.lvCache.rowCount() <= 3 : entries() == good) << call;
                        EXPECT_LE(machine.urlCache().blocks(), blocks) << call;
                        EXPECT_EQ(machine.openHandles(), 0U) << call;
                      });
}

// Without memory the first row is what is left of the entry before; its texts went with the block that they lay in, and
// deleting it deletes nothing.
TEST_F(CachePage, TheRowOfAnEntryThatFoundNoMemoryNamesNothing) {
  addPages(2);
  form.Del_Cache.click();
  machine.failAt("localAlloc");
  form.Del_Cache.click();
  EXPECT_EQ(entries(), Paths{"||1/1/1601|1/1/1601"});
  form.cmdSelect.click();
  clean(Answer::kYes);
  EXPECT_EQ(machine.urlCache().urls().size(), 2U);
}

}  // namespace
