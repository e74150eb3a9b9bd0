// Files and registry values that the tests prepare and check, by direct system calls: what the program did must not be
// judged by its own code. Paths are full Windows paths.
#pragma once

#include <windows.h>

#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

namespace desktop {

using Texts = std::vector<std::string>;

// A step did not have its expected result; the text says which.
class Failed : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Throws Failed with the system's error number when `done` is false.
void require(bool done, const std::string& what);

// Makes or replaces a file, and makes its missing parent folders.
void makeFile(const std::string& path, const std::string& bytes, DWORD attributes = FILE_ATTRIBUTE_NORMAL);
// `size` bytes that differ from file to file.
std::string sampleBytes(const std::string& path, std::size_t size = 1000);
std::string readFile(const std::string& path);
bool exists(const std::string& path);
// The names in a folder, sorted.
Texts namesIn(const std::string& folder);
// The number of items in the Recycle Bin.
std::size_t recycledItems();

// Opens a file without sharing, as another program would, until the test program ends.
void lock(const std::string& path);

// Registry paths begin with HKCU\ or HKLM\. An empty name is the key's default value.
void setText(const std::string& path, const std::string& name, const std::string& text);
void setNumber(const std::string& path, const std::string& name, DWORD number);
void removeValue(const std::string& path, const std::string& name);
// The values (NAME = "TEXT", NAME = dword:10) and subkeys (Sub\) of a key, sorted; kNoKey when there is no such key.
Texts contentsOf(const std::string& path);
inline const Texts kNoKey = {"no key"};

}  // namespace desktop
