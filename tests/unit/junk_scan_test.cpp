#include <algorithm>
#include <tuple>

#include "finder/frmChoose.h"
#include "finder/tree_walk.h"
#include "tests/unit/ConsoleTest.h"

using platform::kHidden;
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
  form.CustomExtensions = {"001", "", "", "", "002"};
  EXPECT_EQ(finder::scanPatterns(1U << 19, form.CustomExtensions)[24], "*.002") << "each has its own place";
  // A file of two patterns is listed twice.
  form.CustomExtensions = {"001", "0*"};
  scan({}, "C:\\T");
  EXPECT_EQ(paths(), (Paths{"C:\\T\\a.001", "C:\\T\\a.001", "C:\\T\\a.002"}));
}

TEST_F(JunkScan, ProtectedNamesFollowTheirOwnCaseRules) {
  for (const std::string& name : parts("DATA.BAK|NtUser.Bak|usrclass.bak|SYSTEM.BAK|software.bak|Opa11.bak|SAM.bak|"
                                       "USER.bak|default.bak|opera6.adr.bak|contacts.adr.bak|SECURITY.bak")) {
    EXPECT_TRUE(finder::isProtected(name)) << name;
  }
  for (const std::string& name : parts("MYOB.bak|MYOB.BAK|SAM.BAK|user.bak|Default.bak|OPERA6.ADR.BAK|security.bak|"
                                       "Contacts.adr.bak|DATA.BAK2|NTUSER.DAT")) {
    EXPECT_FALSE(finder::isProtected(name)) << name;
  }
  addFiles("C:\\P", {"ntuser.bak", "MYOB.bak"});
  scan({kTypeBak}, "C:\\P");
  EXPECT_EQ(paths(), Paths{"C:\\P\\MYOB.bak"});
  EXPECT_EQ(form.Label6.caption(), "Results: 1 files found in 0 seconds.");
}

TEST_F(JunkScan, SizesRoundToEvenAndExactly1024KeepsTheTextBefore) {
  for (int number = 0; const std::uint64_t size : {1024, 512, 1536, 2560, 1024, 1025, 3584, 1023, 0}) {
    machine.addSizedFile("C:\\J\\" + std::to_string(++number) + ".tmp", size);
  }
  machine.addSizedFile("C:\\J\\Sub\\a.tmp", 1024);
  machine.disk().setListedSize("C:\\J\\Sub\\a.tmp", 77);
  machine.failAt("fileSize", 9);
  scan({kTypeTmp}, "C:\\J");
  EXPECT_EQ(rowsOf(form.ListView1),
            (Paths{"C:\\J\\1.tmp|0", "C:\\J\\2.tmp|512 bytes", "C:\\J\\3.tmp|2 Kb", "C:\\J\\4.tmp|2 Kb",
                   "C:\\J\\5.tmp|2 Kb", "C:\\J\\6.tmp|1 Kb", "C:\\J\\7.tmp|4 Kb", "C:\\J\\8.tmp|1023 bytes",
                   "C:\\J\\9.tmp|0 bytes", "C:\\J\\Sub\\a.tmp|0"}));
  EXPECT_EQ(form.ListView1.toolTip(), "C:\\J\\Sub\\a.tmp");
  form.ListView1.clickRow(2);
  EXPECT_EQ(form.ListView1.toolTip(), "C:\\J\\3.tmp");
}

TEST_F(JunkScan, OnlyHiddenSystemFoldersAndLinksAreNotSearched) {
  for (const auto& [folder, attributes] :
       {std::pair("Hidden", kHidden), {"System", kSystem}, {"Unknown", 0U}, {"Both", kHidden | kSystem}}) {
    machine.addFile(std::string("C:\\W\\") + folder + "\\a.tmp", "x");
    machine.disk().setAttributes(std::string("C:\\W\\") + folder, attributes);
  }
  machine.addFile("C:\\Elsewhere\\c.tmp", "x");
  machine.disk().addLink("C:\\W\\Link", "C:\\Elsewhere");
  machine.failAt("getFileAttributes", 6);  // those of "Unknown", the last of the entries
  scan({kTypeTmp}, "C:\\W");
  EXPECT_EQ(paths(), (Paths{"C:\\W\\Hidden\\a.tmp", "C:\\W\\System\\a.tmp"}));
}

