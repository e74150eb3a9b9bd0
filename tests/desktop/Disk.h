// Files of the machine that the tests and the demonstration prepare and look at: what is on the disk must not be judged
// by the program under test.
#pragma once

#include <windows.h>

#include <cstddef>
#include <string>
#include <vector>

namespace desktop {

// All of these throw when they cannot do what they are asked. Paths are full Windows paths.

// Makes a file with these bytes, or replaces it, and makes its missing parent folders.
void makeFile(const std::string& path, const std::string& bytes);
// `size` bytes of a text that differs from file to file.
std::string sampleBytes(const std::string& name, std::size_t size);
std::string readFile(const std::string& path);
bool exists(const std::string& path);
// The names in a folder, sorted; none when there is no folder.
std::vector<std::string> namesIn(const std::string& folder);
// Removes a folder with all that is in it, read-only files too. No folder is no failure.
void removeTree(const std::string& folder);
// Attribute bits of a file or folder (FILE_ATTRIBUTE_...).
void setAttributes(const std::string& path, DWORD attributes);
// How many items lie in the Recycle Bin. SHQueryRecycleBinA.
std::size_t recycledItems();

// Holds a file open without sharing, as another program would, as long as it lives.
class Lock {
 public:
  explicit Lock(const std::string& path);
  ~Lock() { CloseHandle(file_); }
  Lock(const Lock&) = delete;
  Lock& operator=(const Lock&) = delete;

 private:
  HANDLE file_;
};

}  // namespace desktop
