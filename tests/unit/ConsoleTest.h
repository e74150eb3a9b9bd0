// A loaded console on an in-memory machine.
#pragma once

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

  std::vector<std::string> paths() const {
    std::vector<std::string> all;
    for (std::size_t i = 0; i < form.ListView1.rowCount(); ++i) all.push_back(form.ListView1.text(i));
    return all;
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
};

using Paths = std::vector<std::string>;

inline constexpr std::size_t kTypeBak = 1;
inline constexpr std::size_t kTypeTmp = 3;
inline constexpr std::size_t kTypeTilde = 4;
inline constexpr std::size_t kTypeDir = 7;
inline constexpr std::size_t kTypeMtx = 12;
inline constexpr std::size_t kTypeDb = 15;
