#include <map>

#include "finder/deletion.h"
#include "tests/unit/ConsoleTest.h"

using platform::Answer;
using platform::kArchive;
using platform::kHidden;
using platform::kReadOnly;

namespace {

constexpr const char* kConfirm = "Confirm file deletion?";
constexpr const char* kWiped = "All files that are not locked have been shredded.";

class DeleteFiles : public ConsoleTest {
 protected:
  // Lists the .tmp files below C:\J, ticks those with these names and presses Delete.
  Paths erase(std::initializer_list<const char*> ticked, std::initializer_list<Answer> answers = {Answer::kYes}) {
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

}  // namespace
