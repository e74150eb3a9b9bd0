// The Internet cache and the history of visited pages, the calendar that dates their entries, the recent documents, and
// emptying the Recycle Bin.
#include <algorithm>
#include <cstring>
#include <tuple>

#include "cleaners/modHistory.h"
#include "tests/contract/ContractTest.h"

namespace contract {
namespace {

using platform::kNoUrlCache;
using platform::UrlCacheEntry;
using testing::UnorderedElementsAre;

// 5 March 2004, 14:10:02 UTC. Some caches keep times to two seconds only.
constexpr platform::FileTime kAfternoon{.low = 0x8CF19900, .high = 0x01C402BB};

class UrlCacheContract : public ContractTest {
 protected:
  void SetUp() override { testMachine().emptyCache(); }

  platform::UrlCache& cache() { return testMachine().machine().urlCache(); }

  // Memory that a cache can fill, with an entry at its start.
  struct Block {
    explicit Block(std::uint32_t size) : bytes(std::max<std::size_t>(size, sizeof(UrlCacheEntry))) {
      entry()->structSize = size;
    }
    UrlCacheEntry* entry() { return reinterpret_cast<UrlCacheEntry*>(bytes.data()); }
    std::vector<char> bytes;
  };

  // The block of the first or the next entry, asked for in two calls; empty at the end.
  std::vector<Block> read(platform::Handle& walk) {
    std::uint32_t size = 0;
    const bool first = walk == kNoUrlCache;
    const auto ask = [&](UrlCacheEntry* entry) {
      if (!first) return cache().findNextUrlCacheEntry(walk, entry, size);
      walk = cache().findFirstUrlCacheEntry(entry, size);
      return walk != kNoUrlCache;
    };
    EXPECT_FALSE(ask(nullptr));
    std::vector<Block> blocks(1, Block(size));
    if (!ask(blocks[0].entry())) blocks.clear();
    return blocks;
  }

