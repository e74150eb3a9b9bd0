#include "platform/win32/ui/ListViewPeer.h"

#include <algorithm>

#include "platform/win32/CodePage.h"
#include "platform/win32/ui/Accessibility.h"
#include "platform/win32/ui/CommonControls.h"
#include "platform/win32/ui/PopupMenu.h"
#include "platform/win32/ui/TextDrawing.h"

namespace platform::win32 {
namespace {

constexpr int kEmptyTextMargin = 4;  // dialog units
constexpr int kTextMargins = 8;      // dialog units, left and right of a cell's text
constexpr int kSortArrow = 8;        // dialog units
constexpr int kSortedUp = 0x0400;    // HDF_SORTUP, from version 6 of the common controls on
constexpr int kSortedDown = 0x0200;  // HDF_SORTDOWN

NativeWindow nativeList(bool ownerData, bool severalSelected) {
  const DWORD rows = ownerData ? LVS_OWNERDATA : LVS_SHAREIMAGELISTS;
  const DWORD selection = severalSelected ? 0 : LVS_SINGLESEL;
  return {.windowClass = WC_LISTVIEWA,
          .style = LVS_REPORT | LVS_SHOWSELALWAYS | rows | selection,
          .extendedStyle = WS_EX_CLIENTEDGE};
}

// For members that are pointers to non-const but are only read.
char* asNative(const std::string& text) { return const_cast<char*>(text.c_str()); }

bool hasState(HWND list, int item, UINT state) {
  return static_cast<UINT>(SendMessageA(list, LVM_GETITEMSTATE, static_cast<WPARAM>(item), state)) == state;
}

// `item` -1 stands for all.
void setState(HWND list, int item, UINT mask, UINT state) {
  LVITEMA record = {};
  record.stateMask = mask;
  record.state = state;
  SendMessageA(list, LVM_SETITEMSTATE, static_cast<WPARAM>(item), reinterpret_cast<LPARAM>(&record));
}

}  // namespace

ListViewPeer::ListViewPeer(const Host& host, controls::ListView& list)
    : ControlPeer(host, list, nativeList(supportsOwnerDataLists(), list.checkBoxes())),
      list_(list),
      ownerData_(supportsOwnerDataLists()) {
  replaceProcedure(handle(), *this, procedure, nativeProcedure_);
  // With LVS_EX_CHECKBOXES, which is as old as LVS_OWNERDATA, screen readers announce ticks.
  const LPARAM checkBoxes = list_.checkBoxes() ? LVS_EX_CHECKBOXES : 0;
  SendMessageA(handle(), LVM_SETEXTENDEDLISTVIEWSTYLE, 0, LVS_EX_FULLROWSELECT | checkBoxes);
  if (list_.checkBoxes() && !ownerData_) {
    tickPictures_ = makeTickPictures(GetSystemMetrics(SM_CXSMICON));
    SendMessageA(handle(), LVM_SETIMAGELIST, LVSIL_STATE, reinterpret_cast<LPARAM>(tickPictures_));
  }
  if (list_.checkBoxes()) SendMessageA(handle(), LVM_SETCALLBACKMASK, LVIS_STATEIMAGEMASK, 0);
  addColumns();
}

// LVS_SHAREIMAGELISTS: the native list does not destroy these pictures.
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
  if (change == controls::Change::kValue) selectionChanged_ = true;
  ControlPeer::changed(change);
}

