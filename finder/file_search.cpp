// The console's drive walks.
#include <algorithm>
#include <utility>

#include "console/frmFind.h"
#include "finder/modFind.h"
#include "platform/Platform.h"

namespace {

constexpr std::uint32_t kHiddenAndSystem = platform::kHidden | platform::kSystem;
constexpr std::int32_t kBytesPerKb = 1024;

// Backups that Windows and mail programs still need. The first names are compared in capitals; no name in capitals can
// equal "MYOB.bak", so that one is never protected.
constexpr std::array<std::string_view, 7> kProtectedInCapitals = {
    "DATA.BAK", "NTUSER.BAK", "USRCLASS.BAK", "SYSTEM.BAK", "SOFTWARE.BAK", "OPA11.BAK", "MYOB.bak"};
constexpr std::array<std::string_view, 6> kProtectedAsFound = {"SAM.bak",        "USER.bak",         "default.bak",
                                                               "opera6.adr.bak", "contacts.adr.bak", "SECURITY.bak"};

std::string upperCase(std::string_view text) { return platform::machine().environment().upperCase(text); }

template <typename Names>
bool contains(const Names& names, std::string_view name) {
  return std::ranges::find(names, name) != names.end();
}

bool isProtected(const std::string& name) {
  return contains(kProtectedInCapitals, upperCase(name)) || contains(kProtectedAsFound, name);
}

bool isFolderItselfOrParent(const std::string& name) { return name == "." || name == ".."; }

// Whether a walk lets the user act between two entries.
enum class Events { kServed, kHeld };

// Calls `visit` with the name and record of every entry that answers to `pattern`, but for the folder itself and its
// parent. A folder that cannot be read has no entries.
template <typename Visit>
void forEachEntry(const std::string& pattern, Events events, Visit visit) {
  platform::FileSystem& files = platform::machine().files();
  platform::FindRecord record;
  const platform::Handle enumeration = files.findFirstFile(pattern, record);
  if (enumeration == platform::kInvalidHandle) return;
  bool more = true;
  while (more) {
    const std::string name = TrimAtNul({record.name.data(), record.name.size()});
    if (!isFolderItselfOrParent(name)) visit(name, record);
    more = files.findNextFile(enumeration, record);
    if (events == Events::kServed) platform::machine().ui().serveEvents();
  }
  files.findClose(enumeration);
}

// The attributes of a folder that a walk may enter. A link to another place is none.
bool isOwnFolder(std::uint32_t attributes) {
  return platform::isDirectory(attributes) && (attributes & platform::kReparsePoint) == 0;
}

// Quirk that the totals keep: the low half counts as signed, and the high half is taken off instead of being scaled.
std::int64_t countedSize(const platform::FindRecord& record) {
  return std::int64_t{static_cast<std::int32_t>(record.sizeLow)} - std::int64_t{record.sizeHigh};
}

// A pattern that names another folder matches nothing in this one.
bool canMatch(const std::string& pattern) {
  return !platform::trimmed(pattern).empty() && pattern.find_first_of("\\/") == std::string::npos;
}

}  // namespace

bool frmFind::IsFolder(const std::string& path) { return platform::machine().fileObjects().folderExists(path); }

std::int64_t frmFind::FindFilesAPI(std::string& path, const ScanPatternList& patterns, std::int32_t& FileCount,
                                   std::int32_t& DirCount, std::int32_t& lastLen) {
  if (path.empty() || path.back() != '\\') path += '\\';
  const std::vector<std::string> subfolders = subfoldersToSearch(path, DirCount);

  std::int64_t total = 0;
  SizeText size;
  std::string lastFile;
  for (const std::string& pattern : patterns) {
    if (AbortRequested) {
      platform::machine().ui().serveEvents();
      return total;
    }
    if (canMatch(pattern)) total += listMatches(path, pattern, FileCount, lastLen, size, lastFile);
  }
  lblFile.setCaption(path + (subfolders.empty() ? "" : subfolders.back()) + lastFile);

  for (const std::string& name : subfolders) {
    if (AbortRequested) return total;
    std::string subfolder = path + name + '\\';
    total += FindFilesAPI(subfolder, patterns, FileCount, DirCount, lastLen);
  }
  return total;
}

// The names of the folders directly in `folder` (which ends in a backslash) that a junk scan enters: hidden system
// folders belong to Windows and are left alone.
std::vector<std::string> frmFind::subfoldersToSearch(const std::string& folder, std::int32_t& DirCount) {
  std::vector<std::string> names;
  platform::FileSystem& files = platform::machine().files();
  forEachEntry(folder + "*", Events::kServed, [&](const std::string& name, const platform::FindRecord&) {
    const std::uint32_t attributes = files.getFileAttributes(folder + name);
    if (!isOwnFolder(attributes) || (attributes & kHiddenAndSystem) == kHiddenAndSystem) return;
    names.push_back(name);
    ++DirCount;
  });
  return names;
}

// Lists the files directly in `folder` that answer to `pattern`, and gives the sum of their sizes.
std::int64_t frmFind::listMatches(const std::string& folder, const std::string& pattern, std::int32_t& FileCount,
                                  std::int32_t& lastLen, SizeText& size, std::string& lastName) {
  std::int64_t total = 0;
  platform::FileSystem& files = platform::machine().files();
  forEachEntry(folder + pattern, Events::kHeld, [&](const std::string& name, const platform::FindRecord& record) {
    const std::string file = folder + name;
    if (IsFolder(file)) return;
    lastName = name;
    total += countedSize(record);
    lastLen = files.fileLength(file).value_or(static_cast<std::int32_t>(record.sizeLow));
    // The row texts carry no size, so that this holds back next to nothing; two types that both match list a file
    // twice.
    if (ListView1.containsKey(rowKey(file + std::to_string(size.number)))) return;
    if (isProtected(name)) return;
    size.update(lastLen);
    ListView1.add(file, {std::to_string(size.number) + size.unit});
    ListView1.setToolTip(file);
    ++FileCount;
  });
  return total;
}

// A length of exactly 1024 bytes is neither below nor above the border and keeps the text of the file before.
void frmFind::SizeText::update(std::int32_t length) {
  if (length > kBytesPerKb) {
    number = platform::roundedHalfEven(static_cast<double>(length) / kBytesPerKb);
    unit = " Kb";
  }
  if (length < kBytesPerKb) {
    number = length;
    unit = " bytes";
  }
}

std::string frmFind::rowKey(std::string_view text) { return upperCase(platform::trimmed(text)); }
