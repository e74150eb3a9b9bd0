// What only the in-memory machine shows: the finer points of DOS names, and links as the test system does not have
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

TEST(MemoryNames, WildcardsMatchAsDosDid) {
  struct Case {
    const char* pattern;
    const char* name;
    bool matches;
  };
  constexpr Case kCases[] = {
      {"*.*", "nodot", true},
      {"*.", "nodot", true},
      {"*.", "a.b", false},
      {"?", "ab", false},
      {"???", "a", true},
      {"a?.txt", "a.txt", true},
      {"a?b.txt", "ab.txt", false},
      {"foo.*", "foo", true},
      {"foo.*", "foox", false},
      {"foo.???", "foo", true},
      {"foo.???", "foo.abcd", false},
      {"*.bak", "a.bak.bak", true},
      {"*.bak", "a.bakx", false},
      {"*a*a*a*b", "aaaaaaaa", false},
      {"*.b*", "a.x.b", true},
      {"*.tmp.", "a.tmp", true},
      {"*.jpg ", "a.jpg", true},
      {"*. jpg", "a.jpg", false},
      {"\xE9*", "\xC9t\xE9", true},
      {"a|b", "a|b", false},
      {"", "", false},
  };
  for (const Case& c : kCases) {
    EXPECT_EQ(Wildcards(c.pattern).matches(c.name), c.matches) << '"' << c.pattern << "\" and " << c.name;
  }
}

TEST(MemoryNames, EntriesThatNoPathReachesAreLeftOut) {
  MemoryMachine machine;
  machine.addFile("C:\\t\\blank.bak ", "other");
  machine.addFile("C:\\t\\blank.bak", "own");
  machine.addFile("C:\\t\\dot.");
  machine.addUnspeakableFile("C:\\t", "UNSPEA~1.BAK");
  machine.addUnspeakableFile("C:\\t", "");
  EXPECT_THAT(find(machine, "C:\\t\\*"), ElementsAre(".", "..", "UNSPEA~1.BAK", "blank.bak"));
  EXPECT_TRUE(machine.fileObjects().deleteFile("C:\\t\\blank.bak ", true));
  EXPECT_TRUE(machine.exists("C:\\t\\blank.bak ")) << "a call cannot name it";
  EXPECT_FALSE(machine.exists("C:\\t\\blank.bak"));
  EXPECT_TRUE(machine.fileObjects().deleteFile("C:\\t\\UNSPEA~1.BAK", true));
}

TEST(MemoryDisk, LinksLeadElsewhere) {
  MemoryMachine machine;
  machine.addFile("C:\\real\\file.txt", "bytes");
  machine.addFolderLink("C:\\link", "C:\\real");
  machine.addFolderLink("C:\\real\\round", "C:\\real");
  machine.addFolderLink("C:\\self", "C:\\self");
  EXPECT_EQ(machine.files().getFileAttributes("C:\\link"), kDirectory | kReparsePoint);
  EXPECT_THAT(find(machine, "C:\\link\\*.txt"), ElementsAre("file.txt"));
  EXPECT_EQ(machine.files().fileLength("C:\\link\\round\\round\\file.txt"), 5);
  EXPECT_THAT(find(machine, "C:\\self\\*"), IsEmpty());
  EXPECT_THAT(machine.filesBelow("C:\\"), ElementsAre("C:\\real\\file.txt"));
}

}  // namespace
}  // namespace platform::memory
