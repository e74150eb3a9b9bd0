// Folder links for the tests that run under Wine: Windows of that age has no call that makes one, and Wine shows the
// host's own links as such.
#pragma once

#include <windows.h>

#include <algorithm>
#include <string>

namespace support {

// Runs a program of the host, which Wine reaches under this prefix, in `folder`. Does not wait for it. Wine stores no
// handles for such a program but whatever its memory holds, so that closing them would close some other object.
inline bool startHostProgram(const std::string& folder, const std::string& program, const std::string& arguments) {
  STARTUPINFOA start = {};
  start.cb = sizeof(start);
  PROCESS_INFORMATION process = {};
  std::string command = program + ' ' + arguments;
  const std::string path = "\\\\?\\unix\\bin\\" + program;
  return CreateProcessA(path.c_str(), command.data(), nullptr, nullptr, FALSE, 0, nullptr, folder.c_str(), &start,
                        &process) != FALSE;
}

// Waits until a path is there, or is not; false when that takes too long.
inline bool waitForPath(const std::string& path, bool there) {
  constexpr int kTries = 200;
  constexpr DWORD kPause = 25;
  for (int i = 0; i < kTries; ++i) {
    if ((GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES) == there) return true;
    Sleep(kPause);
  }
  return false;
}

// Makes `link` a link to the folder `target`, both paths relative to `folder`, and so that it never leads out of the
// machine that the tests run on. Names hold no blanks.
inline bool makeFolderLink(const std::string& folder, const std::string& link, const std::string& target) {
  std::string arguments = "-s -r " + target + ' ' + link;
  std::ranges::replace(arguments, '\\', '/');
  return startHostProgram(folder, "ln", arguments) && waitForPath(folder + '\\' + link, true);
}

// Takes the link away without what it points to.
inline bool removeFolderLink(const std::string& folder, std::string link) {
  const std::string path = folder + '\\' + link;
  std::ranges::replace(link, '\\', '/');
  return startHostProgram(folder, "rm", link) && waitForPath(path, false);
}

}  // namespace support