void ListViewPeer::showValue() {
  applying_ = true;
  showRowCount();
  showEmptyText();
  if (!onlyGrown_) redraw();
  onlyGrown_ = true;
  showOrder();
  if (selectionChanged_) showSelection();
  applying_ = false;
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

void ListViewPeer::showSelection() {
  // The native list takes long to select many rows one by one.
  constexpr std::size_t kMostAtOnce = 10'000;
  if (list_.selectedCount() > kMostAtOnce) list_.select(list_.selected());
  selectionChanged_ = false;
  deselectAll();
  for (const std::size_t row : list_.selectedCount() > 1 ? list_.selectedRows() : std::vector<std::size_t>()) {
    setState(handle(), static_cast<int>(list_.placeOf(row)), LVIS_SELECTED, LVIS_SELECTED);
  }
  if (!list_.selected()) return;
  constexpr UINT kBoth = LVIS_SELECTED | LVIS_FOCUSED;
  setState(handle(), static_cast<int>(list_.placeOf(*list_.selected())), kBoth, kBoth);
}

// The native list walks all its items for item -1, so a single selected one is deselected first.
void ListViewPeer::deselectAll() {
  const auto count = [this] { return SendMessageA(handle(), LVM_GETSELECTEDCOUNT, 0, 0); };
  if (count() == 1) setState(handle(), lastSelected_, LVIS_SELECTED, 0);
  if (count() != 0) setState(handle(), -1, LVIS_SELECTED, 0);
}

// Marks the column by which the rows are sorted.
void ListViewPeer::showOrder() {
  if (shownOrder_ == list_.sortOrder()) return;
  shownOrder_ = list_.sortOrder();
  const auto header = reinterpret_cast<HWND>(SendMessageA(handle(), LVM_GETHEADER, 0, 0));
  for (std::size_t i = 0; i < columnWidths_.size(); ++i) {
    const bool isSorted = shownOrder_ && shownOrder_->column == i;
    HDITEMA item = {};
    item.mask = HDI_FORMAT;
    item.fmt = HDF_STRING | (list_.columns()[i].rightAligned ? HDF_RIGHT : HDF_LEFT) |
               (!isSorted                 ? 0
                : shownOrder_->descending ? kSortedDown
                                          : kSortedUp);
    SendMessageA(header, HDM_SETITEMA, i, reinterpret_cast<LPARAM>(&item));
  }
}

void ListViewPeer::placed() { distributeColumnWidths(); }

// The width of a column with a sample, else 0.
int ListViewPeer::widthOf(const controls::Column& column) const {
  if (column.sample.empty()) return 0;
  const int title = metrics().textWidth(column.title) + metrics().pixelsX(kSortArrow);
  return std::max(title, metrics().textWidth(column.sample)) + metrics().pixelsX(kTextMargins);
}

// Distributes the width of the list, less that of a scroll bar, among the columns, unless the user has resized one.
void ListViewPeer::distributeColumnWidths() {
  RECT frame;
  GetWindowRect(handle(), &frame);
  int left = frame.right - frame.left - 2 * GetSystemMetrics(SM_CXEDGE) - GetSystemMetrics(SM_CXVSCROLL);
  int shares = 0;
  for (const controls::Column& column : list_.columns()) {
    left -= widthOf(column);
    shares += column.sample.empty() ? column.share : 0;
  }
  if (left <= 0) return;
  for (std::size_t i = 0; i < columnWidths_.size(); ++i) {
    const int now = static_cast<int>(SendMessageA(handle(), LVM_GETCOLUMNWIDTH, i, 0));
    if (columnWidths_[i] != 0 && now != columnWidths_[i]) return;
  }
  for (std::size_t i = 0; i < columnWidths_.size(); ++i) {
    const controls::Column& column = list_.columns()[i];
    columnWidths_[i] = column.sample.empty() ? MulDiv(left, column.share, shares) : widthOf(column);
    SendMessageA(handle(), LVM_SETCOLUMNWIDTH, i, MAKELPARAM(columnWidths_[i], 0));
  }
}

std::size_t ListViewPeer::rowOf(int item) const {
  const bool isThere = item >= 0 && static_cast<std::size_t>(item) < list_.rowCount();
  return isThere ? list_.rowAt(static_cast<std::size_t>(item)) : list_.rowCount();
}

LRESULT ListViewPeer::onNotify(NMHDR& header) {
  if (header.hwndFrom != handle()) return 0;
  switch (header.code) {
    case LVN_GETDISPINFOA:
      fillItem(reinterpret_cast<NMLVDISPINFOA&>(header).item);
      break;
    case LVN_ITEMCHANGED:
      itemChanged(reinterpret_cast<const NMLISTVIEW&>(header));
      break;
    case LVN_ODSTATECHANGED:
      itemsChanged(reinterpret_cast<const NMLVODSTATECHANGE&>(header));
      break;
    case LVN_COLUMNCLICK:
      list_.clickColumn(static_cast<std::size_t>(reinterpret_cast<const NMLISTVIEW&>(header).iSubItem));
      break;
    case LVN_ODFINDITEMA:
      return -1;
    default:
      break;
  }
  return 0;
}

// The native list may request rows that the control no longer has.
void ListViewPeer::fillItem(LVITEMA& item) {
  static const std::string kNothing;
  const std::size_t row = rowOf(item.iItem);
  const bool isThere = row < list_.rowCount();
  if ((item.mask & LVIF_TEXT) != 0) {
    const std::string& text = isThere ? list_.cell(row, static_cast<std::size_t>(item.iSubItem)) : kNothing;
    item.pszText = asNative(drawnText(text, static_cast<std::size_t>(item.iSubItem)));
  }
  if ((item.mask & LVIF_STATE) != 0) {
    item.state = INDEXTOSTATEIMAGEMASK(isThere && list_.ticked(row) ? 2 : 1);
    item.stateMask = LVIS_STATEIMAGEMASK;
  }
}

// Other programs, such as screen readers, get the whole text.
const std::string& ListViewPeer::drawnText(const std::string& text, std::size_t column) {
  if (!painting_ || !list_.columns()[column].shortened) return text;
  const int room = paintedRooms_[column];
  if (metrics().textWidth(text) <= room) return text;
  std::string& drawn = drawnTexts_[nextDrawn_++ % drawnTexts_.size()];
  drawn = shortenedInMiddle(text, room);
  return drawn;
}

std::string ListViewPeer::shortenedInMiddle(const std::string& text, int width) const {
  const std::wstring wide = wideText(text);
  const auto keeping = [&wide](std::size_t count) {
    const std::size_t head = count / 2;
    const std::size_t tail = count - head;
    return exactText(wide.substr(0, head) + L"..." + wide.substr(wide.size() - tail)).value_or("...");
  };
  std::size_t fits = 0;
  for (std::size_t least = 1, most = wide.size(); least < most;) {
    const std::size_t count = (least + most) / 2;
    if (metrics().textWidth(keeping(count)) <= width) {
      fits = count;
      least = count + 1;
    } else {
      most = count;
    }
  }
  return keeping(fits);
}

RECT ListViewPeer::partOf(int item, int part) const {
  RECT place = {part, 0, 0, 0};
  SendMessageA(handle(), LVM_GETITEMRECT, static_cast<WPARAM>(item), reinterpret_cast<LPARAM>(&place));
  return place;
}

// The first column also holds the check box.
int ListViewPeer::textRoom(int item, int column) const {
  int width = static_cast<int>(SendMessageA(handle(), LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column), 0));
  if (column == 0) {
    width -= partOf(item, LVIR_LABEL).left - partOf(item, LVIR_BOUNDS).left;
  }
  return width - metrics().pixelsX(kTextMargins);
}

