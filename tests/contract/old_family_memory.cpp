// The machine in memory as one of the Windows 95 family. Wine shows what the real one does when it plays Windows 98:
// see the registry tests.
#include <gtest/gtest.h>

#include "platform/memory/MemoryMachine.h"

namespace platform::memory {
namespace {

TEST(OldFamily, StoresTextsUpToTheirNulDeletesKeysWithTheirSubkeysAndIgnoresAccessRights) {
  MemoryMachine machine;
  machine.version().set({.major = 4, .minor = 10, .platformId = 1});
  MemoryRegistry& registry = machine.registry();
  registry.addKey("HKCU\\K\\Sub");
  RegistryKey key = 0;
  ASSERT_EQ(registry.openKey(kCurrentUser, "K", kQueryValue, key), kRegistryDone);
  for (const std::string& text : {std::string(), std::string("abc"), std::string("abc\0def", 7)}) {
    EXPECT_EQ(registry.setValue(key, "v", kRegistryText, text), kRegistryDone);
    EXPECT_EQ(registry.value("HKCU\\K", "v")->data, text.substr(0, 3) + '\0');
  }
  EXPECT_EQ(registry.deleteKey(kCurrentUser, "K"), kRegistryDone);
  EXPECT_FALSE(registry.hasKey("HKCU\\K\\Sub"));
}

}  // namespace
}  // namespace platform::memory
