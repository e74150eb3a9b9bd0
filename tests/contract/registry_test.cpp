// The registry, private-profile files, and the scripting host's way to the registry.
#include <optional>
#include <span>

#include "tests/contract/ContractTest.h"

namespace contract {
namespace {

using testing::Optional;

const std::string kTen("\x0A\0\0\0", 4);

class RegistryContract : public ContractTest {
 protected:
  Registry& registry() { return machine().registry(); }

  // The full path of a key in the working key.
  std::string key(const std::string& name) { return testMachine().keyRoot() + '\\' + name; }

  // The open key; 0 when there is none.
  RegistryKey open(const std::string& path, std::uint32_t access) {
    RegistryKey opened = 0;
    registry().openKey(kCurrentUser, key(path), access, opened);
    return opened;
  }
  bool hasKey(const std::string& path) { return registry().closeKey(open(path, kQueryValue)) == kRegistryDone; }

  // Stores a value in a key, which is made with its missing parents.
  void store(const std::string& path, const std::string& name, std::uint32_t kind = kRegistryNumber,
             const std::string& bytes = kTen) {
    RegistryKey opened = 0;
    EXPECT_EQ(registry().createKey(kCurrentUser, key(path), kSetValue, opened), kRegistryDone) << path;
    EXPECT_EQ(registry().setValue(opened, name, kind, bytes), kRegistryDone) << name;
    registry().closeKey(opened);
  }
  // The bytes of a value; nothing when it is not there.
  std::optional<std::string> stored(const std::string& path, const std::string& name) {
    const RegistryKey opened = open(path, kQueryValue);
    const std::int32_t code = query(opened, name, 100);
    registry().closeKey(opened);
    return code == kRegistryDone ? std::optional(buffer.substr(0, size)) : std::nullopt;
  }

  bool isNtLine() {
    VersionRecord version{.size = kVersionRecordSize};
    EXPECT_TRUE(machine().version().getVersionEx(version));
    return version.platformId == 2;
  }

  // What a query into a buffer of `room` bytes gives.
  std::int32_t query(RegistryKey from, const std::string& name, std::size_t room) {
    buffer.assign(room + 1, '#');
    size = type = 0;
    return registry().queryValue(from, name, type, std::span(buffer).first(room), size);
  }