std::string ListViewPeer::toolTip() const {
  LVHITTESTINFO hit = {};
  GetCursorPos(&hit.pt);
  ScreenToClient(handle(), &hit.pt);
  SendMessageA(handle(), LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&hit));
  const std::size_t row = rowOf(hit.iItem);
  if (row < list_.rowCount() && hit.iSubItem >= 0) {
    const std::string& text = list_.cell(row, static_cast<std::size_t>(hit.iSubItem));
    if (metrics().textWidth(text) > textRoom(hit.iItem, hit.iSubItem)) return text;
  }
  return list_.toolTip();
}

// Item -1 stands for all. A click of the mouse is reported by mouseDown(), which also sees one on a row that is
// selected already.
void ListViewPeer::itemChanged(const NMLISTVIEW& change) {
  const bool selected = (change.uNewState & LVIS_SELECTED) != 0;
  if (selected && change.iItem >= 0) lastSelected_ = change.iItem;
  if (applying_) return;
  if (change.iItem < 0) return list_.markAllSelected(selected);
  if (((change.uNewState ^ change.uOldState) & LVIS_SELECTED) != 0) list_.markSelected(rowOf(change.iItem), selected);
  constexpr UINT kBoth = LVIS_SELECTED | LVIS_FOCUSED;
  const bool gained = (change.uNewState & ~change.uOldState & kBoth) != 0;
  if (gained && !inMouseDown_ && hasState(handle(), change.iItem, kBoth)) list_.clickSelected(rowOf(change.iItem));
}

