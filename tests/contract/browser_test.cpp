// The Internet cache and the history of visited pages, and the calendar that dates their entries.
#include <algorithm>
#include <cstring>
#include <tuple>

#include "cleaners/modHistory.h"
#include "tests/contract/ContractTest.h"

namespace contract {
namespace {

// 5 March 2004, 14:10:02 UTC. Some caches keep times to two seconds only.
constexpr FileTime kAfternoon{.low = 0x8CF19900, .high = 0x01C402BB};
const std::string kSite = "http://contract.example/";

class UrlCacheContract : public ContractTest {
 protected:
  UrlCache& cache() { return machine().urlCache(); }

  // Asks for the first or the next entry with a block of `size` bytes, none for 0; `size` is what the call then says.
  bool ask(std::uint32_t& size) {
    block.assign(std::max<std::size_t>(size, sizeof(UrlCacheEntry)), '\0');
    entry().structSize = size;
    UrlCacheEntry* const buffer = size == 0 ? nullptr : &entry();
    if (walk != kNoUrlCache) return cache().findNextUrlCacheEntry(walk, buffer, size);
    walk = cache().findFirstUrlCacheEntry(buffer, size);
    return walk != kNoUrlCache;
  }

  // Reads the first or the next entry after asking for its size; false at the end.
  bool read() {
    std::uint32_t size = 0;
    EXPECT_FALSE(ask(size));
    return size != 0 && ask(size);
  }

  Names urls() {
    Names all;
    walk = kNoUrlCache;
    while (read()) all.emplace_back(entry().sourceUrl);
    EXPECT_EQ(cache().findCloseUrlCache(walk), walk != kNoUrlCache);
    return all;
  }

  UrlCacheEntry& entry() { return *reinterpret_cast<UrlCacheEntry*>(block.data()); }

  std::vector<char> block;
  Handle walk = kNoUrlCache;
};

TEST_F(UrlCacheContract, GivesEveryEntryOnceWhenItIsAskedForTheSizeFirst) {
  EXPECT_EQ(urls(), Names());
  Names put;
  for (std::size_t i = 0; i < 40; ++i) {
    // Texts of different lengths: a size from the entry before would not do.
    put.push_back(kSite + std::string(i * 7 % 40, 'x') + std::to_string(i));
    testMachine().cachePage(put.back(), kAfternoon);
  }
  EXPECT_THAT(urls(), testing::UnorderedElementsAreArray(put));
}

TEST_F(UrlCacheContract, ATooSmallBlockGetsNothingAndItsEntryStaysTheNextOne) {
  testMachine().cachePage(kSite + "page", kAfternoon);
  testMachine().cachePage(kSite + "page2", kAfternoon);
  ASSERT_TRUE(read());
  EXPECT_TRUE(std::string(entry().sourceUrl).starts_with(kSite + "page"));
  EXPECT_NE(std::strchr(entry().localFileName, '\\'), nullptr) << entry().localFileName;
  EXPECT_EQ(entry().entryType & kNormalCacheEntry, kNormalCacheEntry);
  EXPECT_EQ(entry().expires.high, kAfternoon.high);
  EXPECT_EQ(entry().expires.low, kAfternoon.low);
  EXPECT_NE(entry().accessed.high, 0U);

  std::uint32_t size = sizeof(UrlCacheEntry);
  EXPECT_FALSE(ask(size));
  EXPECT_GT(size, sizeof(UrlCacheEntry));
  EXPECT_TRUE(read());
  EXPECT_FALSE(read()) << "the end";
  EXPECT_TRUE(cache().findCloseUrlCache(walk));
  EXPECT_FALSE(read()) << "a closed walk fails without harm";
  EXPECT_FALSE(cache().findCloseUrlCache(walk));
}

TEST_F(UrlCacheContract, DeletesByUrlWhatNobodyUses) {
  for (const char* name : {"a", "b", "c"}) testMachine().cachePage(kSite + name, kAfternoon);
  testMachine().useCachedPage(kSite + "a");
  EXPECT_TRUE(cache().deleteUrlCacheEntry(kSite + "b"));
  for (const std::string& url : {kSite + "a", kSite + "b", std::string()}) {
    EXPECT_FALSE(cache().deleteUrlCacheEntry(url)) << url;
  }
  EXPECT_THAT(urls(), testing::UnorderedElementsAre(kSite + "a", kSite + "c"));
}

class CalendarContract : public ContractTest {
 protected:
  Calendar& calendar() { return machine().calendar(); }
};

TEST_F(CalendarContract, TurnsFileTimesIntoFieldsAsTheyStand) {
  SystemTime fields;
  ASSERT_TRUE(calendar().fileTimeToSystemTime(kAfternoon, fields));
  EXPECT_EQ(std::tuple(fields.year, fields.month, fields.day, fields.dayOfWeek), std::tuple(2004, 3, 5, 5));
  EXPECT_EQ(std::tuple(fields.hour, fields.minute, fields.second, fields.milliseconds), std::tuple(14, 10, 2, 0));
  ASSERT_TRUE(calendar().fileTimeToSystemTime({}, fields));
  EXPECT_EQ(std::tuple(fields.year, fields.month, fields.day, fields.dayOfWeek), std::tuple(1601, 1, 1, 1));
  EXPECT_FALSE(calendar().fileTimeToSystemTime({.low = 0, .high = 0x80000000}, fields));
  EXPECT_EQ(fields.year, 1601);
}

TEST_F(CalendarContract, WritesTheTimeOfDayUnlessItIsMidnight) {
  const std::pair<SystemTime, const char*> cases[] = {
      {{.year = 1601, .month = 1, .day = 1}, "1/1/1601"},
      {{.year = 2004, .month = 3, .day = 5, .hour = 23, .minute = 59, .second = 59}, "3/5/2004 11:59:59 PM"},
      {{.year = 2004, .month = 11, .day = 25, .hour = 0, .minute = 0, .second = 1}, "11/25/2004 12:00:01 AM"},
      {{.year = 9999, .month = 12, .day = 31, .hour = 12}, "12/31/9999 12:00:00 PM"},
      {{.year = 1899, .month = 12, .day = 30}, "12:00:00 AM"},
  };
  for (const auto& [time, text] : cases) EXPECT_EQ(calendar().textOf(dateOf(time).value()), text);
}

class HistoryContract : public ContractTest {
 protected:
  UrlHistory& history() { return machine().urlHistory(); }
};

TEST_F(HistoryContract, CreatesTheObjectAndNoOtherAndComesBackFromItsMethods) {
  constexpr std::uint32_t kRelease = 2;
  constexpr std::uint32_t kClearHistory = 9;
  constexpr auto kNotRegistered = static_cast<std::int32_t>(0x80040154);
  constexpr auto kNotImplemented = static_cast<std::int32_t>(0x80004001);
  Handle object = 77;
  Guid other = UrlHistoryClsid();
  ++other.rest[7];
  EXPECT_EQ(history().coCreateInstance(other, kInProcess, UrlHistoryIid(), object), kNotRegistered);
  EXPECT_EQ(object, 77U);
  // Twice: a release that went to another method would leave a broken object behind.
  for (int i = 0; i < 2; ++i) {
    ASSERT_EQ(history().coCreateInstance(UrlHistoryClsid(), kInProcess, UrlHistoryIid(), object), 0);
    EXPECT_NE(object, 77U);
    EXPECT_THAT(history().dispCallFunc(object, kClearHistory), testing::AnyOf(0, kNotImplemented));
    EXPECT_GE(history().dispCallFunc(object, kRelease), 0) << "the number of references left";
  }
}

}  // namespace
}  // namespace contract
