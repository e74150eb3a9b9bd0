#include "platform/win32/Win32FileSystem.h"

#include <windows.h>

#include <algorithm>
#include <optional>

#include "platform/Enumeration.h"
#include "platform/Names.h"
#include "platform/Paths.h"
#include "platform/win32/CodePage.h"
#include "platform/win32/LastError.h"
#include "platform/win32/ReadAhead.h"

namespace platform::win32 {
namespace {

HANDLE native(Handle handle) { return reinterpret_cast<HANDLE>(handle); }

Handle portable(HANDLE handle) { return reinterpret_cast<Handle>(handle); }

// The enumeration calls in both character sets. Only the wide names show whether the code page can express a name;
// Windows 95, 98 and Me export the wide calls without implementing them.
struct WideCalls {
  using Found = WIN32_FIND_DATAW;
  static HANDLE first(const std::string& pattern, Found& found) {
    return FindFirstFileW(wideText(pattern).c_str(), &found);
  }
  static bool next(HANDLE enumeration, Found& found) { return FindNextFileW(enumeration, &found) != FALSE; }
};

struct NarrowCalls {
  using Found = WIN32_FIND_DATAA;
  static HANDLE first(const std::string& pattern, Found& found) { return FindFirstFileA(pattern.c_str(), &found); }
  static bool next(HANDLE enumeration, Found& found) { return FindNextFileA(enumeration, &found) != FALSE; }
};

// The name in the code page; empty when later calls would not find the entry by it.
std::string usableName(const wchar_t* name) {
  const std::optional<std::string> exact = exactText(name);
  return exact && isUsableName(*exact) ? *exact : "";
}

// The system has replaced a character that the code page lacks by "?" or by a similar character.
std::string usableName(const char* name) { return isUsableName(name) ? name : ""; }

// Whether the long name itself, apart from what the code page makes of it, names the entry in a path. Some calls look
// up the long name behind a short one and use that.
template <typename Character>
bool isPlainName(std::basic_string_view<Character> longName) {
  constexpr std::wstring_view kRaisedDigits = L"\u00B9\u00B2\u00B3";  // which devices may have instead of 1 to 3
  constexpr std::string_view kPlain = " .$0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
  std::string plain;
  for (const Character letter : longName) {
    const bool isPlain = letter > 0 && letter < 0x80 && kPlain.contains(static_cast<char>(letter));
    const bool isDigit = kRaisedDigits.contains(static_cast<wchar_t>(letter));
    plain += isPlain ? static_cast<char>(letter) : isDigit ? '1' : 'x';
  }
  return isUsableName(plain);
}

// Stores the entry under its long name, or under the short one when the code page lacks the long one; false when later
// calls could not find it under either.
template <typename Found>
bool store(const Found& found, FindRecord& record) {
  if (!isPlainName(std::basic_string_view(found.cFileName))) return false;
  std::string name = usableName(found.cFileName);
  if (name.empty()) name = usableName(found.cAlternateFileName);
  if (name.empty() || name.size() >= record.name.size()) return false;
  record =
      FindRecord{.attributes = found.dwFileAttributes, .sizeHigh = found.nFileSizeHigh, .sizeLow = found.nFileSizeLow};
  std::ranges::copy(name, record.name.begin());
  return true;
}

template <typename Calls>
bool nextEntry(HANDLE enumeration, FindRecord& record) {
  typename Calls::Found found;
  while (Calls::next(enumeration, found)) {
    if (store(found, record)) return true;
  }
  return false;
}

template <typename Calls>
HANDLE firstEntry(const std::string& pattern, FindRecord& record) {
  typename Calls::Found found;
  const HANDLE enumeration = Calls::first(pattern, found);
  if (enumeration == INVALID_HANDLE_VALUE || store(found, record) || nextEntry<Calls>(enumeration, record)) {
    return enumeration;
  }
  FindClose(enumeration);
  return INVALID_HANDLE_VALUE;
}

template <typename Calls>
bool readEntries(const std::string& folder, const std::function<bool(FolderEntry&)>& visit) {
  typename Calls::Found found;
  const HANDLE enumeration = Calls::first(folder + "*", found);
  if (enumeration == INVALID_HANDLE_VALUE) return true;
  bool goesOn = true;
  for (bool more = true; more && goesOn; more = goesOn && Calls::next(enumeration, found)) {
    FolderEntry entry{.name = usableName(found.cFileName),
                      .shortName = usableName(found.cAlternateFileName),
                      .attributes = found.dwFileAttributes,
                      .size = (std::uint64_t{found.nFileSizeHigh} << 32) | found.nFileSizeLow};
    if (entry.name.empty()) entry.name.swap(entry.shortName);
    if (!entry.name.empty() && !isDotEntry(entry.name)) goesOn = visit(entry);
  }
  FindClose(enumeration);
  return goesOn;
}

std::string rootOf(char letter) { return std::string(1, letter) + ":\\"; }

bool isReady(char letter) {
  const std::string root = rootOf(letter);
  const UINT type = GetDriveTypeA(root.c_str());
  return type != DRIVE_UNKNOWN && type != DRIVE_NO_ROOT_DIR && isDirectory(GetFileAttributesA(root.c_str()));
}

bool startsWithDrive(std::string_view path) { return path.size() >= 2 && path[1] == ':'; }

// Empty for all but fixed disks: asking another drive may spin it up, dial a network or ask for a disk.
std::string labelOf(char letter) {
  const std::string root = rootOf(letter);
  if (GetDriveTypeA(root.c_str()) != DRIVE_FIXED) return {};
  std::array<char, MAX_PATH + 1> label{};
  const BOOL known =
      GetVolumeInformationA(root.c_str(), label.data(), label.size(), nullptr, nullptr, nullptr, nullptr, 0);
  return known != FALSE ? std::string(label.data()) : std::string();
}

// The size of the open file. Access 0 asks about the file only, so that most locks do not matter.
std::optional<std::uint64_t> sizeByHandle(const std::string& path) {
  const HANDLE file =
      CreateFileA(path.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr);
  if (file == INVALID_HANDLE_VALUE) return std::nullopt;
  SetLastError(NO_ERROR);
  DWORD high = 0;
  const DWORD low = GetFileSize(file, &high);
  const bool failed = low == INVALID_FILE_SIZE && GetLastError() != NO_ERROR;
  CloseHandle(file);
  return failed ? std::nullopt : std::optional((std::uint64_t{high} << 32) | low);
}

// The attributes of an open file or folder; kInvalidAttributes on failure.
std::uint32_t attributesOf(HANDLE file) {
  BY_HANDLE_FILE_INFORMATION info = {};
  return GetFileInformationByHandle(file, &info) != FALSE ? info.dwFileAttributes : kInvalidAttributes;
}

// On a full disk WriteFile may write fewer bytes without failing.
Result<void> writeAll(HANDLE file, std::string_view bytes) {
  // Some file systems truncate the file when zero bytes are written.
  if (bytes.empty()) return {};
  DWORD written = 0;
  if (WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) == FALSE) {
    const bool full = runTimeErrorNumber(GetLastError()) == kDiskFull;
    return failure(full ? kDiskFull : kPermissionDenied);
  }
  return written == bytes.size() ? Result<void>{} : failure(kDiskFull);
}

}  // namespace

