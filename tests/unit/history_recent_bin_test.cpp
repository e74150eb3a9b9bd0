#include "tests/unit/ConsoleTest.h"

namespace {

class OneClick : public ConsoleTest {};

TEST_F(OneClick, ClearsTheHistoryAndReportsOnlyAMissingObject) {
  machine.urlHistory().visit("http://h/");
  form.Del_History.click();
  EXPECT_TRUE(machine.urlHistory().visited().empty());
  expectBox("Recent History Cleared", "Scrubhaven Pro");

  machine.urlHistory().visit("http://h/");
  machine.failAt("dispCallFunc");
  form.Del_History.click();
  EXPECT_EQ(machine.urlHistory().visited().size(), 1U);
  EXPECT_EQ(lastBox(), "Recent History Cleared") << "an object that cannot clear is success all the same";
  EXPECT_EQ(machine.openHandles(), 0U);

  machine.urlHistory().unregister();
  form.Del_History.click();
  EXPECT_EQ(machine.boxes().size(), 3U) << "no success box";
  expectBox("Run-time error '-2147221164':\r\n\r\nApplication-defined or object-defined error", "Scrubhaven Pro", 16);
}

TEST_F(OneClick, ClearsTheRecentDocumentsAndSaysSoEvenWhenTheShellDoesNot) {
  machine.shell().addToRecentDocs(platform::kRecentByPath, "C:\\letter.doc");
  machine.failAt("addToRecentDocs");
  form.Del_Recent.click();
  EXPECT_EQ(machine.shell().recentDocuments(), Paths{"C:\\letter.doc"});
  form.Del_Recent.click();
  EXPECT_TRUE(machine.shell().recentDocuments().empty());
  EXPECT_EQ(boxTexts(), (Paths{"Recent Document List Cleared", "Recent Document List Cleared"}));
}

TEST_F(OneClick, EmptiesTheBinAfterAWarningThatIsNoQuestion) {
  std::string path = "C:\\J\\a";
  machine.addFile(path, "a");
  form.ShellDeleteOne(path, platform::kAllowUndo);
  EXPECT_NE(form.EmptyRecycleBin("D:\\"), 0) << "the answer of the shell";
  machine.ui().onBox([this](const platform::memory::ShownBox& box) {
    EXPECT_EQ(machine.disk().recycleBin().empty(), box.title != "Confirm Deletion");
  });
  form.Del_Recycle.click();
  machine.ui().onBox({});
  form.Del_Recycle.click();
  EXPECT_EQ(machine.boxes()[0].text, "Are you sure you want to delete the contents of the Recycle Bin?");
  EXPECT_EQ(machine.boxes()[0].style, 16U);
  EXPECT_EQ(machine.boxes().size(), 4U) << "an empty bin is reported as emptied too";
  expectBox("Recycle Bin Emptied", "Scrubhaven Pro");
  EXPECT_EQ(machine.shell().binEmptyings(),
            (std::vector<platform::memory::BinEmptying>{{"D:\\", 0}, {"", 7}, {"", 7}}));
}

}  // namespace
