#include "platform/win32/Win32FileObjects.h"

#include <windows.h>

#include <algorithm>
#include <initializer_list>
#include <utility>
#include <vector>

#include "platform/Enumeration.h"
#include "platform/FolderHold.h"
#include "platform/Paths.h"
#include "platform/win32/DispatchObject.h"
#include "platform/win32/Win32FileSystem.h"

namespace platform::win32 {
namespace {

// Wine's object returns it where Windows returns a run-time error number.
constexpr auto kUnspecifiedFailure = static_cast<std::int32_t>(E_FAIL);

bool isAnyOf(const RuntimeError& error, std::initializer_list<std::int32_t> numbers) {
  return std::ranges::find(numbers, error.number) != numbers.end();
}

// A missing folder or an invalid name is reported as a missing file. Wine's object returns other codes for them.
RuntimeError lookupError(const RuntimeError& error) {
  const bool isMissing = isAnyOf(error, {kPathNotFound, kBadFileNumber, kUnspecifiedFailure});
  return isMissing ? runtimeError(kFileNotFound) : error;
}

// Wine's object returns E_FAIL for a file that is in use.
RuntimeError deletionError(const RuntimeError& error) {
  return isAnyOf(error, {kUnspecifiedFailure}) ? runtimeError(kPermissionDenied) : lookupError(error);
}

std::string fullPath(const std::string& path) {
  std::string full(GetFullPathNameA(path.c_str(), 0, nullptr, nullptr), '\0');
  full.resize(GetFullPathNameA(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
  while (full.ends_with('\\')) full.pop_back();
  return full;
}

// The parent of a root is the root itself.
bool isRoot(const std::string& folder) { return fullPath(folder) == fullPath(folder + "\\.."); }

std::vector<std::string> namesIn(const std::string& folder) {
  std::vector<std::string> names;
  Win32FileSystem files;
  forEachEntry(files, folder + "\\*", [&names](const std::string& name, const FindRecord&) {
    if (!isDotEntry(name)) names.push_back(name);
    return true;
  });
  return names;
}

// Whether the system opens the link itself. Wine opens its target instead, and RemoveDirectoryA would remove that.
bool opensAsLink(const std::string& link) {
  const HANDLE handle = CreateFileA(link.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                                    FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
  if (handle == INVALID_HANDLE_VALUE) return false;
  BY_HANDLE_FILE_INFORMATION info = {};
  const BOOL known = GetFileInformationByHandle(handle, &info);
  CloseHandle(handle);
  return known != FALSE && (info.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
}

// Removes an empty folder or a link.
Result<void> removeEntry(const std::string& path, std::uint32_t attributes) {
  if ((attributes & kReadOnly) != 0) SetFileAttributesA(path.c_str(), attributes & ~kReadOnly);
  return RemoveDirectoryA(path.c_str()) != FALSE ? Result<void>{} : failure(kPermissionDenied);
}

}  // namespace

Win32FileObjects::Win32FileObjects() = default;

Win32FileObjects::~Win32FileObjects() = default;

Result<void> Win32FileObjects::create() {
  const auto created = object();
  return created ? Result<void>{} : std::unexpected(created.error());
}

bool Win32FileObjects::folderExists(const std::string& path) {
  const auto object = this->object();
  if (!object) return false;
  const auto exists = (*object)->call(L"FolderExists", {AutomationValue(path)});
  return exists && exists->truth();
}

Result<FileObject> Win32FileObjects::getFile(const std::string& path) {
  const auto object = this->object();
  if (!object) return std::unexpected(object.error());
  const auto found = (*object)->call(L"GetFile", {AutomationValue(path)});
  if (!found) return std::unexpected(lookupError(found.error()));
  const auto file = DispatchObject::from(*found);
  if (!file) return std::unexpected(file.error());
  const auto fullPath = file->get(L"Path");
  if (!fullPath) return std::unexpected(fullPath.error());
  const auto attributes = file->get(L"Attributes");
  if (!attributes) return std::unexpected(attributes.error());
  return FileObject{.path = fullPath->text(),
                    .attributes = static_cast<std::uint32_t>(attributes->integer()) & kFileObjectAttributes};
}

Result<void> Win32FileObjects::deleteFile(const std::string& path, bool force) {
  const auto object = this->object();
  if (!object) return std::unexpected(object.error());
  // Wine's object skips folders and reports success.
  if (folderExists(path)) return failure(kFileNotFound);
  const auto deleted = (*object)->call(L"DeleteFile", {AutomationValue(path), AutomationValue(force)});
  return deleted ? Result<void>{} : std::unexpected(deletionError(deleted.error()));
}

Result<void> Win32FileObjects::deleteFolder(const std::string& path, bool force) {
  if (const auto object = this->object(); !object) return std::unexpected(object.error());
  if (!isDirectory(GetFileAttributesA(path.c_str()))) return failure(kPathNotFound);
  if (isRoot(path)) return failure(kPermissionDenied);
  return deleteTree(fullPath(path), force);
}

// Walks the tree itself, because Wine's DeleteFolder follows links and deletes what they point to.
Result<void> Win32FileObjects::deleteTree(const std::string& folder, bool force) {
  const std::uint32_t attributes = GetFileAttributesA(folder.c_str());
  if (!isDirectory(attributes) || (!force && (attributes & kReadOnly) != 0)) return failure(kPermissionDenied);
  if (!isOwnFolder(attributes)) {
    return opensAsLink(folder) ? removeEntry(folder, attributes) : failure(kPermissionDenied);
  }
  if (const Result<void> emptied = emptyFolder(folder, force); !emptied) return emptied;
  return removeEntry(folder, attributes);
}

// The folder is held meanwhile, so that it cannot be replaced by a link to another place.
Result<void> Win32FileObjects::emptyFolder(const std::string& folder, bool force) {
  Win32FileSystem files;
  FolderHold hold(files, folder);
  if (!hold.holdAbove(folder + "\\*")) return failure(kPermissionDenied);
  for (const std::string& name : namesIn(folder)) {
    const std::string path = folder + '\\' + name;
    const bool isFolder = isDirectory(GetFileAttributesA(path.c_str()));
    const Result<void> deleted = isFolder ? deleteTree(path, force) : deleteFile(path, force);
    if (!deleted) return failure(kPermissionDenied);
  }
  return {};
}

Result<DispatchObject*> Win32FileObjects::object() {
  if (object_ == nullptr) {
    auto created = DispatchObject::create(L"Scripting.FileSystemObject");
    if (!created) return std::unexpected(created.error());
    object_ = std::make_unique<DispatchObject>(std::move(*created));
  }
  return object_.get();
}

}  // namespace platform::win32
