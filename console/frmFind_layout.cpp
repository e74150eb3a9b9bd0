// How the console's controls share the window, and which letters reach them.
#include "console/frmFind.h"

using controls::Box;
using controls::column;
using controls::framed;
using controls::place;
using controls::row;
using controls::space;
using controls::stack;

namespace {

constexpr std::size_t kBoxesPerRow = 5;
// Of the height that a larger window gives, beside the folder list's one part.
constexpr int kListsShare = 3;

// A button whose caption switches between the two.
Box toggleButton(controls::FlatButton& button) { return place(button).reserve({"Select All", "Clear All"}); }

// The commands below the lists line up in columns: all labels are equally wide, and all buttons.
Box commandLabel(controls::Label& label) {
  return place(label).reserve({"Junk files:", "0 byte files:", "Internet cache:"});
}

Box commandButton(controls::FlatButton& button) {
  return place(button).reserve({"Select All", "Clear All", "Delete Files"});
}

}  // namespace

Box frmFind::layout() {
  std::vector<Box> tools;
  tools.push_back(place(Picture1).atLeast(70, 26));
  for (controls::FlatButton* tool :
       {&cmdZero, &cmdFurnace, &Del_Temps, &Del_Cache, &Del_History, &Del_Recent, &Del_Recycle, &cmdMRU, &cmdLists,
        &cmdIndex, &cmdPrefetch, &cmdSwap, &cmdSysrestore}) {
    tools.push_back(place(*tool));
  }
  tools.push_back(space().stretch(0, 1));
  tools.push_back(place(cmdHelp));
  tools.push_back(place(cmdExit));

  const Box selectors =
      column({place(Label4), place(Drive1), place(Label1), place(Dir1).atLeast(90, 36).stretch(1, 1)});

  std::vector<Box> typeRows;
  for (std::size_t first = 0; first < Check.size(); first += kBoxesPerRow) {
    std::vector<Box> boxes;
    for (std::size_t i = first; i < first + kBoxesPerRow; ++i) boxes.push_back(place(Check[i]).atLeast(34, 0));
    typeRows.push_back(row(std::move(boxes)).stretch(0, 1));
  }
  const Box typeCommands = column({place(cmdChoose), toggleButton(Select_Check), place(Invert)});
  const Box fileTypes = framed(Frame1, row({framed(Specials, column(std::move(typeRows))), typeCommands}));

  const Box scanButtons = column({place(Scan).atLeast(46, 32), place(cmdAbort)});
  const Box top = row({selectors, fileTypes, scanButtons});

  // Where two lists are shown at once, the earlier one covers the later.
  const Box lists = stack({place(lvCache), place(ListView1).atLeast(200, 60).stretch(1, 1), place(ListView2)});
  const Box junkCommands = row({commandLabel(lblJunkCommands), commandButton(Select_All), commandButton(cmdInvert),
                                commandButton(Delete), place(optRecycle), place(optWipe)});
  const Box zeroCommands = row({commandLabel(lblZeroCommands), commandButton(cmdSelectAll),
                                commandButton(cmdZeroInvert), commandButton(cmdZeroDelete)});
  const Box cacheCommands =
      row({commandLabel(lblCacheCommands), commandButton(cmdSelect), commandButton(cmdCacheInvert),
           commandButton(cmdCleanCache), commandButton(cmdCacheAbort)});
  Box results = framed(Frame2, column({lists, junkCommands, zeroCommands, cacheCommands}));
  results.stretch(1, kListsShare);

  const Box resultLine = place(Label6).reserve({"Results: 1000000 0 Byte files found in 10000 seconds."});
  const Box cacheLine = place(lblStatus).reserve({" Results: Found 1000000 cache entries."});
  const Box status = framed(Frame3, column({row({resultLine, cacheLine}), place(lblFile).shortening().stretch(1, 0)}));

  return row({column(std::move(tools)), column({top, results, status})});
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
