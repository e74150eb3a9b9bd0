// Keys and values of the machine's registry that the tests prepare and look at, by direct system calls. A path begins
// with a root's short name: "HKCU\Software".
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

namespace desktop {

// All of these throw Failed when they cannot do what they are asked.

// Make the key and its missing parents, and store the value. An empty name is the key's default value.
void setText(const std::string& path, const std::string& name, const std::string& text);
void setNumber(const std::string& path, const std::string& name, DWORD number);
std::optional<std::string> textOf(const std::string& path, const std::string& name);
std::optional<DWORD> numberOf(const std::string& path, const std::string& name);
bool hasKey(const std::string& path);
// What the key holds, a line each, sorted: "name = text", "name = 10", "Sub\". No key, no line.
std::vector<std::string> contentsOf(const std::string& path);
// No value, and no key, is no failure. The key goes with all that is in it.
void removeValue(const std::string& path, const std::string& name);
void removeKey(const std::string& path);

}  // namespace desktop
