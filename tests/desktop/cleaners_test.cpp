// The cleaners, with the system's own folders, cache, history, bin and registry.
#include <windows.h>

// Kept apart: this header needs <windows.h> before them.
#include <shlobj.h>

#include <algorithm>

#include "tests/desktop/ConsoleTest.h"

namespace desktop {
namespace {

constexpr DWORD kWalkLimit = 30000;  // milliseconds
const std::string kTitle = "Scrubhaven Pro";
const std::string kExplorer = "HKCU\\Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\";

// Gives the program a temporary folder: TEMP is set before it starts.
struct TempVariable {
  TempVariable() { SetEnvironmentVariableA("TEMP", "C:\\temp folder"); }
};

class TempFoldersTest : TempVariable, public ConsoleTest {};

TEST_F(TempFoldersTest, AreEmptiedExceptForWhatIsInUseOrRefused) {
  const std::string folders[] = {"C:\\Windows\\Temp", "C:\\temp folder"};
  for (const std::string& folder : folders) {
    makeFile(folder + "\\plain", "bytes");
    makeFile(folder + "\\refused", "bytes", FILE_ATTRIBUTE_READONLY);
  }
  makeFile(folders[1] + "\\nested\\deep\\file", "bytes");
  makeFile(folders[1] + "\\locked", "bytes");
  lock(folders[1] + "\\locked");
  use("Delete Temps");
  EXPECT_EQ(window(kTitle + " - Warning!").focused().text(), "Cancel");
  answer({kTitle + " - Warning!"});
  for (const std::string& folder : folders) {
    answer({"Delete File", "No", folder + "\\refused\r\nis a read only file - OK to Delete?"}, kWalkLimit);
  }
  answer({"Done"}, kWalkLimit);
  EXPECT_EQ(namesIn(folders[0]), Texts{"refused"});
  EXPECT_EQ(namesIn(folders[1]), (Texts{"locked", "refused"}));
}

TEST_F(ConsoleTest, TickedEntriesLeaveTheSystemsCache) {
  constexpr FILETIME kAfternoon = {0x8CF19900, 0x01C402BB};  // 5 March 2004, 14:10:02 UTC
  Texts files;
  for (const char page : {'a', 'b'}) {
    files.push_back(support::cachePage(std::string("http://desktop.example/") + page, kAfternoon));
  }
  const List cache = console().list("Internet cache entries");
  const Control clean = console().control("Clean", "Cache:");
  use("IE Cache/Cookies");
  waitForResults(" Results: Found 2 cache entries.");
  // The window shows one control's new state after the other.
  waitUntil("the cache page", [&] { return cache.visible() && !junk().visible() && !clean.enabled(); });
  EXPECT_TRUE(std::ranges::is_permutation(cache.texts(), files));
  EXPECT_EQ(cache.texts(2), Texts(2, "3/5/2004 2:10:02 PM"));

  cache.flip(files[1]);
  clean.click();
  answer({kTitle, "Yes"});
  answer({"Cache Cleaned"}, kWalkLimit);
  EXPECT_EQ(cache.texts(1), Texts{"http://desktop.example/a"});
  EXPECT_TRUE(exists(files[0]) && !exists(files[1]));
}

TEST_F(ConsoleTest, HistoryRecentDocumentsAndTheBinAreCleared) {
  use("Clear IE History", {{kTitle}});

  const std::string letter = make("letter.txt");
  SHAddToRecentDocs(SHARD_PATHA, letter.c_str());
  ASSERT_NE(contentsOf(kExplorer + "RecentDocs"), kNoKey);
  use("Clear Recent Docs", {{kTitle}});
  EXPECT_EQ(contentsOf(kExplorer + "RecentDocs"), kNoKey);

  const std::size_t before = recycledItems();
  const std::string list = make("a.txt") + '\0';
  SHFILEOPSTRUCTA deletion = {};
  deletion.wFunc = FO_DELETE;
  deletion.pFrom = list.c_str();
  deletion.fFlags = FOF_ALLOWUNDO | FOF_NOCONFIRMATION;
  ASSERT_EQ(SHFileOperationA(&deletion), 0);
  ASSERT_EQ(recycledItems(), before + 1);
  use("Empty Recycle Bin", {{"Confirm Deletion"}, {kTitle}});
  EXPECT_LE(recycledItems(), before);
  EXPECT_TRUE(isUntouched(letter));
}

// The unit tests check what each list is made again with.
TEST_F(ConsoleTest, ListsOfTheUserAreCleared) {
  const std::string typed = "HKCU\\Software\\Microsoft\\Internet Explorer\\TypedURLs";
  setText(typed, "url1", "http://a.example/");
  use("Clear Typed URLs", {{kTitle}});
  EXPECT_EQ(contentsOf(typed), kNoKey);
  use("Clear Typed URLs", {{kTitle, "OK", "No URL's Found"}});

  const std::string cleared = kExplorer + "ComDlg32\\OpenSaveMRU\\*";
  const std::string kept = kExplorer + "ComDlg32\\OpenSaveMRU\\doc";
  for (const std::string& list : {cleared, kept}) setText(list, "a", "C:\\secret.txt");
  use("Clean MRU Lists", {{"MRU Lists Cleared"}});
  EXPECT_EQ(contentsOf(cleared), Texts{"MRUList = \"\""});
  EXPECT_EQ(contentsOf(kept), Texts{"a = \"C:\\secret.txt\""});
}

TEST_F(ConsoleTest, IndexFilesAreScheduledAndPrefetchFilesDeleted) {
  const std::string runOnce = "HKLM\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\RunOnce";
  const std::string script = "C:\\Program Files\\Scrubhaven\\delindex.cmd";
  Texts scheduled = contentsOf(runOnce);
  use("Wipe Index Files", {{"Index.dat File Deletion", "Yes"}, {"Index.dat Files"}});
  scheduled.insert(scheduled.begin(), " = \"" + script + '"');
  EXPECT_EQ(contentsOf(runOnce), scheduled);
  EXPECT_TRUE(exists(script));

  const std::string prefetch = "C:\\windows\\prefetch\\";
  for (const char* name : {"a.pf", "Sub\\deep.pf", "..\\beside.pf"}) makeFile(prefetch + name, "x");
  makeFile(prefetch + "layout.ini", "x", FILE_ATTRIBUTE_READONLY);
  use("Clear Prefetch", {{"Clear Prefetch Folder", "Yes"}, {" Folder Cleared"}});
  EXPECT_EQ(namesIn(prefetch), Texts{"Sub"});
  EXPECT_TRUE(exists(prefetch + "Sub\\deep.pf") && exists("C:\\windows\\beside.pf"));
}

}  // namespace
}  // namespace desktop
