// A late-bound automation object: methods are looked up by name at run time, so that the program also starts where the
// object's class is not registered.
#pragma once

#include <windows.h>

// Kept apart: the automation headers need <windows.h> before them.
#include <oleauto.h>

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>

#include "platform/RuntimeError.h"

namespace platform::win32 {

// An automation value (VARIANT), cleared by its destructor.
class AutomationValue {
 public:
  AutomationValue() { VariantInit(&value_); }
  explicit AutomationValue(const std::string& text);
  explicit AutomationValue(bool truth);
  AutomationValue(const AutomationValue& other);
  AutomationValue& operator=(const AutomationValue&) = delete;
  AutomationValue(AutomationValue&& other) noexcept : value_(other.value_) { VariantInit(&other.value_); }
  ~AutomationValue() { VariantClear(&value_); }

  // The value converted to the type returned; empty, 0 or false when there is no conversion. VariantChangeType.
  std::string text() const;
  std::int32_t integer() const;
  bool truth() const;
  // The date. Fails with 13 when there is no conversion.
  Result<double> date() const;
  // The object, which remains owned by the value; null when the value is not an object.
  IDispatch* object() const;

  // For calls that write a VARIANT; the value must still be empty.
  VARIANT* out() { return &value_; }
  const VARIANT& raw() const { return value_; }

 private:
  VARIANT value_;
};

class DispatchObject {
 public:
  // Creates an object of the class registered as `programId`. Fails with 429. CLSIDFromProgID, CoCreateInstance.
  static Result<DispatchObject> create(const wchar_t* programId);
  // The object in `value`. Fails with 429 when `value` is not an object.
  static Result<DispatchObject> from(const AutomationValue& value);

  // call() calls a method with `arguments` in the order of its declaration, get() reads a property. Fails with the
  // run-time error number that the object returned, or else with its HRESULT. IDispatch::GetIDsOfNames,
  // IDispatch::Invoke.
  Result<AutomationValue> call(const wchar_t* method, std::initializer_list<AutomationValue> arguments) const;
  Result<AutomationValue> get(const wchar_t* property) const;

 private:
  struct Release {
    void operator()(IDispatch* object) const { object->Release(); }
  };

  explicit DispatchObject(IDispatch* owned) : object_(owned) {}
  Result<AutomationValue> invoke(const wchar_t* member, WORD kind,
                                 std::initializer_list<AutomationValue> arguments) const;

  std::unique_ptr<IDispatch, Release> object_;
};

}  // namespace platform::win32
