// The demonstration that ./run plays without a display: a scan of C:\Sample in the real window, then files deleted to
// the Recycle Bin, for good, and by wiping. Prints each step with its result, and ends with 1 at the first step that
// does not have the expected one.
#include <algorithm>
#include <cstdio>

#include "tests/desktop/Driver.h"

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

std::string sample(const std::string& name) { return "C:\\Sample\\" + name; }

class Demonstration : Program {
 public:
  void play() {
    say("1. The program opens. All file types are ticked, and the folder C:\\Sample is opened.");
    takeScreenshot("1-console");
    console().buttonAfter("Custom Ext.", "Select All").click();
    console().openFolder("Sample");

    say("2. Scan.");
    use("Scan");
    say("   " + waitForResults("Results: "));
    for (const std::string& file : junk().texts()) say("   " + file);
    expect(isListed(sample("Protected\\sam.BAK")) && !isListed(sample("Protected\\ntuser.bak")),
           "protected backups are not listed");
    expect(!isListed(sample("Pictures\\album.db")), "of .db files only Thumbs.db is listed");
    expect(!isListed(sample("Hidden system\\not to be found.bak")), "a hidden system folder is not searched");
    takeScreenshot("2-scanned");

    const std::string readOnly = sample("Read only\\keep me.bak");
    say("3. A read-only file is ticked; the program asks, and the answer is No.");
    deleteTicked({readOnly}, "", {"Delete File", readOnly + "\r\nis a read only file - OK to delete?", "No"});
    waitForConsole();
    expect(exists(readOnly), readOnly + " is still there");
    junk().flip(readOnly);

    say("4. Rows are ticked and deleted to the Recycle Bin.");
    const std::size_t before = recycledItems();
    deleteAll({sample("Documents\\budget.bak"), sample("Help\\manual.gid"), sample("Pictures\\Thumbs.db")});
    expect(recycledItems() == before + 3, "3 more items are in the Recycle Bin");

    say("5. \"Delete to Recycle Bin\" is unticked, and rows are deleted for good.");
    deleteAll({sample("Setup\\setup1.tmp"), sample("Setup\\setup2.tmp")}, "Delete to Recycle Bin");
    expect(recycledItems() == before + 3, "no more items are in the Recycle Bin");

    say("6. \"Shred Files?\" is ticked, and rows are wiped.");
    deleteAll({sample("Documents\\letter to the bank.wbk"), sample("Tools\\customers.db$")}, "Shred Files?",
              {"Files Shredded", "All files that are not locked have been shredded."});
    expect(std::ranges::all_of(junk().texts(), exists), "every other listed file is still there");
    takeScreenshot("3-done");

    say("7. Close.");
    use("Close");
    waitForEnd();
  }

 private:
  bool isListed(const std::string& file) { return std::ranges::count(junk().texts(), file) > 0; }

  // `choice` is the box to flip before, if any; `last` the message box that must follow the confirmation, if any.
  void deleteTicked(const Texts& files, const std::string& choice, const Answer& last) {
    for (const std::string& file : files) junk().flip(file);
    if (!choice.empty()) console().checkBox(choice).flip();
    use("Delete Files", {{"Confirm Deletion", "Confirm file deletion?", "Yes"}});
    if (!last.title.empty()) answer(last);
  }

  void deleteAll(const Texts& files, const std::string& choice = "", const Answer& last = {}) {
    deleteTicked(files, choice, last);
    for (const std::string& file : files) {
      waitUntil("the row of " + file + " to leave", [&] { return !isListed(file); });
      expect(!exists(file), file + " is gone from the disk and from the list");
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
