// Drives and current folders.
#include <algorithm>

#include "tests/contract/ContractTest.h"

namespace contract {
namespace {

class Drives : public ContractTest {};

TEST_F(Drives, HaveACurrentFolderEachAndListWhatPeopleSee) {
  for (const char* name : {"beta\\below", "Alpha", "alphabet", "Gamma.old"}) makeFolder(name);
  for (const char* name : {"b", "A.txt", "c.x.y", "B.txt"}) makeFile(name);
  makeFolder("hidden", kHidden);
  makeFolder("system", kSystem);
  makeFile("hidden.txt", "", kHidden);
  makeFile("system.txt", "", kSystem);
  makeFile("protected.txt", "", kReadOnly);
  EXPECT_EQ(files().subfolders(testMachine().root()).value(), (Names{"Alpha", "alphabet", "beta", "Gamma.old"}));
  EXPECT_EQ(files().subfolders(at("beta\\")).value(), Names{"below"});
  EXPECT_EQ(files().filesIn(testMachine().root()).value(), (Names{"A.txt", "b", "B.txt", "c.x.y", "protected.txt"}));
  for (const char* name : {"missing", "b"}) EXPECT_EQ(numberOf(files().subfolders(at(name))), kPathNotFound) << name;

  for (const std::string& folder : {at("beta"), at("").substr(0, 3)}) {
    testMachine().setCurrentFolder(folder);
    EXPECT_EQ(files().currentFolder(), folder);
    EXPECT_EQ(files().currentFolderOf(folder[0]).value(), folder);
  }
  const std::vector<Drive> drives = files().drives();
  char missing = 'Z';
  while (std::ranges::find(drives, missing, &Drive::letter) != drives.end()) --missing;
  EXPECT_EQ(numberOf(files().currentFolderOf(missing)), kDeviceUnavailable);
  EXPECT_EQ(numberOf(files().subfolders(std::string(1, missing) + ":\\")), kDeviceUnavailable);
}

}  // namespace
}  // namespace contract
