#include "tests/unit/ConsoleTest.h"

namespace {

class OneClick : public ConsoleTest {};

TEST_F(OneClick, ClearsTheHistoryAndReportsOnlyAMissingObject) {
  machine.urlHistory().visit("http://h/");
  EXPECT_EQ(press(form.Del_History), Paths{"Recent History Cleared"});
  EXPECT_TRUE(machine.urlHistory().visited().empty());
  machine.failAt("dispCallFunc");
  EXPECT_EQ(press(form.Del_History), Paths{"Recent History Cleared"}) << "an object that cannot clear";
  EXPECT_EQ(machine.openHandles(), 0U);
  machine.urlHistory().unregister();
  EXPECT_EQ(press(form.Del_History),
            Paths{"Run-time error '-2147221164':\r\n\r\nApplication-defined or object-defined error"});
}

TEST_F(OneClick, ClearsTheRecentDocumentsAndSaysSoInAnyCase) {
  machine.shell().addToRecentDocs(platform::kRecentByPath, "C:\\letter.doc");
  machine.failAt("addToRecentDocs");
  for (const std::size_t left : {1U, 0U}) {
    EXPECT_EQ(press(form.Del_Recent), Paths{"Recent Document List Cleared"});
    EXPECT_EQ(machine.shell().recentDocuments().size(), left);
  }
}

TEST_F(OneClick, EmptiesTheBinAfterAWarningThatIsNoQuestion) {
  std::string path = "C:\\J\\a";
  machine.addFile(path, "a");
  form.ShellDeleteOne(path, platform::kAllowUndo);
  EXPECT_NE(form.EmptyRecycleBin("D:\\"), 0) << "the result of the shell";
  machine.ui().onBox(
      [this](const auto& box) { EXPECT_EQ(machine.disk().recycleBin().empty(), box.title != "Confirm Deletion"); });
  const Paths boxes = {"Are you sure you want to delete the contents of the Recycle Bin?", "Recycle Bin Emptied"};
  EXPECT_EQ(press(form.Del_Recycle), boxes);
  machine.ui().onBox({});
  EXPECT_EQ(press(form.Del_Recycle), boxes) << "an empty bin is reported as emptied too";
  EXPECT_EQ(machine.shell().binEmptyings(),
            (std::vector<platform::memory::BinEmptying>{{"D:\\", 0}, {"", 7}, {"", 7}}));
}

}  // namespace
