// The Internet cache page and the one-click cleaners, in the real window and with the system's own cache, history
// object, list of recent documents and Recycle Bin.
#include <windows.h>

// Kept apart: these headers need <windows.h> before them.
#include <shellapi.h>
#include <shlobj.h>
#include <wininet.h>

#include <algorithm>
#include <array>
#include <cstdio>

#include "tests/desktop/ConsoleTest.h"

namespace desktop {
namespace {

constexpr int kUrlColumn = 1;
constexpr int kExpiresColumn = 2;
constexpr int kAccessColumn = 3;
// 5 March 2004, 14:10:02 UTC.
constexpr FILETIME kAfternoon = {0x8CF19900, 0x01C402BB};
// Some hundred entries take their time on a busy machine.
constexpr DWORD kScanLimit = 20000;

void require(bool done, const std::string& deed) {
  if (!done) throw Failed("cannot " + deed + " (error " + std::to_string(GetLastError()) + ")");
}

// Room for the longest entry.
struct EntryBlock {
  std::vector<char> bytes = std::vector<char>(1 << 16);
  DWORD size = 1 << 16;
  INTERNET_CACHE_ENTRY_INFOA* entry() { return reinterpret_cast<INTERNET_CACHE_ENTRY_INFOA*>(bytes.data()); }
};

// What the system says is in the cache.
std::vector<std::string> cachedUrls() {
  std::vector<std::string> urls;
  EntryBlock block;
  const HANDLE walk = FindFirstUrlCacheEntryA(nullptr, block.entry(), &block.size);
  if (walk == nullptr) return urls;
  do {
    urls.emplace_back(block.entry()->lpszSourceUrlName);
    block.size = static_cast<DWORD>(block.bytes.size());
  } while (FindNextUrlCacheEntryA(walk, block.entry(), &block.size) != FALSE);
  FindCloseUrlCache(walk);
  std::ranges::sort(urls);
  return urls;
}

void emptyCache() {
  for (const std::string& url : cachedUrls()) require(DeleteUrlCacheEntryA(url.c_str()) != FALSE, "uncache " + url);
}

// Puts a page with a file of its own into the cache. Gives the file's path.
std::string cachePage(const std::string& url, FILETIME expires) {
  std::array<char, MAX_PATH + 1> file{};
  require(CreateUrlCacheEntryA(url.c_str(), 4, "htm", file.data(), 0) != FALSE, "cache " + url);
  makeFile(file.data(), "page");
  require(CommitUrlCacheEntryA(url.c_str(), file.data(), expires, {}, NORMAL_CACHE_ENTRY, nullptr, 0, nullptr,
                               nullptr) != FALSE,
          "cache " + url);
  return file.data();
}

// Reads a page, so that the system refuses to delete it, as long as it lives.
class ReadPage {
 public:
  explicit ReadPage(std::string url) : url_(std::move(url)) {
    EntryBlock block;
    require(RetrieveUrlCacheEntryFileA(url_.c_str(), block.entry(), &block.size, 0) != FALSE, "read " + url_);
  }
  ~ReadPage() { UnlockUrlCacheEntryFileA(url_.c_str(), 0); }
  ReadPage(const ReadPage&) = delete;
  ReadPage& operator=(const ReadPage&) = delete;

 private:
  std::string url_;
};

class CachePageTest : public ConsoleTest {
 protected:
  void SetUp() override {
    emptyCache();
    ConsoleTest::SetUp();
  }

  void TearDown() override {
    ConsoleTest::TearDown();
    emptyCache();
  }

  List cache() { return console().list({"File Name", "Source URL", "Expires", "Last Access"}); }
  Control tool(const std::string& caption) { return console().buttonAfter("Internet cache:", caption); }

  static std::vector<std::string> fill(int count) {
    std::vector<std::string> urls;
    for (int i = 0; i < count; ++i) {
      urls.push_back("http://desktop.example/" + std::to_string(i));
      cachePage(urls.back(), kAfternoon);
    }
    std::ranges::sort(urls);
    return urls;
  }

  void scanCache(int count) {
    console().button("IE Cache/Cookies").click();
    waitUntil(
        std::to_string(count) + " listed entries",
        [&] {
          const auto labels = console().labelTexts();
          return std::ranges::count(labels, " Results: Found " + std::to_string(count) + " cache entries.") == 1;
        },
        kScanLimit);
  }

  std::vector<std::string> listedUrls() {
    std::vector<std::string> urls;
    const List list = cache();
    for (int row = 0; row < list.rowCount(); ++row) urls.push_back(list.cell(row, kUrlColumn));
    std::ranges::sort(urls);
    return urls;
  }

