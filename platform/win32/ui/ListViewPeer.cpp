#include "platform/win32/ui/ListViewPeer.h"

#include <numeric>

#include "platform/win32/ui/CommonControls.h"
#include "platform/win32/ui/TextDrawing.h"

namespace platform::win32 {
namespace {

constexpr int kEmptyTextMargin = 4;  // dialog units

NativeWindow nativeList(bool ownerData) {
  const DWORD rows = ownerData ? LVS_OWNERDATA : 0;
  return {.windowClass = WC_LISTVIEWA,
          .style = LVS_REPORT | LVS_SHOWSELALWAYS | LVS_SINGLESEL | LVS_NOSORTHEADER | LVS_SHAREIMAGELISTS | rows,
          .extendedStyle = WS_EX_CLIENTEDGE};
}

// For members that are pointers to non-const but are only read.
char* asNative(const std::string& text) { return const_cast<char*>(text.c_str()); }

bool isSelected(HWND list, int item) {
  return SendMessageA(list, LVM_GETITEMSTATE, static_cast<WPARAM>(item), LVIS_SELECTED) != 0;
}

}  // namespace

ListViewPeer::ListViewPeer(const Host& host, controls::ListView& list)
    : ControlPeer(host, list, nativeList(supportsOwnerDataLists())), list_(list), ownerData_(supportsOwnerDataLists()) {
  replaceProcedure(handle(), *this, procedure, nativeProcedure_);
  SendMessageA(handle(), LVM_SETEXTENDEDLISTVIEWSTYLE, 0, LVS_EX_FULLROWSELECT);
  if (list_.checkBoxes()) {
    tickPictures_ = makeTickPictures(GetSystemMetrics(SM_CXSMICON));
    SendMessageA(handle(), LVM_SETIMAGELIST, LVSIL_STATE, reinterpret_cast<LPARAM>(tickPictures_));
    SendMessageA(handle(), LVM_SETCALLBACKMASK, LVIS_STATEIMAGEMASK, 0);
  }
  addColumns();
}

// LVS_SHAREIMAGELISTS: the native list does not destroy its image lists.
ListViewPeer::~ListViewPeer() {
  if (tickPictures_ != nullptr) ImageList_Destroy(tickPictures_);
}

void ListViewPeer::addColumns() {
  for (const controls::Column& column : list_.columns()) {
    LVCOLUMNA native = {};
    native.mask = LVCF_TEXT | LVCF_FMT | LVCF_SUBITEM;
    native.fmt = column.rightAligned ? LVCFMT_RIGHT : LVCFMT_LEFT;
    native.pszText = asNative(column.title);
    native.iSubItem = static_cast<int>(columnWidths_.size());
    SendMessageA(handle(), LVM_INSERTCOLUMNA, columnWidths_.size(), reinterpret_cast<LPARAM>(&native));
    columnWidths_.push_back(0);
  }
}

// Rows appended at the end need no repainting of the visible ones; any other change may.
void ListViewPeer::changed(controls::Change change) {
  if (change == controls::Change::kRows) {
    onlyGrown_ = onlyGrown_ && list_.rowCount() > rowsSeen_;
    rowsSeen_ = list_.rowCount();
    emptied_ = emptied_ || list_.empty();
  }
  ControlPeer::changed(change);
}

void ListViewPeer::showValue() {
  showRowCount();
  showEmptyText();
  if (!onlyGrown_) redraw();
  onlyGrown_ = true;
  showSelection();
}

void ListViewPeer::showEmptyText() {
  const std::string text = list_.empty() ? list_.emptyText() : "";
  if (text == shownEmptyText_) return;
  shownEmptyText_ = text;
  InvalidateRect(handle(), nullptr, TRUE);
}

// Below the header, which is the list's only child.
void ListViewPeer::drawEmptyText() const {
  RECT room;
  GetClientRect(handle(), &room);
  RECT header = {};
  const HWND above = GetWindow(handle(), GW_CHILD);
  if (above != nullptr) GetWindowRect(above, &header);
  room.top += header.bottom - header.top;
  InflateRect(&room, -metrics().pixelsX(kEmptyTextMargin), 0);
  const HDC target = GetDC(handle());
  const HGDIOBJ fontBefore = SelectObject(target, metrics().font());
  SetBkMode(target, TRANSPARENT);
  SetTextColor(target, GetSysColor(COLOR_GRAYTEXT));
  drawText(target, shownEmptyText_, room, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_PATH_ELLIPSIS);
  SelectObject(target, fontBefore);
  ReleaseDC(handle(), target);
}

// A list that was emptied is scrolled back to its first row.
void ListViewPeer::showRowCount() {
  if (emptied_) {
    SendMessageA(handle(), LVM_DELETEALLITEMS, 0, 0);
    shownSelection_.reset();
    emptied_ = false;
  }
  const int count = static_cast<int>(list_.rowCount());
  if (count == SendMessageA(handle(), LVM_GETITEMCOUNT, 0, 0)) return;
  if (ownerData_) {
    SendMessageA(handle(), LVM_SETITEMCOUNT, static_cast<WPARAM>(count), LVSICF_NOINVALIDATEALL | LVSICF_NOSCROLL);
  } else {
    storeRows(count);
  }
}

void ListViewPeer::storeRows(int count) {
  int stored = static_cast<int>(SendMessageA(handle(), LVM_GETITEMCOUNT, 0, 0));
  for (; stored > count; --stored) SendMessageA(handle(), LVM_DELETEITEM, static_cast<WPARAM>(count), 0);
  for (; stored < count; ++stored) {
    LVITEMA item = {};
    item.mask = LVIF_TEXT;
    item.iItem = stored;
    item.pszText = LPSTR_TEXTCALLBACKA;
    SendMessageA(handle(), LVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&item));
    for (item.iSubItem = 1; item.iSubItem < static_cast<int>(columnWidths_.size()); ++item.iSubItem) {
      SendMessageA(handle(), LVM_SETITEMA, 0, reinterpret_cast<LPARAM>(&item));
    }
  }
}

