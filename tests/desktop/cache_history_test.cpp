// The Internet cache page and the one-click cleaners, in the real window and with the system's own cache, history
// object, list of recent documents and Recycle Bin.
#include <windows.h>

// Kept apart: these headers need <windows.h> before them.
#include <shellapi.h>
#include <shlobj.h>
#include <wininet.h>

#include <algorithm>
#include <array>

#include "tests/desktop/ConsoleTest.h"
#include "tests/desktop/Registry.h"

namespace desktop {
namespace {

constexpr int kUrlColumn = 1;
// 5 March 2004, 14:10:02 UTC.
constexpr FILETIME kAfternoon = {0x8CF19900, 0x01C402BB};
constexpr DWORD kScanLimit = 20000;  // milliseconds

void require(BOOL done, const std::string& deed) {
  if (!done) throw Failed("cannot " + deed + " (error " + std::to_string(GetLastError()) + ")");
}

// Room for the longest entry.
struct EntryBlock {
  std::vector<char> bytes = std::vector<char>(1 << 16);
  DWORD size = 1 << 16;
  INTERNET_CACHE_ENTRY_INFOA* entry() { return reinterpret_cast<INTERNET_CACHE_ENTRY_INFOA*>(bytes.data()); }
};

// What the system says is in the cache, sorted.
Texts cachedUrls() {
  Texts urls;
  EntryBlock block;
  const HANDLE walk = FindFirstUrlCacheEntryA(nullptr, block.entry(), &block.size);
  for (BOOL more = walk != nullptr; more; more = FindNextUrlCacheEntryA(walk, block.entry(), &block.size)) {
    urls.emplace_back(block.entry()->lpszSourceUrlName);
    block.size = static_cast<DWORD>(block.bytes.size());
  }
  FindCloseUrlCache(walk);
  std::ranges::sort(urls);
  return urls;
}

// Puts a page with a file of its own into the cache. Gives the file's path.
std::string cachePage(const std::string& url) {
  std::array<char, MAX_PATH + 1> file{};
  require(CreateUrlCacheEntryA(url.c_str(), 4, "htm", file.data(), 0), "cache " + url);
  makeFile(file.data(), "page");
  require(
      CommitUrlCacheEntryA(url.c_str(), file.data(), kAfternoon, {}, NORMAL_CACHE_ENTRY, nullptr, 0, nullptr, nullptr),
      "cache " + url);
  return file.data();
}

class CachePageTest : public ConsoleTest {
 protected:
  void SetUp() override {
    for (const std::string& url : cachedUrls()) require(DeleteUrlCacheEntryA(url.c_str()), "uncache " + url);
  }

  List cache() { return console().list({"File Name", "Source URL", "Expires", "Last Access"}); }
  Control tool(const std::string& caption) { return console().buttonAfter("Internet cache:", caption); }

  void scanCache(std::size_t count) {
    press("IE Cache/Cookies");
    const std::string line = " Results: Found " + std::to_string(count) + " cache entries.";
    waitUntil(
        line, [&] { return resultLine() == line; }, kScanLimit);
  }

  Texts listedUrls() {
    Texts urls = cache().texts(kUrlColumn);
    std::ranges::sort(urls);
    return urls;
  }

