// Files and registry values that the tests prepare and check, by direct system calls: what the program did must not be
// judged by its own code. Paths are full Windows paths.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "tests/support/WinFiles.h"

namespace desktop {

using Texts = std::vector<std::string>;

using support::Failed;
using support::makeFile;
using support::namesIn;
using support::readFile;
using support::recycledItems;
using support::require;

// `size` bytes that differ from file to file.
std::string sampleBytes(const std::string& path, std::size_t size = 1000);
bool exists(const std::string& path);

// Opens a file without sharing, as another program would, until the test program ends.
void lock(const std::string& path);

// Registry paths begin with HKCU\ or HKLM\. An empty name is the key's default value.
void setText(const std::string& path, const std::string& name, const std::string& text);
void setNumber(const std::string& path, const std::string& name, DWORD number);
// The values (NAME = "TEXT", NAME = dword:10) and subkeys (Sub\) of a key, sorted; kNoKey when there is no such key.
Texts contentsOf(const std::string& path);
inline const Texts kNoKey = {"no key"};

}  // namespace desktop
