#include "platform/win32/DispatchObject.h"

#include <objbase.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "platform/win32/CodePage.h"

namespace platform::win32 {
namespace {

constexpr LCID kLocale = LOCALE_SYSTEM_DEFAULT;

BSTR wide(const std::string& text) {
  const std::wstring result = wideText(text);
  return SysAllocStringLen(result.data(), static_cast<UINT>(result.size()));
}

std::string narrow(BSTR text) {
  const int length = static_cast<int>(SysStringLen(text));
  const int bytes = WideCharToMultiByte(CP_ACP, 0, text, length, nullptr, 0, nullptr, nullptr);
  std::string result(static_cast<std::size_t>(bytes), '\0');
  WideCharToMultiByte(CP_ACP, 0, text, length, result.data(), bytes, nullptr, nullptr);
  return result;
}

// `value` converted to `type`; empty when there is no conversion.
AutomationValue converted(const AutomationValue& value, VARTYPE type) {
  AutomationValue result;
  VariantChangeType(result.out(), const_cast<VARIANT*>(&value.raw()), 0, type);
  return result;
}

// An HRESULT of FACILITY_CONTROL contains a run-time error number in its low word.
RuntimeError objectError(HRESULT code, BSTR description) {
  if (HRESULT_FACILITY(code) == FACILITY_CONTROL) return runtimeError(HRESULT_CODE(code));
  if (code == E_ACCESSDENIED) return runtimeError(kPermissionDenied);
  RuntimeError error = runtimeError(code);
  if (SysStringLen(description) != 0) error.text = narrow(description);
  return error;
}

// The HRESULT of a failed call. For DISP_E_EXCEPTION it is in EXCEPINFO: in scode, or in wCode for older objects.
HRESULT failureCode(HRESULT code, const EXCEPINFO& details) {
  if (code != DISP_E_EXCEPTION) return code;
  if (details.scode != 0) return details.scode;
  return details.wCode != 0 ? details.wCode : code;
}

// The error of a call that returned `code`; frees the strings in `details`.
RuntimeError callError(HRESULT code, EXCEPINFO& details) {
  if (code == DISP_E_EXCEPTION && details.pfnDeferredFillIn != nullptr) details.pfnDeferredFillIn(&details);
  RuntimeError error = objectError(failureCode(code, details), details.bstrDescription);
  SysFreeString(details.bstrSource);
  SysFreeString(details.bstrDescription);
  SysFreeString(details.bstrHelpFile);
  return error;
}

}  // namespace

AutomationValue::AutomationValue(const std::string& text) : AutomationValue() {
  value_.vt = VT_BSTR;
  value_.bstrVal = wide(text);
}

AutomationValue::AutomationValue(bool truth) : AutomationValue() {
  value_.vt = VT_BOOL;
  value_.boolVal = truth ? VARIANT_TRUE : VARIANT_FALSE;
}

AutomationValue::AutomationValue(const AutomationValue& other) : AutomationValue() {
  VariantCopy(&value_, const_cast<VARIANT*>(&other.value_));
}

std::string AutomationValue::text() const {
  const AutomationValue value = converted(*this, VT_BSTR);
  return value.value_.vt == VT_BSTR ? narrow(value.value_.bstrVal) : std::string();
}

std::int32_t AutomationValue::integer() const {
  const AutomationValue value = converted(*this, VT_I4);
  return value.value_.vt == VT_I4 ? value.value_.lVal : 0;
}

bool AutomationValue::truth() const {
  const AutomationValue value = converted(*this, VT_BOOL);
  return value.value_.vt == VT_BOOL && value.value_.boolVal != VARIANT_FALSE;
}

Result<double> AutomationValue::date() const {
  const AutomationValue value = converted(*this, VT_DATE);
  return value.value_.vt == VT_DATE ? Result<double>(value.value_.date) : failure(kTypeMismatch);
}

IDispatch* AutomationValue::object() const { return value_.vt == VT_DISPATCH ? value_.pdispVal : nullptr; }

Result<DispatchObject> DispatchObject::create(const wchar_t* programId) {
  CLSID classId;
  void* object = nullptr;
  if (FAILED(CLSIDFromProgID(programId, &classId)) ||
      FAILED(CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, &object))) {
    return failure(kCannotCreateObject);
  }
  return DispatchObject(static_cast<IDispatch*>(object));
}

Result<DispatchObject> DispatchObject::from(const AutomationValue& value) {
  IDispatch* object = value.object();
  if (object == nullptr) return failure(kCannotCreateObject);
  object->AddRef();
  return DispatchObject(object);
}

Result<AutomationValue> DispatchObject::call(const wchar_t* method,
                                             std::initializer_list<AutomationValue> arguments) const {
  return invoke(method, DISPATCH_METHOD, arguments);
}

Result<AutomationValue> DispatchObject::get(const wchar_t* property) const {
  return invoke(property, DISPATCH_PROPERTYGET, {});
}

Result<AutomationValue> DispatchObject::invoke(const wchar_t* member, WORD kind,
                                               std::initializer_list<AutomationValue> arguments) const {
  auto* name = const_cast<wchar_t*>(member);
  DISPID id = DISPID_UNKNOWN;
  if (const HRESULT code = object_->GetIDsOfNames(IID_NULL, &name, 1, kLocale, &id); FAILED(code)) {
    return std::unexpected(objectError(code, nullptr));
  }
  // Invoke() takes the arguments in reverse order and does not free them.
  std::vector<VARIANT> reversed(arguments.size());
  std::ranges::transform(arguments, reversed.rbegin(), &AutomationValue::raw);
  DISPPARAMS parameters = {reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
  AutomationValue result;
  EXCEPINFO details = {};
  const HRESULT code = object_->Invoke(id, IID_NULL, kLocale, kind, &parameters, result.out(), &details, nullptr);
  if (FAILED(code)) return std::unexpected(callError(code, details));
  return result;
}

}  // namespace platform::win32