  void clean(const std::string& button) {
    tool("Clean").click();
    answer("Scrubhaven Pro", "Delete Selected Cache Items?", button);
    if (button == "Yes") answer("Cache Cleaned", "All selected cache items have been cleaned.", "OK", kScanLimit);
  }
};

TEST_F(CachePageTest, TickedEntriesGoFromTheSystemsCacheAndTheOthersStay) {
  constexpr int kEntries = 60;
  Texts files;
  Texts left;
  for (int i = 0; i < kEntries; ++i) {
    left.push_back("http://desktop.example/" + std::to_string(i));
    files.push_back(cachePage(left.back()));
  }
  std::ranges::sort(left);
  ASSERT_EQ(cachedUrls(), left);
  scanCache(left.size());
  EXPECT_EQ(listedUrls(), left);
  EXPECT_TRUE(cache().visible());
  EXPECT_FALSE(junk().visible() || console().button("Scan").enabled() || tool("Clean").enabled());
  EXPECT_EQ(std::ranges::count(files, cache().cell(0)), 1);
  EXPECT_EQ(cache().cell(0, 2), "3/5/2004 2:10:02 PM");
  EXPECT_EQ(console().toolTipOf(cache()), cache().cell(0));
  takeScreenshot("cache-page");

  Texts ticked;
  for (const int row : {0, 7, 30, kEntries - 1}) {
    cache().flip(cache().cell(row));
    ticked.push_back(cache().cell(row, kUrlColumn));
  }
  clean("No");
  EXPECT_EQ(cachedUrls(), left);
  EXPECT_TRUE(cache().ticked(0));
  // A page that is being read: the system keeps it, and its row goes all the same.
  EntryBlock reading;
  require(RetrieveUrlCacheEntryFileA(ticked.back().c_str(), reading.entry(), &reading.size, 0), "read a page");
  clean("Yes");
  for (const std::string& url : ticked) std::erase(left, url);
  EXPECT_EQ(listedUrls(), left);
  left.push_back(ticked.back());
  std::ranges::sort(left);
  EXPECT_EQ(cachedUrls(), left);
  UnlockUrlCacheEntryFileA(ticked.back().c_str(), 0);

  scanCache(cachedUrls().size());
  tool("Select All").click();
  waitUntil("ticked rows", [this] { return tool("Clean").enabled(); });
  clean("Yes");
  EXPECT_EQ(cachedUrls(), Texts{});
  EXPECT_EQ(cache().rowCount(), 0);
  press("IE Cache/Cookies");
  answer("No Items Found", "No cache items found.");
}

TEST_F(ConsoleTest, HistoryRecentDocumentsAndTheBinAreCleared) {
  const std::string error = "Run-time error '-2147221164':\r\n\r\nApplication-defined or object-defined error";
  {
    const std::string object = "HKLM\\SOFTWARE\\Classes\\CLSID\\{3C374A40-BAE4-11CF-BF7D-00AA006946EE}";
    const ChangedText missing(object + "\\InprocServer32", "", "C:\\desktop\\missing.dll");
    press("Clear IE History");
    answer("Scrubhaven Pro", error);
    waitForConsole();
  }
  press("Clear IE History");
  answer("Scrubhaven Pro", "Recent History Cleared");

  const std::string recent = "HKCU\\Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\RecentDocs";
  const std::string letter = make("letter.txt");
  SHAddToRecentDocs(SHARD_PATHA, letter.c_str());
  ASSERT_TRUE(hasKey(recent));
  press("Clear Recent Docs");
  answer("Scrubhaven Pro", "Recent Document List Cleared");
  EXPECT_FALSE(hasKey(recent));
  EXPECT_TRUE(isUntouched(letter));

  // Some systems cannot take protected files out of the bin; those of other tests may lie there.
  const std::size_t before = recycledItems();
  const std::string list = make("a.txt") + '\0' + make("b.txt") + '\0';
  SHFILEOPSTRUCTA deletion = {};
  deletion.wFunc = FO_DELETE;
  deletion.pFrom = list.c_str();
  deletion.fFlags = FOF_ALLOWUNDO | FOF_NOCONFIRMATION;
  ASSERT_EQ(SHFileOperationA(&deletion), 0);
  ASSERT_EQ(recycledItems(), before + 2);
  press("Empty Recycle Bin");
  answer("Confirm Deletion", "Are you sure you want to delete the contents of the Recycle Bin?");
  answer("Scrubhaven Pro", "Recycle Bin Emptied");
  EXPECT_LE(recycledItems(), before);
  EXPECT_TRUE(isUntouched(letter));
}

}  // namespace
}  // namespace desktop
