#include <tuple>

#include "platform/RegistryScriptShell.h"
#include "settings/modRegistry.h"
#include "tests/unit/UnitTest.h"

using platform::kRegistryAccessDenied;
using platform::kRegistryBinary;
using platform::kRegistryMoreData;
using platform::kRegistryNotFound;
using platform::kRegistryNumber;
using platform::kRegistryText;
using platform::Variant;
using platform::memory::RegistryValue;

namespace {

constexpr const char* kKey = "Software\\T";
const std::string kMachineKey = "HKCU\\Software\\T";

class RegistryLayer : public UnitTest {
 protected:
  // The status, and the value in `result`; "def" is the default.
  std::int32_t read(const std::string& type) { return ReadRegistryValue("HKCU", kKey, "v", type, "def", result); }

  // The status, or the failure's number, negative.
  std::int32_t write(const std::string& type, const Variant& value) {
    const auto status = WriteRegistryValue("HKCU", kKey, "v", type, value);
    return status ? *status : -status.error().number;
  }

  Variant result;
};

TEST_F(RegistryLayer, KnowsTheRootsInAnyCaseAndIniFilesThatPeopleSee) {
  machine.addFile("C:\\a.ini", "", platform::kReadOnly);
  machine.addFile("C:\\h.ini", "", platform::kHidden);
  machine.addFile("C:\\s.ini", "", platform::kSystem);
  machine.addFolder("C:\\d.ini");
  const std::pair<const char*, platform::RegistryKey> roots[] = {{"hkcu", 0x80000001},
                                                                 {"HkLm", 0x80000002},
                                                                 {"HKU", 0x80000003},
                                                                 {"HKDD", 0x80000006},
                                                                 {"HKCC", 0x80000005},
                                                                 {"HKCR", 0x80000000},
                                                                 {"C:\\a.ini", 1},
                                                                 {"C:\\h.ini", 0},
                                                                 {"C:\\s.ini", 0},
                                                                 {"C:\\d.ini", 0},
                                                                 {"C:\\none.ini", 0},
                                                                 {"HKCUX", 0},
                                                                 {"", 0}};
  for (const auto& [name, key] : roots) EXPECT_EQ(GetRootKey(name), key) << name;
  EXPECT_EQ(ReadRegistryValue("HKXX", kKey, "v", "S", "def", result), kUnknownHive);
  EXPECT_EQ(result, Variant("def"));
  EXPECT_EQ(WriteRegistryValue("HKXX", kKey, "v", "S", "x").value(), kUnknownHive);
  EXPECT_EQ(DeleteRegistryKey("HKXX", kKey, "v"), kUnknownHive);
  EXPECT_TRUE(machine.registry().calls().empty());
}

TEST_F(RegistryLayer, ReadsEachTypeAndWhateverElseFitsIntoTheSizesPassed) {
  const std::tuple<const char*, RegistryValue, std::int32_t, Variant> cases[] = {
      {"s", {kRegistryText, std::string("some text\0", 10)}, 0, "some text"},
      {"b", {kRegistryBinary, "\xFF\xFF"}, 0, true},
      {"d", {kRegistryNumber, std::string("\x70\x11\x01\0", 4)}, 0, 70000},
      {"S", {kRegistryText, ""}, 0, ""},
      {"S", {kRegistryText, "abc"}, 0, "ab"},  // the last byte is always taken for the closing NUL
      {"B", {kRegistryBinary, std::string(1, '\0')}, 0, false},
      {"D", {kRegistryBinary, std::string("\x02\0\0\0", 4) + std::string(28, 'x')}, 0, 2},
      {"X", {kRegistryText, "x"}, 0, "def"},
      {"B", {kRegistryNumber, "abcd"}, kRegistryMoreData, "def"},
      {"D", {kRegistryBinary, std::string(33, 'x')}, kRegistryMoreData, "def"},
  };
  EXPECT_EQ(read("D"), kRegistryNotFound);
  machine.registry().addKey(kMachineKey);
  for (const char* type : {"S", "B", "D"}) EXPECT_EQ(read(type), kRegistryNotFound) << type;
  EXPECT_EQ(result, Variant("def"));
  std::size_t open = 3;
  for (const auto& [type, stored, status, value] : cases) {
    machine.registry().set(kMachineKey, "v", stored);
    EXPECT_EQ(read(type), status) << type << stored.data;
    EXPECT_EQ(result, value) << type << stored.data;
    open += status != 0 ? 1 : 0;
    EXPECT_EQ(machine.registry().openKeys(), open) << "only a failed read leaves the key open";
  }
  EXPECT_EQ(machine.registry().calls()[0], "openKey HKCU Software\\T 1");
}

TEST_F(RegistryLayer, WritesEachTypeInItsFormOrFailsWithTheConversion) {
  // A failure leaves what the case before has stored.
  const std::tuple<const char*, Variant, std::int32_t, const char*> cases[] = {
      {"s", "ab", 0, "v=1:616200"},  // the system adds the NUL that stands behind the text
      {"S", "", 0, "v=1:"},
      {"B", true, 0, "v=3:ffff"},
      {"b", "FALSE", 0, "v=3:0000"},
      {"B", 7, 0, "v=3:ffff"},
      {"B", "perhaps", -13, "v=3:ffff"},
      {"D", "10", 0, "v=4:0a000000"},
      {"d", -1, 0, "v=4:ffff0000"},
      {"X", "nothing", 0, "v=4:ffff0000"},
      {"D", "2.5", 0, "v=4:02000000"},  // halves go to the even number
      {"D", true, 0, "v=4:ffff0000"},
      {"D", " +7 ", 0, "v=4:07000000"},
      {"D", -32768, 0, "v=4:00800000"},
      {"D", 32767, 0, "v=4:ff7f0000"},
  };
  for (const auto& [type, value, outcome, stored] : cases) {
    EXPECT_EQ(write(type, value), outcome) << type << platform::textOf(value);
    EXPECT_EQ(machine.registry().contents(kMachineKey).at(0), stored) << type << platform::textOf(value);
  }
  for (const Variant& large : {Variant(32768), Variant(-32769), Variant("32767.5"), Variant("1e400")}) {
    EXPECT_EQ(write("D", large), -platform::kOverflow) << platform::textOf(large);
  }
  for (const char* none : {"", "ten", "10 0", "inf"}) EXPECT_EQ(write("D", none), -platform::kTypeMismatch) << none;
  EXPECT_EQ(machine.registry().openKeys(), 9U) << "one for each failed conversion";
  EXPECT_EQ(machine.registry().calls()[0], "createKey HKCU Software\\T 6");
  EXPECT_EQ(machine.registry().calls()[1], "setValue v 1 2") << "without the NUL";
}

TEST_F(RegistryLayer, DeletesKeysAndKeepsTheirParentOpen) {
  machine.registry().setText(kMachineKey + "\\Two\\Levels", "", "x");
  EXPECT_EQ(DeleteRegistryKey("hkcu", "Software\\T\\", "two\\levels"), 0);
  EXPECT_EQ(machine.registry().contents(kMachineKey), Paths{"Two\\"});
  EXPECT_EQ(DeleteRegistryKey("HKCU", kKey, "Two\\Levels"), 0) << "a missing key is success";
  EXPECT_EQ(DeleteRegistryKey("HKCU", "Software\\None", "Two"), 0) << "and so is a missing parent";
  EXPECT_EQ(machine.registry().openKeys(), 2U);
  EXPECT_EQ(machine.registry().calls()[0], "openKey HKCU Software\\T\\ 4");
}

TEST_F(RegistryLayer, GivesTheCodeOfTheCallThatFailed) {
  machine.registry().setText(kMachineKey, "v", "");
  const auto failing = [this](const char* call, int n = 1) { machine.failAt(call, n, kRegistryAccessDenied); };
  for (const auto& [call, n] : {std::pair("openKey", 1), {"queryValue", 1}, {"queryValue", 2}, {"closeKey", 1}}) {
    failing(call, n);
    EXPECT_EQ(read("S"), kRegistryAccessDenied) << call << n;
  }
  for (const char* call : {"createKey", "setValue", "closeKey"}) {
    failing(call);
    EXPECT_EQ(write("S", "x"), kRegistryAccessDenied) << call;
  }
  for (const char* call : {"openKey", "deleteKey"}) {
    failing(call);
    EXPECT_EQ(DeleteRegistryKey("HKCU", kKey, "Two"), kRegistryAccessDenied) << call;
  }
}

TEST_F(RegistryLayer, IniFilesTakeTextsAndGiveNoNumbers) {
  const std::string file = "C:\\a.ini";
  machine.addFile(file, "[Section]\r\nv=old\r\n");
  for (const auto& [type, entry, value] : {std::tuple("s", "v", "old"), {"S", "none", "def"}, {"D", "v", "def"}}) {
    EXPECT_EQ(ReadRegistryValue(file, "Section", entry, type, "def", result), 0);
    EXPECT_EQ(result, Variant(value)) << type << entry;
  }
  EXPECT_EQ(machine.faults().calls("getInt"), 1);
  EXPECT_EQ(WriteRegistryValue(file, "Section", "v", "s", std::string(300, 'n')).value(), 0);
  EXPECT_EQ(WriteRegistryValue(file, "Section", "v", "D", 5).value(), kUnknownHive);
  EXPECT_EQ(ReadRegistryValue(file, "Section", "v", "S", "def", result), 0);
  EXPECT_EQ(result, Variant(std::string(254, 'n')));
  machine.failAt("writeString");
  EXPECT_EQ(WriteRegistryValue(file, "Section", "v", "S", "x").value(), 0) << "a failed write is not told";
  EXPECT_TRUE(machine.registry().calls().empty());
}

// What stands in for a scripting host that is missing.
TEST_F(RegistryLayer, ScriptPathsNameNoRootAndLeaveNothingOpen) {
  platform::RegistryScriptShell shell{machine.registry()};
  machine.registry().set("HKLM\\A\\B", "b", {kRegistryBinary, "xx"});
  machine.registry().set("HKLM\\A\\B", "open", {platform::kRegistryExpandableText, "open"});
  EXPECT_EQ(shell.regRead("HKEY_LOCAL_MACHINE\\A\\B\\open").value(), "open");
  EXPECT_EQ(shell.regRead("HKLM\\A\\B\\b").error().number, platform::kTypeMismatch);
  EXPECT_EQ(shell.regRead("HKLMX\\A\\B\\open").error().number, platform::kScriptPathNotFound);
  EXPECT_EQ(shell.regDelete("HKEY_LOCAL_MACHINE\\").error().number, platform::kPermissionDenied);
  machine.failAt("setValue", 1, kRegistryAccessDenied);
  EXPECT_EQ(shell.regWrite("HKLM\\A\\", "d").error().number, platform::kPermissionDenied);
  EXPECT_EQ(machine.registry().openKeys(), 0U);
}

}  // namespace
