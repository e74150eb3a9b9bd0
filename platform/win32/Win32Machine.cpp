#include "platform/win32/Win32Machine.h"

#include <windows.h>

// Kept apart: the COM headers need <windows.h> before them.
#include <objbase.h>

#include <utility>

namespace platform::win32 {

Win32Machine::ComSession::ComSession() : started_(SUCCEEDED(CoInitialize(nullptr))) {}

Win32Machine::ComSession::~ComSession() {
  if (started_) CoUninitialize();
}

Win32Machine::Win32Machine(std::unique_ptr<Ui> ui) : ui_(std::move(ui)) {
  SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
}

Win32Machine::~Win32Machine() = default;

}  // namespace platform::win32
