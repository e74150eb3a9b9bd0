// A loaded console on an in-memory machine.
#pragma once

#include <gmock/gmock.h>

#include <initializer_list>
#include <string>
#include <vector>

#include "console/frmFind.h"
#include "tests/support/MachineTest.h"

class ConsoleTest : public MachineTest {
 protected:
  frmFind form;

  void SetUp() override { form.load(); }

  // Ticks the file types at these indices and scans from `folder` down.
  void scan(std::initializer_list<std::size_t> types, const std::string& folder) {
    for (const std::size_t i : types) form.Check[i].setTicked(true);
    ASSERT_TRUE(form.Dir1.setPath(folder));
    form.Scan.click();
  }

  // The rows of the junk list, "path|size".
  std::vector<std::string> rows() const {
    std::vector<std::string> all;
    for (std::size_t i = 0; i < form.ListView1.rowCount(); ++i) {
      all.push_back(form.ListView1.text(i) + "|" + form.ListView1.row(i).subItems.at(0));
    }
    return all;
  }

  static std::vector<std::string> textsOf(const controls::ListView& list) {
    std::vector<std::string> all;
    for (std::size_t i = 0; i < list.rowCount(); ++i) all.push_back(list.text(i));
    return all;
  }

  std::vector<std::string> paths() const { return textsOf(form.ListView1); }

  // Ticks the rows of files with these names.
  static void tick(controls::ListView& list, std::initializer_list<const char*> names) {
    for (std::size_t i = 0; i < list.rowCount(); ++i) {
      for (const char* name : names) {
        if (list.text(i).ends_with(name)) list.clickTick(i);
      }
    }
  }

  std::string lastBox() const { return machine.boxes().empty() ? "" : boxTexts().back(); }

  // Expects the last box to be this one.
  void expectBox(const std::string& text, const std::string& title, std::uint32_t style = platform::kBoxOk) const {
    ASSERT_FALSE(machine.boxes().empty());
    const platform::memory::ShownBox& box = machine.boxes().back();
    EXPECT_EQ(box.text, text);
    EXPECT_EQ(box.title, title);
    EXPECT_EQ(box.style, style);
  }

  // The names of the buttons and check boxes that a person can press now.
  std::vector<std::string> usableCommands() const {
    std::vector<std::string> names;
    for (const controls::Control* control : form.controls()) {
      const bool isCommand = control->kind() == controls::Kind::kButton || control->kind() == controls::Kind::kCheckBox;
      if (isCommand && control->acceptsInput()) names.push_back(control->name());
    }
    return names;
  }

  void addFiles(const std::string& folder, std::initializer_list<const char*> names) {
    for (const char* name : names) machine.addFile(folder + '\\' + name, "x");
  }
};

using Paths = std::vector<std::string>;

inline constexpr std::size_t kTypeBak = 1;
inline constexpr std::size_t kTypeTmp = 3;
inline constexpr std::size_t kTypeTilde = 4;
inline constexpr std::size_t kTypeDir = 7;
inline constexpr std::size_t kTypeMtx = 12;
inline constexpr std::size_t kTypeDb = 15;
