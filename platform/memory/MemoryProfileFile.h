// Private-profile files of the in-memory machine: files of its disk, by full path.
#pragma once

#include <cstdlib>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Conversions.h"
#include "platform/ProfileFile.h"
#include "platform/memory/MemoryDisk.h"
#include "platform/memory/MemoryFaults.h"

namespace platform::memory {

class MemoryProfileFile final : public ProfileFile {
 public:
  MemoryProfileFile(MemoryDisk& disk, MemoryFaults& faults) : disk_(disk), faults_(faults) {}

  std::uint32_t getString(const std::string& section, const std::string& entry, const std::string& fallback,
                          std::span<char> buffer, const std::string& file) override {
    const bool fails = faults_.nextFault("getString").has_value();
    const std::string text = fails ? fallback : textOf(section, entry, file).value_or(fallback);
    const std::size_t length = text.copy(buffer.data(), buffer.size() - 1);
    buffer[length] = '\0';
    return static_cast<std::uint32_t>(length);
  }

  std::uint32_t getInt(const std::string& section, const std::string& entry, std::int32_t fallback,
                       const std::string& file) override {
    const bool fails = faults_.nextFault("getInt").has_value();
    const auto text = fails ? std::nullopt : textOf(section, entry, file);
    return static_cast<std::uint32_t>(text ? std::strtol(text->c_str(), nullptr, 10) : fallback);
  }

  bool writeString(const std::string& section, const std::string& entry, const std::string& text,
                   const std::string& file) override {
    if (faults_.nextFault("writeString")) return false;
    const Result<NodePtr> node = disk_.find(file);
    if (!node && (node.error().number != kFileNotFound || !disk_.create(file))) return false;
    auto [lines, old, end] = find(section, entry, file);
    if (!old && end == 0) lines.push_back('[' + section + ']');
    const std::size_t at = old ? *old : end == 0 ? lines.size() : end;
    const std::string name(old ? nameOf(lines[at]) : entry);
    if (old) lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(at));
    lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(at), name + '=' + text);
    std::string bytes;
    for (const std::string& line : lines) bytes += line + "\r\n";
    disk_.addFile(file, bytes);
    return true;
  }

 private:
  // A file's lines, and where an entry is or belongs among them.
  struct Position {
    std::vector<std::string> lines;
    std::optional<std::size_t> entry;
    std::size_t end = 0;  // behind the section's last line; 0 when there is no such section
  };

  static std::string_view nameOf(std::string_view line) { return trimmed(line.substr(0, line.find('='))); }

  Position find(const std::string& section, const std::string& entry, const std::string& file) const {
    Position position;
    std::istringstream text(disk_.contents(file).value_or(""));
    bool inSection = false;
    for (std::string line; std::getline(text, line); position.lines.push_back(line)) {
      if (line.ends_with('\r')) line.pop_back();
      if (line.starts_with('[')) inSection = upper(line) == upper('[' + section + ']');
      if (!inSection) continue;
      if (line.contains('=') && upper(nameOf(line)) == upper(entry)) position.entry = position.lines.size();
      position.end = position.lines.size() + 1;
    }
    return position;
  }

  // The entry's text without the blanks and the quotation marks around it.
  std::optional<std::string> textOf(const std::string& section, const std::string& entry,
                                    const std::string& file) const {
    const Position position = find(section, entry, file);
    if (!position.entry) return std::nullopt;
    const std::string& line = position.lines[*position.entry];
    std::string_view text = trimmed(std::string_view(line).substr(line.find('=') + 1));
    if (text.size() > 1 && text.starts_with('"') && text.ends_with('"')) text = text.substr(1, text.size() - 2);
    return std::string(text);
  }

  MemoryDisk& disk_;
  MemoryFaults& faults_;
};

}  // namespace platform::memory
