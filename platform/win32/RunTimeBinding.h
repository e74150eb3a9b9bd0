// Binding at run time, for functions that an old Windows lacks: importing them would keep the program from loading.
#pragma once

#include <windows.h>

namespace platform::win32 {

// The function `name` of the library `library`, which remains loaded; null when either is missing. `Function` is the
// type of a pointer to it. LoadLibraryA, GetProcAddress.
template <typename Function>
Function boundAtRunTime(const char* library, const char* name) {
  const HMODULE module = LoadLibraryA(library);
  return module == nullptr ? nullptr : reinterpret_cast<Function>(GetProcAddress(module, name));
}

}  // namespace platform::win32
