// Files of the machine that the tests and the demonstration prepare and look at, by direct system calls: what is on the
// disk must not be judged by the program under test.
#pragma once

#include <windows.h>

#include <cstddef>
#include <string>

namespace desktop {

// All of these throw Failed when they cannot do what they are asked. Paths are full Windows paths.

// Makes a file with these bytes, or replaces it, and makes its missing parent folders.
void makeFile(const std::string& path, const std::string& bytes);
// The same without bytes, in a folder that exists: the quickest way to many files.
void makeEmptyFile(const std::string& path);
// `size` bytes of a text that differs from file to file.
std::string sampleBytes(const std::string& name, std::size_t size);
std::string readFile(const std::string& path);
bool exists(const std::string& path);
// Makes a folder and its missing parents.
void makeFolders(const std::string& path);
// Removes a folder with all that is in it, read-only files too. No folder is no failure.
void removeTree(const std::string& folder);

// Attribute bits of a file or folder (FILE_ATTRIBUTE_...).
void setAttributes(const std::string& path, DWORD attributes);
DWORD attributesOf(const std::string& path);

// How many items lie in the Recycle Bin. SHQueryRecycleBinA.
std::size_t recycledItems();

// Holds a file open without sharing, as another program would, as long as it lives.
class Lock {
 public:
  explicit Lock(const std::string& path);
  ~Lock();
  Lock(const Lock&) = delete;
  Lock& operator=(const Lock&) = delete;

 private:
  HANDLE file_;
};

}  // namespace desktop
