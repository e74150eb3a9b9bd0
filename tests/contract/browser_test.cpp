// The Internet cache and the history of visited pages, and the calendar that dates their entries.
#include "cleaners/Cache.h"
#include "cleaners/modHistory.h"
#include "tests/contract/ContractTest.h"

namespace contract {
namespace {

// 5 March 2004, 14:10:02 UTC. Some caches keep times to two seconds only.
constexpr FileTime kAfternoon{.low = 0x8CF19900, .high = 0x01C402BB};

class BrowserContract : public ContractTest {};

TEST_F(BrowserContract, TheCacheGivesEveryEntryOnceAndDeletesByUrl) {
  UrlCache& system = machine().urlCache();
  Cache cache;
  EXPECT_FALSE(cache.CacheFindFirst()) << "an empty cache";
  Names put;
  for (std::size_t i = 0; i < 40; ++i) {
    // Texts of different lengths: a size from the entry before would not do.
    put.push_back("http://contract.example/" + std::string(i * 7 % 40, 'x') + std::to_string(i));
    testMachine().cachePage(put.back(), kAfternoon);
  }
  UrlCacheEntry entry;
  std::uint32_t size = entry.structSize = sizeof(entry);
  EXPECT_EQ(system.findFirstUrlCacheEntry(&entry, size), kNoUrlCache);
  EXPECT_GT(size, sizeof(entry)) << "its texts need room too";
  Names urls;
  for (bool found = cache.CacheFindFirst(); found; found = cache.CacheFindNext()) {
    urls.push_back(cache.CacheSourceUrl());
    EXPECT_TRUE(cache.CacheLocalFileName().contains('\\')) << cache.CacheLocalFileName();
    EXPECT_EQ(machine().calendar().textOf(cache.CacheExpires()), "3/5/2004 2:10:02 PM");
  }
  EXPECT_THAT(urls, testing::UnorderedElementsAreArray(put));
  for (const std::string& url : put) EXPECT_TRUE(system.deleteUrlCacheEntry(url)) << url;
  for (const std::string& url : {put[0], std::string()}) EXPECT_FALSE(system.deleteUrlCacheEntry(url)) << url;
  EXPECT_FALSE(cache.CacheFindFirst());
}

TEST_F(BrowserContract, TheCalendarWritesTheTimeOfDayUnlessItIsMidnight) {
  Calendar& calendar = machine().calendar();
  SystemTime fields;
  EXPECT_TRUE(calendar.fileTimeToSystemTime(kAfternoon, fields));
  EXPECT_FALSE(calendar.fileTimeToSystemTime({.low = 0, .high = 0x80000000}, fields)) << "the fields stay";
  const std::pair<SystemTime, const char*> cases[] = {
      {fields, "3/5/2004 2:10:02 PM"},
      {{.year = 1601, .month = 1, .day = 1}, "1/1/1601"},
      {{.year = 2004, .month = 11, .day = 25, .hour = 0, .minute = 0, .second = 1}, "11/25/2004 12:00:01 AM"},
      {{.year = 1899, .month = 12, .day = 30}, "12:00:00 AM"},
  };
  for (const auto& [time, text] : cases) EXPECT_EQ(calendar.textOf(dateOf(time).value()), text);
}

TEST_F(BrowserContract, TheHistoryIsCreatedAndComesBackFromItsMethods) {
  constexpr std::uint32_t kRelease = 2;
  constexpr std::uint32_t kClearHistory = 9;
  constexpr auto kNotImplemented = static_cast<std::int32_t>(0x80004001);
  UrlHistory& history = machine().urlHistory();
  Handle object = 0;
  // Twice: a release that went to another method would leave a broken object behind.
  for (int i = 0; i < 2; ++i) {
    ASSERT_EQ(history.coCreateInstance(UrlHistoryClsid(), kInProcess, UrlHistoryIid(), object), 0);
    EXPECT_THAT(history.dispCallFunc(object, kClearHistory), testing::AnyOf(0, kNotImplemented));
    EXPECT_GE(history.dispCallFunc(object, kRelease), 0) << "the number of references left";
  }
}

}  // namespace
}  // namespace contract