// Keeps the selected row itself, because LVM_GETNEXTITEM would search all rows.
void ListViewPeer::showSelection() {
  if (list_.selected() == shownSelection_) return;
  const std::size_t row = list_.selected() ? *list_.selected() : *shownSelection_;
  LVITEMA item = {};
  item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
  item.state = list_.selected() ? item.stateMask : 0;
  shownSelection_ = list_.selected();
  showingSelection_ = true;
  SendMessageA(handle(), LVM_SETITEMSTATE, row, reinterpret_cast<LPARAM>(&item));
  showingSelection_ = false;
}

void ListViewPeer::placed() { distributeColumnWidths(); }

// Distributes the width of the list, less that of a scroll bar, among the columns, unless the user has resized one.
void ListViewPeer::distributeColumnWidths() {
  RECT frame;
  GetWindowRect(handle(), &frame);
  const int width = frame.right - frame.left - 2 * GetSystemMetrics(SM_CXEDGE) - GetSystemMetrics(SM_CXVSCROLL);
  if (width <= 0) return;
  const auto addShare = [](int sum, const controls::Column& column) { return sum + column.share; };
  const int shares = std::accumulate(list_.columns().begin(), list_.columns().end(), 0, addShare);
  for (std::size_t i = 0; i < columnWidths_.size(); ++i) {
    const int now = static_cast<int>(SendMessageA(handle(), LVM_GETCOLUMNWIDTH, i, 0));
    if (columnWidths_[i] != 0 && now != columnWidths_[i]) return;
  }
  for (std::size_t i = 0; i < columnWidths_.size(); ++i) {
    columnWidths_[i] = MulDiv(width, list_.columns()[i].share, shares);
    SendMessageA(handle(), LVM_SETCOLUMNWIDTH, i, MAKELPARAM(columnWidths_[i], 0));
  }
}

