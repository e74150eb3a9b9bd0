// What the desktop tests share: a running console, and a new folder for their files.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "driver/Driver.h"

namespace desktop {

inline constexpr DWORD kShredding = 60000;  // milliseconds that a run of the shredder may take

// A folder of its own for each test, which the program's folder list shows. It is not deleted: the prefix is made anew
// for every run.
class TestFolder {
 protected:
  TestFolder() { std::filesystem::create_directories(folder()); }

  std::string folder() const { return "C:\\" + name_ + '\\'; }
  const std::string& folderName() const { return name_; }

  // Makes a file in the folder; `name` may have subfolders. Returns the full path.
  std::string make(const std::string& name, std::size_t size = 1000, DWORD attributes = FILE_ATTRIBUTE_NORMAL) const {
    makeFile(folder() + name, std::string(size, 'S'), attributes);
    return folder() + name;
  }

 private:
  static inline int count_ = 0;
  std::string name_ = "test" + std::to_string(++count_);
};

// Whether a file that make() made is as it was.
inline bool isUntouched(const std::string& path, std::size_t size = 1000) {
  return exists(path) && readFile(path) == std::string(size, 'S');
}

// Starts the program for each test; the folder exists before.
class ConsoleTest : public testing::Test, protected TestFolder, protected Program {
 protected:
  // Waits for the window of the help viewer and closes it.
  static void closeHelp() {
    constexpr DWORD kLongestStart = 20000;
    HWND help = nullptr;
    const auto isOpen = [&help] { return (help = FindWindowA("HH Parent", nullptr)) != nullptr; };
    waitUntil("the help window", isOpen, kLongestStart);
    PostMessageA(help, WM_CLOSE, 0, 0);
    waitUntil("the help window to close", [help] { return IsWindow(help) == FALSE; });
  }
};

}  // namespace desktop
