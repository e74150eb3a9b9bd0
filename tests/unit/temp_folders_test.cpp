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
    machine.disk().addDrive('D');
    machine.addFolder("C:\\Temp");
    machine.environment().setVariable("Temp", "C:\\Temp");
  }

  // Presses Delete Temps, answers the warning with OK and the questions after it in their order.
  void clean(std::initializer_list<Answer> answers = {}) {
    machine.answer(Answer::kOk);
    for (const Answer answer : answers) machine.answer(answer);
    form.Del_Temps.click();
  }

  // Runs with each value of an environment variable and expects every file of both drives to stay.
  void expectNothingCleaned(const std::string& variable, std::initializer_list<const char*> values) {
    const Paths onC = everyFile();
    const Paths onD = machine.filesBelow("D:\\");
    for (const char* value : values) {
      machine.environment().setVariable(variable, value);
      clean();
      EXPECT_EQ(everyFile(), onC) << '"' << value << '"';
      EXPECT_EQ(machine.filesBelow("D:\\"), onD) << '"' << value << '"';
      EXPECT_TRUE(form.ListView2.empty()) << '"' << value << '"';
    }
  }

  Paths everyFile() const { return machine.filesBelow("C:\\"); }
};

TEST_F(TempFolders, CancelTouchesNothingAndLeavesScanDisabled) {
  machine.addFile("C:\\Temp\\a");
  form.Del_Temps.click();
  EXPECT_EQ(machine.boxes().size(), 1U) << "Cancel is the default";
  expectBox("This will clear ALL your profile and Windows temporary folders without backup!",
            "Scrubhaven Pro - Warning!", 273);
  EXPECT_TRUE(machine.exists("C:\\Temp\\a"));
  EXPECT_FALSE(form.Scan.enabled());
  clean();
  EXPECT_TRUE(form.Scan.enabled());
}

TEST_F(TempFolders, EmptiesExactlyItsFoldersWithAllBelow) {
  machine.environment().setVariable("username", "Ann");
  const std::string profiles = "C:\\Documents and Settings\\";
  for (const std::string& folder :
       {std::string("C:\\Winnt\\Temp"), profiles + "Administrator\\Local Settings\\Temp",
        profiles + "All Users\\Local Settings\\Temp", profiles + "Default User\\Local Settings\\Temp",
        std::string("C:\\Windows\\Temp"), std::string("C:\\Windows\\Cookies"), profiles + "Ann\\Cookies",
        std::string("C:\\Temp")}) {
    machine.addFile(folder + "\\a.tmp", "x");
    machine.addFile(folder + "\\Sub\\Deep\\no extension", "x");
  }
  machine.disk().setAttributes("C:\\Windows\\Temp\\Sub", kHidden | platform::kSystem);
  const Paths kept = {profiles + "Ann\\Local Settings\\Temp\\a", profiles + "Bob\\Cookies\\a",
                      "C:\\Windows\\Temporary\\a", "C:\\Windows\\a"};
  for (const std::string& file : kept) machine.addFile(file, "x");
  clean();
  EXPECT_EQ(everyFile(), kept);
  EXPECT_EQ(machine.disk().namesIn("C:\\Temp"), Paths{}) << "its subfolders go";
  EXPECT_EQ(machine.disk().namesIn("C:\\Windows\\Temp"), Paths{"Sub"}) << "those of the fixed folders stay";
  EXPECT_TRUE(machine.disk().recycleBin().empty());
  expectBox(kDone, "Done");
}

TEST_F(TempFolders, ReadOnlyFilesAskByTheFolderTheyAreIn) {
  const std::string windowsTemp = "C:\\Windows\\Temp\\";
  for (const std::string& folder : {windowsTemp, std::string("C:\\Temp\\")}) {
    for (const std::uint32_t attributes : {0U, 1U, 3U, 33U, 35U, 5U, 2U, 32U}) {
      machine.addFile(folder + std::to_string(attributes), "x", attributes);
    }
  }
  machine.addFile(windowsTemp + "locked", "x");
  machine.addFile(windowsTemp + "locked read-only", "x", kReadOnly);
  machine.disk().lock(windowsTemp + "locked");
  machine.disk().lock(windowsTemp + "locked read-only");
  clean({Answer::kYes, Answer::kNo, Answer::kYes, Answer::kYes, Answer::kYes, Answer::kNo, Answer::kYes});
  Paths expected = {"This will clear ALL your profile and Windows temporary folders without backup!"};
  for (const char* name : {"Windows\\Temp\\1", "Windows\\Temp\\3", "Windows\\Temp\\33", "Windows\\Temp\\35",
                           "Windows\\Temp\\locked read-only", "Temp\\1", "Temp\\33"}) {
    expected.push_back(std::string("C:\\") + name + "\r\nis a read only file - OK to Delete?");
  }
  expected.push_back(kDone);
  EXPECT_EQ(boxTexts(), expected);
  EXPECT_EQ(machine.faults().calls("deleteFile"), 14) << "neither what is refused nor what is in use is tried";
  EXPECT_EQ(machine.boxes().at(1).title, "Delete File");
  EXPECT_EQ(machine.boxes().at(1).style, 4U);
  EXPECT_EQ(everyFile(), (Paths{"C:\\Temp\\1", "C:\\Temp\\3", "C:\\Temp\\35", "C:\\Temp\\5", windowsTemp + "3",
                                windowsTemp + "5", windowsTemp + "locked", windowsTemp + "locked read-only"}));
}

