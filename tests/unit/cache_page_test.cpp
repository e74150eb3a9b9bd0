#include <cstdlib>
#include <ctime>

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
};

// Far from UTC, so that a conversion to the local time would show.
TEST_F(CachePage, ListsTheFirstEntryAsItIsAndOfTheOthersOnlyOrdinaryOnesWithTimesInUtc) {
  setenv("TZ", "Pacific/Auckland", 1);
  tzset();
  machine.urlCache().add({.url = "Cookie:me@first", .type = kCookie, .expires = kAfternoon, .accessed = kAfternoon});
  machine.urlCache().add({.url = "http://h/file", .localFile = "C:\\Cache\\file[1].htm", .accessed = kAfternoon});
  machine.urlCache().add({.url = "Cookie:me@later", .localFile = "C:\\Cookies\\later.txt", .type = kCookie});
  machine.urlCache().add({.url = "http://h/nofile", .type = kCookie | 1, .expires = kNever});
  EXPECT_EQ(press(form.Del_Cache), Paths{});
  EXPECT_EQ(rowsOf(form.lvCache), (Paths{"|Cookie:me@first|3/5/2004 2:10:03 PM|3/5/2004 2:10:03 PM",
                                         "C:\\Cache\\file[1].htm|http://h/file|1/1/1601|3/5/2004 2:10:03 PM",
                                         "http://h/nofile|http://h/nofile|12:00:00 AM|1/1/1601"}));
  EXPECT_EQ(form.lblStatus.caption(), " Results: Found 3 cache entries.");
  EXPECT_EQ(machine.ui().pointer(), Pointer::kArrow);
  EXPECT_EQ(form.lvCache.selected(), 0U);
  EXPECT_EQ(form.lvCache.toolTip(), "");
  form.lvCache.clickRow(1);
  EXPECT_EQ(form.lvCache.toolTip(), "C:\\Cache\\file[1].htm");
  unsetenv("TZ");
  tzset();
}

TEST_F(CachePage, AnAbortEndsTheListAfterTheSecondRow) {
  addPages(5);
  machine.ui().onBox([this](const auto&) {
    EXPECT_FALSE(form.AbortRequested || form.Del_Cache.visible());
    EXPECT_EQ(machine.ui().pointer(), Pointer::kHourglass);
  });
  machine.whenServing([this] { form.cmdCacheAbort.click(); });
  EXPECT_EQ(press(form.Del_Cache), Paths{"    Scan Aborted"});
  EXPECT_EQ(form.lvCache.rowCount(), 2U) << "pressed during the one time that messages are processed";
  EXPECT_TRUE(form.Del_Cache.visible());
}

TEST_F(CachePage, AnAccessTimeThatIsNoDateIsReportedAndEndsTheScan) {
  addPages(1);
  machine.urlCache().add({.url = "http://h/bad", .localFile = "C:\\Cache\\bad", .accessed = kNever});
  machine.urlCache().add({.url = "http://h/next"});
  EXPECT_EQ(press(form.Del_Cache), Paths{"Run-time error '13':\r\n\r\nType mismatch"});
  EXPECT_EQ(rowsOf(form.lvCache).back(), "C:\\Cache\\bad|http://h/bad|1/1/1601|");
  EXPECT_EQ(form.lvCache.rowCount(), 2U);
  EXPECT_FALSE(form.lvCache.selected() || form.lblStatus.visible()) << "not as if all had been listed";
  EXPECT_EQ(machine.ui().pointer(), Pointer::kDefault);
  EXPECT_TRUE(form.Del_Cache.visible() && form.Scan.enabled());
}

TEST_F(CachePage, DeletesTheTickedEntriesAndAtLastLeavesThePageIdle) {
  const Paths done = {"Delete Selected Cache Items?", "All selected cache items have been cleaned."};
  addPages(5);
  machine.urlCache().use("http://h/p3");
  form.Del_Cache.click();
  tick(form.lvCache, {"p1", "p3"});
  EXPECT_EQ(press(form.cmdCleanCache, {Answer::kYes}), done);
  EXPECT_EQ(machine.urlCache().urls(), (Paths{"http://h/p0", "http://h/p2", "http://h/p3", "http://h/p4"}));
  EXPECT_EQ(pathsOf(form.lvCache), (Paths{"C:\\Cache\\p0", "C:\\Cache\\p2", "C:\\Cache\\p4"})) << "in use or not";
  EXPECT_EQ(machine.ui().pointer(), Pointer::kDefault);
  EXPECT_TRUE(form.cmdCleanCache.enabled() && form.cmdCacheInvert.enabled() && !form.Scan.enabled());

  form.cmdSelect.click();
  EXPECT_EQ(press(form.cmdCleanCache, {Answer::kYes}), done);
  EXPECT_EQ(machine.urlCache().urls(), Paths{"http://h/p3"});
  EXPECT_EQ(form.lvCache.toolTip(), "");
  EXPECT_TRUE(form.cmdSelect.visible() && form.Scan.enabled());
  EXPECT_FALSE(form.cmdSelect.enabled() || form.cmdCleanCache.enabled() || form.cmdCacheInvert.enabled());
  EXPECT_FALSE(form.lblStatus.visible() || form.Select_All.visible());
  machine.failAt("findFirstUrlCacheEntry", 2);
  EXPECT_EQ(press(form.Del_Cache), Paths{"No cache items found."});
  EXPECT_TRUE(form.Scan.enabled() && form.Del_Cache.visible() && !form.cmdCacheInvert.enabled());

  // More rows than are removed at once.
  addPages(600);
  form.Del_Cache.click();
  form.cmdSelect.click();
  form.lvCache.clickTick(300);
  press(form.cmdCleanCache, {Answer::kYes});
  EXPECT_EQ(form.lvCache.rowCount(), 1U);
  EXPECT_EQ(machine.urlCache().urls().size(), 2U);
}

}  // namespace
