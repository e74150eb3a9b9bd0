// The console's drive walks.
#include <algorithm>

#include "console/frmFind.h"
#include "finder/modFind.h"
#include "platform/Paths.h"
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

// Files that Windows keeps empty, as it writes their names.
constexpr std::array<std::string_view, 6> kKeptEmpty = {"IO.SYS",     "MSDOS.SYS",   "WIN.INI",
                                                        "SYSTEM.INI", "Desktop.ini", "Boot.ini"};

bool isProtected(const std::string& name) {
  return contains(kProtectedInCapitals, upperCase(name)) || contains(kProtectedAsFound, name);
}

// Whether a walk lets the user act between two entries.
enum class Events { kServed, kHeld };

bool neverStops() { return false; }

// Calls `visit` with the name and record of every entry that answers to `pattern`, but for the folder itself and its
// parent, until `stops`, which is asked before each entry. A folder that cannot be read has no entries. Gives false
// when it was stopped.
template <typename Stops, typename Visit>
bool forEachEntry(const std::string& pattern, Events events, Stops stops, Visit visit) {
  platform::FileSystem& files = platform::machine().files();
  platform::FindRecord record;
  const platform::Handle enumeration = files.findFirstFile(pattern, record);
  if (enumeration == platform::kInvalidHandle) return true;
  bool stopped = false;
  bool more = true;
  while (more) {
    stopped = stops();
    if (stopped) break;
    const std::string name = TrimAtNul({record.name.data(), record.name.size()});
    if (!platform::isDotEntry(name)) visit(name, record);
    more = files.findNextFile(enumeration, record);
    if (events == Events::kServed) platform::machine().ui().serveEvents();
  }
  files.findClose(enumeration);
  return !stopped;
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

std::int64_t frmFind::walkTree(std::string& path, std::int32_t& DirCount, const Walk& walk) {
  // With a backslash, no folder would become the root of the current drive.
  if (path.empty()) return 0;
  if (path.back() != '\\') path += '\\';
  std::int64_t total = 0;
  const std::optional<std::vector<std::string>> subfolders = subfoldersToEnter(path, DirCount, walk);
  if (!subfolders) {
    platform::machine().ui().serveEvents();
    return total;
  }

  std::string lastFile;
  if (walk.onFilesBegin) walk.onFilesBegin();
  for (const std::string& pattern : walk.patterns) {
    if (walk.abortTest == AbortTest::kBeforeEachPattern && AbortRequested) {
      platform::machine().ui().serveEvents();
      return total;
    }
    if (!canMatch(pattern)) continue;
    const auto visit = [&](const std::string& name, const platform::FindRecord& record) {
      const std::string file = path + name;
      // Where the file objects are missing, they know of no folder.
      if (platform::isDirectory(record.attributes) || IsFolder(file)) return;
      lastFile = name;
      total += countedSize(record);
      walk.onFile(file, name, record);
    };
    forEachEntry(path + pattern, Events::kHeld, neverStops, visit);
  }
  // How far the walk is: no path of a file, but the last names that this folder's passes have come across.
  lblFile.setCaption(path + (subfolders->empty() ? "" : subfolders->back()) + lastFile);
  if (walk.repaintsAfterFolders) refresh();

  for (const std::string& name : *subfolders) {
    if (walk.abortTest != AbortTest::kNowhere && AbortRequested) return total;
    std::string subfolder = path + name + '\\';
    total += walkTree(subfolder, DirCount, walk);
  }
  return total;
}

std::optional<std::vector<std::string>> frmFind::subfoldersToEnter(const std::string& folder, std::int32_t& DirCount,
                                                                   const Walk& walk) {
  std::vector<std::string> names;
  platform::FileSystem& files = platform::machine().files();
  const auto stops = [&] { return walk.abortTest == AbortTest::kBeforeEachFolderEntry && AbortRequested; };
  const auto visit = [&](const std::string& name, const platform::FindRecord&) {
    const std::uint32_t attributes = files.getFileAttributes(folder + name);
    if (!platform::isOwnFolder(attributes)) return;
    if (!walk.entersHiddenSystemFolders && (attributes & kHiddenAndSystem) == kHiddenAndSystem) return;
    names.push_back(name);
    ++DirCount;
    if (walk.onSubfolder) walk.onSubfolder(folder + name);
  };
  if (!forEachEntry(folder + "*", Events::kServed, stops, visit)) return std::nullopt;
  return names;
}

std::int64_t frmFind::FindFilesAPI(std::string& path, const ScanPatternList& patterns, std::int32_t& FileCount,
                                   std::int32_t& DirCount, std::int32_t& lastLen) {
  SizeText size;
  return walkTree(
      path, DirCount,
      {.patterns = patterns,
       // Hidden system folders belong to Windows.
       .entersHiddenSystemFolders = false,
       .abortTest = AbortTest::kBeforeEachPattern,
       .onFilesBegin = [&] { size = SizeText(); },
       .onFile =
           [&](const std::string& file, const std::string& name, const platform::FindRecord& record) {
             // A length that cannot be read keeps no file off the list: the folder's own word on it is shown then.
             lastLen = platform::machine().files().fileLength(file).value_or(static_cast<std::int32_t>(record.sizeLow));
             // The row texts carry no size, so that this holds back next to nothing; two types that both match list a
             // file twice.
             if (ListView1.containsKey(rowKey(file + std::to_string(size.number))) || isProtected(name)) return;
             size.update(lastLen);
             ListView1.add(file, {std::to_string(size.number) + size.unit});
             ListView1.setToolTip(file);
             ++FileCount;
           }});
}

std::int64_t frmFind::FindTemps(std::string& path, const std::string& pattern, std::int32_t& FileCount,
                                std::int32_t& DirCount) {
  return walkTree(path, DirCount,
                  {.patterns = {&pattern, 1},
                   .onSubfolder = [this](const std::string& folder) { ListView2.add(folder); },
                   .onFile =
                       [&](const std::string& file, const std::string&, const platform::FindRecord&) {
                         ++FileCount;
                         FoundFiles.resize(static_cast<std::size_t>(FileCount) + 1);
                         FoundFiles.back() = file;
                       }});
}

std::int64_t frmFind::FindTempsAPI(std::string& path, const std::string& pattern, std::int32_t& FileCount,
                                   std::int32_t& DirCount) {
  return FindTemps(path, pattern, FileCount, DirCount);
}

void frmFind::FindZeros(std::string& path, const std::string& pattern, std::int32_t& FileCount, std::int32_t& DirCount,
                        std::int64_t& total) {
  total +=
      walkTree(path, DirCount,
               {.patterns = {&pattern, 1},
                .abortTest = AbortTest::kBeforeEachFolderEntry,
                .repaintsAfterFolders = true,
                .onFile = [&](const std::string& file, const std::string& name, const platform::FindRecord& record) {
                  ++FileCount;
                  // The folder's own word on the size may be an old one; a length that cannot be read is not 0, nor
                  // is that of a file whose full 4 GB the low half does not show.
                  const platform::Result<std::int32_t> length = platform::machine().files().fileLength(file);
                  const bool isEmpty = length && *length == 0 && record.sizeHigh == 0;
                  if (isEmpty && !contains(kKeptEmpty, name)) ListView2.add(file);
                }});
}

void frmFind::ClearTempSubfolders(std::string& path) {
  path = tempFolder("Temp");
  if (path.empty()) return;
  platform::machine().ui().serveEvents();
  const auto listFolder = [&](const std::string& name, const platform::FindRecord&) {
    const std::string folder = path + name;
    if (platform::isOwnFolder(platform::machine().files().getFileAttributes(folder))) ListView2.add(folder);
  };
  forEachEntry(path + "*", Events::kHeld, neverStops, listFolder);
  if (ListView2.empty()) return;
  for (std::size_t i = ListView2.rowCount(); i-- > 0;) {
    const std::string folder = ListView2.text(i);
    if (!IsFolder(folder)) continue;
    // What will not go is left, and the next one is tried.
    static_cast<void>(DelTree(folder));
  }
  ListView2.clear();
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