  std::string buffer;
  std::uint32_t type = 0;
  std::uint32_t size = 0;
};

TEST_F(RegistryContract, KeysAreMadeWithTheirParentsAndFoundWithoutRegardToCaseOrAClosingBackslash) {
  for (const char* path : {"Parent\\Child\\*\\", "Parent", "parent"}) store(path, path);
  EXPECT_THAT(stored("Parent", "Parent\\Child\\*\\"), std::nullopt);
  EXPECT_THAT(stored("Parent", "Parent"), Optional(kTen)) << "a key that is there stays as it is";
  for (const char* path : {"parent\\CHILD", "Parent\\Child\\", "Parent\\Child\\*"}) EXPECT_TRUE(hasKey(path)) << path;
  RegistryKey opened = 0;
  EXPECT_EQ(registry().openKey(kCurrentUser, key("Missing"), kQueryValue, opened), kRegistryNotFound);
}

TEST_F(RegistryContract, ATextIsStoredWithItsNulAndReadIntoALargeEnoughBufferOnly) {
  const std::string empty = isNtLine() ? std::string() : std::string(1, '\0');
  const std::string cut = isNtLine() ? std::string("abc\0def\0", 8) : std::string("abc\0", 4);
  store("K", "number");
  for (const std::string& text : {std::string(), std::string("abc"), std::string("abc\0def", 7)}) {
    store("K", "text" + std::to_string(text.size()), kRegistryText, text);
  }
  const RegistryKey opened = open("K", kQueryValue);
  const std::tuple<const char*, std::size_t, std::int32_t, std::string> cases[] = {
      {"NUMBER", 32, kRegistryDone, kTen},
      {"text3", 0, kRegistryMoreData, std::string("abc\0", 4)},
      {"text3", 3, kRegistryMoreData, std::string("abc\0", 4)},
      {"text3", 4, kRegistryDone, std::string("abc\0", 4)},
      {"text0", 1, kRegistryDone, empty},
      {"text7", 32, kRegistryDone, cut}};
  for (const auto& [name, room, code, bytes] : cases) {
    EXPECT_EQ(query(opened, name, room), code) << name << room;
    EXPECT_EQ(size, bytes.size()) << name << room;
    EXPECT_TRUE(code == kRegistryMoreData || buffer.substr(0, size + 1) == bytes + '#') << name << room;
    EXPECT_EQ(type, *name == 'N' ? kRegistryNumber : kRegistryText) << name;
  }
  for (const char* name : {"missing", ""}) EXPECT_EQ(query(opened, name, 32), kRegistryNotFound) << name;
  registry().closeKey(opened);
  store("K", "");
  EXPECT_THAT(stored("K", ""), Optional(kTen));
}

TEST_F(RegistryContract, AKeyServesWhatItWasOpenedForOnTheNtLine) {
  const std::int32_t expected = isNtLine() ? kRegistryAccessDenied : kRegistryDone;
  for (const char* name : {"v", "w"}) store("K", name);
  const RegistryKey reading = open("K", kQueryValue);
  const RegistryKey writing = open("K", kSetValue);
  EXPECT_EQ(registry().setValue(reading, "v", kRegistryNumber, kTen), expected);
  EXPECT_EQ(registry().deleteValue(reading, "w"), expected);
  EXPECT_EQ(query(writing, "v", 32), expected);
  for (const RegistryKey opened : {reading, writing}) EXPECT_EQ(registry().closeKey(opened), kRegistryDone);
}

TEST_F(RegistryContract, DeletionAsksForNoRightOfTheParentAndTellsWhatIsMissing) {
  for (const char* path : {"K\\Sub", "K\\Subtle", "K\\Old\\Sub"}) store(path, "v");
  const RegistryKey values = open("K\\Sub", kSetValue);
  const RegistryKey parent = open("K", kCreateSubKey);
  for (const std::int32_t code : {kRegistryDone, kRegistryNotFound})
    EXPECT_EQ(registry().deleteValue(values, "V"), code);
  registry().closeKey(values);
  for (const std::int32_t code : {kRegistryDone, kRegistryNotFound})
    EXPECT_EQ(registry().deleteKey(parent, "sub"), code);
  // Only the older family deletes a key with subkeys.
  EXPECT_EQ(registry().deleteKey(parent, "Old"), isNtLine() ? kRegistryAccessDenied : kRegistryDone);
  registry().closeKey(parent);
  EXPECT_EQ(hasKey("K\\Old\\Sub"), isNtLine());
  EXPECT_TRUE(stored("K\\Subtle", "v"));
}

TEST_F(RegistryContract, ProfileFilesKeepTextsByNamesInAnyCase) {
  ProfileFile& profiles = machine().profiles();
  const std::string file = at("new.ini");
  for (const char* entry : {"a", "b", "A"}) EXPECT_TRUE(profiles.writeString("S", entry, "\" kept \"", file));
  EXPECT_EQ(testMachine().readBack(file), "[S]\r\na=\" kept \"\r\nb=\" kept \"\r\n");
  for (const auto& [entry, room, text] : {std::tuple("B", 255, " kept "), {"b", 4, " ke"}, {"none", 255, "other"}}) {
    std::string read(static_cast<std::size_t>(room), '#');
    const std::uint32_t length = profiles.getString("s", entry, "other", read, file);
    EXPECT_EQ(read.substr(0, length + 1), std::string(text) + '\0') << entry << room;
  }
}

class ScriptContract : public RegistryContract {};

TEST_F(ScriptContract, WritesReadsAndDeletesValuesAndKeys) {
  ScriptShell& shell = machine().scriptShell();
  const std::string parent = "HKEY_CURRENT_USER\\" + key("New\\");
  const std::string path = parent + "Key\\";
  for (const auto& [name, text] : {std::pair("", "the default"), {"v", "a value"}}) {
    EXPECT_TRUE(shell.regWrite(path + name, text)) << name;
    EXPECT_EQ(shell.regRead(path + name).value(), text);
  }
  EXPECT_THAT(stored("New\\Key", ""), Optional(std::string("the default\0", 12)));
  store("New\\Key", "n");
  EXPECT_EQ(shell.regRead(path + "n").value(), "10");
  EXPECT_TRUE(shell.regDelete(path + "v"));
  EXPECT_FALSE(stored("New\\Key", "v"));
  EXPECT_TRUE(stored("New\\Key", "n"));
  EXPECT_EQ(numberOf(shell.regDelete(parent)), isNtLine() ? kPermissionDenied : 0) << "it has a subkey";
  EXPECT_EQ(hasKey("New\\Key"), isNtLine());
  EXPECT_EQ(shell.regDelete(path).has_value(), isNtLine());
  EXPECT_FALSE(hasKey("New\\Key"));
  EXPECT_EQ(numberOf(shell.regRead(path + "n")), kScriptPathNotFound);
  for (const std::string& missing : {path, path + "n", std::string("NO_SUCH_ROOT\\K\\")}) {
    EXPECT_EQ(numberOf(shell.regDelete(missing)), kScriptPathNotFound) << missing;
  }
}

}  // namespace
}  // namespace contract
