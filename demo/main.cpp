// The demonstration that ./run plays without a display: a scan of C:\Sample in the real window, then files deleted to
// the Recycle Bin, for good, and by wiping. Prints each step with its result, and ends with 1 at the first step that
// does not have the expected one.
#include <algorithm>
#include <cstdio>

#include "driver/Driver.h"

using namespace desktop;  // NOLINT(google-build-using-namespace): this file is a script in the driver's terms

namespace {

void say(const std::string& text) {
  std::printf("%s\n", text.c_str());
  std::fflush(stdout);
}

void expect(bool holds, const std::string& what) {
  if (!holds) throw Failed("not so: " + what);
  say("   " + what);
}

class Demonstration : Program {
 public:
  void play() {
    say("1. The program opens. All file types are ticked, and the folder C:\\Sample is opened.");
    takeScreenshot("1-console");
    console().control("Select All", ".err").click();
    console().openFolder("Sample");

    say("2. Scan.");
    use("Scan");
    waitForResults("Results: ");
    for (const std::string& file : junk().texts()) say("   " + file);
    expect(isListed("Protected\\sam.BAK") && !isListed("Protected\\ntuser.bak"), "protected backups are not listed");
    expect(!isListed("Pictures\\album.db"), "of .db files only Thumbs.db is listed");
    expect(!isListed("Hidden system\\not to be found.bak"), "a hidden system folder is not searched");
    takeScreenshot("2-scanned");

    const std::string readOnly = "C:\\Sample\\Read only\\keep me.bak";
    say("3. A read-only file is ticked; the program asks, and the answer is No.");
    junk().flip(readOnly);
    use("Delete Files", {kConfirm, {"Delete File", "No", readOnly + "\r\nis a read only file - OK to delete?"}});
    waitForConsole();
    expect(exists(readOnly), readOnly + " is still there");
    junk().flip(readOnly);

    const std::size_t before = recycledItems();
    say("4. Rows are ticked and deleted to the Recycle Bin.");
    deleteAll({"Documents\\budget.bak", "Help\\manual.gid", "Pictures\\Thumbs.db"}, {kConfirm});
    expect(recycledItems() == before + 3, "3 more items are in the Recycle Bin");

    say("5. \"Delete to Recycle Bin\" is unticked, and rows are deleted for good.");
    deleteAll({"Setup\\setup1.tmp", "Setup\\setup2.tmp"}, {kConfirm}, "Delete to Recycle Bin");
    expect(recycledItems() == before + 3, "no more items are in the Recycle Bin");

    say("6. \"Shred Files?\" is ticked, and rows are wiped.");
    deleteAll({"Documents\\letter to the bank.wbk", "Tools\\customers.db$"},
              {kConfirm, {"Files Shredded", "OK", "All files that are not locked have been shredded."}},
              "Shred Files?");
    expect(std::ranges::all_of(junk().texts(), exists), "every other listed file is still there");
    takeScreenshot("3-done");

    say("7. Close.");
    use("Close");
    waitForEnd();
  }

 private:
  const Answer kConfirm = {"Confirm Deletion", "Yes", "Confirm file deletion?"};

  bool isListed(const std::string& file) { return std::ranges::count(junk().texts(), "C:\\Sample\\" + file) > 0; }

  // `way` is the check box that is flipped first, if any. It is enabled while rows are ticked.
  void deleteAll(const Texts& files, const std::vector<Answer>& answers, const std::string& way = "") {
    for (const std::string& file : files) junk().flip("C:\\Sample\\" + file);
    if (!way.empty()) console().control(way).flip();
    use("Delete Files", answers);
    for (const std::string& file : files) {
      waitUntil("the row of " + file + " to leave", [&] { return !isListed(file); });
      expect(!exists("C:\\Sample\\" + file), file + " is gone from the disk and from the list");
    }
  }
};

}  // namespace

int main() {
  try {
    Demonstration().play();
  } catch (const std::exception& failure) {
    say(std::string("FAILED: ") + failure.what());
    return 1;
  }
  say("Every step had its expected result.");
  return 0;
}