  std::vector<std::string> urls() {
    std::vector<std::string> all;
    platform::Handle walk = kNoUrlCache;
    for (auto block = read(walk); !block.empty(); block = read(walk)) all.emplace_back(block[0].entry()->sourceUrl);
    if (walk != kNoUrlCache) {
      EXPECT_TRUE(cache().findCloseUrlCache(walk));
    }
    return all;
  }
};

TEST_F(UrlCacheContract, GivesEveryEntryOnceWhenItIsAskedForTheSizeFirst) {
  std::vector<std::string> put;
  for (int i = 0; i < 40; ++i) {
    // Texts of different lengths: a size from the entry before would not do.
    put.push_back("http://contract.example/" + std::string(static_cast<std::size_t>(i * 7 % 40), 'x') +
                  std::to_string(i));
    testMachine().cachePage(put.back(), kAfternoon);
  }
  EXPECT_THAT(urls(), testing::UnorderedElementsAreArray(put));
}

TEST_F(UrlCacheContract, AnEmptyCacheAndTheEndHaveNoSizeAndATooSmallBlockGetsNothing) {
  std::uint32_t size = 0;
  EXPECT_EQ(cache().findFirstUrlCacheEntry(nullptr, size), kNoUrlCache);
  EXPECT_EQ(size, 0U);
  testMachine().cachePage("http://contract.example/page", kAfternoon);
  testMachine().cachePage("http://contract.example/page2", kAfternoon);
  platform::Handle walk = kNoUrlCache;
  auto block = read(walk);
  ASSERT_FALSE(block.empty());
  const UrlCacheEntry& entry = *block[0].entry();
  EXPECT_TRUE(std::string(entry.sourceUrl).starts_with("http://contract.example/page"));
  EXPECT_NE(std::strchr(entry.localFileName, '\\'), nullptr) << entry.localFileName;
  EXPECT_EQ(entry.entryType & platform::kNormalCacheEntry, platform::kNormalCacheEntry);
  EXPECT_EQ(entry.expires.high, kAfternoon.high);
  EXPECT_EQ(entry.expires.low, kAfternoon.low);
  EXPECT_NE(entry.accessed.high, 0U);

  size = sizeof(UrlCacheEntry);
  Block small(size);
  EXPECT_FALSE(cache().findNextUrlCacheEntry(walk, small.entry(), size));
  EXPECT_GT(size, sizeof(UrlCacheEntry));
  ASSERT_FALSE(read(walk).empty()) << "the entry that did not fit is the next one still";
  size = 0;
  EXPECT_FALSE(cache().findNextUrlCacheEntry(walk, nullptr, size));
  EXPECT_EQ(size, 0U);
  EXPECT_TRUE(cache().findCloseUrlCache(walk));
  EXPECT_TRUE(read(walk).empty()) << "a closed walk fails without harm";
  EXPECT_FALSE(cache().findCloseUrlCache(walk));
}

TEST_F(UrlCacheContract, DeletesByUrlWhatNobodyUses) {
  for (const char* name : {"a", "b", "c"})
    testMachine().cachePage(std::string("http://contract.example/") + name, kAfternoon);
  EXPECT_TRUE(cache().deleteUrlCacheEntry("http://contract.example/b"));
  EXPECT_FALSE(cache().deleteUrlCacheEntry("http://contract.example/b"));
  EXPECT_FALSE(cache().deleteUrlCacheEntry(""));
  EXPECT_THAT(urls(), UnorderedElementsAre("http://contract.example/a", "http://contract.example/c"));

  testMachine().useCachedPage("http://contract.example/a");
  EXPECT_FALSE(cache().deleteUrlCacheEntry("http://contract.example/a"));
  EXPECT_THAT(urls(), UnorderedElementsAre("http://contract.example/a", "http://contract.example/c"));
}

class CalendarContract : public ContractTest {
 protected:
  platform::Calendar& calendar() { return testMachine().machine().calendar(); }
};

TEST_F(CalendarContract, TurnsFileTimesIntoFieldsAsTheyStand) {
  platform::SystemTime fields;
  const auto date = [&fields] { return std::tuple(fields.year, fields.month, fields.day, fields.dayOfWeek); };
  const auto time = [&fields] { return std::tuple(fields.hour, fields.minute, fields.second, fields.milliseconds); };
  ASSERT_TRUE(calendar().fileTimeToSystemTime(kAfternoon, fields));
  EXPECT_EQ(date(), std::tuple(2004, 3, 5, 5));
  EXPECT_EQ(time(), std::tuple(14, 10, 2, 0));
  ASSERT_TRUE(calendar().fileTimeToSystemTime({}, fields));
  EXPECT_EQ(date(), std::tuple(1601, 1, 1, 1));
  ASSERT_TRUE(calendar().fileTimeToSystemTime({.low = 0xFFFFFFFF, .high = 0x7FFFFFFF}, fields));
  EXPECT_FALSE(calendar().fileTimeToSystemTime({.low = 0, .high = 0x80000000}, fields));
  EXPECT_EQ(fields.year, 30828);
}

TEST_F(CalendarContract, WritesTheTimeOfDayUnlessItIsMidnight) {
  const auto text = [this](platform::SystemTime time) { return calendar().textOf(platform::dateOf(time).value()); };
  EXPECT_EQ(text({.year = 1601, .month = 1, .day = 1}), "1/1/1601");
  EXPECT_EQ(text({.year = 2004, .month = 3, .day = 5, .hour = 23, .minute = 59, .second = 59}), "3/5/2004 11:59:59 PM");
  EXPECT_EQ(text({.year = 2004, .month = 11, .day = 25, .hour = 0, .minute = 0, .second = 1}),
            "11/25/2004 12:00:01 AM");
  EXPECT_EQ(text({.year = 9999, .month = 12, .day = 31, .hour = 12}), "12/31/9999 12:00:00 PM");
  EXPECT_EQ(calendar().textOf(0), "12:00:00 AM");
}

class HistoryContract : public ContractTest {
 protected:
  platform::UrlHistory& history() { return testMachine().machine().urlHistory(); }
};

TEST_F(HistoryContract, CreatesTheObjectAndNoOtherAndComesBackFromItsMethods) {
  constexpr std::uint32_t kRelease = 2;
  constexpr std::uint32_t kClearHistory = 9;
  platform::Handle object = 77;
  platform::Guid other = UrlHistoryClsid();
  ++other.rest[7];
  EXPECT_EQ(history().coCreateInstance(other, platform::kInProcess, UrlHistoryIid(), object),
            static_cast<std::int32_t>(0x80040154));
  EXPECT_EQ(object, 77U);
  constexpr auto kNotImplemented = static_cast<std::int32_t>(0x80004001);
  // Twice: a release that went to another method would leave a broken object behind.
  for (int i = 0; i < 2; ++i) {
    ASSERT_EQ(history().coCreateInstance(UrlHistoryClsid(), platform::kInProcess, UrlHistoryIid(), object), 0);
    EXPECT_NE(object, 77U);
    EXPECT_THAT(history().dispCallFunc(object, kClearHistory), testing::AnyOf(0, kNotImplemented));
    EXPECT_GE(history().dispCallFunc(object, kRelease), 0) << "gives how many still hold it";
  }
}

class BinAndRecentContract : public ContractTest {};

TEST_F(BinAndRecentContract, EmptiesTheWholeBin) {
  // Some systems cannot take protected files out of the bin; those of other tests may lie there.
  const std::size_t before = testMachine().recycledItems();
  for (const char* name : {"a.txt", "b.txt", "c.txt"}) {
    const std::string list = makeFile(name, "bytes") + '\0';
    ASSERT_EQ(shell().fileOperation({.sourceList = list, .flags = platform::kNoConfirmation | platform::kAllowUndo}),
              0);
  }
  ASSERT_EQ(testMachine().recycledItems(), before + 3);
  constexpr std::uint32_t kSilently = platform::kBinNoConfirmation | platform::kBinNoProgress | platform::kBinNoSound;
  EXPECT_EQ(shell().emptyRecycleBin("", kSilently), 0);
  EXPECT_LE(testMachine().recycledItems(), before);
}

TEST_F(BinAndRecentContract, ForgetsTheRecentDocuments) {
  const std::string document = makeFile("letter.txt", "bytes");
  shell().addToRecentDocs(platform::kRecentByPath, document);
  EXPECT_EQ(testMachine().recentDocuments(), 1U);
  shell().addToRecentDocs(platform::kRecentByPath, std::nullopt);
  EXPECT_EQ(testMachine().recentDocuments(), 0U);
  EXPECT_TRUE(testMachine().exists(document));
}

}  // namespace
}  // namespace contract
