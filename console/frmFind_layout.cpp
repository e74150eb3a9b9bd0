// How the console's controls share the window, and which letters reach them.
#include "console/frmFind.h"

using controls::Box;
using controls::column;
using controls::flow;
using controls::framed;
using controls::place;
using controls::row;
using controls::space;
using controls::stack;

namespace {

constexpr std::size_t kBoxesPerRow = 4;
// Distances in dialog units: between lines that belong together, and between parts of the window.
constexpr int kClose = 1;
constexpr int kApart = 3;

// A button whose caption switches between the two.
Box toggleButton(controls::FlatButton& button) { return place(button).reserve({"Select All", "Clear All"}); }

Box toolGroup(controls::Label& heading, std::initializer_list<controls::FlatButton*> buttons) {
  std::vector<Box> parts = {place(heading)};
  for (controls::FlatButton* button : buttons) parts.push_back(place(*button));
  return column(std::move(parts)).apart(kClose);
}

}  // namespace

Box frmFind::layout() {
  const Box files = toolGroup(lblFileTools, {&cmdZero, &cmdFurnace, &Del_Temps, &Del_Recycle});
  const Box privacy =
      toolGroup(lblPrivacyTools, {&Del_Cache, &Del_History, &Del_Recent, &cmdMRU, &cmdLists, &cmdIndex});
  const Box system = toolGroup(lblSystemTools, {&cmdPrefetch, &cmdSwap, &cmdSysrestore}).stretch(0, 1);
  const Box helpAndClose = row({place(cmdHelp).stretch(1, 0), place(cmdExit).stretch(1, 0)});
  const Box tools = column({files, privacy, system, helpAndClose}).apart(kApart).stretch(0, 1);

  // The boxes stand in columns of the same width.
  std::vector<std::string> captions;
  for (const controls::CheckBox& box : Check) captions.push_back(box.caption());
  std::vector<Box> typeRows;
  for (std::size_t first = 0; first < Check.size(); first += kBoxesPerRow) {
    std::vector<Box> boxes;
    for (std::size_t i = first; i < first + kBoxesPerRow; ++i) boxes.push_back(place(Check[i]).reserve(captions));
    typeRows.push_back(row(std::move(boxes)).apart(2));
  }
  const Box types = framed(Specials, column(std::move(typeRows)).apart(kClose));
  const Box typeCommands =
      row({toggleButton(Select_Check).stretch(1, 0), place(Invert).atLeast(22, 0), place(cmdChoose).stretch(1, 0)})
          .apart(kApart);
  const Box fileTypes = framed(Frame1, column({types, typeCommands}).apart(kApart)).stretch(0, 0);

  const Box selectors =
      column({place(Label4), place(Drive1), space(0, 1), place(Label1), place(Dir1).atLeast(80, 36).stretch(1, 1)})
          .apart(kClose);
  // One of the two is visible at a time.
  const Box scanOrAbort = stack({place(Scan).atLeast(52, 36), place(cmdAbort)});
  const Box actions = column({place(Picture1).atLeast(52, 20), space().stretch(0, 1), scanOrAbort});
  // What a larger window gives goes to the results.
  const Box top = row({fileTypes, selectors, actions}).stretch(1, 0);

  // Where two lists are shown at once, the earlier one covers the later.
  const Box lists = stack({place(lvCache), place(ListView1).atLeast(200, 50).stretch(1, 1), place(ListView2)});
  std::vector<Box> commands;
  // Those of the list in front come first.
  for (const bool inFront : {true, false}) {
    for (const controls::ListView* list : {&ListView1, &ListView2, &lvCache}) {
      if (isInFront(*list) == inFront) commands.push_back(commandsOf(*list));
    }
  }
  const Box results = framed(Frame2, column({lists, flow(std::move(commands)).apart(2)}).apart(kApart)).stretch(1, 1);

  const Box resultLine = stack({place(Label6).reserve({"Results: 32767 0 Byte files found in 10000 seconds."}),
                                place(lblStatus).reserve({" Results: Found 1000000 cache entries."})});
  const Box lines = column({resultLine, place(lblFile).shortening()}).apart(kClose).stretch(1, 0);
  const Box status = framed(Frame3, row({lines, place(cmdCacheAbort)}));

  return row({tools, column({top, results, status}).apart(kApart)});
}

Box frmFind::commandsOf(const controls::ListView& list) {
  std::vector<Box> parts;
  if (&list == &ListView1) {
    parts = {place(lblJunkCommands), toggleButton(Select_All), place(cmdInvert),
             place(Delete),          place(optRecycle),        place(optWipe)};
  } else if (&list == &ListView2) {
    parts = {place(lblZeroCommands), toggleButton(cmdSelectAll), place(cmdZeroInvert), place(cmdZeroDelete)};
  } else {
    parts = {place(lblCacheCommands), toggleButton(cmdSelect), place(cmdCacheInvert), place(cmdCleanCache)};
  }
  return row(std::move(parts)).apart(2);
}

// Alt and the letter press a button, or go to the list behind a label. Each letter is used once.
void frmFind::setMnemonics() {
  cmdZero.setMnemonic('0');
  cmdFurnace.setMnemonic('R');
  Del_Temps.setMnemonic('T');
  Del_Cache.setMnemonic('K');
  Del_History.setMnemonic('Y');
  Del_Recent.setMnemonic('N');
  Del_Recycle.setMnemonic('B');
  cmdMRU.setMnemonic('U');
  cmdLists.setMnemonic('M');
  cmdIndex.setMnemonic('W');
  cmdPrefetch.setMnemonic('P');
  cmdSwap.setMnemonic('F');
  cmdSysrestore.setMnemonic('E');
  cmdHelp.setMnemonic('H');
  cmdExit.setMnemonic('C');
  Label4.setMnemonic('D');
  Label1.setMnemonic('I');
  cmdAbort.setMnemonic('A');
  cmdChoose.setMnemonic('X');
  Select_All.setMnemonic('S');
  cmdInvert.setMnemonic('V');
  Delete.setMnemonic('L');
}