void ListViewPeer::itemsChanged(const NMLVODSTATECHANGE& change) {
  if (applying_ || ((change.uNewState ^ change.uOldState) & LVIS_SELECTED) == 0) return;
  const bool selected = (change.uNewState & LVIS_SELECTED) != 0;
  for (int item = change.iFrom; item <= change.iTo; ++item) list_.markSelected(rowOf(item), selected);
}

// Not every version of the native list reports every way of selecting many rows.
void ListViewPeer::readSelection() {
  if (static_cast<std::size_t>(SendMessageA(handle(), LVM_GETSELECTEDCOUNT, 0, 0)) == list_.selectedCount()) return;
  const std::optional<std::size_t> clicked = list_.selected();
  list_.markAllSelected(false);
  for (int item = -1;;) {
    item = static_cast<int>(SendMessageA(handle(), LVM_GETNEXTITEM, static_cast<WPARAM>(item), LVNI_SELECTED));
    if (item < 0) break;
    list_.markSelected(rowOf(item), true);
  }
  if (clicked) list_.clickSelected(*clicked);
}

int ListViewPeer::focusedItem() const {
  return static_cast<int>(SendMessageA(handle(), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED));
}

// Replaces the native handling of Space, which selects the row again and is slow with many rows.
void ListViewPeer::tickFocused() {
  readSelection();
  const int item = focusedItem();
  list_.toggleTicks(rowOf(item));
  announceState(handle(), item);
}

void ListViewPeer::openRowMenu(LPARAM where) {
  readSelection();
  openMenu(GetParent(handle()), placeOfMenu(where), list_.menu());
}

POINT ListViewPeer::placeOfMenu(LPARAM where) const {
  if (where != -1) return {static_cast<short>(LOWORD(where)), static_cast<short>(HIWORD(where))};
  RECT inside;
  GetClientRect(handle(), &inside);
  const RECT label = partOf(focusedItem(), LVIR_LABEL);
  POINT at = {std::clamp<LONG>(label.left, 0, inside.right), std::clamp<LONG>(label.bottom, 0, inside.bottom)};
  ClientToScreen(handle(), &at);
  return at;
}

bool ListViewPeer::keyDown(WPARAM key) {
  const bool withControl = GetKeyState(VK_CONTROL) < 0;
  if (key == VK_SPACE && list_.checkBoxes() && !withControl) {
    tickFocused();
    return true;
  }
  if (key != VK_DELETE) return false;
  list_.pressDelete();
  return true;
}

// The header passes its WM_CONTEXTMENU on to the list.
LRESULT CALLBACK ListViewPeer::procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
  ListViewPeer& peer = peerOf<ListViewPeer>(window);
  if (message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK) return peer.mouseDown(message, first, second);
  if (message == WM_KEYDOWN && peer.keyDown(first)) return 0;
  const bool isMenuKey = message == WM_KEYUP && first == VK_APPS;
  if (isMenuKey || message == WM_CONTEXTMENU) {
    const bool isOwn = isMenuKey || reinterpret_cast<HWND>(first) == window;
    if (isOwn) peer.openRowMenu(isMenuKey ? -1 : second);
    return 0;
  }
  if (message == WM_PAINT) return peer.paint(first, second);
  return CallWindowProcA(peer.nativeProcedure_, window, message, first, second);
}

LRESULT ListViewPeer::paint(WPARAM first, LPARAM second) {
  // Measured before, because the native list requests an item's text to tell the place of the item.
  paintedRooms_.clear();
  for (int column = 0; !list_.empty() && column < static_cast<int>(columnWidths_.size()); ++column) {
    paintedRooms_.push_back(textRoom(0, column));
  }
  painting_ = !list_.empty();
  const LRESULT result = CallWindowProcA(nativeProcedure_, handle(), WM_PAINT, first, second);
  painting_ = false;
  if (!shownEmptyText_.empty()) drawEmptyText();
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
    announceState(handle(), hit.iItem);
    return 0;
  }
  inMouseDown_ = true;
  const LRESULT result = CallWindowProcA(nativeProcedure_, handle(), message, first, second);
  inMouseDown_ = false;
  if (hit.iItem >= 0 && hasState(handle(), hit.iItem, LVIS_SELECTED)) list_.clickSelected(rowOf(hit.iItem));
  return result;
}

}  // namespace platform::win32