Win32FileSystem::Win32FileSystem() { numbered_.fill(kInvalidHandle); }

Win32FileSystem::~Win32FileSystem() {
  for (int number = 1; number <= kHighestFileNumber; ++number) closeFile(number);
}

Handle Win32FileSystem::findFirstFile(const std::string& pattern, FindRecord& record) {
  return portable(hasWideCalls() ? firstEntry<WideCalls>(pattern, record) : firstEntry<NarrowCalls>(pattern, record));
}

bool Win32FileSystem::findNextFile(Handle enumeration, FindRecord& record) {
  const HANDLE handle = native(enumeration);
  return hasWideCalls() ? nextEntry<WideCalls>(handle, record) : nextEntry<NarrowCalls>(handle, record);
}

bool Win32FileSystem::findClose(Handle enumeration) { return FindClose(native(enumeration)) != FALSE; }

bool Win32FileSystem::readFolder(const std::string& folder, const std::function<bool(FolderEntry&)>& visit) {
  return hasWideCalls() ? readEntries<WideCalls>(folder, visit) : readEntries<NarrowCalls>(folder, visit);
}

std::unique_ptr<TreeReader> Win32FileSystem::readTree(const std::string& folder, bool entersHiddenSystemFolders) {
  return std::make_unique<ReadAhead>(folder, entersHiddenSystemFolders);
}

std::uint32_t Win32FileSystem::getFileAttributes(const std::string& path) { return GetFileAttributesA(path.c_str()); }

