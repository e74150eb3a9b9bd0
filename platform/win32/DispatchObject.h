// An automation object that is driven by the names of its methods, so that the program needs none of its declarations
// and starts where the object's class is missing.
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

// One automation value, freed at its end.
class AutomationValue {
 public:
  AutomationValue() { VariantInit(&value_); }
  explicit AutomationValue(const std::string& text);
  explicit AutomationValue(bool truth);
  AutomationValue(const AutomationValue& other);
  AutomationValue& operator=(const AutomationValue&) = delete;
  AutomationValue(AutomationValue&& other) noexcept : value_(other.value_) { VariantInit(&other.value_); }
  ~AutomationValue() { VariantClear(&value_); }

  // What the value holds, converted to the asked kind; empty, 0 or false when it cannot be.
  std::string text() const;
  std::int32_t integer() const;
  bool truth() const;
  // Null when the value is no object. The value keeps it.
  IDispatch* object() const;

  VARIANT* out() { return &value_; }
  const VARIANT& raw() const { return value_; }

 private:
  VARIANT value_;
};

class DispatchObject {
 public:
  // Creates an object of the class registered as `programId`. Fails with 429. CLSIDFromProgID, CoCreateInstance.
  static Result<DispatchObject> create(const wchar_t* programId);
  // The object that `value` holds. Fails with 429 when it holds none.
  static Result<DispatchObject> from(const AutomationValue& value);

  // Calls a method, or reads a property, with `arguments` in the order in which they are written. A failure of the
  // object itself carries the run-time error number that it names, or else its own code. IDispatch::GetIDsOfNames,
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
