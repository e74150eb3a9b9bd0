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

  // The open key; 0 when it cannot be opened, or made with its missing parents.
  RegistryKey open(const std::string& path, std::uint32_t access) {
    RegistryKey opened = 0;
    registry().openKey(kCurrentUser, key(path), access, opened);
    return opened;
  }
  RegistryKey create(const std::string& path) {
    RegistryKey opened = 0;
    EXPECT_EQ(registry().createKey(kCurrentUser, key(path), kSetValue, opened), kRegistryDone) << path;
    return opened;
  }
  bool close(RegistryKey opened) { return registry().closeKey(opened) == kRegistryDone; }
  bool hasKey(const std::string& path) { return close(open(path, kQueryValue)); }

  void store(const std::string& path, const std::string& name, std::uint32_t kind = kRegistryNumber,
             const std::string& bytes = kTen) {
    const RegistryKey opened = create(path);
    EXPECT_EQ(registry().setValue(opened, name, kind, bytes), kRegistryDone) << name;
    close(opened);
  }
  // The bytes of a value; nothing when it is not there.
  std::optional<std::string> stored(const std::string& path, const std::string& name) {
    const RegistryKey opened = open(path, kQueryValue);
    const std::int32_t code = query(opened, name, 100);
    close(opened);
    return code == kRegistryDone ? std::optional(buffer.substr(0, size)) : std::nullopt;
  }

  bool isNtLine() {
    VersionRecord version;
    EXPECT_FALSE(machine().version().getVersionEx(version)) << "the record tells no size";
    version.size = kVersionRecordSize;
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
  close(create("Parent\\Child\\*\\"));
  store("Parent", "v");
  close(create("parent"));
  EXPECT_THAT(stored("Parent", "v"), Optional(kTen)) << "a key that is there stays as it is";
  for (const char* path : {"parent\\CHILD", "Parent\\Child\\", "Parent\\Child\\*"}) EXPECT_TRUE(hasKey(path)) << path;
  const RegistryKey parent = open("Parent", kCreateSubKey);
  RegistryKey opened = 77;
  EXPECT_EQ(registry().openKey(parent, "Missing", kQueryValue, opened), kRegistryNotFound);
  EXPECT_EQ(registry().openKey(1, "x", kQueryValue, opened), kRegistryInvalidHandle);
  EXPECT_EQ(opened, 77U);
  EXPECT_EQ(registry().openKey(parent, "child", kQueryValue, opened), kRegistryDone);
  EXPECT_TRUE(close(opened) && close(parent));
}

TEST_F(RegistryContract, QueriesTellTheSizeAndFillOnlyABufferThatIsLargeEnough) {
  store("K", "number");
  store("K", "text", kRegistryText, std::string("abc\0", 4));
  const RegistryKey opened = open("K", kQueryValue);
  EXPECT_EQ(query(opened, "NUMBER", 32), kRegistryDone);
  EXPECT_EQ(type, kRegistryNumber);
  EXPECT_EQ(size, 4U);
  EXPECT_EQ(buffer.substr(0, 5), kTen + '#');
  for (const std::size_t room : {0, 3}) {
    EXPECT_EQ(query(opened, "text", room), kRegistryMoreData);
    EXPECT_EQ(size, 4U);
  }
  EXPECT_EQ(query(opened, "text", 4), kRegistryDone);
  EXPECT_EQ(type, kRegistryText);
  EXPECT_EQ(buffer, std::string("abc\0#", 5));
  EXPECT_EQ(query(opened, "missing", 32), kRegistryNotFound);
  EXPECT_EQ(query(opened, "", 32), kRegistryNotFound) << "no default value";
  close(opened);
}

TEST_F(RegistryContract, ATextIsStoredWithTheNulThatStandsBehindIt) {
  store("K", "text", kRegistryText, "abc");
  store("K", "empty", kRegistryText, "");
  store("K", "");
  EXPECT_THAT(stored("K", "text"), Optional(std::string("abc\0", 4)));
  EXPECT_THAT(stored("K", "empty"), Optional(isNtLine() ? std::string() : std::string(1, '\0')));
  EXPECT_THAT(stored("K", ""), Optional(kTen));
}

TEST_F(RegistryContract, AKeyServesWhatItWasOpenedForOnTheNtLine) {
  const std::int32_t expected = isNtLine() ? kRegistryAccessDenied : kRegistryDone;
  store("K", "v");
  store("K", "w");
  const RegistryKey reading = open("K", kQueryValue);
  EXPECT_EQ(registry().setValue(reading, "v", kRegistryNumber, kTen), expected);
  EXPECT_EQ(registry().deleteValue(reading, "w"), expected);
  close(reading);
  EXPECT_EQ(query(reading, "v", 32), kRegistryInvalidHandle);
  const RegistryKey writing = open("K", kSetValue);
  EXPECT_EQ(query(writing, "v", 32), expected);
  close(writing);
}

