// The files that the user has dropped from the Explorer.
#pragma once

#include <windows.h>

// Kept apart: the shell's header needs <windows.h> before it.
#include <shellapi.h>

#include <string>
#include <vector>

namespace platform::win32 {

// The full paths of what WM_DROPFILES brings; one that the code page cannot hold is empty. Frees `drop`.
// DragQueryFileW, DragQueryFileA, DragFinish.
std::vector<std::string> droppedPaths(HDROP drop);

}  // namespace platform::win32
