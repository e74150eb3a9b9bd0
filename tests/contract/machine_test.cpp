// Drives and current folders, the version, and what surrounds the program.
#include <algorithm>

#include "tests/contract/ContractTest.h"

namespace contract {
namespace {

using testing::ElementsAre;

class Drives : public ContractTest {
 protected:
  char workingDrive() { return bed().root()[0]; }

  char missingDrive() {
    const std::vector<platform::Drive> drives = files().drives();
    char letter = 'Z';
    while (std::ranges::find(drives, letter, &platform::Drive::letter) != drives.end()) --letter;
    return letter;
  }
};

TEST_F(Drives, HaveACurrentFolderEach) {
  makeFolder("here");
  bed().setCurrentFolder(at("here"));
  EXPECT_EQ(files().currentFolder(), at("here"));
  EXPECT_EQ(files().currentFolderOf(workingDrive()).value(), at("here"));
  bed().setCurrentFolder(bed().root().substr(0, 3));
  EXPECT_EQ(files().currentFolder(), bed().root().substr(0, 3));
  EXPECT_EQ(numberOf(files().currentFolderOf(missingDrive())), platform::kDeviceUnavailable);
}

TEST_F(Drives, ListTheFoldersAndFilesThatPeopleSee) {
  for (const char* name : {"beta\\below", "Alpha", "alphabet", "Gamma.old"}) makeFolder(name);
  for (const char* name : {"b", "A.txt", "c.x.y", "B.txt"}) makeFile(name);
  bed().setAttributes(makeFolder("hidden"), platform::kHidden);
  bed().setAttributes(makeFolder("system"), platform::kSystem);
  bed().setAttributes(makeFile("hidden.txt"), platform::kHidden);
  bed().setAttributes(makeFile("system.txt"), platform::kSystem);
  bed().setAttributes(makeFile("protected.txt"), platform::kReadOnly);
  EXPECT_THAT(files().subfolders(bed().root()).value(), ElementsAre("Alpha", "alphabet", "beta", "Gamma.old"));
  EXPECT_THAT(files().subfolders(at("beta\\")).value(), ElementsAre("below"));
  EXPECT_THAT(files().filesIn(bed().root()).value(), ElementsAre("A.txt", "b", "B.txt", "c.x.y", "protected.txt"));
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
  ASSERT_TRUE(bed().machine().version().getVersionEx(record));
  EXPECT_EQ(record.size, platform::kVersionRecordSize);
  EXPECT_TRUE(record.platformId == 1 || record.platformId == 2) << record.platformId;
  EXPECT_GE(record.major, 3u);
}

TEST_F(Surroundings, VariablesAreFoundInAnyCaseAndTheProgramFolderIsOne) {
  platform::Environment& environment = bed().machine().environment();
  EXPECT_TRUE(fileObjects().folderExists(environment.programFolder())) << environment.programFolder();
  const std::string name = "SCRUBHAVEN_Contract";
  EXPECT_EQ(environment.getEnvironmentVariable(name), "");
  const std::string longValue(1000, 'x');
  for (const std::string& value : {std::string("C:\\a folder"), longValue, std::string()}) {
    bed().setVariable(name, value);
    EXPECT_EQ(environment.getEnvironmentVariable("scrubhaven_CONTRACT"), value);
  }
  bed().setVariable(name, std::nullopt);
  EXPECT_EQ(environment.getEnvironmentVariable(name), "");
}

}  // namespace
}  // namespace contract
