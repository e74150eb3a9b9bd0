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
  const Answer warning = {kTitle + " - Warning!",
                          "This will clear ALL your profile and Windows temporary folders without backup!", "Cancel"};
  use("Delete Temps");
  EXPECT_EQ(window(warning.title).focused().text(), "Cancel");
  answer(warning);
  waitForConsole();
  EXPECT_EQ(namesIn(folders[1]), (Texts{"locked", "nested", "plain", "refused"}));
  lock(folders[1] + "\\locked");
  use("Delete Temps", {{warning.title, warning.message, "OK"}});
  for (const std::string& folder : folders) {
    answer({"Delete File", folder + "\\refused\r\nis a read only file - OK to Delete?", "No"}, kWalkLimit);
  }
  answer({"Done", "All temporary files not in use have been deleted"}, kWalkLimit);
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
  const Control clean = console().control("Clean", "Internet cache:");
  const auto cleanWith = [&](const std::string& button) {
    clean.click();
    answer({kTitle, "Delete Selected Cache Items?", button});
    if (button == "Yes") answer({"Cache Cleaned", "All selected cache items have been cleaned."}, kWalkLimit);
  };
  use("IE Cache/Cookies");
  waitForResults(" Results: Found 2 cache entries.");
  // The window shows one control's new state after the other.
  waitUntil("the cache page", [&] { return cache.visible() && !junk().visible() && !clean.enabled(); });
  EXPECT_TRUE(std::ranges::is_permutation(cache.texts(), files));
  EXPECT_EQ(cache.texts(2), Texts(2, "3/5/2004 2:10:02 PM"));

  cache.flip(files[1]);
  cleanWith("No");
  EXPECT_TRUE(exists(files[1]));
  cleanWith("Yes");
  EXPECT_EQ(cache.texts(1), Texts{"http://desktop.example/a"});
  EXPECT_TRUE(exists(files[0]) && !exists(files[1]));
  use("IE Cache/Cookies");
  waitForResults(" Results: Found 1 cache entries.");
  console().control("Select All", "Internet cache:").click();
  waitUntil("ticked rows", [&] { return clean.enabled(); });
  cleanWith("Yes");
  EXPECT_FALSE(exists(files[0]));
  use("IE Cache/Cookies", {{"No Items Found", "No cache items found."}});
}

TEST_F(ConsoleTest, HistoryRecentDocumentsAndTheBinAreCleared) {
  use("Clear IE History", {{kTitle, "Recent History Cleared"}});

  const std::string letter = make("letter.txt");
  SHAddToRecentDocs(SHARD_PATHA, letter.c_str());
  ASSERT_NE(contentsOf(kExplorer + "RecentDocs"), kNoKey);
  use("Clear Recent Docs", {{kTitle, "Recent Document List Cleared"}});
  EXPECT_EQ(contentsOf(kExplorer + "RecentDocs"), kNoKey);

  const std::size_t before = recycledItems();
  const std::string list = make("a.txt") + '\0';
  SHFILEOPSTRUCTA deletion = {};
  deletion.wFunc = FO_DELETE;
  deletion.pFrom = list.c_str();
  deletion.fFlags = FOF_ALLOWUNDO | FOF_NOCONFIRMATION;
  ASSERT_EQ(SHFileOperationA(&deletion), 0);
  ASSERT_EQ(recycledItems(), before + 1);
  use("Empty Recycle Bin",
      {{"Confirm Deletion", "Are you sure you want to delete the contents of the Recycle Bin?", "OK"},
       {kTitle, "Recycle Bin Emptied"}});
  EXPECT_LE(recycledItems(), before);
  EXPECT_TRUE(isUntouched(letter));
}

// One list for each kind of initial value, and a list of the same program that is not to be cleared.
TEST_F(ConsoleTest, ListsOfTheUserAreCleared) {
  const std::string typed = "HKCU\\Software\\Microsoft\\Internet Explorer\\TypedURLs";
  setText(typed, "url1", "http://a.example/");
  use("Clear Typed URLs", {{kTitle, "All Recent URL's Cleared"}});
  EXPECT_EQ(contentsOf(typed), kNoKey);
  use("Clear Typed URLs", {{kTitle, "No URL's Found"}});

  const std::string software = "HKCU\\Software\\";
  const std::string kept = kExplorer + "ComDlg32\\OpenSaveMRU\\doc";
  const std::pair<std::string, std::string> lists[] = {
      {software + "WinRAR\\DialogEditHistory\\ExtrPath", " = \"\""},
      {software + "Microsoft\\Office\\10.0\\Common\\Open Find\\Microsoft Word\\Settings\\Save As\\File Name MRU",
       "Maximum Entries = dword:10"},
      {software + "Ulead Systems\\Ulead PhotoImpact\\8.5\\Recent File List", "MRU Max = dword:6"},
      {kExplorer + "ComDlg32\\OpenSaveMRU\\*", "MRUList = \"\""},
      {kept, "a = \"C:\\secret.txt\""},
  };
  for (const auto& [list, seed] : lists) setText(list, "a", "C:\\secret.txt");
  use("Clean MRU Lists", {{"MRU Lists Cleared", "All MRU lists have been cleared"}});
  for (const auto& [list, seed] : lists) EXPECT_EQ(contentsOf(list), Texts{seed}) << list;
}

TEST_F(ConsoleTest, IndexFilesAreScheduledAndPrefetchFilesDeletedAfterAYes) {
  const std::string runOnce = "HKLM\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\RunOnce";
  const std::string script = "C:\\Program Files\\Scrubhaven\\delindex.cmd";
  Answer schedule = {"Index.dat File Deletion",
                     "Deleting index.dat files requires that you restart your system.\r\nWould you like to schedule "
                     "this event for next time you restart?",
                     "No"};
  Texts scheduled = contentsOf(runOnce);
  use("Wipe Index Files", {schedule});
  waitForConsole();
  EXPECT_EQ(contentsOf(runOnce), scheduled);
  schedule.button = "Yes";
  use("Wipe Index Files",
      {schedule, {"Index.dat Files", "All relevant index.dat files will be deleted on next system restart"}});
  scheduled.insert(scheduled.begin(), " = \"" + script + '"');
  EXPECT_EQ(contentsOf(runOnce), scheduled);
  EXPECT_TRUE(exists(script));

  const std::string prefetch = "C:\\windows\\prefetch\\";
  Answer clear = {"Clear Prefetch Folder", "Delete contents of the Windows Prefetch Folder?", "No"};
  for (const char* name : {"a.pf", "Sub\\deep.pf", "..\\beside.pf"}) makeFile(prefetch + name, "x");
  makeFile(prefetch + "layout.ini", "x", FILE_ATTRIBUTE_READONLY);
  use("Clear Prefetch", {clear});
  waitForConsole();
  EXPECT_EQ(namesIn(prefetch), (Texts{"Sub", "a.pf", "layout.ini"}));
  clear.button = "Yes";
  use("Clear Prefetch", {clear, {" Folder Cleared", "The Prefetch folder has been cleared."}});
  EXPECT_EQ(namesIn(prefetch), Texts{"Sub"});
  EXPECT_TRUE(exists(prefetch + "Sub\\deep.pf") && exists("C:\\windows\\beside.pf"));
}

}  // namespace
}  // namespace desktop
