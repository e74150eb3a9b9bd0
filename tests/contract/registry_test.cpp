// The registry, private-profile files, and the scripting host's way to the registry.
#include <optional>
#include <span>

#include "settings/modRegistry.h"
#include "tests/contract/ContractTest.h"

namespace contract {
namespace {

using platform::kCurrentUser;
using platform::kRegistryAccessDenied;
using platform::kRegistryDone;
using platform::kRegistryInvalidHandle;
using platform::kRegistryMoreData;
using platform::kRegistryNotFound;
using platform::kRegistryNumber;
using platform::kRegistryText;
using platform::RegistryKey;
using testing::Optional;

class RegistryContract : public ContractTest {
 protected:
  platform::Registry& registry() { return testMachine().machine().registry(); }

  // The full path of a key in the working key.
  std::string key(const std::string& name) { return testMachine().keyRoot() + '\\' + name; }

  std::string script(const std::string& name) { return "HKEY_CURRENT_USER\\" + key(name); }

  RegistryKey open(const std::string& path, std::uint32_t access) {
    RegistryKey opened = 0;
    EXPECT_EQ(registry().openKey(kCurrentUser, path, access, opened), kRegistryDone) << path;
    return opened;
  }

  RegistryKey create(const std::string& path, std::uint32_t access) {
    RegistryKey opened = 0;
    EXPECT_EQ(registry().createKey(kCurrentUser, path, access, opened), kRegistryDone) << path;
    return opened;
  }

  // What a query into a buffer of `room` bytes gives.
  std::int32_t query(RegistryKey from, const std::string& name, std::size_t room) {
    buffer.assign(room + 1, '#');
    type = 0;
    size = 0;
    return registry().queryValue(from, name, type, std::span(buffer).first(room), size);
  }

  bool isNtLine() {
    platform::VersionRecord version;
    version.size = platform::kVersionRecordSize;
    testMachine().machine().version().getVersionEx(version);
    return version.platformId == 2;
  }

