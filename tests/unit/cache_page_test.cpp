#include <cstdlib>
#include <ctime>

#include "tests/unit/ConsoleTest.h"

using platform::Answer;
using platform::FileTime;

namespace {

constexpr std::uint32_t kCookie = 0x00100000;
constexpr FileTime kAfternoon{0x8D8A2F80, 0x1C402BB};  // the 5th of March 2004, 14:10:03 UTC
constexpr FileTime kNever{0xFFFFFFFF, 0x7FFFFFFF};

using CachePage = ConsoleTest;

// Far from UTC, so that a conversion to the local time would show. The last access time is no date.
TEST_F(CachePage, ListsTheFirstEntryAsItIsAndOfTheOthersOnlyOrdinaryOnesWithTimesInUtc) {
  setenv("TZ", "EAST-13", 1);
  tzset();
  machine.urlCache().add({.url = "Cookie:me@first", .type = kCookie, .expires = kAfternoon, .accessed = kAfternoon});
  machine.urlCache().add({.url = "http://h/file", .localFile = "C:\\Cache\\file[1].htm", .accessed = kAfternoon});
  machine.urlCache().add({.url = "Cookie:me@later", .localFile = "C:\\Cookies\\later.txt", .type = kCookie});
  machine.urlCache().add({.url = "http://h/nofile", .type = kCookie | 1, .expires = kNever});
  EXPECT_EQ(press(form.Del_Cache), Paths{});
  Paths rows = {"|Cookie:me@first|3/5/2004 2:10:03 PM|3/5/2004 2:10:03 PM",
                "C:\\Cache\\file[1].htm|http://h/file|1/1/1601|3/5/2004 2:10:03 PM",
                "http://h/nofile|http://h/nofile|12:00:00 AM|1/1/1601"};
  EXPECT_EQ(rowsOf(form.lvCache), rows);
  EXPECT_EQ(form.lblStatus.caption(), " Results: Found 3 cache entries.");
  EXPECT_EQ(form.lvCache.selected(), 0U);
  form.lvCache.clickRow(1);
  EXPECT_EQ(form.lvCache.toolTip(), "C:\\Cache\\file[1].htm");

  machine.urlCache().add({.url = "http://h/bad", .accessed = kNever});
  EXPECT_EQ(press(form.Del_Cache), Paths{"Run-time error '13':\r\n\r\nType mismatch"});
  unsetenv("TZ");
  tzset();
}

TEST_F(CachePage, DeletesMoreEntriesThanItRemovesAtOnceAndAtLastLeavesThePageIdle) {
  for (int i = 0; i < 600; ++i) machine.urlCache().add({.url = "http://h/p" + std::to_string(i)});
  form.Del_Cache.click();
  machine.urlCache().use("http://h/p3");
  form.cmdSelect.click();
  form.lvCache.clickTick(300);
  press(form.cmdCleanCache, {Answer::kYes});
  EXPECT_EQ(machine.urlCache().urls().size(), 2U);
  EXPECT_EQ(form.lvCache.rowCount(), 1U) << "in use or not";
  EXPECT_FALSE(form.Scan.enabled());
  form.cmdSelect.click();
  press(form.cmdCleanCache, {Answer::kYes});
  EXPECT_EQ(machine.urlCache().urls(), Paths{"http://h/p3"});
  EXPECT_TRUE(form.Scan.enabled() && form.lvCache.toolTip().empty());
  EXPECT_FALSE(form.cmdSelect.enabled() || form.cmdCleanCache.enabled() || form.lblStatus.visible());
}

}  // namespace
