// The cache page and the temporary folders.
#include <cstdlib>
#include <ctime>

#include "cleaners/temp_folders.h"
#include "tests/unit/ConsoleTest.h"

using platform::Answer;
using platform::FileTime;
using platform::kHidden;
using platform::kReadOnly;

namespace {

constexpr std::uint32_t kCookie = 0x00100000;
constexpr FileTime kAfternoon{0x8D8A2F80, 0x1C402BB};  // the 5th of March 2004, 14:10:03 UTC
constexpr FileTime kNever{0xFFFFFFFF, 0x7FFFFFFF};

using CachePage = ConsoleTest;

// Far from UTC, so that a conversion to the local time would show. The last access time is no date.
TEST_F(CachePage, ListsTheFirstEntryAsItIsAndOfTheOthersOnlyOrdinaryOnesWithTimesInUtc) {
  setenv("TZ", "EAST-13", 1);
  tzset();
  EXPECT_EQ(press(form.Del_Cache), Paths{"No cache items found."});
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

// ---- Temporary folders

constexpr const char* kDone = "All temporary files not in use have been deleted";

class TempFolders : public ConsoleTest {
 protected:
  TempFolders() {
    machine.addFolder("C:\\Temp");
    machine.environment().setVariable("Temp", "C:\\Temp");
  }

  // Presses Delete Temps, answers the warning with OK and the questions after it in their order.
  Paths clean(std::initializer_list<Answer> answers = {}) {
    machine.answer(Answer::kOk);
    return press(form.Del_Temps, answers);
  }

  Paths everyFile() const { return machine.filesBelow("C:\\"); }
};

TEST_F(TempFolders, OnlyFullPathsBelowARootCount) {
  for (const std::string& path :
       parts(R"(C:\Folder|C:\Folder\|c:/folder//|D:\..\Folder|D:\Folder\.|C:\a\b\..|C:\..\a|C:\a\ |)"
             R"(C:\a\b\c\...|\\server\share\x|//server/share/x)")) {
    EXPECT_TRUE(cleaners::isBelowRoot(path)) << path;
  }
  for (const std::string& path :
       parts(R"(| |.|..|\|/|C:|c:|Folder|C:Folder|\Folder|C:\|C:/|C:\\|C:\.|C:\ |C:\..|C:\Folder\..|C:/Folder/../|)"
             R"(C:\a\b\...|C:\a\..\..\b\..|C:\. .|\\|\\?\C:\|\\?\C:\Folder|\\.\C:\Folder|//?/C:/Folder|\\server|)"
             R"(\\server\share|\\server\share\|\\server\share\x\..|\\..\share\x|\\server\.\x|1\\server\share\x)")) {
    EXPECT_FALSE(cleaners::isBelowRoot(path)) << path;
  }
}

TEST_F(TempFolders, VariablesThatNameNoFolderOfTheirOwnNameNone) {
  addFiles("C:\\Folder", {"file"});
  machine.disk().addLink("C:\\Link", "C:\\Folder");
  for (const std::string& value : parts(R"(C:\Link|C:\Link\|C:\Missing|E:\Folder|C:\Folder\file|Folder|C:\F*)")) {
    machine.environment().setVariable("TEMP", value);
    EXPECT_EQ(cleaners::tempFolder("TEMP"), "") << value;
  }
  machine.environment().setVariable("TEMP", "c:/folder//");
  EXPECT_EQ(cleaners::tempFolder("TEMP"), "c:/folder\\");
  const std::string people = "C:\\Documents and Settings\\";
  for (const char* folder : {"", "Ann\\", "Ann\\Deep\\"}) machine.addFolder(people + folder + "Cookies");
  machine.addFolder("C:\\Cookies");
  for (const std::string& user : parts(R"(| |.|..|Ann\Deep|Ann\..\..|Ann/Deep|A*|Bob)")) {
    machine.environment().setVariable("username", user);
    EXPECT_EQ(cleaners::fixedFolders(), Paths{}) << user;
  }
  machine.environment().setVariable("username", "Ann");
  EXPECT_EQ(cleaners::fixedFolders(), Paths{people + "Ann\\Cookies"});
}

TEST_F(TempFolders, EmptiesExactlyItsFoldersWithAllBelowAfterAWarning) {
  machine.environment().setVariable("username", "Ann");
  const Paths folders =
      parts(R"(C:\Winnt\Temp|C:\Documents and Settings\Administrator\Local Settings\Temp|)"
            R"(C:\Documents and Settings\All Users\Local Settings\Temp|)"
            R"(C:\Documents and Settings\Default User\Local Settings\Temp|C:\Windows\Temp|C:\Windows\Cookies|)"
            R"(C:\Documents and Settings\Ann\Cookies|C:\Temp)");
  // One read-only file in each tells the order.
  Paths expected = {kWarnTemps};
  for (const std::string& folder : folders) {
    addFiles(folder, {"a.tmp", "Sub\\Deep\\no extension"});
    machine.addFile(folder + "\\r", "x", kReadOnly);
    expected.push_back(folder + "\\r\r\nis a read only file - OK to Delete?");
  }
  expected.push_back(kDone);
  machine.disk().addFolder("C:\\Windows\\Temp\\Sub", kHidden | platform::kSystem);
  // Files of other attributes, which are the numbers in their names, stay unasked in the variables' folders.
  machine.addFile("C:\\Winnt\\Temp\\r", "x", kReadOnly | kHidden);
  const Paths kept =
      parts(R"(C:\Documents and Settings\Ann\Local Settings\Temp\a|C:\Documents and Settings\Bob\Cookies\a|)"
            R"(C:\Other\kept|C:\Temp\3|C:\Temp\35|C:\Temp\5|C:\Windows\Temp\5|C:\Windows\Temp\Sub\locked|)"
            R"(C:\Windows\Temporary\a|C:\Windows\a)");
  for (const std::string& file : kept) {
    machine.addFile(file, "x", static_cast<std::uint32_t>(std::atoi(file.substr(file.rfind('\\') + 1).c_str())));
  }
  machine.disk().lock("C:\\Windows\\Temp\\Sub\\locked");
  const std::size_t all = everyFile().size();
  EXPECT_EQ(press(form.Del_Temps), Paths{kWarnTemps}) << "Cancel is the default";
  EXPECT_EQ(everyFile().size(), all);
  EXPECT_FALSE(form.Scan.enabled());

  // An abort that is pending stops nothing and stays pending.
  form.AbortRequested = true;
  const Answer yes = Answer::kYes;
  EXPECT_EQ(clean({yes, yes, yes, yes, yes, yes, yes, yes}), expected);
  EXPECT_EQ(everyFile(), kept);
  EXPECT_EQ(machine.disk().namesIn("C:\\Temp"), (Paths{"3", "35", "5"})) << "its subfolders go";
  EXPECT_EQ(machine.disk().namesIn("C:\\Windows\\Temp"), (Paths{"5", "Sub"})) << "those of the fixed folders stay";
  EXPECT_TRUE(machine.disk().recycleBin().empty() && form.AbortRequested && form.Scan.enabled());
}

}  // namespace