  std::string buffer;
  std::uint32_t type = 0;
  std::uint32_t size = 0;
};

TEST_F(RegistryContract, KeysAreMadeWithTheirParentsAndFoundWithoutRegardToCaseOrAClosingBackslash) {
  registry().closeKey(create(key("Parent\\Child\\*\\"), platform::kSetValue | platform::kCreateSubKey));
  EXPECT_TRUE(testMachine().hasKey(key("Parent\\Child\\*")));
  testMachine().storeValue(key("Parent"), "v", kRegistryNumber, "abcd");
  registry().closeKey(create(key("parent"), platform::kSetValue));
  EXPECT_THAT(testMachine().storedValue(key("Parent"), "v"), Optional(std::string("abcd")));
  for (const std::string& path : {key("parent\\CHILD"), key("Parent\\Child\\")}) {
    EXPECT_EQ(registry().closeKey(open(path, platform::kQueryValue)), kRegistryDone);
  }
  RegistryKey opened = 77;
  EXPECT_EQ(registry().openKey(kCurrentUser, key("Missing"), platform::kQueryValue, opened), kRegistryNotFound);
  EXPECT_EQ(opened, 77U);
  const RegistryKey parent = open(key("Parent"), platform::kCreateSubKey);
  EXPECT_EQ(registry().openKey(parent, "child", platform::kQueryValue, opened), kRegistryDone);
  registry().closeKey(opened);
  registry().closeKey(parent);
  EXPECT_EQ(registry().openKey(1, "x", platform::kQueryValue, opened), kRegistryInvalidHandle);
}

TEST_F(RegistryContract, QueriesTellTheSizeAndFillOnlyABufferThatIsLargeEnough) {
  testMachine().storeValue(key("K"), "number", kRegistryNumber, std::string("\x0A\0\0\0", 4));
  testMachine().storeValue(key("K"), "text", kRegistryText, std::string("abc\0", 4));
  const RegistryKey opened = open(key("K"), platform::kQueryValue);
  EXPECT_EQ(query(opened, "NUMBER", 32), kRegistryDone);
  EXPECT_EQ(type, kRegistryNumber);
  EXPECT_EQ(size, 4U);
  EXPECT_EQ(buffer.substr(0, 5), std::string("\x0A\0\0\0#", 5));
  EXPECT_EQ(query(opened, "text", 0), kRegistryMoreData);
  EXPECT_EQ(query(opened, "text", 3), kRegistryMoreData);
  EXPECT_EQ(size, 4U);
  EXPECT_EQ(query(opened, "text", 4), kRegistryDone);
  EXPECT_EQ(type, kRegistryText);
  EXPECT_EQ(buffer, std::string("abc\0#", 5));
  EXPECT_EQ(query(opened, "missing", 32), kRegistryNotFound);
  EXPECT_EQ(query(opened, "", 32), kRegistryNotFound) << "no default value";
  registry().closeKey(opened);
}

TEST_F(RegistryContract, ATextIsStoredWithTheNulThatStandsBehindIt) {
  const RegistryKey opened = create(key("K"), platform::kSetValue);
  EXPECT_EQ(registry().setValue(opened, "text", kRegistryText, "abc"), kRegistryDone);
  EXPECT_EQ(registry().setValue(opened, "empty", kRegistryText, ""), kRegistryDone);
  EXPECT_EQ(registry().setValue(opened, "", kRegistryNumber, std::string("\1\0\0\0", 4)), kRegistryDone);
  registry().closeKey(opened);
  EXPECT_THAT(testMachine().storedValue(key("K"), "text"), Optional(std::string("abc\0", 4)));
  EXPECT_THAT(testMachine().storedValue(key("K"), "empty"),
              Optional(isNtLine() ? std::string() : std::string(1, '\0')));
  EXPECT_THAT(testMachine().storedValue(key("K"), ""), Optional(std::string("\1\0\0\0", 4)));
}

TEST_F(RegistryContract, AKeyServesWhatItWasOpenedForOnTheNtLine) {
  const std::int32_t expected = isNtLine() ? kRegistryAccessDenied : kRegistryDone;
  testMachine().storeValue(key("K"), "v", kRegistryNumber, "abcd");
  testMachine().storeValue(key("K"), "w", kRegistryNumber, "abcd");
  const RegistryKey reading = open(key("K"), platform::kQueryValue);
  EXPECT_EQ(registry().setValue(reading, "v", kRegistryNumber, "efgh"), expected);
  EXPECT_EQ(registry().deleteValue(reading, "w"), expected);
  registry().closeKey(reading);
  EXPECT_EQ(query(reading, "v", 32), kRegistryInvalidHandle);
  const RegistryKey writing = open(key("K"), platform::kSetValue);
  EXPECT_EQ(query(writing, "v", 32), expected);
  registry().closeKey(writing);
}

TEST_F(RegistryContract, DeletionAsksForNoRightOfTheParentAndTellsWhatIsMissing) {
  testMachine().storeValue(key("K\\Sub"), "v", kRegistryNumber, "abcd");
  const RegistryKey values = open(key("K\\Sub"), platform::kSetValue);
  EXPECT_EQ(registry().deleteValue(values, "V"), kRegistryDone);
  EXPECT_EQ(registry().deleteValue(values, "v"), kRegistryNotFound);
  registry().closeKey(values);
  const RegistryKey parent = open(key("K"), platform::kCreateSubKey);
  EXPECT_EQ(registry().deleteKey(parent, "sub"), kRegistryDone);
  EXPECT_EQ(registry().deleteKey(parent, "sub"), kRegistryNotFound);
  registry().closeKey(parent);
  // A key with subkeys goes only on the older family.
  testMachine().storeValue(key("K\\Old\\Sub"), "v", kRegistryNumber, "abcd");
  EXPECT_EQ(registry().deleteKey(kCurrentUser, key("K\\Old")), isNtLine() ? kRegistryAccessDenied : kRegistryDone);
  EXPECT_EQ(testMachine().hasKey(key("K\\Old\\Sub")), isNtLine());
  EXPECT_TRUE(testMachine().hasKey(key("K")));
}

TEST_F(RegistryContract, TheLayerReadsWhatItWrites) {
  const platform::ScopedMachine use(testMachine().machine());
  const auto roundTrip = [this](const std::string& valueType, const platform::Variant& value) {
    platform::Variant result;
    EXPECT_EQ(WriteRegistryValue("hkcu", key("Layer\\"), "v", valueType, value).value(), 0);
    EXPECT_EQ(ReadRegistryValue("HKCU", key("Layer"), "v", valueType, "none", result), 0);
    return result;
  };
  EXPECT_EQ(roundTrip("S", ""), platform::Variant(""));
  EXPECT_EQ(roundTrip("B", true), platform::Variant(true));
  EXPECT_EQ(roundTrip("D", -1), platform::Variant(65535));
  EXPECT_EQ(DeleteRegistryKey("HKCU", testMachine().keyRoot(), "Layer"), 0);
  EXPECT_FALSE(testMachine().hasKey(key("Layer")));
  const std::string file = makeFile("hive.ini");
  EXPECT_EQ(DeleteRegistryKey(file, testMachine().keyRoot(), "x"), kRegistryInvalidHandle);
}

class ProfileContract : public ContractTest {
 protected:
  platform::ProfileFile& profiles() { return testMachine().machine().profiles(); }

