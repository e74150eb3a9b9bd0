// Which Windows runs, as a name.
#pragma once

#include <string>

// The running Windows by name: "Windows 95", "Windows 98SE", "Windows XP" and so on; the empty text for a version
// without a name, such as one newer than them all, "Failed" for an unknown family. A version query that fails leaves
// the record at zero and so gives "Windows 3.1". GetVersionExA.
std::string GetWindowsVersionName();
