#include "cleaners/temp_folders.h"

#include <algorithm>

#include "tests/unit/ConsoleTest.h"

using platform::Answer;
using platform::kArchive;
using platform::kHidden;
using platform::kReadOnly;

namespace {

constexpr const char* kDone = "All temporary files not in use have been deleted";

class TempFolders : public ConsoleTest {
 protected:
  void SetUp() override {
    ConsoleTest::SetUp();
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
  for (const std::string& path : parts(R"(C:\Folder|C:\Folder\|c:/folder//|D:\..\Folder|D:\Folder\.|C:\a\b\..|C:\..\a|)"
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
  for (const char* folder :
       {"", "Documents and Settings\\", "Documents and Settings\\Ann\\", "Documents and Settings\\Ann\\Deep\\"}) {
    machine.addFolder(std::string("C:\\") + folder + "Cookies");
  }
  for (const std::string& user : parts(R"(| |.|..|Ann\Deep|Ann\..\..|Ann/Deep|A*|Bob)")) {
    machine.environment().setVariable("username", user);
    EXPECT_EQ(cleaners::fixedFolders(), Paths{}) << user;
  }
  machine.environment().setVariable("username", "Ann");
  EXPECT_EQ(cleaners::fixedFolders(), Paths{"C:\\Documents and Settings\\Ann\\Cookies"});
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
  machine.disk().setAttributes("C:\\Windows\\Temp\\Sub", kHidden | platform::kSystem);
  const Paths kept =
      parts(R"(C:\Documents and Settings\Ann\Local Settings\Temp\a|C:\Documents and Settings\Bob\Cookies\a|)"
            R"(C:\Windows\Temporary\a|C:\Windows\a)");
  for (const std::string& file : kept) machine.addFile(file, "x");
  const std::size_t all = everyFile().size();
  EXPECT_EQ(press(form.Del_Temps), Paths{kWarnTemps}) << "Cancel is the default";
  EXPECT_EQ(everyFile().size(), all);
  EXPECT_FALSE(form.Scan.enabled());

  // No row of an earlier run is removed, and an abort that is pending stops nothing and stays pending.
  addFiles("C:\\Other", {"kept"});
  form.ListView2.add("C:\\Other");
  form.AbortRequested = true;
  const Answer yes = Answer::kYes;
  EXPECT_EQ(clean({yes, yes, yes, yes, yes, yes, yes, yes}), expected);
  EXPECT_TRUE(machine.exists("C:\\Other\\kept"));
  ASSERT_TRUE(machine.fileObjects().deleteFolder("C:\\Other", true));
  EXPECT_EQ(everyFile(), kept);
  EXPECT_EQ(machine.disk().namesIn("C:\\Temp"), Paths{}) << "its subfolders go";
  EXPECT_EQ(machine.disk().namesIn("C:\\Windows\\Temp"), Paths{"Sub"}) << "those of the fixed folders stay";
  EXPECT_TRUE(machine.disk().recycleBin().empty() && form.AbortRequested && form.Scan.enabled());
  EXPECT_TRUE(form.ListView1.visible() && !form.Label6.visible());
  // Nor are the rows that its own walks leave behind: the folder of a file that stays.
  machine.addFile("C:\\Windows\\Temp\\Sub\\kept", "x", kReadOnly);
  clean({Answer::kNo});
  EXPECT_TRUE(machine.exists("C:\\Windows\\Temp\\Sub\\kept"));
}

TEST_F(TempFolders, ReadOnlyFilesAskByTheFolderTheyAreInAndFilesInUseStay) {
  const std::string fixed = "C:\\Windows\\Temp\\";
  for (const std::string& folder : {fixed, std::string("C:\\Temp\\")}) {
    for (const std::uint32_t attributes : {0U, 1U, 3U, 33U, 35U, 5U, 2U, 32U}) {
      machine.addFile(folder + std::to_string(attributes), "x", attributes);
    }
  }
  machine.addFile(fixed + "locked", "x");
  machine.addFile(fixed + "locked read-only", "x", kReadOnly);
  machine.disk().lock(fixed + "locked");
  machine.disk().lock(fixed + "locked read-only");
  Paths expected = {kWarnTemps};
  for (const char* name : {"Windows\\Temp\\1", "Windows\\Temp\\3", "Windows\\Temp\\33", "Windows\\Temp\\35",
                           "Windows\\Temp\\locked read-only", "Temp\\1", "Temp\\33"}) {
    expected.push_back(std::string("C:\\") + name + "\r\nis a read only file - OK to Delete?");
  }
  expected.push_back(kDone);
  EXPECT_EQ(clean({Answer::kYes, Answer::kNo, Answer::kYes, Answer::kYes, Answer::kYes, Answer::kNo, Answer::kYes}),
            expected);
  EXPECT_EQ(machine.faults().calls("deleteFile"), 14) << "neither what is refused nor what is in use is tried";
  EXPECT_EQ(everyFile(), (Paths{"C:\\Temp\\1", "C:\\Temp\\3", "C:\\Temp\\35", "C:\\Temp\\5", fixed + "3", fixed + "5",
                                fixed + "locked", fixed + "locked read-only"}));
}

TEST_F(TempFolders, LinksAreNotEnteredAndATreeThatWillNotGoStopsNoOther) {
  addFiles("C:\\Outside", {"kept", "Sub\\kept"});
  machine.addFile("C:\\Temp\\Tree\\read-only", "x", kReadOnly | kArchive);
  for (const char* link : {"C:\\Temp\\Link", "C:\\Temp\\Tree\\Link", "C:\\Windows\\Temp\\Link", "C:\\Winnt\\Temp"}) {
    machine.disk().addLink(link, "C:\\Outside");
  }
  addFiles("C:\\Temp\\Used", {"locked", "z\\free"});
  machine.disk().lock("C:\\Temp\\Used\\locked");
  EXPECT_EQ(clean(), (Paths{kWarnTemps, kDone})) << "not a word about the file in use";
  EXPECT_EQ(everyFile(), (Paths{"C:\\Outside\\Sub\\kept", "C:\\Outside\\kept", "C:\\Temp\\Used\\locked"}));
  EXPECT_EQ(machine.disk().namesIn("C:\\Temp"), (Paths{"Link", "Used"})) << "the other tree went with its link";
  EXPECT_EQ(form.ListView2.rowCount(), 2U) << "what is left of the tree; no link counts as a folder";
}

TEST_F(TempFolders, MoreFilesThanItCountsAreLeftForTheNextRun) {
  machine.environment().setVariable("TEMP", "");
  for (int i = 0; i < 32770; ++i) machine.addFile("C:\\Winnt\\Temp\\" + std::to_string(i));
  // The drive fails once the deletion has begun: what is asked for is enough to count.
  machine.ui().everyServing([&] { machine.disk().setReady('C', machine.faults().calls("getFile") == 0); });
  clean();
  EXPECT_EQ(machine.faults().calls("getFile"), 32767);
  // For each entry of the one folder, with "." and "..", before each deletion, and once behind the second walk.
  EXPECT_EQ(machine.faults().calls("serveEvents"), 32772 + 32767 + 1);
}

TEST_F(TempFolders, WalksCollectFilesByNumberFromOne) {
  machine.addSizedFile("C:\\T\\a.tmp", 100);
  machine.addSizedFile("C:\\T\\Sub\\b.tmp", 0x80000000ULL);
  addFiles("C:\\T\\Sub", {"c.txt"});
  std::string path = "C:\\T";
  std::int32_t files = 0;
  std::int32_t folders = 0;
  EXPECT_EQ(form.FindTemps(path, "*.tmp", files, folders), 100 - 2147483648LL);
  EXPECT_EQ(path, "C:\\T\\");
  EXPECT_EQ(folders, 1);
  EXPECT_EQ(form.FindTempsAPI(path, "*.txt", files, folders), 1);
  EXPECT_EQ(form.FoundFiles, (Paths{"", "C:\\T\\a.tmp", "C:\\T\\Sub\\b.tmp", "C:\\T\\Sub\\c.txt"}));
  EXPECT_EQ(pathsOf(form.ListView2), (Paths{"C:\\T\\Sub", "C:\\T\\Sub"}));
}

}  // namespace
