// What only the in-memory machine shows: names that no path reaches, and links as the test system does not have
// them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/memory/MemoryMachine.h"

namespace platform::memory {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> find(MemoryMachine& machine, const std::string& pattern) {
  std::vector<std::string> names;
  FindRecord record;
  const Handle enumeration = machine.files().findFirstFile(pattern, record);
  for (bool more = enumeration != kInvalidHandle; more; more = machine.files().findNextFile(enumeration, record)) {
    names.emplace_back(record.name.data());
  }
  machine.files().findClose(enumeration);
  return names;
}

TEST(MemoryNames, EntriesThatNoPathReachesAreLeftOut) {
  MemoryMachine machine;
  machine.addFile("C:\\t\\blank.bak ", "other");
  machine.addFile("C:\\t\\blank.bak", "own");
  machine.addFile("C:\\t\\dot.");
  machine.disk().addUnspeakable("C:\\t", "UNSPEA~1.BAK");
  machine.disk().addUnspeakable("C:\\t", "");
  EXPECT_THAT(find(machine, "C:\\t\\*"), ElementsAre(".", "..", "UNSPEA~1.BAK", "blank.bak"));
  EXPECT_TRUE(machine.fileObjects().deleteFile("C:\\t\\blank.bak ", true));
  EXPECT_TRUE(machine.exists("C:\\t\\blank.bak ")) << "a call cannot name it";
  EXPECT_FALSE(machine.exists("C:\\t\\blank.bak"));
  EXPECT_TRUE(machine.fileObjects().deleteFile("C:\\t\\UNSPEA~1.BAK", true));
}

TEST(MemoryDisk, LinksLeadElsewhere) {
  MemoryMachine machine;
  machine.addFile("C:\\real\\file.txt", "bytes");
  machine.disk().addLink("C:\\link", "C:\\real");
  machine.disk().addLink("C:\\real\\round", "C:\\real");
  machine.disk().addLink("C:\\self", "C:\\self");
  EXPECT_EQ(machine.files().getFileAttributes("C:\\link"), kDirectory | kReparsePoint);
  EXPECT_THAT(find(machine, "C:\\link\\*.txt"), ElementsAre("file.txt"));
  EXPECT_EQ(machine.files().fileLength("C:\\link\\round\\round\\file.txt"), 5);
  EXPECT_THAT(find(machine, "C:\\self\\*"), IsEmpty());
  EXPECT_THAT(machine.filesBelow("C:\\"), ElementsAre("C:\\real\\file.txt"));
}

}  // namespace
}  // namespace platform::memory
