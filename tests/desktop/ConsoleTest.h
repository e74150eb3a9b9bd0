// What the desktop tests share: a running console, and the steps that most of them begin with.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "tests/desktop/Disk.h"
#include "tests/desktop/Driver.h"

namespace desktop {

inline const std::vector<std::string> kJunkColumns = {"File Path and Name", "Size"};

// How a failed comparison shows a row.
inline void PrintTo(const Row& row, std::ostream* out) {
  *out << (row.ticked ? "[x] " : "[ ] ") << row.path << " | " << row.size;
}

// Starts the program afresh for each test, with an empty folder C:\desktop.
class ConsoleTest : public testing::Test {
 protected:
  void SetUp() override {
    removeTree(kFolder);
    makeFolders(kFolder);
    program_ = std::make_unique<Program>();
  }

  void TearDown() override {
    program_.reset();
    removeTree(kFolder);
  }

  Program& program() { return *program_; }
  Window console() { return program_->console(); }
  List junk() { return console().list(kJunkColumns); }

  // Makes a file in the test's folder; `name` may name subfolders. Gives the full path.
  static std::string make(const std::string& name, std::size_t size) {
    const std::string path = kFolder + std::string("\\") + name;
    makeFile(path, sampleBytes(name, size));
    return path;
  }

  // Ticks a file type, opens the test's folder and scans; waits for the result line that names `count` files.
  void scan(const std::string& type, int count) {
    tick(type);
    openFolder();
    console().button("Scan").click();
    waitForResults(count);
  }

  void openFolder() { console().folderList().open("desktop"); }

  void tick(const std::string& box) {
    const Control control = console().checkBox(box);
    control.click();
    waitUntil("a tick in \"" + box + "\"", [&control] { return control.ticked(); });
  }

  void waitForResults(int count) {
    const std::string beginning = "Results: " + std::to_string(count) + " files found in ";
    waitUntil("\"" + beginning + "\"", [&] {
      for (const std::string& text : console().labelTexts()) {
        if (text.starts_with(beginning) && text.ends_with(" seconds.")) return true;
      }
      return false;
    });
  }

  void tickRow(const std::string& path) {
    const List list = junk();
    const int row = list.find(path);
    list.clickTick(row);
    waitUntil("a tick at " + path, [&] { return list.ticked(row); });
  }

  // Presses "Delete Files" and answers the question.
  void deleteTicked(const std::string& answer) {
    console().button("Delete Files").click();
    const Box question = program().box("Confirm Deletion");
    EXPECT_EQ(question.message(), "Confirm file deletion?");
    EXPECT_EQ(question.defaultButton(), "No");
    question.press(answer);
  }

  // The paths that the list shows, from the first row to the last.
  std::vector<std::string> listedPaths() {
    std::vector<std::string> paths;
    for (const Row& row : junk().rows()) paths.push_back(row.path);
    return paths;
  }

  void waitForRows(const std::vector<std::string>& paths) {
    waitUntil(std::to_string(paths.size()) + " rows", [&] { return listedPaths() == paths; });
  }

  static constexpr const char* kFolder = "C:\\desktop";

 private:
  std::unique_ptr<Program> program_;
};

}  // namespace desktop
