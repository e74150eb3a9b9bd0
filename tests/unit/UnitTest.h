// The fixture of all unit tests, on a machine in memory, and every message box of the program.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <initializer_list>
#include <sstream>
#include <string>
#include <vector>

#include "controls/FlatButton.h"
#include "controls/ListView.h"
#include "platform/memory/MemoryMachine.h"

using Paths = std::vector<std::string>;

// The parts of a text between its "|".
inline Paths parts(const std::string& text) {
  Paths all;
  std::istringstream in(text);
  for (std::string part; std::getline(in, part, '|');) all.push_back(part);
  return all;
}

// The number in an environment variable, or `otherwise`.
inline int numberFrom(const char* variable, int otherwise) {
  const char* const text = std::getenv(variable);
  return text == nullptr ? otherwise : std::atoi(text);
}

// A message box; "*" in its text stands for any characters.
struct KnownBox {
  std::string text;
  const char* title;
  std::uint32_t style;

  bool matches(const std::string& shown) const {
    const std::size_t star = text.find('*');
    if (star == std::string::npos) return shown == text;
    return shown.starts_with(text.substr(0, star)) && shown.ends_with(text.substr(star + 1));
  }
};

inline constexpr const char* kWarnTemps =
    "This will clear ALL your profile and Windows temporary folders without backup!";
inline constexpr const char* kAskIndex =
    "Deleting index.dat files requires that you restart your system.\r\n"
    "Would you like to schedule this event for next time you restart?";
inline constexpr const char* kAskShred =
    "Are you certain you want to shred these files?\r\nData recovery by any means will be impossible!";
inline constexpr const char* kUnreadable = "The registry has reported that this key does not exist or is corrupted.";
inline constexpr const char* kApp = "Scrubhaven Pro";

// Every test and rehearsal checks the boxes that it has caused against this table.
inline const KnownBox kKnownBoxes[] = {
    {"Run-time error '*", kApp, 16},
    {"No file types selected.", kApp, 0},
    {"No files of the selected type found.", kApp, 0},
    {"    Scan Aborted", "Scan Aborted", 0},
    {"Nothing to select!", kApp, 0},
    {"Nothing to Delete", kApp, 0},
    {"Nothing Selected", kApp, 0},
    {"Confirm file deletion?", "Confirm Deletion", 292},
    {"*\r\nis a read only file - OK to delete?", "Delete File", 4},
    {"* is in use by Windows and can not be deleted.", "File Deletion Error", 0},
    {"All files that are not locked have been shredded.", "Files Shredded", 64},
    {"Use extreme caution when deleting 0 byte files - see help for details", "Warning!", 16},
    {"The selected 0 Byte files have been deleted to the Recycle Bin", "Files Deleted", 64},
    {"No cache items found.", "No Items Found", 0},
    {"Nothing to Select", kApp, 0},
    {"Delete Selected Cache Items?", kApp, 292},
    {"All selected cache items have been cleaned.", "Cache Cleaned", 64},
    {kWarnTemps, "Scrubhaven Pro - Warning!", 273},
    {"*\r\nis a read only file - OK to Delete?", "Delete File", 4},
    {"All temporary files not in use have been deleted", "Done", 0},
    {"Recent History Cleared", kApp, 0},
    {"Recent Document List Cleared", kApp, 0},
    {"Are you sure you want to delete the contents of the Recycle Bin?", "Confirm Deletion", 16},
    {"Recycle Bin Emptied", kApp, 0},
    {"the value", kApp, 0},  // of a registry value that is shown
    {"\"*\" has been written To the registry.", "Success", 64},
    {"All Recent URL's Cleared", kApp, 64},
    {"No URL's Found", kApp, 64},
    {"All MRU lists have been cleared", "MRU Lists Cleared", 64},
    {kAskIndex, "Index.dat File Deletion", 292},
    {"All relevant index.dat files will be deleted on next system restart", "Index.dat Files", 64},
    {"This system has no Prefetch folder.", "No Such Folder", 16},
    {"Delete contents of the Windows Prefetch Folder?", "Clear Prefetch Folder", 36},
    {"The Prefetch folder has been cleared.", " Folder Cleared", 64},
    {"Sorry, this tool is for Windows NT/2000/XP only.", "Windows NT/2000/XP Only", 48},
    {kUnreadable, "Registry Access Error", 16},
    {"Clear Pagefile has been enabled.", "Clear Pagefile Enabled", 64},
    {"Clear Pagefile has been disabled.", "Clear Pagefile Disabled", 64},
    {"System Restore has been successfully enabled.", "System Restore Enabled", 64},
    {"Do you want to delete all existing Restore Points?", "Delete Restore Point", 292},
    {"System Restore has been successfully disabled.*", kApp, 64},
    {"System Restore has been disabled.", "System Restore Disabled", 64},
    {kAskShred, kApp, 20},
    {"The selected files have been shredded.", kApp, 64},
    {"Scrubhaven Pro *\r\n\r\nVelmatrix\r\nhttp://www.velmatrix.example/", "About Scrubhaven Pro", 128},
    {"The name of this file*The file has not been added.", kApp, 48},
    {"The names of some of these files*Those files have not been added.", kApp, 48},
    {"The clipboard is in use by another program.", kApp, 48},
};

