// What the console tells beside its results: the status bar, the text of an empty list, the names of the commands.
#include <algorithm>
#include <array>
#include <cstdio>
#include <initializer_list>

#include "console/frmFind.h"

namespace {

std::string counted(std::size_t number, const char* one, const char* many) {
  return grouped(number) + ' ' + (number == 1 ? one : many);
}

// "812 bytes", "3.4 MB".
std::string sizeText(std::int64_t bytes) {
  constexpr double kStep = 1024;
  constexpr std::array<const char*, 4> kUnits = {"KB", "MB", "GB", "TB"};
  if (static_cast<double>(bytes) < kStep) return counted(static_cast<std::size_t>(bytes), "byte", "bytes");
  double number = static_cast<double>(bytes) / kStep;
  std::size_t unit = 0;
  for (; number >= kStep && unit + 1 < kUnits.size(); ++unit) number /= kStep;
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%.1f %s", number, kUnits[unit]);
  return text.data();
}

bool anyVisible(std::initializer_list<const controls::Control*> controls) {
  return std::ranges::any_of(controls, [](const controls::Control* one) { return one->visible(); });
}

}  // namespace

void frmFind::scanBegins(const controls::ListView& list, const std::string& folder) {
  forgetScan();
  scan_.list = &list;
  scan_.folder = folder;
  scan_.runs = true;
}

void frmFind::scanEnds() {
  scan_.runs = false;
  scan_.found = scan_.list->rowCount();
}

void frmFind::forgetScan() {
  scan_ = {};
  Label6.setCaption("");
}

void frmFind::countFolder(std::size_t files) {
  ++scan_.folders;
  scan_.files += files;
}

void frmFind::prepareToShow() {
  nameVisibleCommands();
  for (controls::ListView* list : {&ListView1, &ListView2, &lvCache}) list->setEmptyText(emptyTextOf(*list));
  Status.setMessage(statusMessage());
  Status.setPanes(statusPanes());
  Status.setMoving(scan_.runs);
}

std::string frmFind::statusMessage() const {
  if (scan_.runs && !scan_.folder.empty()) return "Searching " + scan_.folder;
  // Until the first scan, which needs the place.
  if (scan_.list == nullptr && !rightsNotice_.empty()) return rightsNotice_;
  return "Folder to search: " + Dir1.path();
}

// Above an empty line a name would stand for nothing.
void frmFind::nameVisibleCommands() {
  lblJunkCommands.setVisible(anyVisible({&Select_All, &cmdInvert, &Delete, &optRecycle, &optWipe}));
  lblZeroCommands.setVisible(anyVisible({&cmdSelectAll, &cmdZeroInvert, &cmdZeroDelete}));
  lblCacheCommands.setVisible(anyVisible({&cmdSelect, &cmdCacheInvert, &cmdCleanCache}));
}

std::string frmFind::emptyTextOf(const controls::ListView& list) const {
  if (scan_.list != &list) {
    return &list == &ListView1 ? "Choose a folder and file types, then press the magnifier to scan." : "";
  }
  if (scan_.found > 0) return "None of the files found is left.";
  if (scan_.runs) return "Searching ...";
  if (scan_.aborted) return "The scan was aborted before it found anything.";
  if (&list == &lvCache) return "The Internet cache is empty.";
  const std::string what = &list == &ListView2 ? "No empty files" : "No files of the chosen types";
  return what + " were found in " + scan_.folder + ".";
}

std::vector<std::string> frmFind::statusPanes() const {
  const controls::ListView* const front = listInFront();
  std::vector<std::string> panes;
  if (scan_.runs && scan_.folders > 0) {
    panes.push_back(counted(scan_.folders, "folder", "folders") + ", " + counted(scan_.files, "file", "files") + ", " +
                    grouped(scan_.list->rowCount()) + " found");
    return panes;
  }
  if (front == nullptr || front->empty()) return panes;
  const bool incomplete = scan_.aborted && scan_.list == front;
  panes.push_back(counted(front->rowCount(), "row", "rows") + (incomplete ? ", list incomplete" : ""));
  if (front->tickedCount() == 0) return panes;
  const std::int64_t bytes = front->tickedWeight();
  panes.push_back(grouped(front->tickedCount()) + " ticked" + (bytes > 0 ? ", " + sizeText(bytes) : ""));
  return panes;
}