TEST_F(RegistryContract, DeletionAsksForNoRightOfTheParentAndTellsWhatIsMissing) {
  store("K\\Sub", "v");
  store("K\\Subtle", "v");
  const RegistryKey values = open("K\\Sub", kSetValue);
  EXPECT_EQ(registry().deleteValue(values, "V"), kRegistryDone);
  EXPECT_EQ(registry().deleteValue(values, "v"), kRegistryNotFound);
  close(values);
  const RegistryKey parent = open("K", kCreateSubKey);
  EXPECT_EQ(registry().deleteKey(parent, "sub"), kRegistryDone);
  EXPECT_EQ(registry().deleteKey(parent, "sub"), kRegistryNotFound);
  close(parent);
  // Only the older family deletes a key with subkeys.
  store("K\\Old\\Sub", "v");
  EXPECT_EQ(registry().deleteKey(kCurrentUser, key("K\\Old")), isNtLine() ? kRegistryAccessDenied : kRegistryDone);
  EXPECT_EQ(hasKey("K\\Old\\Sub"), isNtLine());
  EXPECT_TRUE(stored("K\\Subtle", "v"));
}

TEST_F(RegistryContract, ProfileFilesKeepTextsByNamesInAnyCase) {
  ProfileFile& profiles = machine().profiles();
  const std::string file = at("new.ini");
  for (const auto& [section, entry, text] :
       {std::tuple("S", "a", "12x"), {"T", "a", "2"}, {"s", "b", "\" kept \""}, {"S", "A", "-3"}}) {
    EXPECT_TRUE(profiles.writeString(section, entry, text, file));
  }
  EXPECT_EQ(testMachine().readBack(file), "[S]\r\na=-3\r\nb=\" kept \"\r\n[T]\r\na=2\r\n");
  EXPECT_FALSE(profiles.writeString("S", "a", "x", at("no\\such.ini")));
  for (const auto& [entry, room, text] : {std::tuple("B", 255, " kept "), {"b", 4, " ke"}, {"none", 255, "other"}}) {
    std::string read(static_cast<std::size_t>(room), '#');
    const std::uint32_t length = profiles.getString("s", entry, "other", read, file);
    EXPECT_EQ(read.substr(0, length + 1), std::string(text) + '\0') << entry << room;
  }
  EXPECT_EQ(profiles.getInt("s", "A", 7, file), static_cast<std::uint32_t>(-3));
  EXPECT_EQ(profiles.getInt("s", "none", 7, file), 7U);
}

class ScriptContract : public RegistryContract {
 protected:
  ScriptShell& shell() { return machine().scriptShell(); }
  std::string script(const std::string& name) { return "HKEY_CURRENT_USER\\" + key(name); }
};

TEST_F(ScriptContract, WritesReadsAndDeletesValuesAndKeys) {
  EXPECT_TRUE(shell().regWrite(script("New\\Key\\"), "the default"));
  EXPECT_TRUE(shell().regWrite(script("New\\Key\\v"), "a value"));
  EXPECT_THAT(stored("New\\Key", ""), Optional(std::string("the default\0", 12)));
  store("New\\Key", "n");
  for (const auto& [name, text] : {std::pair("", "the default"), {"v", "a value"}, {"n", "10"}}) {
    EXPECT_EQ(shell().regRead(script("New\\Key\\") + name).value(), text);
  }
  EXPECT_TRUE(shell().regDelete(script("New\\Key\\v")));
  EXPECT_FALSE(stored("New\\Key", "v"));
  EXPECT_TRUE(stored("New\\Key", "n"));
  EXPECT_EQ(numberOf(shell().regDelete(script("New\\"))), isNtLine() ? kPermissionDenied : 0) << "it has a subkey";
  EXPECT_EQ(hasKey("New\\Key"), isNtLine());
  store("K", "v");
  EXPECT_TRUE(shell().regDelete(script("K\\")));
  EXPECT_FALSE(hasKey("K"));
  EXPECT_EQ(numberOf(shell().regRead(script("K\\v"))), kScriptPathNotFound);
  for (const std::string& missing : {script("K\\"), script("K\\v"), std::string("NO_SUCH_ROOT\\K\\")}) {
    EXPECT_EQ(numberOf(shell().regDelete(missing)), kScriptPathNotFound) << missing;
  }
}

}  // namespace
}  // namespace contract
