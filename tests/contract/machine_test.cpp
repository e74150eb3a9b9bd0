// Drives and current folders, the version, and what surrounds the program.
#include <algorithm>

#include "tests/contract/ContractTest.h"

namespace contract {
namespace {

using testing::ElementsAre;

class Drives : public ContractTest {
 protected:
  char workingDrive() { return testMachine().root()[0]; }

  char missingDrive() {
    const std::vector<platform::Drive> drives = files().drives();
    char letter = 'Z';
    while (std::ranges::find(drives, letter, &platform::Drive::letter) != drives.end()) --letter;
    return letter;
  }
};

TEST_F(Drives, HaveACurrentFolderEach) {
  makeFolder("here");
  testMachine().setCurrentFolder(at("here"));
  EXPECT_EQ(files().currentFolder(), at("here"));
  EXPECT_EQ(files().currentFolderOf(workingDrive()).value(), at("here"));
  testMachine().setCurrentFolder(testMachine().root().substr(0, 3));
  EXPECT_EQ(files().currentFolder(), testMachine().root().substr(0, 3));
  EXPECT_EQ(numberOf(files().currentFolderOf(missingDrive())), platform::kDeviceUnavailable);
}

TEST_F(Drives, ListTheFoldersAndFilesThatPeopleSee) {
  for (const char* name : {"beta\\below", "Alpha", "alphabet", "Gamma.old"}) makeFolder(name);
  for (const char* name : {"b", "A.txt", "c.x.y", "B.txt"}) makeFile(name);
  testMachine().setAttributes(makeFolder("hidden"), platform::kHidden);
  testMachine().setAttributes(makeFolder("system"), platform::kSystem);
  testMachine().setAttributes(makeFile("hidden.txt"), platform::kHidden);
  testMachine().setAttributes(makeFile("system.txt"), platform::kSystem);
  testMachine().setAttributes(makeFile("protected.txt"), platform::kReadOnly);
  EXPECT_THAT(files().subfolders(testMachine().root()).value(), ElementsAre("Alpha", "alphabet", "beta", "Gamma.old"));
  EXPECT_THAT(files().subfolders(at("beta\\")).value(), ElementsAre("below"));
  EXPECT_THAT(files().filesIn(testMachine().root()).value(),
              ElementsAre("A.txt", "b", "B.txt", "c.x.y", "protected.txt"));
  EXPECT_THAT(files().filesIn(at("beta\\")).value(), ElementsAre());
  for (const std::string name : {"missing", "b"}) {
    EXPECT_EQ(numberOf(files().subfolders(at(name))), platform::kPathNotFound) << name;
    EXPECT_EQ(numberOf(files().filesIn(at(name))), platform::kPathNotFound) << name;
  }
  EXPECT_EQ(numberOf(files().subfolders(std::string(1, missingDrive()) + ":\\")), platform::kDeviceUnavailable);
}

class Surroundings : public ContractTest {};

TEST_F(Surroundings, VersionIsAskedWithARecordOfTheRightSize) {
  platform::VersionRecord record;
  record.size = platform::kVersionRecordSize;
  ASSERT_TRUE(testMachine().machine().version().getVersionEx(record));
  EXPECT_EQ(record.size, platform::kVersionRecordSize);
  EXPECT_TRUE(record.platformId == 1 || record.platformId == 2) << record.platformId;
  EXPECT_GE(record.major, 3u);
}

TEST_F(Surroundings, VariablesAreFoundInAnyCaseAndTheProgramFolderIsOne) {
  platform::Environment& environment = testMachine().machine().environment();
  EXPECT_TRUE(fileObjects().folderExists(environment.programFolder())) << environment.programFolder();
  const std::string name = "SCRUBHAVEN_Contract";
  EXPECT_EQ(environment.getEnvironmentVariable(name), "");
  const std::string longValue(1000, 'x');
  for (const std::string& value : {std::string("C:\\a folder"), longValue, std::string()}) {
    testMachine().setVariable(name, value);
    EXPECT_EQ(environment.getEnvironmentVariable("scrubhaven_CONTRACT"), value);
  }
  testMachine().setVariable(name, std::nullopt);
  EXPECT_EQ(environment.getEnvironmentVariable(name), "");
}

}  // namespace
}  // namespace contract