// Clicks the ticks of the rows whose texts end so and that have none.
inline void tick(controls::ListView& list, const Paths& ends) {
  const auto isWanted = [&](std::size_t row) {
    return std::ranges::any_of(ends, [&](const std::string& end) { return list.text(row).ends_with(end); });
  };
  for (std::size_t i = 0; i < list.rowCount(); ++i) {
    if (!list.ticked(i) && isWanted(i)) list.clickTick(i);
  }
}

// A list's rows: "text|second column|third column", or the first column alone.
inline Paths rowsOf(const controls::ListView& list, bool wholeRows = true) {
  Paths rows;
  for (std::size_t i = 0; i < list.rowCount(); ++i) {
    rows.push_back(list.text(i));
    for (const std::string& cell : wholeRows ? list.row(i).subItems : Paths()) rows.back() += '|' + cell;
  }
  return rows;
}

inline Paths textsOf(const controls::ListView& list) { return rowsOf(list, false); }

inline void expectKnown(const platform::memory::ShownBox& box) {
  const auto* known = std::ranges::find_if(kKnownBoxes, [&](const auto& one) { return one.matches(box.text); });
  ASSERT_NE(known, std::end(kKnownBoxes)) << box.text;
  EXPECT_EQ(box.title, known->title) << box.text;
  EXPECT_EQ(box.style, known->style) << box.text;
}

// A machine of its own for each test, installed while the test runs. Afterwards the test fails when the program has
// left a handle open, and when a failure or an answer that the test ordered was never used: the test then did not
// test what it says.
class UnitTest : public testing::Test {
 protected:
  platform::memory::MemoryMachine machine;

  void TearDown() override {
    for (const platform::memory::ShownBox& box : machine.boxes()) expectKnown(box);
    EXPECT_EQ(machine.openHandles(), 0u) << "the program left something open";
    EXPECT_FALSE(machine.faults().left()) << "an ordered failure never happened";
    EXPECT_FALSE(machine.ui().answersLeft()) << "an answer was prepared for a box that never came";
  }

  // The texts of the boxes shown so far.
  Paths boxTexts() const {
    Paths texts;
    for (const platform::memory::ShownBox& box : machine.boxes()) texts.push_back(box.text);
    return texts;
  }

  // The texts of the boxes that the action causes.
  template <typename Action>
  Paths boxesOf(const Action& action) const {
    const auto before = static_cast<std::ptrdiff_t>(machine.boxes().size());
    action();
    const Paths all = boxTexts();
    return {all.begin() + before, all.end()};
  }

  // Clicks the button and answers the boxes in their order; the rest get their default answers. Returns the texts of
  // the boxes that it has caused.
  Paths press(controls::FlatButton& button, std::initializer_list<platform::Answer> answers = {}) {
    for (const platform::Answer answer : answers) machine.answer(answer);
    return boxesOf([&] { button.click(); });
  }

  void addFiles(const std::string& folder, std::initializer_list<const char*> names, const std::string& bytes = "x") {
    for (const char* name : names) machine.addFile(folder + '\\' + name, bytes);
  }

 private:
  platform::ScopedMachine use_{machine};
};
