// The registry of the in-memory machine.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Registry.h"
#include "platform/memory/MemoryFaults.h"
#include "platform/memory/MemoryNames.h"
#include "platform/memory/MemoryVersion.h"

namespace platform::memory {

// A value as it is stored.
struct RegistryValue {
  std::uint32_t type = kRegistryText;
  std::string data;
};

class MemoryRegistry final : public Registry {
 public:
  // `version` decides between the NT line and the 95 family.
  MemoryRegistry(const MemoryVersion& version, MemoryFaults& faults) : version_(version), faults_(faults) {}

  // --- What another program does. Paths begin with a root's short name: "HKCU\Software".
  void addKey(const std::string& path);
  void set(const std::string& path, const std::string& name, RegistryValue value);
  void setText(const std::string& path, const std::string& name, const std::string& text) {
    set(path, name, {kRegistryText, text + '\0'});
  }
  void setNumber(const std::string& path, const std::string& name, std::uint32_t number);
  std::optional<RegistryValue> value(const std::string& path, const std::string& name) const;
  bool hasKey(const std::string& path) const { return keys_.contains(path); }
  // Every key below `path` and every value in it and them, in the order of their names: "Sub\", "Sub\Name=4:0a000000"
  // (the type, the bytes in hexadecimal digits).
  std::vector<std::string> contents(const std::string& path) const;
  // How many keys have been opened and not closed.
  std::size_t openKeys() const { return open_.size(); }

  std::int32_t openKey(RegistryKey key, const std::string& path, std::uint32_t access, RegistryKey& opened) override;
  std::int32_t createKey(RegistryKey key, const std::string& path, std::uint32_t access, RegistryKey& opened) override;
  std::int32_t queryValue(RegistryKey key, const std::string& name, std::uint32_t& type, std::span<char> buffer,
                          std::uint32_t& size) override;
  std::int32_t setValue(RegistryKey key, const std::string& name, std::uint32_t type, const std::string& data) override;
  std::int32_t deleteKey(RegistryKey key, const std::string& path) override;
  std::int32_t deleteValue(RegistryKey key, const std::string& name) override;
  std::int32_t closeKey(RegistryKey key) override;

 private:
  using Values = std::map<std::string, RegistryValue, NameOrder>;
  using Keys = std::map<std::string, Values, NameOrder>;  // by path: "HKCU\Software"
  struct OpenKey {
    std::string path;
    std::uint32_t access = 0;
  };

  // Stores the path of the key behind a handle that was opened for `access`.
  std::int32_t find(RegistryKey handle, std::uint32_t access, std::string& path) const;
  RegistryKey open(const std::string& path, std::uint32_t access);
  // Behind the last key at or below `path`.
  Keys::const_iterator endOf(const std::string& path) const;

  const MemoryVersion& version_;
  MemoryFaults& faults_;
  Keys keys_ = {{"HKCR", {}}, {"HKCU", {}}, {"HKLM", {}}, {"HKU", {}}, {"HKCC", {}}};
  std::map<RegistryKey, OpenKey> open_;
  RegistryKey lastHandle_ = 0x100;
};

}  // namespace platform::memory
