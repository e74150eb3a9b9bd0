#include "platform/win32/Win32ScriptShell.h"

#include "platform/win32/DispatchObject.h"

namespace platform::win32 {
namespace {

// The result of one method of a new object.
Result<AutomationValue> callNew(const wchar_t* method, std::initializer_list<AutomationValue> arguments) {
  const auto object = DispatchObject::create(L"WScript.Shell");
  return object ? object->call(method, arguments) : std::unexpected(object.error());
}

// Whether a call failed because the scripting host is missing or lacks the method. Wine lacks RegDelete.
bool isLacking(const RuntimeError& error) {
  return error.number == kCannotCreateObject || error.number == static_cast<std::int32_t>(E_NOTIMPL) ||
         error.number == static_cast<std::int32_t>(DISP_E_UNKNOWNNAME);
}

}  // namespace

Result<std::string> Win32ScriptShell::regRead(const std::string& path) {
  const auto value = callNew(L"RegRead", {AutomationValue(path)});
  if (!value) return isLacking(value.error()) ? substitute_.regRead(path) : std::unexpected(value.error());
  if ((value->raw().vt & VT_ARRAY) != 0) return failure(kTypeMismatch);
  return value->text();
}

Result<void> Win32ScriptShell::regWrite(const std::string& path, const std::string& text) {
  const auto written = callNew(L"RegWrite", {AutomationValue(path), AutomationValue(text)});
  if (!written) return isLacking(written.error()) ? substitute_.regWrite(path, text) : std::unexpected(written.error());
  return {};
}

Result<void> Win32ScriptShell::regDelete(const std::string& path) {
  const auto deleted = callNew(L"RegDelete", {AutomationValue(path)});
  if (!deleted) return isLacking(deleted.error()) ? substitute_.regDelete(path) : std::unexpected(deleted.error());
  return {};
}

}  // namespace platform::win32