TEST_F(TempFolders, ValuesThatNameNoFolderBelowARootTouchNothing) {
  for (const std::string root : {"C:\\", "D:\\"}) {
    machine.addFile(root + "root.txt", "x");
    machine.addFile(root + "Folder\\a", "x");
  }
  machine.addFile("C:\\Program Files\\Scrubhaven\\b", "x");
  machine.disk().addLink("C:\\ToD", "D:\\");
  machine.disk().addLink("C:\\ToFolder", "D:\\Folder");
  expectNothingCleaned("TEMP", {"", " ", ".", "..", "\\", "/", "C:", "c:", "D:", "Folder", "C:Folder", "\\Folder"});
  expectNothingCleaned("TEMP", {"C:\\", "C:/", "C:\\\\", "C:\\.", "C:\\ ", "C:\\..", "D:\\", "C:\\Folder\\.."});
  expectNothingCleaned("TEMP", {"C:/Folder/../", "C:\\Folder\\a\\...", "C:\\Folder\\a", "C:\\Missing", "C:\\F*"});
  expectNothingCleaned("TEMP", {"\\\\", "\\\\?\\C:\\", "\\\\.\\C:\\Folder", "\\\\server", "\\\\server\\share"});
  expectNothingCleaned("TEMP", {"\\\\server\\share\\", "//server/share/x/..", "E:\\Folder"});
  expectNothingCleaned("TEMP", {"C:\\ToD", "C:\\ToD\\", "C:\\ToFolder"});
  for (const char* value : {"C:\\Folder", "C:\\Folder\\", "c:/folder//", "D:\\..\\Folder", "D:\\Folder\\."}) {
    machine.addFile("C:\\Folder\\a", "x");
    machine.addFile("D:\\Folder\\a", "x");
    machine.environment().setVariable("TEMP", value);
    clean();
    EXPECT_NE(machine.exists("C:\\Folder\\a"), machine.exists("D:\\Folder\\a")) << '"' << value << '"';
  }
}

TEST_F(TempFolders, UserNamesThatAreNoFolderNamesAreSkipped) {
  for (const char* folder : {"", "Documents and Settings\\", "Documents and Settings\\Ann\\Deep\\"}) {
    machine.addFile(std::string("C:\\") + folder + "Cookies\\a", "x");
  }
  expectNothingCleaned("USERNAME", {"", " ", ".", "..", "Ann\\Deep", "Ann\\..\\..", "Ann/Deep", "A*"});
}

TEST_F(TempFolders, RowsOfEarlierRunsAreNeverRemoved) {
  machine.addFile("C:\\Other\\kept", "x");
  form.ListView2.add("C:\\Other");
  form.ListView2.setTicked(0, true);
  machine.addFolder("C:\\Temp\\Sub");
  clean();
  EXPECT_TRUE(machine.exists("C:\\Other\\kept"));
  EXPECT_FALSE(machine.exists("C:\\Temp\\Sub"));
  EXPECT_FALSE(form.cmdZeroDelete.enabled());
  EXPECT_TRUE(form.ListView1.visible() && !form.Label6.visible());
  EXPECT_TRUE(form.ListView1.empty() && form.ListView2.empty());

  // Nor are rows that its own walks leave behind.
  machine.addFile("C:\\Windows\\Temp\\Fixed\\a", "x");
  clean();
  EXPECT_EQ(form.ListView2.rowCount(), 1U);
  machine.addFile("C:\\Windows\\Temp\\Fixed\\kept", "x", kReadOnly);
  clean({Answer::kNo});
  EXPECT_TRUE(machine.exists("C:\\Windows\\Temp\\Fixed\\kept"));
}

