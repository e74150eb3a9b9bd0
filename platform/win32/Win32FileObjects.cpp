#include "platform/win32/Win32FileObjects.h"

#include <algorithm>
#include <initializer_list>
#include <utility>

#include "platform/win32/DispatchObject.h"

namespace platform::win32 {
namespace {

// What some objects give instead of a run-time error number.
constexpr std::int32_t kUnspecifiedFailure = static_cast<std::int32_t>(0x80004005);

bool isAnyOf(const RuntimeError& error, std::initializer_list<std::int32_t> numbers) {
  return std::ranges::find(numbers, error.number) != numbers.end();
}

// A file in a folder that is not there, or under a name that no file can have, is a file that is not there, whatever
// the object noticed first.
RuntimeError lookupError(const RuntimeError& error) {
  const bool isMissing = isAnyOf(error, {kPathNotFound, kBadFileNumber, kUnspecifiedFailure});
  return isMissing ? runtimeError(kFileNotFound) : error;
}

// Some objects have no word for a file that is in use.
RuntimeError deletionError(const RuntimeError& error) {
  return isAnyOf(error, {kUnspecifiedFailure}) ? runtimeError(kPermissionDenied) : lookupError(error);
}

}  // namespace

Win32FileObjects::Win32FileObjects() = default;

Win32FileObjects::~Win32FileObjects() = default;

bool Win32FileObjects::folderExists(const std::string& path) {
  const auto object = this->object();
  if (!object) {
    return false;
  }
  const auto exists = (*object)->call(L"FolderExists", {AutomationValue(path)});
  return exists && exists->truth();
}

Result<FileObject> Win32FileObjects::getFile(const std::string& path) {
  const auto object = this->object();
  if (!object) {
    return std::unexpected(object.error());
  }
  const auto found = (*object)->call(L"GetFile", {AutomationValue(path)});
  if (!found) {
    return std::unexpected(lookupError(found.error()));
  }
  const auto file = DispatchObject::from(*found);
  if (!file) {
    return std::unexpected(file.error());
  }
  const auto fullPath = file->get(L"Path");
  if (!fullPath) {
    return std::unexpected(fullPath.error());
  }
  const auto attributes = file->get(L"Attributes");
  if (!attributes) {
    return std::unexpected(attributes.error());
  }
  return FileObject{.path = fullPath->text(),
                    .attributes = static_cast<std::uint32_t>(attributes->integer()) & kFileObjectAttributes};
}

Result<void> Win32FileObjects::deleteFile(const std::string& path, bool force) {
  const auto object = this->object();
  if (!object) {
    return std::unexpected(object.error());
  }
  // Some objects pass over folders and report success.
  if (folderExists(path)) {
    return failure(kFileNotFound);
  }
  const auto deleted = (*object)->call(L"DeleteFile", {AutomationValue(path), AutomationValue(force)});
  return deleted ? Result<void>{} : std::unexpected(deletionError(deleted.error()));
}

Result<DispatchObject*> Win32FileObjects::object() {
  if (object_ == nullptr) {
    auto created = DispatchObject::create(L"Scripting.FileSystemObject");
    if (!created) {
      return std::unexpected(created.error());
    }
    object_ = std::make_unique<DispatchObject>(std::move(*created));
  }
  return object_.get();
}

}  // namespace platform::win32
