#include "tests/unit/ConsoleTest.h"

#include <algorithm>

using platform::Answer;
using platform::kArchive;
using platform::kHidden;
using platform::kReadOnly;

namespace {

constexpr const char* kProfiles = "C:\\Documents and Settings\\";
constexpr const char* kAskEnd = "\r\nis a read only file - OK to Delete?";

class TempFolders : public ConsoleTest {
 protected:
  void SetUp() override {
    ConsoleTest::SetUp();
    machine.addFolder("C:\\Temp");
    machine.setVariable("Temp", "C:\\Temp");
  }

  // Presses Delete Temps, answers the warning with OK and the questions after it in their order.
  void clean(std::initializer_list<Answer> answers = {}) {
    machine.answer(Answer::kOk);
    for (const Answer answer : answers) machine.answer(answer);
    form.Del_Temps.click();
  }

  Paths everyFile() const { return machine.filesBelow("C:\\"); }
};

TEST_F(TempFolders, CancelTouchesNothingAndLeavesScanDisabled) {
  machine.addFile("C:\\Temp\\a");
  form.Del_Temps.click();
  ASSERT_EQ(machine.boxes().size(), 1U);
  EXPECT_EQ(lastBox(), "This will clear ALL your profile and Windows temporary folders without backup!");
  EXPECT_EQ(machine.boxes()[0].title, "Scrubhaven Pro - Warning!");
  EXPECT_EQ(machine.boxes()[0].style, 273U);
  EXPECT_EQ(machine.boxes()[0].answer, Answer::kCancel) << "the default";
  EXPECT_TRUE(machine.exists("C:\\Temp\\a"));
  EXPECT_FALSE(form.Scan.enabled());
  clean();
  EXPECT_TRUE(form.Scan.enabled());
}

TEST_F(TempFolders, EmptiesExactlyItsFoldersWithAllBelow) {
  machine.setVariable("username", "Ann");
  const Paths cleaned = {"C:\\Winnt\\Temp",
                         kProfiles + std::string("Administrator\\Local Settings\\Temp"),
                         kProfiles + std::string("All Users\\Local Settings\\Temp"),
                         kProfiles + std::string("Default User\\Local Settings\\Temp"),
                         "C:\\Windows\\Temp",
                         "C:\\Windows\\Cookies",
                         kProfiles + std::string("Ann\\Cookies"),
                         "C:\\Temp"};
  const Paths kept = {"C:\\Windows\\Temporary\\a", kProfiles + std::string("Bob\\Cookies\\a"),
                      kProfiles + std::string("Ann\\Local Settings\\Temp\\a"), "C:\\Windows\\a"};
  for (const std::string& folder : cleaned) {
    machine.addFile(folder + "\\a.tmp", "x");
    machine.addFile(folder + "\\Sub\\Deep\\no extension", "x");
  }
  machine.setAttributes("C:\\Windows\\Temp\\Sub", kHidden | platform::kSystem);
  for (const std::string& file : kept) machine.addFile(file, "x");
  clean();
  Paths expected = kept;
  std::ranges::sort(expected);
  EXPECT_EQ(everyFile(), expected);
  EXPECT_EQ(machine.namesIn("C:\\Temp"), Paths{}) << "its subfolders go";
  EXPECT_EQ(machine.namesIn("C:\\Windows\\Temp"), Paths{"Sub"}) << "those of the fixed folders stay";
  EXPECT_EQ(lastBox(), "All temporary files not in use have been deleted");
  EXPECT_EQ(machine.boxes().back().title, "Done");
  EXPECT_EQ(machine.boxes().back().style, 0U);
  EXPECT_TRUE(machine.recycleBin().empty());
}

TEST_F(TempFolders, ReadOnlyFilesAskByTheFolderTheyAreIn) {
  const auto fill = [this](const std::string& folder) {
    for (const std::uint32_t attributes : {0U, 1U, 3U, 33U, 35U, 5U, 2U, 32U}) {
      machine.addFile(folder + "\\" + std::to_string(attributes), "x", attributes);
    }
  };
  fill("C:\\Windows\\Temp");
  fill("C:\\Temp");
  machine.addFile("C:\\Windows\\Temp\\locked", "x");
  machine.lock("C:\\Windows\\Temp\\locked");
  machine.addFile("C:\\Windows\\Temp\\locked read-only", "x", kReadOnly);
  machine.lock("C:\\Windows\\Temp\\locked read-only");
  // In the order of the names: 1, 3, 33, 35 and the locked one of the first folder, then 1 and 33 of the other.
  clean({Answer::kYes, Answer::kNo, Answer::kYes, Answer::kYes, Answer::kYes, Answer::kNo, Answer::kYes});
  Paths asked;
  for (const char* name : {"Windows\\Temp\\1", "Windows\\Temp\\3", "Windows\\Temp\\33", "Windows\\Temp\\35",
                           "Windows\\Temp\\locked read-only", "Temp\\1", "Temp\\33"}) {
    asked.push_back(std::string("C:\\") + name + kAskEnd);
  }
  Paths shown = boxTexts();
  EXPECT_EQ(machine.boxes().at(1).title, "Delete File");
  EXPECT_EQ(machine.boxes().at(1).style, 4U);
  shown.erase(shown.begin());
  shown.pop_back();
  EXPECT_EQ(shown, asked);
  EXPECT_EQ(everyFile(),
            (Paths{"C:\\Temp\\1", "C:\\Temp\\3", "C:\\Temp\\35", "C:\\Temp\\5", "C:\\Windows\\Temp\\3",
                   "C:\\Windows\\Temp\\5", "C:\\Windows\\Temp\\locked", "C:\\Windows\\Temp\\locked read-only"}));
}

TEST_F(TempFolders, ValuesThatNameNoFolderBelowARootTouchNothing) {
  machine.addDrive('D');
  machine.addFile("C:\\root.txt", "x");
  machine.addFile("C:\\Folder\\a", "x");
  machine.addFile("C:\\Program Files\\Scrubhaven\\b", "x");
  machine.addFile("D:\\root.txt", "x");
  machine.addFile("D:\\Folder\\a", "x");
  machine.addFolderLink("C:\\ToD", "D:\\");
  machine.addFolderLink("C:\\ToFolder", "D:\\Folder");
  const Paths before = everyFile();
  for (const char* value : {"",
                            " ",
                            ".",
                            "..",
                            "\\",
                            "/",
                            "C:",
                            "c:",
                            "C:\\",
                            "C:/",
                            "C:\\\\",
                            "C:\\.",
                            "C:\\ ",
                            "C:\\Folder\\..",
                            "C:/Folder/../",
                            "C:\\Folder\\a\\...",
                            "C:\\..",
                            "D:",
                            "D:\\",
                            "Folder",
                            "C:Folder",
                            "\\Folder",
                            "\\\\",
                            "\\\\?\\C:\\",
                            "\\\\.\\C:\\Folder",
                            "\\\\server",
                            "\\\\server\\share",
                            "\\\\server\\share\\",
                            "//server/share/x/..",
                            "C:\\Folder\\a",
                            "C:\\Missing",
                            "C:\\ToD",
                            "C:\\ToD\\",
                            "C:\\ToFolder",
                            "C:\\F*",
                            "E:\\Folder"}) {
    machine.setVariable("TEMP", value);
    clean();
    EXPECT_EQ(everyFile(), before) << '"' << value << '"';
    EXPECT_TRUE(machine.exists("D:\\root.txt") && machine.exists("D:\\Folder\\a")) << '"' << value << '"';
    EXPECT_TRUE(form.ListView2.empty()) << '"' << value << '"';
  }
  for (const char* value : {"C:\\Folder", "C:\\Folder\\", "c:/folder//", "D:\\..\\Folder", "D:\\Folder\\."}) {
    machine.addFile("C:\\Folder\\a", "x");
    machine.addFile("D:\\Folder\\a", "x");
    machine.setVariable("TEMP", value);
    clean();
    EXPECT_NE(machine.exists("C:\\Folder\\a"), machine.exists("D:\\Folder\\a")) << '"' << value << '"';
  }
}

TEST_F(TempFolders, UserNamesThatAreNoFolderNamesAreSkipped) {
  machine.addFile("C:\\Cookies\\a", "x");
  machine.addFile("C:\\Documents and Settings\\Cookies\\a", "x");
  machine.addFile("C:\\Documents and Settings\\Ann\\Deep\\Cookies\\a", "x");
  const Paths before = everyFile();
  for (const char* name : {"", " ", ".", "..", "Ann\\Deep", "Ann\\..\\..", "Ann/Deep", "A*"}) {
    machine.setVariable("USERNAME", name);
    clean();
    EXPECT_EQ(everyFile(), before) << '"' << name << '"';
  }
}

TEST_F(TempFolders, RowsOfEarlierRunsAreNeverRemoved) {
  machine.addFile("C:\\Other\\kept", "x");
  machine.addFile("C:\\Zero\\empty");
  ASSERT_TRUE(form.Dir1.setPath("C:\\Zero"));
  form.cmdZero.click();
  form.ListView2.add("C:\\Other");
  form.ListView2.setTicked(0, true);
  machine.addFolder("C:\\Temp\\Sub");
  clean();
  EXPECT_TRUE(machine.exists("C:\\Other\\kept") && machine.exists("C:\\Zero\\empty"));
  EXPECT_FALSE(machine.exists("C:\\Temp\\Sub"));
  EXPECT_FALSE(form.cmdZeroDelete.enabled());
  EXPECT_TRUE(form.ListView1.visible());
  EXPECT_FALSE(form.lvCache.visible() || form.lblStatus.visible() || form.Label6.visible());
  EXPECT_TRUE(form.ListView1.empty() && form.ListView2.empty());

  // The same for a run that finds no subfolder of its own, and for rows that its own walks leave behind.
  machine.addFile("C:\\Windows\\Temp\\Fixed\\a", "x");
  clean();
  EXPECT_EQ(form.ListView2.rowCount(), 1U);
  machine.addFile("C:\\Windows\\Temp\\Fixed\\kept", "x", kReadOnly);
  clean({Answer::kNo});
  EXPECT_TRUE(machine.exists("C:\\Windows\\Temp\\Fixed\\kept"));
}

TEST_F(TempFolders, LinksAreNeitherEnteredNorTakenForFolders) {
  machine.addFile("C:\\Outside\\kept", "x");
  machine.addFile("C:\\Outside\\Sub\\kept", "x", kReadOnly);
  machine.addFolderLink("C:\\Temp\\Link", "C:\\Outside");
  machine.addFolder("C:\\Temp\\Tree");
  machine.addFolderLink("C:\\Temp\\Tree\\Link", "C:\\Outside");
  machine.addFile("C:\\Temp\\Tree\\read-only", "x", kReadOnly | kArchive);
  machine.addFolderLink("C:\\Windows\\Temp\\Link", "C:\\Outside");
  machine.addFolder("C:\\Winnt");
  machine.addFolderLink("C:\\Winnt\\Temp", "C:\\Outside");
  machine.addFolder("C:\\Temp\\Link to come");
  clean();
  EXPECT_EQ(everyFile(), (Paths{"C:\\Outside\\Sub\\kept", "C:\\Outside\\kept"}));
  EXPECT_EQ(machine.namesIn("C:\\Temp"), Paths{"Link"}) << "the tree went with its link";
  EXPECT_TRUE(form.ListView2.empty()) << "no link counts as a folder";
}

TEST_F(TempFolders, ATreeThatWillNotGoDoesNotStopTheOthers) {
  machine.addFile("C:\\Temp\\A\\a", "x");
  machine.addFile("C:\\Temp\\B\\locked", "x");
  machine.addFile("C:\\Temp\\B\\z\\free", "x");
  machine.addFile("C:\\Temp\\C\\c", "x");
  machine.lock("C:\\Temp\\B\\locked");
  clean();
  EXPECT_EQ(everyFile(), Paths{"C:\\Temp\\B\\locked"});
  EXPECT_EQ(machine.namesIn("C:\\Temp"), Paths{"B"});
  EXPECT_EQ(boxTexts().size(), 2U) << "not a word about the file in use";
}

TEST_F(TempFolders, EntriesWithoutAttributesAreSkippedWhateverTheOneBeforeWas) {
  machine.setVariable("TEMP", "");
  for (const char* name : {"1 read-only", "2 unreadable", "3 plain"}) {
    machine.addFile(std::string("C:\\Windows\\Temp\\") + name, "x", name[0] == '1' ? kReadOnly : 0);
  }
  machine.failAt("getFile", 2);
  clean({Answer::kYes});
  EXPECT_EQ(everyFile(), Paths{"C:\\Windows\\Temp\\2 unreadable"});
}

TEST_F(TempFolders, MoreFilesThanItCountsAreLeftForTheNextRun) {
  machine.setVariable("TEMP", "");
  for (int i = 0; i < 32770; ++i) machine.addFile("C:\\Winnt\\Temp\\" + std::to_string(i));
  // Once it deletes, the drive answers no more: what is asked for is enough to count.
  machine.everyServing([&] {
    if (machine.calls("getFile") == 1) machine.setReady('C', false);
  });
  clean();
  EXPECT_EQ(machine.calls("getFile"), 32767);
  EXPECT_EQ(lastBox(), "All temporary files not in use have been deleted");
  EXPECT_EQ(everyFile().size(), 32769U);
}

TEST_F(TempFolders, WalksCollectFilesByNumberFromOneAndRootsArePathsToo) {
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
  std::string nothing;
  EXPECT_EQ(form.FindTemps(nothing, "*.*", files, folders), 0);
  EXPECT_EQ(files, 3);
}

// Each platform call of a run fails once: nothing outside its folders goes, and it ends with its closing message.
TEST_F(TempFolders, AnyFailureTouchesNothingElse) {
  machine.addFile("C:\\Outside\\kept", "x");
  machine.addFile("C:\\root", "x");
  machine.addFile("C:\\Windows\\kept", "x");
  const Paths kept = everyFile();
  machine.setVariable("username", "Ann");
  for (const char* operation :
       {"findFirstFile", "findNextFile", "findClose", "getFileAttributes", "folderExists", "getFile", "deleteFile",
        "deleteFolder", "getEnvironmentVariable", "anyFileMatches", "createFile"}) {
    for (int n = 1;; ++n) {
      machine.addFile("C:\\Temp\\Sub\\a", "x");
      if (!machine.exists("C:\\Temp\\Sub\\Link")) machine.addFolderLink("C:\\Temp\\Sub\\Link", "C:\\Outside");
      machine.addFile("C:\\Temp\\b", "x");
      machine.addFile("C:\\Windows\\Temp\\Sub\\c", "x");
      machine.failAt(operation, n);
      clean();
      const Paths left = everyFile();
      EXPECT_TRUE(std::ranges::includes(left, kept)) << operation << n;
      EXPECT_EQ(lastBox(), "All temporary files not in use have been deleted") << operation << n;
      EXPECT_EQ(machine.openHandles(), 0U) << operation << n;
      const bool failed = !machine.faultsLeft();
      machine.clearFaults();
      if (failed) continue;
      EXPECT_EQ(left, kept) << operation;
      break;
    }
  }
}

}  // namespace
