// Random input for what parses data of other programs. The numbers are the same in every run; SCRUBHAVEN_FUZZ_RUNS sets
// how many inputs each test tries.
#include <algorithm>
#include <random>
#include <span>

#include "cleaners/Cache.h"
#include "cleaners/temp_folders.h"
#include "finder/name_pattern.h"
#include "platform/RegistryScriptShell.h"
#include "platform/memory/MemoryNames.h"
#include "settings/modRegistry.h"
#include "tests/unit/UnitTest.h"

namespace {

class Fuzz : public UnitTest {
 public:
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

// Paths are made from roots and steps whose depth is known.
TEST_F(Fuzz, NoPathAtARootOrAboveIsBelowIt) {
  const std::pair<const char*, bool> roots[] = {{"C:", true}, {"\\\\s\\d", true}, {"//s/d", true},
                                                {"", false},  {"C", false},       {"\\\\?\\C:", false}};
  for (int run = runs(30000); run > 0; --run) {
    const auto& [root, isRoot] = roots[below(std::size(roots))];
    std::string path = root;
    std::size_t depth = 0;
    for (std::size_t steps = below(7); steps > 0; --steps) {
      path += text("\\/", 1) + "\\/"[below(2)];
      const std::string step = text("a. ", 4);
      path += step;
      const auto dots = static_cast<std::size_t>(std::ranges::count(step, '.'));
      if (step.contains('a'))
        ++depth;
      else if (dots > 1)
        depth -= std::min(depth, dots - 1);
    }
    // Without a drive, two separators in front begin the name of a server.
    if (!isRoot && path.find_first_not_of("\\/") > 1) continue;
    ASSERT_EQ(cleaners::isBelowRoot(path), isRoot && depth > 0) << path;
    cleaners::isBelowRoot(bytes(12));
  }
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
    for (const char* letter : {"S", "B", "D"}) {
      static_cast<void>(WriteRegistryValue("HKCU", bytes(4), bytes(4), letter, text(" -+.019eTrue", 6)));
    }
  }
}

TEST_F(Fuzz, IniFilesGiveBackWhatWasWrittenWhateverElseIsInThem) {
  const std::string file = "C:\\a.ini";
  for (int run = runs(3000); run > 0; --run) {
    machine.addFile(file, text("[[s]]\r\n\n\n==\"ee ;\t\xE4", 60));
    const auto name = [this] { return std::string(1, "se"[below(2)]); };
    const std::string section = name();
    const std::string entry = name();
    platform::Variant value;
    ASSERT_EQ(ReadRegistryValue(file, bytes(3), bytes(3), "S", "none", value), 0);
    std::string stored = text("a= \"[];\t\xE4", below(20) == 0 ? 400 : 10);
    ASSERT_EQ(WriteRegistryValue(file, section, entry, "S", stored), 0);
    ASSERT_EQ(ReadRegistryValue(file, section, entry, "s", "none", value), 0);
    std::string expected(platform::trimmed(stored));
    if (expected.size() > 1 && expected.starts_with('"') && expected.ends_with('"')) {
      expected = expected.substr(1, expected.size() - 2);
    }
    ASSERT_EQ(value, platform::Variant(expected.substr(0, 254))) << stored;
    ASSERT_EQ(ReadRegistryValue(file, section, entry, "D", 7, value), 0);
    ASSERT_EQ(value, platform::Variant(7));
  }
}

// A cache whose answers change between two calls, and whose entries hold any numbers and dates. It keeps to the memory
// that it is given, and its texts end in it.
class HostileCache final : public platform::memory::MemoryUrlCache {
 public:
  HostileCache(Fuzz& fuzz, platform::memory::MemoryFaults& faults) : MemoryUrlCache(faults), fuzz_(fuzz) {}

  platform::Handle findFirstUrlCacheEntry(platform::UrlCacheEntry* buffer, std::uint32_t& size) override {
    return store(buffer, size) ? 1 + fuzz_.below(3) : platform::kNoUrlCache;
  }
  bool findNextUrlCacheEntry(platform::Handle, platform::UrlCacheEntry* buffer, std::uint32_t& size) override {
    return store(buffer, size);
  }
  bool findCloseUrlCache(platform::Handle) override { return fuzz_.below(2) == 0; }
  void* localAlloc(std::size_t bytes) override {
    return bytes > (1 << 20) || fuzz_.below(10) == 0 ? nullptr : MemoryUrlCache::localAlloc(bytes);
  }

  // Of the last entry that was given.
  std::string url;
  std::string file;

 private:
  bool store(platform::UrlCacheEntry* buffer, std::uint32_t& size) {
    const std::string newUrl = fuzz_.text("http:/\xE4", 30);
    const std::string newFile = fuzz_.text("C:\\a.%s", 30);
    const std::size_t needed = sizeof(*buffer) + newUrl.size() + newFile.size() + 2;
    if (buffer == nullptr || size < needed) {
      const std::uint32_t sizes[] = {0, 1, sizeof(*buffer), ~0U, static_cast<std::uint32_t>(needed), 300, 300, 300};
      size = sizes[fuzz_.below(std::size(sizes))];
      return fuzz_.below(2) == 0 && buffer == nullptr;
    }
    for (char& byte : std::span(reinterpret_cast<char*>(buffer), sizeof(*buffer)))
      byte = static_cast<char>(fuzz_.below(256));
    char* end = reinterpret_cast<char*>(buffer + 1);
    buffer->sourceUrl = append(url = newUrl, end);
    buffer->localFileName = append(file = newFile, end);
    return true;
  }

  Fuzz& fuzz_;
};

struct CacheMachine final : platform::memory::MemoryMachine {
  explicit CacheMachine(Fuzz& fuzz) : cache(fuzz, faults()) {}
  HostileCache& urlCache() override { return cache; }

  HostileCache cache;
};

TEST_F(Fuzz, CacheEntriesOfAnyContentsAreReadOrLeftOut) {
  CacheMachine odd(*this);
  HostileCache& hostile = odd.cache;
  const platform::ScopedMachine use(odd);
  for (int run = runs(20000) / 10; run > 0; --run) {
    Cache cache;
    for (int step = 0; step < 10; ++step) {
      const bool found = below(4) == 0 ? cache.CacheFindFirst() : cache.CacheFindNext();
      if (below(20) == 0) cache.CacheFindClose();
      const bool isEntry = !cache.CacheSourceUrl().empty() || !cache.CacheLocalFileName().empty();
      if (isEntry) {
        ASSERT_EQ(cache.CacheSourceUrl(), hostile.url);
        ASSERT_EQ(cache.CacheLocalFileName(), hostile.file);
      }
      ASSERT_TRUE(found || !isEntry);
      const platform::Date access = cache.CacheLastAccess().value_or(0);
      ASSERT_TRUE(access > -110000 && access < 2958466) << access;
      ASSERT_TRUE(cache.CacheExpires() > -110000 && cache.CacheExpires() < 2958466);
    }
  }
  EXPECT_EQ(hostile.blocks(), 0U);
}

}  // namespace