Result<std::uint64_t> Win32FileSystem::fileSize(const std::string& path) {
  const std::optional<std::uint64_t> size = sizeByHandle(path);
  return size ? Result<std::uint64_t>(*size) : failure(kFileNotFound);
}

bool Win32FileSystem::anyFileMatches(const std::string& pattern, std::uint32_t mask) {
  const std::uint32_t unwanted = (kReadOnly | kHidden | kSystem | kDirectory) & ~mask;
  return !forEachEntry(*this, pattern, [unwanted](const std::string&, const FindRecord& record) {
    return (record.attributes & unwanted) != 0;
  });
}

Handle Win32FileSystem::createFile(const std::string& path, const OpenRequest& request) {
  return portable(CreateFileA(path.c_str(), request.access, request.share, nullptr, request.disposition,
                              request.flagsAndAttributes, nullptr));
}

bool Win32FileSystem::closeHandle(Handle handle) {
  // INVALID_HANDLE_VALUE is also the pseudo-handle of the process, which CloseHandle accepts.
  return CloseHandle(native(handle)) != FALSE && handle != kInvalidHandle;
}

Result<void> Win32FileSystem::openBinary(int number, const std::string& path) {
  if (number < 1 || number > kHighestFileNumber) return failure(kBadFileNumber);
  if (numbered_[number] != kInvalidHandle) return failure(kFileAlreadyOpen);
  // Wine opens a read-only file for writing when it runs as root.
  const std::uint32_t attributes = getFileAttributes(path);
  if (attributes != kInvalidAttributes && (attributes & kReadOnly) != 0) return failure(kPathFileAccess);
  // A link is opened itself and refused: what it points to was not chosen.
  const DWORD flags = hasWideCalls() ? FILE_FLAG_OPEN_REPARSE_POINT : FILE_ATTRIBUTE_NORMAL;
  const HANDLE file = CreateFileA(path.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                  nullptr, OPEN_ALWAYS, flags, nullptr);
  if (file == INVALID_HANDLE_VALUE) {
    const std::int32_t error = runTimeErrorNumber(GetLastError());
    // OPEN_ALWAYS creates a missing file, so it is the folder that was not found.
    return failure(error == kFileNotFound ? kPathNotFound : error);
  }
  const std::uint32_t opened = attributesOf(file);
  if (opened != kInvalidAttributes && (opened & kReparsePoint) != 0) {
    CloseHandle(file);
    return failure(kPathFileAccess);
  }
  numbered_[number] = portable(file);
  return {};
}

Result<void> Win32FileSystem::putBytes(int number, std::string_view bytes) {
  if (!isOpen(number)) return failure(kBadFileNumber);
  return writeAll(native(numbered_[number]), bytes);
}

Result<void> Win32FileSystem::putBytesAt(int number, std::uint64_t position, std::string_view bytes) {
  if (!isOpen(number)) return failure(kBadFileNumber);
  if (position == 0) return failure(kInvalidCall);
  const std::uint64_t offset = position - 1;
  auto high = static_cast<LONG>(offset >> 32);
  const HANDLE file = native(numbered_[number]);
  SetLastError(NO_ERROR);
  const DWORD moved = SetFilePointer(file, static_cast<LONG>(offset), &high, FILE_BEGIN);
  if (moved == INVALID_SET_FILE_POINTER && GetLastError() != NO_ERROR) return failure(kPermissionDenied);
  return writeAll(file, bytes);
}

void Win32FileSystem::closeFile(int number) {
  if (isOpen(number)) {
    CloseHandle(native(numbered_[number]));
    numbered_[number] = kInvalidHandle;
  }
}

Result<int> Win32FileSystem::freeFile() {
  for (int number = 1; number <= kHighestFileNumber; ++number) {
    if (!isOpen(number)) return number;
  }
  return failure(kTooManyFiles);
}

Result<Handle> Win32FileSystem::holdFolder(const std::string& folder, bool mayBeLink) {
  const std::uint32_t attributes = getFileAttributes(folder);
  if (mayBeLink ? !isDirectory(attributes) : !isOwnFolder(attributes)) return failure(kPathNotFound);
  // The Windows 95 family cannot open folders, and has no links.
  if (!hasWideCalls()) return kInvalidHandle;
  // Sharing is checked for opens that read; without FILE_SHARE_DELETE the folder can be neither deleted nor renamed.
  const DWORD flags = FILE_FLAG_BACKUP_SEMANTICS | (mayBeLink ? 0 : FILE_FLAG_OPEN_REPARSE_POINT);
  const HANDLE handle = CreateFileA(folder.c_str(), FILE_LIST_DIRECTORY, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                    OPEN_EXISTING, flags, nullptr);
  if (handle == INVALID_HANDLE_VALUE) return failure(runTimeErrorNumber(GetLastError()));
  const std::uint32_t opened = attributesOf(handle);
  if (mayBeLink ? isDirectory(opened) : isOwnFolder(opened)) return portable(handle);
  CloseHandle(handle);
  return failure(kPathNotFound);
}