TEST_F(TempFolders, LinksAreNotEnteredAndATreeThatWillNotGoStopsNoOther) {
  machine.addFile("C:\\Outside\\kept", "x");
  machine.addFile("C:\\Outside\\Sub\\kept", "x", kReadOnly);
  machine.addFile("C:\\Temp\\Tree\\read-only", "x", kReadOnly | kArchive);
  for (const char* link : {"C:\\Temp\\Link", "C:\\Temp\\Tree\\Link", "C:\\Windows\\Temp\\Link", "C:\\Winnt\\Temp"}) {
    machine.disk().addLink(link, "C:\\Outside");
  }
  machine.addFile("C:\\Temp\\Used\\locked", "x");
  machine.addFile("C:\\Temp\\Used\\z\\free", "x");
  machine.disk().lock("C:\\Temp\\Used\\locked");
  clean();
  EXPECT_EQ(everyFile(), (Paths{"C:\\Outside\\Sub\\kept", "C:\\Outside\\kept", "C:\\Temp\\Used\\locked"}));
  EXPECT_EQ(machine.disk().namesIn("C:\\Temp"), (Paths{"Link", "Used"})) << "the other tree went with its link";
  EXPECT_EQ(form.ListView2.rowCount(), 2U) << "what is left of the tree; no link counts as a folder";
  EXPECT_EQ(boxTexts().size(), 2U) << "not a word about the file in use";
}

TEST_F(TempFolders, MoreFilesThanItCountsAreLeftForTheNextRun) {
  machine.environment().setVariable("TEMP", "");
  for (int i = 0; i < 32770; ++i) machine.addFile("C:\\Winnt\\Temp\\" + std::to_string(i));
  // The drive answers no more once it deletes: what is asked for is enough to count.
  machine.ui().everyServing([&] { machine.disk().setReady('C', machine.faults().calls("getFile") == 0); });
  clean();
  EXPECT_EQ(machine.faults().calls("getFile"), 32767);
}

TEST_F(TempFolders, WalksCollectFilesByNumberFromOne) {
  machine.addSizedFile("C:\\T\\a.tmp", 100);
  machine.addSizedFile("C:\\T\\Sub\\b.tmp", 0x80000000ULL);
  machine.addFile("C:\\T\\Sub\\c.txt", "x");
  std::string path = "C:\\T";
  std::int32_t files = 0;
  std::int32_t folders = 0;
  EXPECT_EQ(form.FindTemps(path, "*.tmp", files, folders), 100 - 2147483648LL);
  EXPECT_EQ(path, "C:\\T\\");
  EXPECT_EQ(folders, 1);
  EXPECT_EQ(form.FindTempsAPI(path, "*.txt", files, folders), 1);
  EXPECT_EQ(form.FoundFiles, (Paths{"", "C:\\T\\a.tmp", "C:\\T\\Sub\\b.tmp", "C:\\T\\Sub\\c.txt"}));
  EXPECT_EQ(form.ListView2.rowCount(), 2U);
}

// Each platform call of a run fails once: nothing outside its folders goes, and it ends with its closing message.
TEST_F(TempFolders, AnyFailureTouchesNothingElse) {
  for (const char* file : {"C:\\Outside\\kept", "C:\\root", "C:\\Windows\\kept"}) machine.addFile(file, "x");
  const Paths kept = everyFile();
  machine.environment().setVariable("username", "Ann");
  withEachCallFailing({"findFirstFile", "findNextFile", "findClose", "getFileAttributes", "folderExists", "getFile",
                       "deleteFile", "deleteFolder", "getEnvironmentVariable", "anyFileMatches", "createFile"},
                      [&](const std::string& call) {
                        addFiles("C:\\Temp\\Sub", {"a"});
                        if (!machine.exists("C:\\Temp\\Sub\\Link")) {
                          machine.disk().addLink("C:\\Temp\\Sub\\Link", "C:\\Outside");
                        }
                        addFiles("C:\\Temp", {"b"});
                        addFiles("C:\\Windows\\Temp\\Sub", {"c"});
                        clean();
                        const bool failed = !machine.faults().left();
                        const Paths left = everyFile();
                        EXPECT_TRUE(failed ? std::ranges::includes(left, kept) : left == kept) << call;
                        EXPECT_EQ(lastBox(), kDone) << call;
                        EXPECT_EQ(machine.openHandles(), 0U) << call;
                      });
}

}  // namespace
