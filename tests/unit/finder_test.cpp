// The junk scan, the deletion of ticked files, and the finder of empty ones.
#include <algorithm>
#include <map>
#include <tuple>

#include "finder/deletion.h"
#include "finder/frmChoose.h"
#include "tests/unit/ConsoleTest.h"

using platform::Answer;
using platform::kArchive;
using platform::kHidden;
using platform::kReadOnly;
using platform::kSystem;

namespace {

using JunkScan = ConsoleTest;

// For each type, in the order of the boxes: its caption and description, a file that it lists and one that it does not.
constexpr std::tuple<const char*, const char*, const char*, const char*> kTypes[] = {
    {".wbk", "Temporary Works Backup Files", "a.WBK", "a.wbx"},
    {".bak", "Application Backup Files", "a.b.bak", "bak"},
    {".gid", "Temporary Windows Help Data Files", "a.gid", "a.gi"},
    {".tmp", "Temporary Setup and Application Backup Files", "a.tmp", "tmp.a"},
    {"~*.*", "Temporary Setup and Application Backup Files", "~a.doc", "a~.doc"},
    {".temp", "Temporary Setup and Application Backup Files", "a.temp", "a.tem"},
    {"._mp", "Temporary Setup and Application Backup Files", "a._mp", "a.mp"},
    {".dir", "mscreate.dir Windows Temporary Directory Setup Information Files", "MSCREATE.dir", "a.dir"},
    {".---", "Old Setup and Application Backup Files", "a.---", "a.--"},
    {".syd", "Application Backup Files", "a.syd", "a.sys"},
    {".nav", "Norton Backup Files", "a.nav", "nav"},
    {".old", "Application Backup Files", "a.old", "a.ol"},
    {".mtx", "Temporary Windows Twain Files", "myTwain1.mtx", "a.mtx"},
    {".cpy", "Application Backup Files", "a.cpy", "a.cpx"},
    {".db$", "dBase Temporary Files", "a.db$", "a.db"},
    {".db", "Thumbs.db Temporary Folder Content Information Files", "thumbs.db", "a.db"},
    {".prv", "Application Backup Files", "a.prv", "a.prx"},
    {".chk", "Windows Checkdisk and Scandisk Files", "a.chk", "chk.a"},
    {".nu3", "Norton Backup Files", "a.nu3", "a.nu4"},
    {".err", "Application Error Log Files", "a.err", "err"},
};

TEST_F(JunkScan, EachTypeListsItsFilesAndNoOther) {
  for (const auto& [caption, tip, match, miss] : kTypes) addFiles("C:\\T", {match, miss});
  for (std::size_t i = 0; const auto& [caption, tip, match, miss] : kTypes) {
    controls::CheckBox& box = form.Check[i++];
    EXPECT_EQ(box.caption() + box.toolTip(), std::string(caption) + tip);
    box.click();
    scan({}, "C:\\T");
    EXPECT_EQ(paths(), Paths{std::string("C:\\T\\") + match}) << caption;
    box.click();
  }
}

TEST_F(JunkScan, OwnExtensionsKeepTheirBlanksAndScanWithoutATypeToo) {
  addFiles("C:\\T", {"a.gif", "a. jpg", "a.jpg", "a.001", "a.002"});
  form.CustomExtensions = {"gif", "  ", " jpg", "..\\x", "001"};
  EXPECT_EQ(scan({}, "C:\\T"), Paths{});
  EXPECT_EQ(paths(), (Paths{"C:\\T\\a.gif", "C:\\T\\a. jpg", "C:\\T\\a.001"}));
  form.CustomExtensions = {"001", "0*"};
  scan({}, "C:\\T");
  EXPECT_EQ(paths(), (Paths{"C:\\T\\a.001", "C:\\T\\a.001", "C:\\T\\a.002"})) << "twice when two patterns match";
}

TEST_F(JunkScan, ProtectedNamesFollowTheirOwnCaseRules) {
  for (const std::string& name : parts("DATA.BAK|NtUser.Bak|usrclass.bak|SYSTEM.BAK|software.bak|Opa11.bak|SAM.bak|"
                                       "USER.bak|default.bak|opera6.adr.bak|contacts.adr.bak|SECURITY.bak")) {
    machine.addFile("C:\\P\\Protected\\" + name);
  }
  Paths listed = parts("Contacts.adr.bak|DATA.2.BAK|Default.bak|MYOB.bak|OPERA6.ADR.BAK|SAM.BAK|security.bak|user.bak");
  for (std::string& name : listed) machine.addFile(name = "C:\\P\\" + name);
  scan({kTypeBak}, "C:\\P");
  EXPECT_EQ(paths(), listed);
}

TEST_F(JunkScan, SizesRoundToEvenAndExactly1024KeepsTheTextBefore) {
  Paths expected;
  const std::pair<std::uint64_t, const char*> sizes[] = {
      {1024, "0"},    {512, "512 bytes"}, {1536, "2 Kb"}, {2560, "2 Kb"},       {1024, "2 Kb"},
      {1025, "1 Kb"}, {3584, "4 Kb"},     {0, "0 bytes"}, {1023, "1023 bytes"}, {1024, "1023 bytes"}};
  for (int number = 100; const auto& [size, text] : sizes) {
    const std::string path = "C:\\J\\" + std::to_string(number++) + ".tmp";
    machine.addSizedFile(path, size);
    expected.push_back(path + '|' + text);
  }
  machine.addSizedFile("C:\\J\\Sub\\a.tmp", 1024);
  expected.push_back("C:\\J\\Sub\\a.tmp|0");
  scan({kTypeTmp}, "C:\\J");
  EXPECT_EQ(rowsOf(form.ListView1), expected) << "each folder begins anew";
  form.ListView1.clickRow(2);
  EXPECT_EQ(form.ListView1.toolTip(), "C:\\J\\102.tmp");
}

TEST_F(JunkScan, OnlyHiddenSystemFoldersAndLinksAreNotSearched) {
  for (const auto& [folder, attributes] :
       {std::pair("Hidden", kHidden), {"System", kSystem}, {"Both", kHidden | kSystem}}) {
    machine.addFile(std::string("C:\\W\\") + folder + "\\a.tmp", "x");
    machine.disk().addFolder(std::string("C:\\W\\") + folder, attributes);
  }
  machine.addFile("C:\\Elsewhere\\c.tmp", "x");
  machine.disk().addLink("C:\\W\\Link", "C:\\Elsewhere");
  scan({kTypeTmp}, "C:\\W");
  EXPECT_EQ(paths(), (Paths{"C:\\W\\Hidden\\a.tmp", "C:\\W\\System\\a.tmp"}));
}

TEST_F(JunkScan, WithoutTypesOrFilesItSaysSoAndLeavesNoDeleteOverAnEmptyList) {
  addFiles("C:\\J", {"a.tmp"});
  machine.addFolder("C:\\Empty");
  scan({kTypeTmp}, "C:\\J");
  form.ListView1.clickTick(0);
  EXPECT_EQ(scan({}, "C:\\Empty"), Paths{"No files of the selected type found."});
  EXPECT_FALSE(form.Select_All.enabled() || form.cmdInvert.enabled() || form.Delete.enabled());
  form.Check[kTypeTmp].click();
  form.CustomExtensions = {" ", ""};
  EXPECT_EQ(press(form.Scan), Paths{"No file types selected."});
  EXPECT_TRUE(form.lblFile.visible() && form.Scan.acceptsInput() && form.ListView1.toolTip().empty());
}

TEST_F(JunkScan, TypesAreAllTickedAtOnceAndOwnExtensionsAreKeptWhenAllBoxesAreEmptied) {
  form.Select_Check.click();
  EXPECT_TRUE(std::ranges::all_of(form.Check, &controls::CheckBox::ticked));
  const auto choose = [this](const char* text) {
    machine.ui().whenModal([text](controls::Form& shown) {
      auto& window = dynamic_cast<frmChoose&>(shown);
      window.txtChoose[2].type(text);
      (text == std::string("gif") ? window.cmdCancel : window.cmdAccept).click();
    });
    form.cmdChoose.click();
    return form.CustomExtensions[2];
  };
  const Paths chosen = {choose("001"), choose(""), choose("gif"), choose("png")};
  EXPECT_EQ(chosen, (Paths{"001", "001", "001", "png"}));
}

// ---- Deletion

constexpr const char* kConfirm = "Confirm file deletion?";
constexpr const char* kWiped = "All files that are not locked have been shredded.";

class DeleteFiles : public ConsoleTest {
 protected:
  // Lists the .tmp files below C:\J, ticks those with these names and presses Delete.
  Paths erase(const Paths& ticked, std::initializer_list<Answer> answers = {Answer::kYes}) {
    scan({kTypeTmp}, "C:\\J");
    tick(form.ListView1, ticked);
    return press(form.Delete, answers);
  }
};

TEST_F(DeleteFiles, ReadOnlyAsksOnlyForItsTwoAttributesAndFilesInUseAreNamed) {
  machine.addFile("C:\\J\\1.tmp", "x", kReadOnly);
  machine.addFile("C:\\J\\2.tmp", "x", kReadOnly | kArchive);
  machine.addFile("C:\\J\\3.tmp", "x", kReadOnly | kArchive | kHidden);
  addFiles("C:\\J", {"4.tmp", "5.tmp"});
  machine.disk().lock("C:\\J\\4.tmp");
  const std::string ask = "\r\nis a read only file - OK to delete?";
  EXPECT_EQ(erase({"1.tmp", "2.tmp", "3.tmp", "4.tmp"}, {Answer::kYes, Answer::kNo, Answer::kYes}),
            (Paths{kConfirm, "C:\\J\\1.tmp" + ask, "C:\\J\\2.tmp" + ask,
                   "C:\\J\\4.tmp is in use by Windows and can not be deleted."}));
  EXPECT_EQ(paths(), (Paths{"C:\\J\\1.tmp", "C:\\J\\4.tmp", "C:\\J\\5.tmp"}));
  EXPECT_EQ(machine.filesBelow("C:\\J"), paths());
}

TEST_F(DeleteFiles, AFileIsInUseHoweverItIsShared) {
  addFiles("C:\\J", {"a"});
  const platform::Handle other = machine.files().createFile(
      "C:\\J\\a", {.access = platform::kGenericRead, .share = platform::kShareRead | platform::kShareWrite});
  EXPECT_TRUE(finder::isInUse("C:\\J\\a"));
  machine.files().closeHandle(other);
  for (const char* free : {"C:\\J\\a", "C:\\J\\gone", "C:\\J"}) EXPECT_FALSE(finder::isInUse(free)) << free;
}

TEST_F(DeleteFiles, WipesTheFirst200BytesInPlaceAndTheChoicesExcludeEachOther) {
  addFiles("C:\\J", {"a.tmp", "d.tmp", "s.tmp"}, "short");
  machine.addFile("C:\\J\\b.tmp", std::string(1000, 'o'));
  machine.addFile("C:\\J\\r.tmp", "kept", kReadOnly);
  machine.disk().lock("C:\\J\\s.tmp");
  form.optWipe.setTicked(true);
  EXPECT_EQ(erase({"b.tmp", "d.tmp", "r.tmp", "s.tmp"}), (Paths{kConfirm, kWiped}));
  std::string pattern;
  for (const int value : {85, 170, 74, 99, 71, 92, 101, 112, 1, 61, 97, 119, 86, 79, 109, 72, 90, 0, 255, 212}) {
    pattern.append(10, static_cast<char>(value));
  }
  std::map<std::string, std::string> written;
  for (const auto& write : machine.disk().writes()) {
    EXPECT_TRUE(write.bytes.empty() || write.position == written[write.path].size());
    written[write.path] += write.bytes;
  }
  EXPECT_EQ(written["C:\\J\\b.tmp"], pattern);
  EXPECT_EQ(written["C:\\J\\d.tmp"], pattern) << "a short file is made longer first";
  EXPECT_EQ(paths(), (Paths{"C:\\J\\a.tmp", "C:\\J\\r.tmp", "C:\\J\\s.tmp"}));
  EXPECT_EQ(machine.filesBelow("C:\\J"), paths());
  form.optWipe.setTicked(false);
  form.optWipe.click();
  EXPECT_TRUE(form.optWipe.ticked() && !form.optRecycle.ticked());
  form.optRecycle.click();
  EXPECT_TRUE(form.optRecycle.ticked() && !form.optWipe.ticked());
}

// ---- Empty files

using ZeroByteFiles = ConsoleTest;

TEST_F(ZeroByteFiles, ListsEmptyFilesOfAllFoldersButTheNamesThatWindowsKeeps) {
  addFiles("C:\\Z", {"IO.SYS", "MSDOS.SYS", "WIN.INI", "SYSTEM.INI", "Desktop.ini", "Boot.ini"}, "");
  addFiles("C:\\Z\\Case", {"io.sys", "MsDos.Sys", "win.ini", "System.ini", "desktop.ini", "BOOT.INI"}, "");
  addFiles("C:\\Z", {"1 one byte"});
  addFiles("C:\\Z\\Hidden", {"a", "b"}, "");
  machine.disk().addFolder("C:\\Z\\Hidden", kHidden | platform::kSystem);
  machine.disk().setListedSize("C:\\Z\\1 one byte", 0);
  machine.addSizedFile("C:\\Z\\Hidden\\low half is 0", 0x100000000ULL);
  addFiles("C:\\Elsewhere", {"c"}, "");
  machine.disk().addLink("C:\\Z\\Link", "C:\\Elsewhere");
  EXPECT_TRUE(form.Dir1.setPath("C:\\Z"));
  form.cmdZero.click();
  EXPECT_EQ(textsOf(form.ListView2),
            (Paths{"C:\\Z\\Case\\BOOT.INI", "C:\\Z\\Case\\desktop.ini", "C:\\Z\\Case\\io.sys", "C:\\Z\\Case\\MsDos.Sys",
                   "C:\\Z\\Case\\System.ini", "C:\\Z\\Case\\win.ini", "C:\\Z\\Hidden\\a", "C:\\Z\\Hidden\\b"}));
}

TEST_F(ZeroByteFiles, DeletesFromTheLastRowOnAsTheBoxSaysAndAsksForReadOnly) {
  addFiles("C:\\Z", {"1 plain", "6 in use"}, "");
  machine.addFile("C:\\Z\\3 kept", "", kReadOnly);
  machine.addFile("C:\\Z\\4 given up", "", kReadOnly | kArchive);
  machine.addFile("C:\\Z\\5 hidden", "", kReadOnly | kHidden);
  machine.disk().lock("C:\\Z\\6 in use");
  EXPECT_TRUE(form.Dir1.setPath("C:\\Z"));
  form.cmdZero.click();
  form.cmdSelectAll.click();
  const std::string ask = "\r\nis a read only file - OK to delete?";
  EXPECT_EQ(press(form.cmdZeroDelete, {Answer::kYes, Answer::kOk, Answer::kYes, Answer::kNo}),
            (Paths{kConfirm, "C:\\Z\\6 in use is in use by Windows and can not be deleted.", "C:\\Z\\4 given up" + ask,
                   "C:\\Z\\3 kept" + ask, "The selected 0 Byte files have been deleted to the Recycle Bin"}));
  EXPECT_EQ(machine.filesBelow("C:\\Z"), (Paths{"C:\\Z\\3 kept", "C:\\Z\\6 in use"}));
  EXPECT_EQ(machine.disk().recycleBin(), (Paths{"C:\\Z\\5 hidden", "C:\\Z\\4 given up", "C:\\Z\\1 plain"}));
  EXPECT_EQ(textsOf(form.ListView2), Paths{"C:\\Z\\3 kept"});
  EXPECT_FALSE(form.cmdZeroDelete.enabled() || form.cmdSelectAll.visible() || form.Select_All.visible());
}

}  // namespace
