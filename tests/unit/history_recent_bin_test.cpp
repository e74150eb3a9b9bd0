#include "tests/unit/ConsoleTest.h"

using platform::memory::BinEmptying;

namespace {

class OneClick : public ConsoleTest {
 protected:
  // Puts three files of drive C: into the Recycle Bin.
  void fillBin() {
    for (const char* name : {"a", "b", "c"}) {
      const std::string path = std::string("C:\\J\\") + name;
      machine.addFile(path, name);
      std::string source = path;
      form.ShellDeleteOne(source, platform::kAllowUndo);
    }
    ASSERT_EQ(machine.recycleBin().size(), 3U);
  }
};

TEST_F(OneClick, ClearsTheHistoryAndReleasesTheObjectAndReportsOnlyAMissingObject) {
  machine.visit("http://h/");
  form.Del_History.click();
  EXPECT_TRUE(machine.visitedUrls().empty());
  EXPECT_EQ(boxTexts(), Paths{"Recent History Cleared"});
  EXPECT_EQ(machine.boxes()[0].title, "Scrubhaven Pro");

  // An object that cannot clear is success all the same.
  machine.visit("http://h/");
  machine.failAt("dispCallFunc");
  form.Del_History.click();
  EXPECT_EQ(machine.visitedUrls().size(), 1U);
  EXPECT_EQ(lastBox(), "Recent History Cleared");
  EXPECT_EQ(machine.openHandles(), 0U);

  machine.unregisterUrlHistory();
  form.Del_History.click();
  EXPECT_EQ(machine.boxes().size(), 3U) << "no success box";
  EXPECT_EQ(lastBox(), "Run-time error '-2147221164':\r\n\r\nApplication-defined or object-defined error");
  EXPECT_EQ(machine.boxes().back().style, platform::kBoxCritical);
  form.Del_Recent.click();
  EXPECT_EQ(machine.boxes().size(), 4U) << "the program goes on";
}

TEST_F(OneClick, ClearsTheRecentDocumentsAndSaysSoEvenWhenTheShellDoesNot) {
  machine.useDocument("C:\\letter.doc");
  machine.failAt("addToRecentDocs");
  form.Del_Recent.click();
  EXPECT_EQ(machine.recentDocuments(), Paths{"C:\\letter.doc"});
  form.Del_Recent.click();
  EXPECT_TRUE(machine.recentDocuments().empty());
  EXPECT_EQ(boxTexts(), (Paths{"Recent Document List Cleared", "Recent Document List Cleared"}));
}

TEST_F(OneClick, EmptiesTheBinAfterAWarningThatIsNoQuestion) {
  fillBin();
  machine.onBox([this](const platform::memory::ShownBox& box) {
    const bool isWarning = box.title == "Confirm Deletion";
    EXPECT_EQ(machine.recycleBin().size(), isWarning ? 3U : 0U);
  });
  form.Del_Recycle.click();
  EXPECT_TRUE(machine.recycleBin().empty());
  EXPECT_EQ(machine.binEmptyings(), (std::vector<BinEmptying>{{"", 7}}));
  EXPECT_EQ(boxTexts(),
            (Paths{"Are you sure you want to delete the contents of the Recycle Bin?", "Recycle Bin Emptied"}));
  EXPECT_EQ(machine.boxes()[0].style, 16U);
  EXPECT_EQ(machine.boxes()[1].title, "Scrubhaven Pro");

  machine.onBox({});
  form.Del_Recycle.click();
  EXPECT_EQ(lastBox(), "Recycle Bin Emptied") << "an empty bin too";
}

TEST_F(OneClick, EmptyRecycleBinTakesOneDriveAndGivesTheShellsAnswer) {
  fillBin();
  EXPECT_NE(form.EmptyRecycleBin("D:\\"), 0);
  EXPECT_EQ(machine.recycleBin().size(), 3U);
  EXPECT_EQ(form.EmptyRecycleBin("c:\\", true), 0);
  EXPECT_TRUE(machine.recycleBin().empty());
  EXPECT_EQ(machine.binEmptyings(), (std::vector<BinEmptying>{{"D:\\", 0}, {"c:\\", 7}}));
}

}  // namespace
