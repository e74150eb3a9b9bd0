// What the desktop tests share: a running console, and an empty folder for their files.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/desktop/Disk.h"
#include "tests/desktop/Driver.h"

namespace desktop {

inline const std::string kFolder = "C:\\desktop\\";

// Makes a file in the test's folder; `name` may name subfolders. Gives the full path.
inline std::string make(const std::string& name, std::size_t size = 1000) {
  makeFile(kFolder + name, sampleBytes(name, size));
  return kFolder + name;
}

// Whether a file that make() made is as it was.
inline bool isUntouched(const std::string& path, std::size_t size = 1000) {
  return exists(path) && readFile(path) == sampleBytes(path.substr(kFolder.size()), size);
}

// Exists and is empty before the program starts, so that its folder list shows it.
struct TestFolder {
  TestFolder() {
    removeTree("C:\\desktop");
    std::filesystem::create_directories("C:\\desktop");
  }
};

// The test is the program's user: it starts the program afresh and speaks of what it presses and sees.
class ConsoleTest : public testing::Test, protected TestFolder, protected Program {
 protected:
  void waitForResults(const std::string& beginning) {
    waitUntil("\"" + beginning + "\"", [&] { return resultLine().starts_with(beginning); });
  }
};

}  // namespace desktop
