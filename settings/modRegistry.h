// The registry by short hive names and type letters, with INI files as another store under the same operations. Nothing
// is kept between calls, and nothing is shown.
//
// The hive is "HKCU", "HKLM", "HKU", "HKDD", "HKCC" or "HKCR" in any case, or the name of an INI file that exists; the
// key path then stands for the section and the value name for the entry. The type letter, in any case, is "S" for text,
// "B" for a truth value, "D" for a number; any other reads and writes nothing. A status is 0 for success,
// kUnknownHive, or the system's error code.
#pragma once

#include <cstdint>
#include <string>

#include "platform/Conversions.h"
#include "platform/Registry.h"
#include "platform/RuntimeError.h"

// Stands in a root key's place for an INI file.
inline constexpr platform::RegistryKey ROOT_KEY_INI_FILE = 1;

// The hive is no root key, and no file; or it is an INI file and the value to be written is no text.
inline constexpr std::int32_t kUnknownHive = 99;

// The root key that the hive name stands for, ROOT_KEY_INI_FILE when it names a file that is neither hidden nor of the
// system, 0 otherwise.
platform::RegistryKey GetRootKey(const std::string& hive);

// Stores the value in `result`, or `defaultValue` when it cannot be read; of an INI file only texts are given. An empty
// `valueName` asks for the key's default value. A text comes without its last byte, the closing NUL. Gives the status.
// When the value cannot be read the key stays open until the program ends.
// RegOpenKeyExA, RegQueryValueExA, RegCloseKey; GetPrivateProfileStringA, GetPrivateProfileIntA.
std::int32_t ReadRegistryValue(const std::string& hive, const std::string& keyPath, const std::string& valueName,
                               const std::string& type, const platform::Variant& defaultValue,
                               platform::Variant& result);

// The number `valueName` of the key as text; empty when it cannot be read.
std::string readNumberText(const std::string& hive, const std::string& keyPath, const std::string& valueName);

// Writes `value`, converted to the type, and makes missing keys; to an INI file only texts are written (any other
// type gives kUnknownHive), and whether that went well is not told. Numbers are 16 bits wide, and negative ones are
// stored as if they had no sign. Gives the status. Fails with 6 or 13 when the value cannot be converted; the key has
// been made by then. When the value cannot be converted or written the key stays open until the program ends.
// RegCreateKeyExA, RegSetValueExA, RegCloseKey; WritePrivateProfileStringA.
platform::Result<std::int32_t> WriteRegistryValue(const std::string& hive, const std::string& keyPath,
                                                  const std::string& valueName, const std::string& type,
                                                  const platform::Variant& value);

// Deletes the key `subKey` (a name, or several with backslashes between them) below `parentPath`. A key or a parent
// that is not there counts as success. Gives the status. The parent stays open until the program ends. RegOpenKeyExA,
// RegDeleteKeyA.
std::int32_t DeleteRegistryKey(const std::string& hive, const std::string& parentPath, const std::string& subKey);
