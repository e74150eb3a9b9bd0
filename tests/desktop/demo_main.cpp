// The short demonstration that a newcomer sees without a display: a scan of C:\Sample in the real window, files deleted
// to the Recycle Bin, for good, and by wiping. Every step is printed with what the window and the disk then show. Ends
// with 1 at the first step that does not come out as expected.
#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "tests/desktop/Disk.h"
#include "tests/desktop/Driver.h"

using namespace desktop;  // NOLINT(google-build-using-namespace): this file is a script in the driver's terms

namespace {

const std::string kFolder = "C:\\Sample\\";
const std::vector<std::string> kColumns = {"File Path and Name", "Size"};

void say(const std::string& text) {
  std::printf("%s\n", text.c_str());
  std::fflush(stdout);
}

void step(const std::string& text) {
  static int number = 0;
  say(std::to_string(++number) + ". " + text);
}

// Every line of the text, indented.
void shows(std::string text) {
  std::erase(text, '\r');
  for (std::size_t end = text.find('\n'); end != std::string::npos; end = text.find('\n', end + 1)) {
    text.insert(end + 1, "   ");
  }
  say("   " + text);
}

void expect(bool holds, const std::string& what) {
  if (!holds) throw Failed("not so: " + what);
  shows(what);
}

class Demonstration {
 public:
  void play() {
    opens();
    picksTypesAndFolder();
    scans();
    recycles({"Documents\\budget.bak", "Help\\manual.gid", "Pictures\\Thumbs.db"});
    keepsReadOnlyFile("Read only\\keep me.bak");
    deletesForGood({"Setup\\setup1.tmp", "Setup\\setup2.tmp"});
    wipes({"Documents\\letter to the bank.wbk", "Tools\\customers.db$"});
    closes();
  }

 private:
  Window console() { return program_.console(); }
  List list() { return console().list(kColumns); }

  void screenshot(const std::string& name) {
    console().waitUntilDrawn();
    takeScreenshot(name);
  }

  void opens() {
    step("The program opens.");
    shows("title: " + console().title());
    shows("drive: " + console().driveList().chosen());
    screenshot("1-console");
  }

  void picksTypesAndFolder() {
    step("All file types are ticked, and the folder C:\\Sample is opened.");
    const Control all = console().buttonIn("File Types", "Select All");
    all.click();
    waitUntil("all types to be ticked", [&all] { return all.text() == "Clear All"; });
    console().folderList().open("Sample");
    for (const std::string& entry : console().folderList().entries()) shows("folder list: " + entry);
  }

  void scans() {
    step("Scan.");
    console().button("Scan").click();
    waitUntil("the result line", [this] { return !resultLine().empty(); });
    shows(resultLine());
    for (const Row& row : list().rows())
      shows(row.size + std::string(12 - std::min<std::size_t>(row.size.size(), 11), ' ') + row.path);
    expect(!isListed("Protected\\ntuser.bak") && !isListed("Protected\\Registry\\SAM.bak"),
           "protected backups are not listed");
    expect(isListed("Protected\\sam.BAK"), "a name that only looks protected is listed");
    expect(isListed("Pictures\\Thumbs.db") && !isListed("Pictures\\album.db"), "of .db files only Thumbs.db is listed");
    expect(!isListed("Documents\\letter to the bank.txt"), "documents are not listed");
    expect(!isListed("Hidden system\\not to be found.bak"), "a hidden system folder is not searched");
    screenshot("2-scanned");
  }

  void recycles(const std::vector<std::string>& names) {
    step("Some rows are ticked and deleted to the Recycle Bin.");
    const std::size_t before = recycledItems();
    for (const std::string& name : names) tick(name);
    screenshot("3-ticked");
    deletes();
    waitUntilGone(names);
    expect(recycledItems() == before + names.size(), std::to_string(names.size()) + " items more in the Recycle Bin");
  }

  void keepsReadOnlyFile(const std::string& name) {
    step("A read-only file is ticked; the program asks, and the answer is No.");
    tick(name);
    deletes();
    const Box question = program_.box("Delete File");
    shows("box: " + question.message());
    screenshot("4-read-only");
    question.press("No");
    waitUntil("the console to take input again", [this] { return console().takesInput(); });
    expect(exists(kFolder + name), name + " is still there");
    tick(name);
  }

  void deletesForGood(const std::vector<std::string>& names) {
    step("\"Delete to Recycle Bin\" is unticked, and rows are deleted for good.");
    const std::size_t before = recycledItems();
    const Control recycle = console().checkBox("Delete to Recycle Bin");
    for (const std::string& name : names) tick(name);
    recycle.click();
    waitUntil("the tick to go", [&recycle] { return !recycle.ticked(); });
    deletes();
    waitUntilGone(names);
    expect(recycledItems() == before, "nothing more in the Recycle Bin");
  }

  void wipes(const std::vector<std::string>& names) {
    step("\"Shred Files?\" is ticked, and rows are wiped.");
    const std::vector<Row> before = list().rows();
    const Control wipe = console().checkBox("Shred Files?");
    for (const std::string& name : names) tick(name);
    wipe.click();
    waitUntil("the tick in \"Shred Files?\"", [&wipe] { return wipe.ticked(); });
    deletes();
    const Box closing = program_.box("Files Shredded");
    shows("box: " + closing.message());
    screenshot("5-wiped");
    closing.press("OK");
    waitUntilGone(names);
    const bool othersStay = std::ranges::all_of(before, [&names](const Row& row) {
      return exists(row.path) ||
             std::ranges::any_of(names, [&row](const auto& name) { return kFolder + name == row.path; });
    });
    expect(othersStay, "every other listed file is still there");
    screenshot("6-done");
  }

  void closes() {
    step("Close.");
    console().button("Close").click();
    program_.waitForEnd();
    shows("the program has ended");
  }

  std::string resultLine() {
    for (const std::string& text : console().labelTexts()) {
      if (text.starts_with("Results: ")) return text;
    }
    return "";
  }

  bool isListed(const std::string& name) {
    return std::ranges::any_of(list().rows(), [&name](const Row& row) { return row.path == kFolder + name; });
  }

  // Flips a row's tick.
  void tick(const std::string& name) {
    const int row = list().find(kFolder + name);
    const bool before = list().ticked(row);
    list().clickTick(row);
    waitUntil("the tick of " + name, [&] { return list().ticked(row) != before; });
    shows((before ? "unticked " : "ticked ") + name);
  }

  void deletes() {
    console().button("Delete Files").click();
    const Box question = program_.box("Confirm Deletion");
    shows("box: " + question.message() + " - Yes");
    question.press("Yes");
  }

  void waitUntilGone(const std::vector<std::string>& names) {
    for (const std::string& name : names) {
      waitUntil("the row of " + name + " to leave", [&] { return !isListed(name); });
      expect(!exists(kFolder + name), name + " is gone from the disk and from the list");
    }
  }

  Program program_;
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
