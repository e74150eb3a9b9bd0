// The short demonstration that a newcomer sees without a display: a scan of C:\Sample in the real window, files deleted
// to the Recycle Bin, for good, and by wiping. Every step is printed with what the window and the disk then show. Ends
// with 1 at the first step that does not come out as expected.
#include <algorithm>
#include <cstdio>

#include "tests/desktop/Disk.h"
#include "tests/desktop/Driver.h"

using namespace desktop;  // NOLINT(google-build-using-namespace): this file is a script in the driver's terms

namespace {

void say(const std::string& text) {
  std::printf("%s\n", text.c_str());
  std::fflush(stdout);
}

void step(const std::string& text) {
  static int number = 0;
  say(std::to_string(++number) + ". " + text);
}

void shows(const std::string& text) { say("   " + text); }

void expect(bool holds, const std::string& what) {
  if (!holds) throw Failed("not so: " + what);
  shows(what);
}

class Demonstration : Program {
 public:
  void play() {
    opens();
    scans();
    recycles({sample("Documents\\budget.bak"), sample("Help\\manual.gid"), sample("Pictures\\Thumbs.db")});
    keepsReadOnlyFile(sample("Read only\\keep me.bak"));
    deletesForGood({sample("Setup\\setup1.tmp"), sample("Setup\\setup2.tmp")});
    wipes({sample("Documents\\letter to the bank.wbk"), sample("Tools\\customers.db$")});
    step("Close.");
    press("Close");
    waitForEnd();
    shows("the program has ended");
  }

 private:
  static std::string sample(const std::string& name) { return "C:\\Sample\\" + name; }

  bool isListed(const std::string& file) { return std::ranges::count(junk().texts(), file) > 0; }

  void screenshot(const std::string& name) {
    console().waitUntilDrawn();
    takeScreenshot(name);
  }

  void answers(const std::string& title, const std::string& message, const std::string& button) {
    answer(title, message, button);
    shows("the box \"" + title + "\" is answered: " + button);
  }

  void deletes() {
    press("Delete Files");
    answers("Confirm Deletion", "Confirm file deletion?", "Yes");
  }

  void expectGone(const Texts& files) {
    for (const std::string& file : files) {
      waitUntil("the row of " + file + " to leave", [&] { return !isListed(file); });
      expect(!exists(file), file + " is gone from the disk and from the list");
    }
  }

  void opens() {
    step("The program opens. All file types are ticked, and the folder C:\\Sample is opened.");
    screenshot("1-console");
    const Control all = console().buttonAfter("Custom Ext.", "Select All");
    all.click();
    waitUntil("all types to be ticked", [&all] { return all.text() == "Clear All"; });
    console().openFolder("Sample");
  }

  void scans() {
    step("Scan.");
    press("Scan");
    waitUntil("the result line", [this] { return !resultLine().empty(); });
    shows(resultLine());
    const Texts files = junk().texts();
    const Texts sizes = junk().texts(1);
    for (std::size_t i = 0; i < files.size(); ++i) shows(files[i] + ", " + sizes[i]);
    expect(!isListed(sample("Protected\\ntuser.bak")) && !isListed(sample("Protected\\Registry\\SAM.bak")),
           "protected backups are not listed");
    expect(isListed(sample("Protected\\sam.BAK")), "a name that only looks protected is listed");
    expect(!isListed(sample("Pictures\\album.db")), "of .db files only Thumbs.db is listed");
    expect(!isListed(sample("Documents\\letter to the bank.txt")), "documents are not listed");
    expect(!isListed(sample("Hidden system\\not to be found.bak")), "a hidden system folder is not searched");
    screenshot("2-scanned");
  }

  void recycles(const Texts& files) {
    step("Some rows are ticked and deleted to the Recycle Bin.");
    const std::size_t before = recycledItems();
    for (const std::string& file : files) junk().flip(file);
    screenshot("3-ticked");
    deletes();
    expectGone(files);
    expect(recycledItems() == before + files.size(), std::to_string(files.size()) + " items more in the Recycle Bin");
  }

  void keepsReadOnlyFile(const std::string& file) {
    step("A read-only file is ticked; the program asks, and the answer is No.");
    junk().flip(file);
    deletes();
    box("Delete File");
    screenshot("4-read-only");
    answers("Delete File", file + "\r\nis a read only file - OK to delete?", "No");
    waitForConsole();
    expect(exists(file), file + " is still there");
    junk().flip(file);
  }

  void deletesForGood(const Texts& files) {
    step("\"Delete to Recycle Bin\" is unticked, and rows are deleted for good.");
    const std::size_t before = recycledItems();
    for (const std::string& file : files) junk().flip(file);
    console().checkBox("Delete to Recycle Bin").flip();
    deletes();
    expectGone(files);
    expect(recycledItems() == before, "nothing more in the Recycle Bin");
  }

  void wipes(const Texts& files) {
    step("\"Shred Files?\" is ticked, and rows are wiped.");
    const int before = junk().rowCount();
    for (const std::string& file : files) junk().flip(file);
    console().checkBox("Shred Files?").flip();
    deletes();
    box("Files Shredded");
    screenshot("5-wiped");
    answers("Files Shredded", "All files that are not locked have been shredded.", "OK");
    expectGone(files);
    expect(junk().rowCount() == before - static_cast<int>(files.size()) && std::ranges::all_of(junk().texts(), exists),
           "every other listed file is still there");
    screenshot("6-done");
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
  say("Everything came out as expected.");
  return 0;
}