  // Ticks a row and gives its URL.
  std::string tickEntry(int row) {
    const List list = cache();
    list.clickTick(row);
    waitUntil("a tick", [&] { return list.ticked(row); });
    return list.cell(row, kUrlColumn);
  }

  void clean(const std::string& answer) {
    tool("Clean").click();
    const Box question = program().box("Scrubhaven Pro");
    EXPECT_EQ(question.message(), "Delete Selected Cache Items?");
    EXPECT_EQ(question.buttons(), (std::vector<std::string>{"Yes", "No"}));
    EXPECT_EQ(question.defaultButton(), "No");
    question.press(answer);
    if (answer == "No") return;
    const Box done = program().box("Cache Cleaned", kScanLimit);
    EXPECT_EQ(done.message(), "All selected cache items have been cleaned.");
    done.press("OK");
  }
};

TEST_F(CachePageTest, TickedEntriesGoFromTheSystemsCacheAndTheOthersStay) {
  constexpr int kEntries = 300;
  std::vector<std::string> left = fill(kEntries);
  ASSERT_EQ(cachedUrls(), left);
  scanCache(kEntries);
  EXPECT_EQ(listedUrls(), left);
  EXPECT_TRUE(cache().visible());
  EXPECT_FALSE(console().list(kJunkColumns).visible());
  EXPECT_FALSE(console().button("Scan").enabled());
  takeScreenshot("cache-page");

  std::vector<std::string> ticked;
  for (const int row : {0, 7, 150, kEntries - 1}) ticked.push_back(tickEntry(row));
  clean("No");
  EXPECT_EQ(cachedUrls(), left);
  EXPECT_TRUE(cache().ticked(0));
  {
    // The system keeps the last one; its row goes all the same.
    const ReadPage reader(ticked.back());
    clean("Yes");
    for (const std::string& url : ticked) std::erase(left, url);
    EXPECT_EQ(listedUrls(), left);
    left.push_back(ticked.back());
    std::ranges::sort(left);
    EXPECT_EQ(cachedUrls(), left);
  }
  const auto rest = static_cast<int>(cachedUrls().size());
  scanCache(rest);
  EXPECT_EQ(cache().rowCount(), rest);
}

TEST_F(CachePageTest, AnEntryShowsItsFileItsAddressAndBothDates) {
  const std::string file = cachePage("http://desktop.example/dated", kAfternoon);
  scanCache(1);
  const List list = cache();
  EXPECT_EQ(list.cell(0, 0), file);
  EXPECT_EQ(list.cell(0, kUrlColumn), "http://desktop.example/dated");
  EXPECT_EQ(list.cell(0, kExpiresColumn), "3/5/2004 2:10:02 PM");
  SYSTEMTIME now;
  GetSystemTime(&now);
  EXPECT_NE(list.cell(0, kAccessColumn).find("/" + std::to_string(now.wYear)), std::string::npos)
      << list.cell(0, kAccessColumn);
  EXPECT_EQ(console().toolTipOf(list), file);
}

TEST_F(CachePageTest, CleaningAllLeavesAnEmptyCacheWhichTheNextScanReports) {
  fill(20);
  scanCache(20);
  tool("Select All").click();
  waitUntil("all rows ticked", [this] { return cache().ticked(19); });
  tool("Invert").click();
  waitUntil("no row ticked", [this] { return !cache().ticked(19); });
  EXPECT_FALSE(tool("Clean").enabled());
  tool("Select All").click();
  waitUntil("all rows ticked", [this] { return cache().ticked(19); });
  clean("Yes");
  EXPECT_EQ(cachedUrls(), std::vector<std::string>{});
  EXPECT_EQ(cache().rowCount(), 0);
  EXPECT_TRUE(console().button("Scan").enabled());

  console().button("IE Cache/Cookies").click();
  const Box none = program().box("No Items Found");
  EXPECT_EQ(none.message(), "No cache items found.");
  none.press("OK");
  EXPECT_TRUE(console().button("Scan").enabled());
}

TEST_F(CachePageTest, AnAbortPressedBeforehandEndsTheListAfterItsSecondRow) {
  fill(10);
  tool("Abort").click();
  console().button("IE Cache/Cookies").click();
  const Box aborted = program().box("Scan Aborted");
  EXPECT_EQ(aborted.message(), "    Scan Aborted");
  aborted.press("OK");
  waitUntil("two rows", [this] { return cache().rowCount() == 2; });
  scanCache(10);
}

// Has the system look for the history object in a library that is not there, as long as it lives.
class NoHistoryObject {
 public:
  NoHistoryObject() {
    DWORD size = library_.size();
    require(RegQueryValueExA(key_.handle, nullptr, nullptr, nullptr, reinterpret_cast<BYTE*>(library_.data()), &size) ==
                ERROR_SUCCESS,
            "read the history object's registration");
    set("C:\\desktop\\missing.dll");
  }
  ~NoHistoryObject() { set(library_.data()); }
  NoHistoryObject(const NoHistoryObject&) = delete;
  NoHistoryObject& operator=(const NoHistoryObject&) = delete;

