#include "cleaners/temp_folders.h"

#include "tests/unit/ConsoleTest.h"

using platform::Answer;
using platform::kHidden;
using platform::kReadOnly;

namespace {

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
  machine.disk().setAttributes("C:\\Windows\\Temp\\Sub", kHidden | platform::kSystem);
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