  std::string get(const std::string& section, const std::string& entry, std::size_t room = 255) {
    std::string buffer(room, ' ');
    const std::uint32_t length = profiles().getString(section, entry, "fallback", buffer, file);
    EXPECT_EQ(buffer[length], '\0');
    return buffer.substr(0, length);
  }

  std::string file;
};

TEST_F(ProfileContract, TextsAreFoundWithoutRegardToCase) {
  file =
      makeFile("a.ini", "[Other]\r\nkey=other\r\n[Section]\r\nKey = \" kept \" \r\nplain=  two words  \r\nempty=\r\n");
  EXPECT_EQ(get("section", "KEY"), " kept ");
  EXPECT_EQ(get("Section", "plain"), "two words");
  EXPECT_EQ(get("Section", "plain", 4), "two");
  EXPECT_EQ(get("Section", "empty"), "");
  EXPECT_EQ(get("Missing", "key"), "fallback");
  file = at("missing.ini");
  EXPECT_EQ(get("Section", "Key"), "fallback");
}

TEST_F(ProfileContract, NumbersAreReadAsFarAsTheyGo) {
  file = makeFile("a.ini", "[S]\r\nn=12\r\nnegative=-3\r\nmixed=45abc\r\ntext=abc\r\n");
  const std::pair<const char*, int> kNumbers[] = {{"N", 12}, {"negative", -3}, {"mixed", 45}, {"text", 0}, {"none", 7}};
  for (const auto& [entry, number] : kNumbers) {
    EXPECT_EQ(profiles().getInt("s", entry, 7, file), static_cast<std::uint32_t>(number)) << entry;
  }
}

TEST_F(ProfileContract, WritingReplacesOrMakesEntrySectionAndFile) {
  file = at("new.ini");
  EXPECT_TRUE(profiles().writeString("S", "a", "1", file));
  EXPECT_TRUE(profiles().writeString("T", "a", "2", file));
  EXPECT_TRUE(profiles().writeString("s", "b", "3", file));
  EXPECT_TRUE(profiles().writeString("S", "A", "changed", file));
  EXPECT_EQ(testMachine().readBack(file), "[S]\r\na=changed\r\nb=3\r\n[T]\r\na=2\r\n");
  EXPECT_FALSE(profiles().writeString("S", "a", "x", at("no\\such.ini")));
}

class ScriptContract : public RegistryContract {
 protected:
  platform::ScriptShell& shell() { return testMachine().machine().scriptShell(); }
};

TEST_F(ScriptContract, WritesAndReadsValuesAndDefaultValues) {
  EXPECT_TRUE(shell().regWrite(script("New\\Key\\"), "the default"));
  EXPECT_TRUE(shell().regWrite(script("New\\Key\\v"), "a value"));
  EXPECT_THAT(testMachine().storedValue(key("New\\Key"), ""), Optional(std::string("the default\0", 12)));
  EXPECT_EQ(shell().regRead(script("New\\Key\\")).value(), "the default");
  EXPECT_EQ(shell().regRead(script("New\\Key\\v")).value(), "a value");
  testMachine().storeValue(key("New\\Key"), "n", kRegistryNumber, std::string("\x0A\0\0\0", 4));
  EXPECT_EQ(shell().regRead(script("New\\Key\\n")).value(), "10");
}

TEST_F(ScriptContract, DeletesValuesAndKeysAndSaysWhatIsMissing) {
  testMachine().storeValue(key("K"), "v", kRegistryNumber, "abcd");
  testMachine().storeValue(key("K"), "w", kRegistryNumber, "abcd");
  EXPECT_TRUE(shell().regDelete(script("K\\v")));
  EXPECT_FALSE(testMachine().storedValue(key("K"), "v"));
  EXPECT_TRUE(testMachine().storedValue(key("K"), "w"));
  EXPECT_TRUE(shell().regDelete(script("K\\")));
  EXPECT_FALSE(testMachine().hasKey(key("K")));
  for (const std::string& missing : {script("K\\"), script("K\\v"), std::string("NO_SUCH_ROOT\\K\\")}) {
    EXPECT_EQ(numberOf(shell().regDelete(missing)), platform::kScriptPathNotFound) << missing;
  }
  EXPECT_EQ(numberOf(shell().regRead(script("K\\v"))), platform::kScriptPathNotFound);
  testMachine().makeKey(key("K\\Sub"));
  EXPECT_EQ(numberOf(shell().regDelete(script("K\\"))), isNtLine() ? platform::kPermissionDenied : 0);
  EXPECT_EQ(testMachine().hasKey(key("K\\Sub")), isNtLine());
}

}  // namespace
}  // namespace contract