std::size_t ListViewPeer::rowOf(int item) const {
  return item < 0 || static_cast<std::size_t>(item) >= list_.rowCount() ? list_.rowCount()
                                                                        : static_cast<std::size_t>(item);
}

LRESULT ListViewPeer::onNotify(NMHDR& header) {
  if (header.hwndFrom != handle()) return 0;
  switch (header.code) {
    case LVN_GETDISPINFOA:
      fillItem(reinterpret_cast<NMLVDISPINFOA&>(header).item);
      break;
    case LVN_ITEMCHANGED:
      selectedByKeyboard(reinterpret_cast<const NMLISTVIEW&>(header));
      break;
    case LVN_ODFINDITEMA:
      return -1;
    default:
      break;
  }
  return 0;
}

// The native list may request rows that the control no longer has.
void ListViewPeer::fillItem(LVITEMA& item) const {
  static const std::string kNothing;
  const std::size_t index = rowOf(item.iItem);
  const controls::Row* const row = index < list_.rowCount() ? &list_.row(index) : nullptr;
  if ((item.mask & LVIF_TEXT) != 0) {
    const auto subItem = static_cast<std::size_t>(item.iSubItem);
    const bool known = row != nullptr && subItem <= row->subItems.size();
    const std::string& text = !known ? kNothing : subItem == 0 ? row->text : row->subItems[subItem - 1];
    item.pszText = asNative(text);
  }
  if ((item.mask & LVIF_STATE) != 0) {
    item.state = INDEXTOSTATEIMAGEMASK(row != nullptr && row->ticked ? 2 : 1);
    item.stateMask = LVIS_STATEIMAGEMASK;
  }
}

// Mouse clicks are reported by mouseDown(), which also sees clicks on the row that is selected already.
void ListViewPeer::selectedByKeyboard(const NMLISTVIEW& change) {
  const bool selected = (change.uNewState & LVIS_SELECTED) != 0 && (change.uOldState & LVIS_SELECTED) == 0;
  if (!selected || inMouseDown_ || showingSelection_) return;
  clickRow(rowOf(change.iItem));
}

void ListViewPeer::clickRow(std::size_t row) {
  shownSelection_ = row;
  list_.clickRow(row);
}

// Replaces the native handling of Space, which selects the row again and is slow with many rows.
LRESULT ListViewPeer::tickFocused() {
  const LRESULT item = SendMessageA(handle(), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED);
  list_.clickTick(rowOf(static_cast<int>(item)));
  return 0;
}

LRESULT CALLBACK ListViewPeer::procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
  ListViewPeer& peer = peerOf<ListViewPeer>(window);
  if (message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK) return peer.mouseDown(message, first, second);
  if (message == WM_KEYDOWN && first == VK_SPACE && peer.list_.checkBoxes()) return peer.tickFocused();
  const LRESULT result = CallWindowProcA(peer.nativeProcedure_, window, message, first, second);
  if (message == WM_PAINT && !peer.shownEmptyText_.empty()) peer.drawEmptyText();
  return result;
}

// A click on a row's check box only flips its tick; any other click on a row selects it.
LRESULT ListViewPeer::mouseDown(UINT message, WPARAM first, LPARAM second) {
  LVHITTESTINFO hit = {};
  hit.pt = {static_cast<short>(LOWORD(second)), static_cast<short>(HIWORD(second))};
  SendMessageA(handle(), LVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
  if (list_.checkBoxes() && (hit.flags & LVHT_ONITEM) == LVHT_ONITEMSTATEICON) {
    SetFocus(handle());
    list_.clickTick(rowOf(hit.iItem));
    return 0;
  }
  inMouseDown_ = true;
  const LRESULT result = CallWindowProcA(nativeProcedure_, handle(), message, first, second);
  inMouseDown_ = false;
  if (hit.iItem >= 0 && isSelected(handle(), hit.iItem)) clickRow(rowOf(hit.iItem));
  return result;
}

}  // namespace platform::win32
