// Functions that an old Windows may lack are looked up when they are needed, so that the program loads without them.
#pragma once

#include <windows.h>

namespace platform::win32 {

// The function `name` of the system library `library`, which stays loaded; null when either is missing. `Function` is
// the function's pointer type. LoadLibraryA, GetProcAddress.
template <typename Function>
Function boundAtRunTime(const char* library, const char* name) {
  const HMODULE module = LoadLibraryA(library);
  return module == nullptr ? nullptr : reinterpret_cast<Function>(GetProcAddress(module, name));
}

}  // namespace platform::win32
