#include "platform/memory/MemoryProfileFile.h"

#include <algorithm>
#include <optional>
#include <string_view>

#include "platform/Conversions.h"
#include "platform/memory/MemoryNames.h"

namespace platform::memory {
namespace {

constexpr const char* kWindowsFolder = "C:\\Windows\\";

// Where the section and the entry stand among the lines.
struct Position {
  std::optional<std::size_t> section;  // its heading
  std::optional<std::size_t> entry;
  std::size_t end = 0;  // behind the section's last line that is not blank
};

std::string fullName(const std::string& file) {
  return file.find_first_of("\\:") == std::string::npos ? kWindowsFolder + file : file;
}

// The name in a heading's brackets; nothing for any other line.
std::optional<std::string_view> headingOf(std::string_view line) {
  line = trimmed(line);
  if (!line.starts_with('[')) return std::nullopt;
  return trimmed(line.substr(1, line.find(']') - 1));
}

std::string_view entryName(std::string_view line) { return trimmed(line.substr(0, line.find('='))); }

bool isNamed(std::string_view line, const std::string& entry) {
  return line.find('=') != std::string_view::npos && upper(entryName(line)) == upper(trimmed(entry));
}

Position find(const std::vector<std::string>& lines, const std::string& section, const std::string& entry) {
  Position position;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const auto heading = headingOf(lines[i]);
    if (heading && position.section) break;
    if (heading && upper(*heading) == upper(trimmed(section))) position.section = i;
    if (!position.section) continue;
    if (!trimmed(lines[i]).empty()) position.end = i + 1;
    if (!heading && isNamed(lines[i], entry)) {
      position.entry = i;
      return position;
    }
  }
  return position;
}

std::string_view withoutQuotes(std::string_view text) {
  const bool quoted = text.size() > 1 && text.front() == text.back() && (text.front() == '"' || text.front() == '\'');
  return quoted ? text.substr(1, text.size() - 2) : text;
}

std::optional<std::string> textOf(const std::vector<std::string>& lines, const std::string& section,
                                  const std::string& entry) {
  const Position position = find(lines, section, entry);
  if (!position.entry) return std::nullopt;
  const std::string& line = lines[*position.entry];
  return std::string(withoutQuotes(trimmed(std::string_view(line).substr(line.find('=') + 1))));
}

}  // namespace

std::vector<std::string> MemoryProfileFile::linesOf(const std::string& file) const {
  const DiskResult<NodePtr> node = disk_.find(fullName(file));
  std::vector<std::string> lines;
  if (!node || (*node)->isFolder()) return lines;
  const std::string bytes = (*node)->bytes.all();
  for (std::size_t start = 0; start < bytes.size();) {
    const std::size_t end = std::min(bytes.find('\n', start), bytes.size());
    std::string line = bytes.substr(start, end - start);
    if (line.ends_with('\r')) line.pop_back();
    lines.push_back(std::move(line));
    start = end + 1;
  }
  return lines;
}

std::uint32_t MemoryProfileFile::getString(const std::string& section, const std::string& entry,
                                           const std::string& fallback, std::span<char> buffer,
                                           const std::string& file) {
  const bool fails = faults_.nextFault("getString").has_value();
  const std::string text = (fails ? std::nullopt : textOf(linesOf(file), section, entry)).value_or(fallback);
  if (buffer.empty()) return 0;
  const std::size_t length = std::min(text.size(), buffer.size() - 1);
  std::ranges::copy_n(text.begin(), static_cast<std::ptrdiff_t>(length), buffer.begin());
  buffer[length] = '\0';
  return static_cast<std::uint32_t>(length);
}

std::uint32_t MemoryProfileFile::getInt(const std::string& section, const std::string& entry, std::int32_t fallback,
                                        const std::string& file) {
  const bool fails = faults_.nextFault("getInt").has_value();
  const std::optional<std::string> text = fails ? std::nullopt : textOf(linesOf(file), section, entry);
  if (!text) return static_cast<std::uint32_t>(fallback);
  const bool isNegative = text->starts_with('-');
  std::uint32_t number = 0;
  for (std::size_t i = isNegative ? 1 : 0; i < text->size() && (*text)[i] >= '0' && (*text)[i] <= '9'; ++i) {
    number = number * 10 + static_cast<std::uint32_t>((*text)[i] - '0');
  }
  return isNegative ? 0 - number : number;
}

bool MemoryProfileFile::writeString(const std::string& section, const std::string& entry, const std::string& text,
                                    const std::string& file) {
  if (faults_.nextFault("writeString")) return false;
  const std::string path = fullName(file);
  DiskResult<NodePtr> node = disk_.find(path);
  if (!node && node.error() == DiskError::kFileNotFound) node = disk_.create(path);
  if (!node || (*node)->isFolder() || (*node)->deniesWriting || ((*node)->attributes & kReadOnly) != 0) return false;

  std::vector<std::string> lines = linesOf(file);
  const Position position = find(lines, section, entry);
  if (position.entry) {
    // The entry keeps the name that it has.
    std::string& old = lines[*position.entry];
    old = std::string(entryName(old)) + "=" + text;
  } else if (position.section) {
    lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(position.end), entry + "=" + text);
  } else {
    lines.push_back("[" + section + "]");
    lines.push_back(entry + "=" + text);
  }
  std::string bytes;
  for (const std::string& one : lines) bytes += one + "\r\n";
  (*node)->bytes = MemoryBytes();
  (*node)->bytes.write(0, bytes);
  return true;
}

}  // namespace platform::memory
