// The tree walk on random trees: deep, wide, with links and odd attributes. SCRUBHAVEN_TREES is their number.
#include <cstdlib>
#include <random>

#include "tests/contract/ContractTest.h"
#include "tests/contract/PatternWalk.h"

namespace contract {
namespace {

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
  RecordProperty("rows", static_cast<int>(rows));
  EXPECT_GT(rows, 300u);
}

}  // namespace
}  // namespace contract