void Win32FileSystem::releaseFolder(Handle held) {
  if (held != kInvalidHandle) CloseHandle(native(held));
}

bool Win32FileSystem::flushFileBuffers(Handle handle) { return FlushFileBuffers(native(handle)) != FALSE; }

Result<std::string> Win32FileSystem::getFullPathName(const std::string& path) {
  const std::string full =
      pathFrom<char>([&path](DWORD size, char* out) { return GetFullPathNameA(path.c_str(), size, out, nullptr); });
  return full.empty() ? failure(kPathNotFound) : Result<std::string>(full);
}

Result<void> Win32FileSystem::moveFile(const std::string& from, const std::string& to) {
  return MoveFileA(from.c_str(), to.c_str()) != FALSE ? Result<void>{} : failure(runTimeErrorNumber(GetLastError()));
}

Result<void> Win32FileSystem::remove(const std::string& path) {
  return DeleteFileA(path.c_str()) != FALSE ? Result<void>{} : failure(runTimeErrorNumber(GetLastError()));
}

std::vector<Drive> Win32FileSystem::drives() {
  std::vector<Drive> drives;
  const DWORD present = GetLogicalDrives();
  for (char letter = 'A'; letter <= 'Z'; ++letter) {
    if ((present & (1u << (letter - 'A'))) != 0) drives.push_back({.letter = letter, .label = labelOf(letter)});
  }
  return drives;
}

std::string Win32FileSystem::currentFolder() {
  if (hasWideCalls()) return reachablePath(pathFrom<wchar_t>(GetCurrentDirectoryW));
  return reachablePath(pathFrom<char>(GetCurrentDirectoryA));
}

Result<std::string> Win32FileSystem::currentFolderOf(char letter) {
  const std::string drive = upperCaseOf({&letter, 1}) + ":";
  if (!isReady(drive[0])) return failure(kDeviceUnavailable);
  const std::wstring wideDrive = wideText(drive);
  const auto narrow = [&](DWORD size, char* out) { return GetFullPathNameA(drive.c_str(), size, out, nullptr); };
  const auto wide = [&](DWORD size, wchar_t* out) { return GetFullPathNameW(wideDrive.c_str(), size, out, nullptr); };
  const std::string folder =
      hasWideCalls() ? reachablePath(pathFrom<wchar_t>(wide)) : reachablePath(pathFrom<char>(narrow));
  if (folder.empty()) return rootOf(drive[0]);
  // Wine's GetFullPathName keeps the trailing backslash.
  return withoutClosingBackslash(folder);
}

Result<std::vector<std::string>> Win32FileSystem::subfolders(const std::string& folder) {
  return shownNames(folder, true);
}

Result<std::vector<std::string>> Win32FileSystem::filesIn(const std::string& folder) {
  return shownNames(folder, false);
}

Result<std::vector<std::string>> Win32FileSystem::shownNames(const std::string& folder, bool folders) {
  if (startsWithDrive(folder) && !isReady(folder[0])) return failure(kDeviceUnavailable);
  if (!isDirectory(getFileAttributes(folder))) return failure(kPathNotFound);
  const std::uint32_t shown = folders ? kDirectory : 0;
  std::vector<std::string> names;
  const std::string pattern = folder + (folder.ends_with('\\') ? "*.*" : "\\*.*");
  forEachEntry(*this, pattern, [&](const std::string& name, const FindRecord& record) {
    const bool isShown = (record.attributes & (kDirectory | kHidden | kSystem)) == shown;
    if (isShown && !isDotEntry(name)) names.push_back(name);
    return true;
  });
  std::ranges::sort(names, {}, upperCaseOf);
  return names;
}

bool Win32FileSystem::isOpen(int number) const {
  return number >= 1 && number <= kHighestFileNumber && numbered_[number] != kInvalidHandle;
}

}  // namespace platform::win32
