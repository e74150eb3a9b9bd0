// Random input for what parses data of other programs. The numbers are the same in every run; SCRUBHAVEN_FUZZ_RUNS sets
// how many inputs each test tries.
#include <algorithm>
#include <random>

#include "finder/name_pattern.h"
#include "platform/RegistryScriptShell.h"
#include "platform/memory/MemoryNames.h"
#include "settings/modRegistry.h"
#include "tests/unit/UnitTest.h"

namespace {

class Fuzz : public UnitTest {
 protected:
  static int runs(int usual) { return numberFrom("SCRUBHAVEN_FUZZ_RUNS", usual); }
  std::size_t below(std::size_t end) { return random_() % end; }

  std::string text(std::string_view letters, std::size_t longest) {
    std::string result(below(longest + 1), '\0');
    for (char& letter : result) letter = letters[below(letters.size())];
    return result;
  }

  std::string bytes(std::size_t longest) {
    std::string result(below(longest + 1), '\0');
    for (char& letter : result) letter = static_cast<char>(random_());
    return result;
  }

  std::minstd_rand random_{20040305};
};

TEST_F(Fuzz, PatternsMatchAsTheEnumerationDoes) {
  int matches = 0;
  for (int run = runs(30000); run > 0; --run) {
    const std::string pattern = text("aB.**\xE4", 6);
    const auto own = finder::NamePattern::of(pattern);
    const std::string name = text("ab.\xC4", 4) + "bA"[run % 2];
    if (!own) continue;
    const bool expected = platform::memory::matchesPattern(pattern, name);
    ASSERT_EQ(own->matches(machine.environment().upperCase(name)), expected) << pattern << '|' << name;
    matches += expected ? 1 : 0;
  }
  EXPECT_GT(matches, 100);
}

TEST_F(Fuzz, RegistryDataOfAnyTypeAndSizeIsReadOrRefused) {
  const platform::Variant none = "none";
  for (int run = runs(2000); run > 0; --run) {
    platform::memory::MemoryMachine fresh;
    const platform::ScopedMachine use(fresh);
    platform::RegistryScriptShell shell(fresh.registry());
    const auto type = static_cast<std::uint32_t>(below(4) == 0 ? random_() : below(12));
    const std::string data = bytes(below(8) == 0 ? 3000 : 40);
    fresh.registry().set("HKCU\\Key", "v", {type, data});
    platform::Variant value;
    const bool isText = ReadRegistryValue("HKCU", "Key", "v", "S", none, value) == 0;
    ASSERT_TRUE(isText && std::get<std::string>(value) == data.substr(0, std::max<std::size_t>(data.size(), 1) - 1));
    const bool isNumber = ReadRegistryValue("hkcu", "Key", "v", "d", none, value) == 0;
    ASSERT_TRUE(isNumber ? data.size() <= 32 && value.index() == 1 : data.size() > 32 && value == none) << run;
    const bool isTruth = ReadRegistryValue("HKCU", "Key", "v", "B", none, value) == 0;
    ASSERT_TRUE(isTruth ? data.size() <= 2 && value.index() == 2 : data.size() > 2 && value == none) << run;
    const auto read = shell.regRead("HKCU\\Key\\v");
    const bool isReadable = type == 1 || type == 2 || (type == 4 && data.size() == 4);
    ASSERT_EQ(read.has_value(), isReadable) << type;
    ASSERT_FALSE(read && read->contains('\0'));
  }
}

}  // namespace
