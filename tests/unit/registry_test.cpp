#include <limits>

#include "platform/RegistryScriptShell.h"
#include "settings/modRegistry.h"
#include "tests/support/MachineTest.h"

using platform::Variant;

namespace {

using Lines = std::vector<std::string>;

constexpr platform::VersionRecord kWindows98 = {.major = 4, .minor = 10, .build = 1998, .platformId = 1};
constexpr const char* kKey = "Software\\T";
const std::string kMachineKey = "HKCU\\Software\\T";

class RegistryLayer : public MachineTest {
 protected:
  // The status, and the value in `result`; "def" is the default.
  std::int32_t read(const std::string& type, const std::string& name = "v", const std::string& hive = "HKCU") {
    return ReadRegistryValue(hive, kKey, name, type, "def", result);
  }

  std::int32_t write(const std::string& type, const Variant& value) {
    const auto status = WriteRegistryValue("HKCU", kKey, "v", type, value);
    return status ? *status : -status.error().number;
  }

  std::string stored() { return machine.registryContents(kMachineKey).at(0); }

  Variant result;
};

TEST_F(RegistryLayer, KnowsTheRootsInAnyCaseAndIniFilesThatPeopleSee) {
  EXPECT_EQ(GetRootKey("hkcu"), 0x80000001U);
  EXPECT_EQ(GetRootKey("HkLm"), 0x80000002U);
  EXPECT_EQ(GetRootKey("HKU"), 0x80000003U);
  EXPECT_EQ(GetRootKey("HKDD"), 0x80000006U);
  EXPECT_EQ(GetRootKey("HKCC"), 0x80000005U);
  EXPECT_EQ(GetRootKey("HKCR"), 0x80000000U);
  machine.addFile("C:\\a.ini");
  machine.addFile("C:\\r.ini", "", platform::kReadOnly);
  machine.addFile("C:\\h.ini", "", platform::kHidden);
  machine.addFile("C:\\s.ini", "", platform::kSystem);
  machine.addFolder("C:\\d.ini");
  EXPECT_EQ(GetRootKey("C:\\a.ini"), ROOT_KEY_INI_FILE);
  EXPECT_EQ(GetRootKey("C:\\r.ini"), ROOT_KEY_INI_FILE);
  for (const char* none : {"C:\\h.ini", "C:\\s.ini", "C:\\d.ini", "C:\\missing.ini", "HKEY_CURRENT_USER", ""}) {
    EXPECT_EQ(GetRootKey(none), 0U) << none;
  }
}

TEST_F(RegistryLayer, UnknownHivesTouchNothing) {
  EXPECT_EQ(read("S", "v", "HKXX"), kUnknownHive);
  EXPECT_EQ(result, Variant("def"));
  EXPECT_EQ(WriteRegistryValue("HKXX", kKey, "v", "S", "x").value(), kUnknownHive);
  EXPECT_EQ(DeleteRegistryKey("HKXX", kKey, "v"), kUnknownHive);
  EXPECT_TRUE(machine.registryCalls().empty());
}

TEST_F(RegistryLayer, ReadsEachTypeWithTheSizesThatThePlatformIsPassed) {
  machine.setRegistryText(kMachineKey, "s", "some text");
  machine.setRegistryValue(kMachineKey, "b", {platform::kRegistryBinary, "\xFF\xFF"});
  machine.setRegistryNumber(kMachineKey, "d", 70000);
  EXPECT_EQ(read("s", "s"), 0);
  EXPECT_EQ(result, Variant("some text"));
  EXPECT_EQ(read("b", "b"), 0);
  EXPECT_EQ(result, Variant(true));
  EXPECT_EQ(read("d", "d"), 0);
  EXPECT_EQ(result, Variant(70000));
  const std::string open = "openKey HKCU Software\\T 1";
  EXPECT_EQ(machine.registryCalls(),
            (Lines{open, "queryValue s 0", "queryValue s 10", open, "queryValue b 2", open, "queryValue d 32"}));
  EXPECT_EQ(machine.openRegistryKeys(), 0U);
  EXPECT_EQ(read("X", "s"), 0) << "an unknown type reads nothing";
  EXPECT_EQ(result, Variant("def"));
}

TEST_F(RegistryLayer, ReadsValuesOfOddSizesAndTypes) {
  machine.setRegistryValue(kMachineKey, "empty", {platform::kRegistryText, ""});
  machine.setRegistryValue(kMachineKey, "open", {platform::kRegistryText, "abc"});
  machine.setRegistryValue(kMachineKey, "byte", {platform::kRegistryBinary, "\x01"});
  machine.setRegistryValue(kMachineKey, "long", {platform::kRegistryBinary, std::string(33, 'x')});
  machine.setRegistryValue(kMachineKey, "fits",
                           {platform::kRegistryBinary, std::string("\x02\0\0\0", 4) + std::string(28, 'x')});
  machine.setRegistryNumber(kMachineKey, "d", std::numeric_limits<std::uint32_t>::max());
  EXPECT_EQ(read("S", "empty"), 0);
  EXPECT_EQ(result, Variant(""));
  EXPECT_EQ(read("S", "open"), 0);
  EXPECT_EQ(result, Variant("ab")) << "the last byte is always taken for the closing NUL";
  EXPECT_EQ(read("B", "byte"), 0);
  EXPECT_EQ(result, Variant(true));
  EXPECT_EQ(read("D", "fits"), 0);
  EXPECT_EQ(result, Variant(2));
  EXPECT_EQ(read("D", "d"), 0);
  EXPECT_EQ(result, Variant(-1));
  EXPECT_EQ(machine.openRegistryKeys(), 0U);
  EXPECT_EQ(read("B", "d"), platform::kRegistryMoreData);
  EXPECT_EQ(read("D", "long"), platform::kRegistryMoreData);
  EXPECT_EQ(result, Variant("def"));
}

TEST_F(RegistryLayer, AMissingKeyOrValueLeavesTheDefaultAndAFailedReadTheKeyOpen) {
  EXPECT_EQ(read("D"), platform::kRegistryNotFound);
  EXPECT_EQ(result, Variant("def"));
  EXPECT_EQ(machine.openRegistryKeys(), 0U);
  machine.addRegistryKey(kMachineKey);
  std::size_t open = 0;
  for (const char* type : {"S", "B", "D"}) {
    EXPECT_EQ(read(type), platform::kRegistryNotFound);
    EXPECT_EQ(result, Variant("def"));
    EXPECT_EQ(machine.openRegistryKeys(), ++open);
  }
  machine.failAt("openKey", 1, platform::kRegistryAccessDenied);
  EXPECT_EQ(read("S"), platform::kRegistryAccessDenied);
  machine.setRegistryText(kMachineKey, "v", "");
  machine.failAt("queryValue", 2, platform::kRegistryAccessDenied);
  EXPECT_EQ(read("S"), platform::kRegistryAccessDenied);
  EXPECT_EQ(machine.openRegistryKeys(), open + 1);
}

TEST_F(RegistryLayer, WritesEachTypeInItsFormAndTextsWithoutTheirNul) {
  EXPECT_EQ(write("S", "text"), 0);
  EXPECT_EQ(write("s", ""), 0);
  EXPECT_EQ(stored(), "v=1:") << "an empty text has no byte";
  EXPECT_EQ(write("B", true), 0);
  EXPECT_EQ(stored(), "v=3:ffff");
  EXPECT_EQ(write("b", "FALSE"), 0);
  EXPECT_EQ(stored(), "v=3:0000");
  EXPECT_EQ(write("D", "10"), 0);
  EXPECT_EQ(stored(), "v=4:0a000000");
  EXPECT_EQ(write("d", -1), 0);
  EXPECT_EQ(stored(), "v=4:ffff0000");
  EXPECT_EQ(write("X", "nothing"), 0);
  EXPECT_EQ(stored(), "v=4:ffff0000");
  const std::string create = "createKey HKCU Software\\T 6";
  EXPECT_EQ(machine.registryCalls(),
            (Lines{create, "setValue v 1 4", create, "setValue v 1 0", create, "setValue v 3 2", create,
                   "setValue v 3 2", create, "setValue v 4 4", create, "setValue v 4 4", create}));
  EXPECT_EQ(machine.openRegistryKeys(), 0U);
  EXPECT_EQ(write("S", "text"), 0);
  EXPECT_EQ(read("S"), 0);
  EXPECT_EQ(result, Variant("text"));
}

TEST_F(RegistryLayer, ConversionsThatCannotBeSurface) {
  struct Case {
    Variant value;
    std::int32_t outcome;  // 0, or the failure's number, negative
  };
  const Case numbers[] = {{32767, 0}, {-32768, 0},  {" 6 ", 0},    {"2.5", 0},      {true, 0},
                          {"+7", 0},  {40000, -6},  {-32769, -6},  {"32767.5", -6}, {"1e400", -6},
                          {"", -13},  {"ten", -13}, {"10 0", -13}, {"inf", -13}};
  for (const Case& one : numbers) EXPECT_EQ(write("D", one.value), one.outcome) << platform::textOf(one.value);
  EXPECT_EQ(write("B", "perhaps"), -13);
  EXPECT_EQ(write("B", 7), 0);
  EXPECT_EQ(stored(), "v=3:ffff");
  EXPECT_EQ(write("D", "2.5"), 0);
  EXPECT_EQ(stored(), "v=4:02000000") << "halves go to the even number";
}

TEST_F(RegistryLayer, FailedWritesGiveTheSystemsCode) {
  machine.failAt("createKey", 1, platform::kRegistryAccessDenied);
  EXPECT_EQ(write("S", "x"), platform::kRegistryAccessDenied);
  EXPECT_EQ(machine.openRegistryKeys(), 0U);
  machine.failAt("setValue", 1, 14);
  EXPECT_EQ(write("S", "x"), 14);
  EXPECT_EQ(machine.openRegistryKeys(), 1U);
  machine.failAt("closeKey", 1, 6);
  EXPECT_EQ(write("S", "x"), 6);
}

TEST_F(RegistryLayer, DeletesKeysAndKeepsTheirParentOpen) {
  machine.setRegistryText(kMachineKey + "\\Two\\Levels", "", "x");
  EXPECT_EQ(DeleteRegistryKey("hkcu", "Software\\T\\", "two\\levels"), 0);
  EXPECT_EQ(machine.registryContents(kMachineKey), Lines{"Two\\"});
  EXPECT_EQ(DeleteRegistryKey("HKCU", kKey, "Two\\Levels"), 0) << "a missing key is success";
  EXPECT_EQ(machine.openRegistryKeys(), 2U);
  EXPECT_EQ(machine.registryCalls()[0], "openKey HKCU Software\\T\\ 4");
  EXPECT_EQ(DeleteRegistryKey("HKCU", "No\\Such", "x"), 0);
  machine.failAt("openKey", 1, platform::kRegistryAccessDenied);
  EXPECT_EQ(DeleteRegistryKey("HKCU", kKey, "Two"), platform::kRegistryAccessDenied);
  EXPECT_EQ(machine.openRegistryKeys(), 2U);
  machine.addFile("C:\\a.ini");
  EXPECT_EQ(DeleteRegistryKey("C:\\a.ini", kKey, "Two"), platform::kRegistryInvalidHandle);
}

TEST_F(RegistryLayer, KeysWithSubkeysGoOnlyOnThe95Family) {
  machine.setRegistryText(kMachineKey + "\\Old\\Sub", "v", "x");
  EXPECT_EQ(DeleteRegistryKey("HKCU", kKey, "Old"), platform::kRegistryAccessDenied);
  EXPECT_TRUE(machine.hasRegistryKey(kMachineKey + "\\Old\\Sub"));
  machine.setVersion(kWindows98);
  EXPECT_EQ(DeleteRegistryKey("HKCU", kKey, "Old"), 0);
  EXPECT_TRUE(machine.registryContents(kMachineKey).empty());
}

TEST_F(RegistryLayer, IniFilesTakeTextsAndGiveNoNumbers) {
  const std::string file = "C:\\a.ini";
  machine.addFile(file, "; kept\r\n[Other]\r\nv=other\r\n\r\n[Section]\r\nV = \"  old \" \r\n\r\n[Last]\r\n");
  const auto readIni = [&](const std::string& type, const std::string& entry) {
    return ReadRegistryValue(file, "section", entry, type, "def", result);
  };
  EXPECT_EQ(readIni("s", "v"), 0);
  EXPECT_EQ(result, Variant("  old "));
  EXPECT_EQ(readIni("S", "missing"), 0);
  EXPECT_EQ(result, Variant("def"));
  EXPECT_EQ(WriteRegistryValue(file, "Section", "v", "S", 12).value(), 0);
  EXPECT_EQ(WriteRegistryValue(file, "Section", "new", "s", std::string(300, 'n')).value(), 0);
  EXPECT_EQ(WriteRegistryValue(file, "Fresh", "v", "S", "f").value(), 0);
  EXPECT_EQ(WriteRegistryValue(file, "Section", "v", "D", 5).value(), kUnknownHive);
  EXPECT_EQ(machine.contents(file), "; kept\r\n[Other]\r\nv=other\r\n\r\n[Section]\r\nV=12\r\nnew=" +
                                        std::string(300, 'n') + "\r\n\r\n[Last]\r\n[Fresh]\r\nv=f\r\n");
  EXPECT_EQ(readIni("S", "new"), 0);
  EXPECT_EQ(result, Variant(std::string(254, 'n')));
  EXPECT_EQ(readIni("D", "v"), 0);
  EXPECT_EQ(result, Variant("def"));
  EXPECT_EQ(machine.calls("getInt"), 1);
  machine.failAt("writeString");
  EXPECT_EQ(WriteRegistryValue(file, "Section", "v", "S", "x").value(), 0) << "a failed write is not told";
  EXPECT_TRUE(machine.registryCalls().empty());
}

class ScriptShellPaths : public MachineTest {
 protected:
  platform::RegistryScriptShell shell{machine.registry()};
};

TEST_F(ScriptShellPaths, ReadsTextsAndNumbers) {
  machine.setRegistryText("HKCU\\A\\B", "", "default");
  machine.setRegistryText("HKCU\\A\\B", "v", "text");
  machine.setRegistryNumber("HKCU\\A\\B", "d", 10);
  machine.setRegistryValue("HKCU\\A\\B", "b", {platform::kRegistryBinary, "xx"});
  machine.setRegistryValue("HKCU\\A\\B", "open", {platform::kRegistryExpandableText, "open"});
  EXPECT_EQ(shell.regRead("HKEY_CURRENT_USER\\A\\B\\").value(), "default");
  EXPECT_EQ(shell.regRead("HKCU\\A\\B\\v").value(), "text");
  EXPECT_EQ(shell.regRead("HKCU\\A\\B\\d").value(), "10");
  EXPECT_EQ(shell.regRead("HKCU\\A\\B\\open").value(), "open");
  EXPECT_EQ(shell.regRead("HKCU\\A\\B\\b").error().number, platform::kTypeMismatch);
  for (const char* missing : {"HKCU\\A\\B\\none", "HKCU\\A\\None\\", "HKCUX\\A\\B\\v", "A\\B", ""}) {
    EXPECT_EQ(shell.regRead(missing).error().number, platform::kScriptPathNotFound) << missing;
  }
}

TEST_F(ScriptShellPaths, WritesAndDeletesValuesAndKeysButNoRoot) {
  EXPECT_TRUE(shell.regWrite("HKEY_LOCAL_MACHINE\\A\\B\\", "d"));
  EXPECT_TRUE(shell.regWrite("HKLM\\A\\B\\v", "t"));
  EXPECT_EQ(machine.registryContents("HKLM\\A"), (Lines{"B\\", "B\\=1:6400", "B\\v=1:7400"}));
  EXPECT_TRUE(shell.regDelete("HKLM\\A\\B\\v"));
  EXPECT_EQ(shell.regDelete("HKLM\\A\\B\\v").error().number, platform::kScriptPathNotFound);
  EXPECT_EQ(shell.regDelete("HKLM\\A\\").error().number, platform::kPermissionDenied) << "it has a subkey";
  EXPECT_TRUE(shell.regDelete("HKLM\\A\\B\\"));
  EXPECT_TRUE(shell.regDelete("HKLM\\A\\"));
  EXPECT_EQ(shell.regDelete("HKLM\\A\\").error().number, platform::kScriptPathNotFound);
  EXPECT_EQ(shell.regDelete("HKEY_LOCAL_MACHINE\\").error().number, platform::kPermissionDenied);
  machine.failAt("setValue", 1, platform::kRegistryAccessDenied);
  EXPECT_EQ(shell.regWrite("HKLM\\A\\", "d").error().number, platform::kPermissionDenied);
  EXPECT_EQ(machine.openRegistryKeys(), 0U);
}

}  // namespace
