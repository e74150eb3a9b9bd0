// Keys and values of the machine's registry that the tests prepare and look at, by direct system calls. A path begins
// with a root's short name: "HKCU\Software". Values are shown as "text" in double quotes and "dword:10".
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace desktop {

// Make the key and its missing parents, and store the value. An empty name is the key's default value.
void setText(const std::string& path, const std::string& name, const std::string& text);
void setNumber(const std::string& path, const std::string& name, DWORD number);
// Nothing when there is no such value.
std::string shown(const std::string& path, const std::string& name);
// What the key holds, a line each, sorted: "name = "text"", "name = dword:10", "Sub\". No key, no line.
std::vector<std::string> contentsOf(const std::string& path);
// No value, and no key, is no failure. The key goes with all that is in it.
void removeValue(const std::string& path, const std::string& name);
void removeKey(const std::string& path);
bool hasKey(const std::string& path);

// Gives a text value another text, and puts the old one back when it goes.
class ChangedText {
 public:
  ChangedText(std::string path, std::string name, const std::string& text);
  ~ChangedText() { setText(path_, name_, before_); }
  ChangedText(const ChangedText&) = delete;
  ChangedText& operator=(const ChangedText&) = delete;

 private:
  std::string path_;
  std::string name_;
  std::string before_;
};

}  // namespace desktop