TEST_F(JunkScan, WalkGivesTheSumOfSizesAndTheLastLength) {
  machine.addSizedFile("C:\\L\\a.tmp", 100);
  machine.addSizedFile("C:\\L\\b.tmp", 0x80000000ULL);
  machine.addSizedFile("C:\\L\\Sub\\c.tmp", 0x300000005ULL);
  finder::ScanPatterns patterns;
  patterns[3] = "*.tmp";
  std::string path = "C:\\L";
  std::int32_t files = 7;
  std::int32_t folders = 7;
  std::int32_t last = 0;
  EXPECT_EQ(form.FindFilesAPI(path, patterns, files, folders, last), 100 - 2147483648LL + (5 - 3));
  EXPECT_EQ(path, "C:\\L\\");
  EXPECT_TRUE(files == 10 && folders == 8 && last == 5);
}

TEST_F(JunkScan, WithoutTypesOrFilesItSaysSoAndLeavesNoDeleteOverAnEmptyList) {
  addFiles("C:\\J", {"a.tmp"});
  machine.addFolder("C:\\Empty");
  scan({kTypeTmp}, "C:\\J");
  form.ListView1.clickTick(0);
  ASSERT_TRUE(form.Delete.enabled());
  EXPECT_EQ(scan({}, "C:\\Empty"), Paths{"No files of the selected type found."});
  EXPECT_TRUE(form.Scan.acceptsInput() && !form.Select_All.enabled() && !form.cmdInvert.enabled());
  form.Check[kTypeTmp].click();
  form.CustomExtensions = {" ", ""};
  EXPECT_EQ(press(form.Scan), Paths{"No file types selected."});
  EXPECT_TRUE(form.lblFile.visible() && form.Scan.acceptsInput() && form.ListView1.toolTip().empty());
  EXPECT_FALSE(form.Delete.enabled() || form.optRecycle.visible() || form.optWipe.visible());
  form.Select_All.enable();
  EXPECT_EQ(press(form.Select_All), Paths{"Nothing to select!"});
}

TEST_F(JunkScan, BoxesSayClearAllWhenAllAreTicked) {
  form.Select_Check.click();
  EXPECT_TRUE(std::ranges::all_of(form.Check, &controls::CheckBox::ticked));
  EXPECT_EQ(form.Select_Check.caption(), "Clear All");
  form.Check[5].click();
  EXPECT_EQ(form.Select_Check.caption(), "Select All");
  form.Invert.click();
  EXPECT_EQ(std::ranges::count_if(form.Check, &controls::CheckBox::ticked), 1);
  form.Select_Check.click();
  form.Select_Check.click();
  EXPECT_TRUE(std::ranges::none_of(form.Check, &controls::CheckBox::ticked));
}

TEST_F(JunkScan, OwnExtensionsAreKeptWhenAllBoxesAreEmptied) {
  const auto choose = [this](std::initializer_list<const char*> texts, bool accept) {
    machine.ui().whenModal([&, texts, accept](controls::Form& shown) {
      auto& window = dynamic_cast<frmChoose&>(shown);
      EXPECT_TRUE(window.defaultButton() == &window.cmdAccept && window.cancelButton() == &window.cmdCancel);
      EXPECT_FALSE(form.cmdChoose.acceptsInput()) << "the console is covered";
      for (std::size_t i = 0; const char* text : texts) window.txtChoose[i++].type(text);
      (accept ? window.cmdAccept : window.cmdCancel).click();
    });
    form.cmdChoose.click();
    return form.CustomExtensions;
  };
  const finder::CustomExtensions first = {"jpg", "", "001", "", ""};
  EXPECT_EQ(choose({"jpg", "", "001"}, true), first);
  EXPECT_EQ(choose({"", "", ""}, true), first);
  EXPECT_EQ(choose({"gif"}, false), first);
  EXPECT_EQ(choose({"", "png", "001", "", "x"}, true), (finder::CustomExtensions{"", "png", "001", "", "x"}));
}

}  // namespace
