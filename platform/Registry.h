// The registry (advapi32). Key paths and value names are without regard to case.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace platform {

// An open key, or one of the roots, which are always open.
using RegistryKey = std::uintptr_t;
inline constexpr RegistryKey kClassesRoot = 0x80000000;
inline constexpr RegistryKey kCurrentUser = 0x80000001;
inline constexpr RegistryKey kLocalMachine = 0x80000002;
inline constexpr RegistryKey kUsers = 0x80000003;
inline constexpr RegistryKey kCurrentConfig = 0x80000005;
inline constexpr RegistryKey kDynamicData = 0x80000006;

// A root under its names. Script paths use the long name, and the short one where `isShortInScripts`.
struct RootName {
  std::string_view shortName;
  std::string_view longName;  // empty when script paths cannot name the root
  RegistryKey key;
  bool isShortInScripts;
};
inline constexpr RootName kRootNames[] = {
    {"HKCU", "HKEY_CURRENT_USER", kCurrentUser, true},
    {"HKLM", "HKEY_LOCAL_MACHINE", kLocalMachine, true},
    {"HKU", "HKEY_USERS", kUsers, false},
    {"HKDD", "", kDynamicData, false},
    {"HKCC", "HKEY_CURRENT_CONFIG", kCurrentConfig, false},
    {"HKCR", "HKEY_CLASSES_ROOT", kClassesRoot, true},
};

// What a key is opened for, to be added up. The 95 family does not check it.
inline constexpr std::uint32_t kQueryValue = 1;
inline constexpr std::uint32_t kSetValue = 2;
inline constexpr std::uint32_t kCreateSubKey = 4;

// Types of values.
inline constexpr std::uint32_t kRegistryText = 1;
inline constexpr std::uint32_t kRegistryExpandableText = 2;
inline constexpr std::uint32_t kRegistryBinary = 3;
inline constexpr std::uint32_t kRegistryNumber = 4;

// Codes that the operations return.
inline constexpr std::int32_t kRegistryDone = 0;
inline constexpr std::int32_t kRegistryNotFound = 2;
inline constexpr std::int32_t kRegistryAccessDenied = 5;
inline constexpr std::int32_t kRegistryInvalidHandle = 6;
inline constexpr std::int32_t kRegistryMoreData = 234;

// Every operation returns kRegistryDone or the system's error code.
class Registry {
 public:
  virtual ~Registry() = default;

  // RegOpenKeyExA with options 0. Stores the open key in `opened`. A path may end in a backslash; an empty one opens
  // `key` once more. kRegistryNotFound when there is no such key.
  virtual std::int32_t openKey(RegistryKey key, const std::string& path, std::uint32_t access, RegistryKey& opened) = 0;
  // RegCreateKeyExA for a key that outlives a restart, with an empty class and the usual security. Opens the key, which
  // is made with its missing parents when it is not there.
  virtual std::int32_t createKey(RegistryKey key, const std::string& path, std::uint32_t access,
                                 RegistryKey& opened) = 0;
  // RegQueryValueExA. The size passed is the buffer's; it must have an address even when it is empty. Stores the
  // value's type, its bytes and their number (`size`). A buffer that is too small returns kRegistryMoreData and the
  // number only. An empty `name` asks for the key's default value. kRegistryNotFound when there is no such value.
  virtual std::int32_t queryValue(RegistryKey key, const std::string& name, std::uint32_t& type, std::span<char> buffer,
                                  std::uint32_t& size) = 0;
  // RegSetValueExA. The size passed is that of `data`. The system itself may include the NUL that follows a text.
  virtual std::int32_t setValue(RegistryKey key, const std::string& name, std::uint32_t type,
                                const std::string& data) = 0;
  // RegDeleteKeyA. Deletes the key at `path` below `key`, whatever that was opened for. The NT line refuses a key that
  // has subkeys (kRegistryAccessDenied), the 95 family deletes them with it.
  virtual std::int32_t deleteKey(RegistryKey key, const std::string& path) = 0;
  // RegDeleteValueA.
  virtual std::int32_t deleteValue(RegistryKey key, const std::string& name) = 0;
  // RegCloseKey.
  virtual std::int32_t closeKey(RegistryKey key) = 0;
};

}  // namespace platform
