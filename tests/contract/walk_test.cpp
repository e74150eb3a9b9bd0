// The tree walk on random trees: deep, wide, with links and odd attributes; and on the whole drive. SCRUBHAVEN_TREES is
// the number of trees.
#include <cstdlib>
#include <random>
#include <span>

#include "finder/junk_types.h"
#include "finder/tree_walk.h"
#include "platform/Conversions.h"
#include "tests/contract/ContractTest.h"

namespace contract {
namespace {

// A walk that leaves the matching of names to the system: it enumerates every folder once for its subfolders and once
// for each pattern. The finders' own walk must list the same files in the same order.
struct WalkResult {
  std::vector<std::string> rows;  // "path|size"
  std::int32_t folders = 0;
  bool operator==(const WalkResult&) const = default;
};

std::string walkRow(const std::string& path, std::uint64_t size) { return path + '|' + std::to_string(size); }

// `folder` ends in a backslash.
void walkByPatterns(const std::string& folder, std::span<const std::string> patterns, bool entersHiddenSystem,
                    WalkResult& result) {
  FileSystem& files = machine().files();
  std::vector<std::string> subfolders;
  forEachEntry(files, folder + '*', [&](const std::string& name, const FindRecord&) {
    const std::uint32_t attributes = files.getFileAttributes(folder + name);
    constexpr std::uint32_t kBoth = kHidden | kSystem;
    const bool isEntered = entersHiddenSystem || (attributes & kBoth) != kBoth;
    if (name != "." && name != ".." && isOwnFolder(attributes) && isEntered) subfolders.push_back(name);
    return true;
  });
  for (const std::string& pattern : patterns) {
    if (trimmed(pattern).empty()) continue;
    forEachEntry(files, folder + pattern, [&](const std::string& name, const FindRecord&) {
      const std::string path = folder + name;
      if (!machine().fileObjects().folderExists(path)) {
        result.rows.push_back(walkRow(path, files.fileSize(path).value_or(0)));
      }
      return true;
    });
  }
  result.folders += static_cast<std::int32_t>(subfolders.size());
  for (const std::string& name : subfolders) {
    walkByPatterns(folder + name + '\\', patterns, entersHiddenSystem, result);
  }
}

// Compares both walks below `folder`, for the junk scan's patterns and for "*.*". Returns how many rows they gave.
std::size_t compareWalks(std::string folder, const finder::CustomExtensions& extensions) {
  std::bitset<finder::kFileTypes> all;
  const finder::ScanPatterns junk = finder::scanPatterns(all.set(), extensions);
  const std::vector<std::string> everything = {"*.*"};
  std::size_t rows = 0;
  for (const bool isJunk : {true, false}) {
    const std::span<const std::string> patterns = isJunk ? std::span<const std::string>(junk) : everything;
    WalkResult expected;
    walkByPatterns(folder + '\\', patterns, !isJunk, expected);
    WalkResult actual;
    std::string path = folder;
    finder::walkTree(
        path, actual.folders,
        {.patterns = patterns, .entersHiddenSystemFolders = !isJunk, .onFile = [&](const finder::FoundFile& file) {
           actual.rows.push_back(walkRow(file.path, file.size));
         }});
    const auto differing = std::ranges::mismatch(actual.rows, expected.rows).in1;
    EXPECT_TRUE(actual == expected) << (differing == actual.rows.end() ? "the end" : *differing);
    rows += actual.rows.size();
  }
  return rows;
}

class Walk : public ContractTest {
 protected:
  template <typename Choices>
  auto one(const Choices& choices) {
    return std::data(choices)[random_() % std::size(choices)];
  }

  // From pieces of the patterns, so that names match, nearly match, and have short names.
  std::string randomName() {
    constexpr const char* kBegins[] = {"a",        "~",      "~a b",         "Twain", "xtwainy",
                                       "mscreate", "Thumbs", "long name of", "+[]"};
    constexpr const char* kEnds[] = {"",      ".tmp", ".TMP",  ".temp", ".tem", "._mp", ".---", ".db",  ".db$", ".mtx",
                                     ".dirx", ".dir", ".bak2", ".Bak",  ".old", ".a.b", ".chk", ".err", ". jpg"};
    return one(kBegins) + std::string(random_() % 3 == 0 ? std::to_string(random_() % 30) : "") + one(kEnds);
  }

  // Every name once, whatever its case.
  void fill(const std::string& folder, int depth, int most) {
    constexpr std::uint32_t kAttributes[] = {0, 0, 0, kReadOnly, kHidden, kSystem, kHidden | kSystem, kArchive};
    for (int left = static_cast<int>(random_() % static_cast<unsigned>(most)); left > 0; --left) {
      const std::string path = folder + '\\' + randomName();
      if (exists(at(path))) continue;
      if (depth > 0 && random_() % 4 == 0) {
        makeFolder(path, one(kAttributes) & ~kReadOnly);
        folders_.push_back(path);
        fill(path, depth - 1, most);
      } else {
        makeFile(path, std::string(random_() % 3 * 700, 'x'), one(kAttributes));
      }
    }
  }

  void fillTree(unsigned seed) {
    random_.seed(seed);
    const std::string tree = "tree" + std::to_string(seed);
    folders_ = {tree};
    makeFolder(tree);
    const bool isDeep = seed % 2 == 0;
    fill(tree, isDeep ? 12 : 2, isDeep ? 8 : 40);
    if (seed % 8 != 0) return;
    makeFile("elsewhere\\a.tmp");
    testMachine().makeFolderLink(tree + "\\link.tmp", "elsewhere");
  }

  std::string rootOfTree() const { return at(folders_.front()); }

 private:
  std::mt19937 random_;
  std::vector<std::string> folders_;
};

TEST_F(Walk, ListsWhatThePatternsFindInTheSameOrder) {
  const char* const number = std::getenv("SCRUBHAVEN_TREES");
  std::size_t rows = 0;
  for (unsigned seed = 1; seed <= (number == nullptr ? 10u : static_cast<unsigned>(std::atoi(number))); ++seed) {
    SCOPED_TRACE(seed);
    fillTree(seed);
    rows += compareWalks(rootOfTree(), {"a.b", "?b", " jpg", "t*", seed % 3 == 0 ? "tem." : "te"});
    if (HasFailure()) return;
  }
  rows += compareWalks("C:", {"exe", "d?l", "i*", "", "sys"});
  RecordProperty("rows", static_cast<int>(rows));
  EXPECT_GT(rows, 300u);
}

}  // namespace
}  // namespace contract
