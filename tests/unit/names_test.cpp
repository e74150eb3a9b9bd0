// Which names of entries are used in paths.
#include "platform/Names.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using platform::isUsableName;

TEST(Names, NoneWithAMeaningOfItsOwnInAPathIsUsed) {
  for (int byte = 1; byte < 256; ++byte) {
    const char letter = static_cast<char>(byte);
    const bool hasMeaning = byte < 32 || std::string("\\/:*?\"<>|").contains(letter);
    EXPECT_NE(isUsableName(std::string{'a', letter, 'b'}), hasMeaning) << byte;
    // As the second byte of a double-byte character.
    EXPECT_NE(isUsableName(std::string{'\x83', letter, '.', 't'}), hasMeaning) << byte;
    EXPECT_NE(isUsableName(std::string{'a', letter}), hasMeaning || letter == ' ' || letter == '.') << byte;
  }
  for (const char* name : {"", " ", "...", "a. "}) EXPECT_FALSE(isUsableName(name)) << name;
  for (const char* name : {".", "..", ".a", " a", "a..b", "~", "a.tmp"}) EXPECT_TRUE(isUsableName(name)) << name;
  EXPECT_TRUE(isUsableName(std::string(255, 'n')));
  EXPECT_TRUE(isUsableName("\xE8\xA1\xA8.tmp"));
}

TEST(Names, NoDeviceIsUsedUnderAnyExtension) {
  std::vector<std::string> devices = {"con", "PRN", "Aux", "nul", "CONIN$", "conout$"};
  for (const char* port : {"com", "LPT"}) {
    for (char digit = '1'; digit <= '9'; ++digit) devices.push_back(port + std::string(1, digit));
  }
  for (const std::string& device : devices) {
    for (const char* rest : {"", ".a.b", "  .txt", ".tar gz"}) EXPECT_FALSE(isUsableName(device + rest)) << device;
    for (const char* rest : {"x", "0.txt", "-.txt"}) EXPECT_TRUE(isUsableName(device + rest)) << device << rest;
    EXPECT_TRUE(isUsableName("x" + device) && isUsableName("a." + device)) << device;
  }
  for (const char* name : {"com", "com0", "lpt0.txt", "co", "c.on"}) EXPECT_TRUE(isUsableName(name)) << name;
}

}  // namespace
