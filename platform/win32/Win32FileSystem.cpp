#include "platform/win32/Win32FileSystem.h"

#include <windows.h>

#include <algorithm>
#include <cstring>
#include <optional>

#include "platform/Paths.h"
#include "platform/win32/CodePage.h"
#include "platform/win32/LastError.h"

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

bool hasWideCalls() {
  constexpr DWORD kWindows9x = 0x80000000;
  return (GetVersion() & kWindows9x) == 0;
}

// The name in the code page; empty when later calls could not find the file by it.
std::string codePageName(const wchar_t* name) { return exactText(name).value_or(""); }

// The system has replaced a character that the code page lacks by "?", a wildcard, or by a similar character.
std::string codePageName(const char* name) {
  for (const char* letter = name; *letter != '\0'; letter = CharNextA(letter)) {
    if (std::strchr("?\\/", *letter) != nullptr) return "";
  }
  return name;
}

// The system removes trailing spaces and dots from a path, so that it would be the path of another file.
bool losesItsEnd(std::string_view name) { return (name.ends_with(' ') || name.ends_with('.')) && !isDotEntry(name); }

// Stores the entry under its long name, or under the short one when the code page lacks the long one; false when later
// calls could not find it under either.
template <typename Found>
bool store(const Found& found, FindRecord& record) {
  std::string name = codePageName(found.cFileName);
  if (name.empty()) name = codePageName(found.cAlternateFileName);
  if (name.empty() || name.size() >= record.name.size() || losesItsEnd(name)) return false;
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

// The low 32 bits of the length of the file. Opening it with access 0 succeeds despite most locks.
std::optional<std::uint32_t> lengthByHandle(const std::string& path) {
  const HANDLE file =
      CreateFileA(path.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr);
  if (file == INVALID_HANDLE_VALUE) return std::nullopt;
  SetLastError(NO_ERROR);
  const DWORD length = GetFileSize(file, nullptr);
  const bool failed = length == INVALID_FILE_SIZE && GetLastError() != NO_ERROR;
  CloseHandle(file);
  return failed ? std::nullopt : std::optional<std::uint32_t>(length);
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

std::uint32_t Win32FileSystem::getFileAttributes(const std::string& path) { return GetFileAttributesA(path.c_str()); }

Result<std::int32_t> Win32FileSystem::fileLength(const std::string& path) {
  const std::optional<std::uint32_t> length = lengthByHandle(path);
  return length ? Result<std::int32_t>(static_cast<std::int32_t>(*length)) : failure(kFileNotFound);
}

bool Win32FileSystem::anyFileMatches(const std::string& pattern, std::uint32_t mask) {
  const std::uint32_t unwanted = (kReadOnly | kHidden | kSystem | kDirectory) & ~mask;
  FindRecord record;
  const Handle enumeration = findFirstFile(pattern, record);
  if (enumeration == kInvalidHandle) return false;
  bool matches = (record.attributes & unwanted) == 0;
  while (!matches && findNextFile(enumeration, record)) matches = (record.attributes & unwanted) == 0;
  findClose(enumeration);
  return matches;
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
  const HANDLE file = CreateFileA(path.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                  nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) {
    const std::int32_t error = runTimeErrorNumber(GetLastError());
    // OPEN_ALWAYS creates a missing file, so it is the folder that was not found.
    return failure(error == kFileNotFound ? kPathNotFound : error);
  }
  numbered_[number] = portable(file);
  return {};
}

Result<void> Win32FileSystem::putBytes(int number, std::string_view bytes) {
  if (!isOpen(number)) return failure(kBadFileNumber);
  return writeAll(native(numbered_[number]), bytes);
}

Result<void> Win32FileSystem::putBytesAt(int number, std::uint32_t position, std::string_view bytes) {
  if (!isOpen(number)) return failure(kBadFileNumber);
  if (position == 0) return failure(kInvalidCall);
  LONG high = 0;
  const HANDLE file = native(numbered_[number]);
  SetLastError(NO_ERROR);
  const DWORD moved = SetFilePointer(file, static_cast<LONG>(position - 1), &high, FILE_BEGIN);
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

bool Win32FileSystem::flushFileBuffers(Handle handle) { return FlushFileBuffers(native(handle)) != FALSE; }

Result<std::string> Win32FileSystem::getFullPathName(const std::string& path) {
  std::array<char, MAX_PATH + 1> full{};
  const DWORD length = GetFullPathNameA(path.c_str(), full.size(), full.data(), nullptr);
  if (length == 0 || length >= full.size()) return failure(kPathNotFound);
  return std::string(full.data());
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
  std::array<char, MAX_PATH + 1> folder{};
  GetCurrentDirectoryA(folder.size(), folder.data());
  return folder.data();
}

Result<std::string> Win32FileSystem::currentFolderOf(char letter) {
  const std::string drive = upperCaseOf({&letter, 1}) + ":";
  if (!isReady(drive[0])) return failure(kDeviceUnavailable);
  std::array<char, MAX_PATH + 1> folder{};
  const DWORD length = GetFullPathNameA(drive.c_str(), folder.size(), folder.data(), nullptr);
  if (length == 0 || length >= folder.size()) return rootOf(drive[0]);
  // Wine adds a trailing backslash.
  return withoutClosingBackslash(folder.data());
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
  FindRecord record;
  const Handle enumeration = findFirstFile(folder + (folder.ends_with('\\') ? "*.*" : "\\*.*"), record);
  for (bool more = enumeration != kInvalidHandle; more; more = findNextFile(enumeration, record)) {
    const bool isShown = (record.attributes & (kDirectory | kHidden | kSystem)) == shown;
    if (isShown && !isDotEntry(record.name.data())) names.emplace_back(record.name.data());
  }
  if (enumeration != kInvalidHandle) findClose(enumeration);
  std::ranges::sort(names, {}, upperCaseOf);
  return names;
}

bool Win32FileSystem::isOpen(int number) const {
  return number >= 1 && number <= kHighestFileNumber && numbered_[number] != kInvalidHandle;
}

}  // namespace platform::win32