 private:
  struct Key {
    HKEY handle = nullptr;
    Key() {
      constexpr const char* kServer = "CLSID\\{3C374A40-BAE4-11CF-BF7D-00AA006946EE}\\InprocServer32";
      require(RegOpenKeyExA(HKEY_CLASSES_ROOT, kServer, 0, KEY_READ | KEY_WRITE, &handle) == ERROR_SUCCESS,
              "open the history object's registration");
    }
    ~Key() { RegCloseKey(handle); }
  };

  void set(const std::string& library) {
    RegSetValueExA(key_.handle, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(library.c_str()), library.size() + 1);
  }

  Key key_;
  std::array<char, MAX_PATH + 1> library_{};
};

class OneClickTest : public ConsoleTest {
 protected:
  // Presses a tool and closes the box that it answers with.
  void expectReport(const std::string& button, const std::string& message) {
    console().button(button).click();
    const Box report = program().box("Scrubhaven Pro");
    EXPECT_EQ(report.message(), message);
    EXPECT_EQ(report.buttons(), std::vector<std::string>{"OK"});
    report.press("OK");
  }

  static bool hasRecentDocuments() {
    HKEY key = nullptr;
    constexpr const char* kList = "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\RecentDocs";
    if (RegOpenKeyExA(HKEY_CURRENT_USER, kList, 0, KEY_READ, &key) != ERROR_SUCCESS) return false;
    RegCloseKey(key);
    return true;
  }
};

TEST_F(OneClickTest, AMissingHistoryObjectIsReportedAndTheProgramGoesOn) {
  {
    const NoHistoryObject missing;
    console().button("Clear IE History").click();
    const Box failed = program().box("Scrubhaven Pro");
    EXPECT_TRUE(failed.message().starts_with("Run-time error '-")) << failed.message();
    std::printf("without the history object: %s\n", failed.message().c_str());
    failed.press("OK");
  }
  waitUntil("the console to take input again", [this] { return console().takesInput(); });
  expectReport("Clear IE History", "Recent History Cleared");
}

TEST_F(OneClickTest, TheRecentDocumentsAreForgotten) {
  SHAddToRecentDocs(SHARD_PATHA, make("letter.txt", 10).c_str());
  ASSERT_TRUE(hasRecentDocuments());
  expectReport("Clear Recent Docs", "Recent Document List Cleared");
  EXPECT_FALSE(hasRecentDocuments());
  EXPECT_TRUE(exists("C:\\desktop\\letter.txt"));
}

TEST_F(OneClickTest, TheBinIsEmptiedAfterTheWarningsOnlyButton) {
  // Some systems cannot take protected files out of the bin; those of other tests may lie there.
  const std::size_t before = recycledItems();
  for (const char* name : {"a.txt", "b.txt", "c.txt"}) {
    const std::string list = make(name, 10) + '\0';
    SHFILEOPSTRUCTA deletion = {};
    deletion.wFunc = FO_DELETE;
    deletion.pFrom = list.c_str();
    deletion.fFlags = FOF_ALLOWUNDO | FOF_NOCONFIRMATION;
    ASSERT_EQ(SHFileOperationA(&deletion), 0);
  }
  ASSERT_EQ(recycledItems(), before + 3);
  for (int i = 0; i < 2; ++i) {  // an empty bin the second time
    console().button("Empty Recycle Bin").click();
    const Box warning = program().box("Confirm Deletion");
    EXPECT_EQ(warning.message(), "Are you sure you want to delete the contents of the Recycle Bin?");
    EXPECT_EQ(warning.buttons(), std::vector<std::string>{"OK"});
    warning.press("OK");
    const Box done = program().box("Scrubhaven Pro");
    EXPECT_EQ(done.message(), "Recycle Bin Emptied");
    EXPECT_LE(recycledItems(), before);
    done.press("OK");
  }
}

}  // namespace
}  // namespace desktop
