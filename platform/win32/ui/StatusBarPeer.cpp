#include "platform/win32/ui/StatusBarPeer.h"

// Kept apart: the common controls' header needs <windows.h> before it.
#include <commctrl.h>

#include <algorithm>

#include "platform/win32/CodePage.h"
#include "platform/win32/ui/Dpi.h"
#include "platform/win32/ui/TextDrawing.h"

namespace platform::win32 {
namespace {

// Dialog units.
constexpr int kPanePadding = 4;  // left and right of a text
constexpr int kMovingWidth = 40;
constexpr int kBlockWidth = 5;
constexpr int kBlockGap = 1;
constexpr int kBlocks = 3;  // that move together

}  // namespace

StatusBarPeer::StatusBarPeer(const Host& host, controls::StatusBar& bar)
    : ControlPeer(host, bar,
                  {.windowClass = STATUSCLASSNAMEA, .style = CCS_NORESIZE | CCS_NOPARENTALIGN | SBARS_SIZEGRIP}),
      bar_(bar) {}

void StatusBarPeer::placed() {
  rightEdges_.clear();
  showValue();
}

// The native bar paints a part at once when it is set, so only those that change are set.
void StatusBarPeer::showValue() {
  const HDC target = GetDC(handle());
  const HGDIOBJ fontBefore = SelectObject(target, metrics().font());
  if (bar_.moving() != showsMoving_) {
    showsMoving_ = bar_.moving();
    position_ = 0;
    // The last part becomes one that the program draws, or one with a text again.
    rightEdges_.clear();
  }
  const bool isDivided = divide(paneWidths(target));
  shown_.resize(rightEdges_.size());
  setText(target, 0, bar_.text());
  for (std::size_t i = 0; i < bar_.panes().size(); ++i) setText(target, i + 1, bar_.panes()[i]);
  if (showsMoving_ && isDivided) SendMessageA(handle(), SB_SETTEXTA, (rightEdges_.size() - 1) | SBT_OWNERDRAW, 0);
  SelectObject(target, fontBefore);
  ReleaseDC(handle(), target);
}

std::vector<int> StatusBarPeer::paneWidths(HDC target) {
  std::vector<int> widths;
  for (const std::string& pane : bar_.panes()) {
    widths.push_back(textExtent(target, pane) + 2 * metrics().pixelsX(kPanePadding));
  }
  leastWidths_.resize(bar_.moving() ? widths.size() : 0);
  for (std::size_t i = 0; i < leastWidths_.size(); ++i) {
    widths[i] = leastWidths_[i] = std::max(leastWidths_[i], widths[i]);
  }
  if (bar_.moving()) widths.push_back(metrics().pixelsX(kMovingWidth));
  return widths;
}

// The size grip is in the last part.
bool StatusBarPeer::divide(const std::vector<int>& widths) {
  RECT room;
  GetClientRect(handle(), &room);
  std::vector<int> edges(widths.size() + 1);
  edges.back() = room.right;
  int left = room.right - systemMetric(SM_CXVSCROLL, handle());
  for (std::size_t i = widths.size(); i-- > 0;) edges[i] = left = std::max(0, left - widths[i]);
  if (edges == rightEdges_) return false;
  rightEdges_ = edges;
  shown_.clear();
  SendMessageA(handle(), SB_SETPARTS, edges.size(), reinterpret_cast<LPARAM>(edges.data()));
  return true;
}

void StatusBarPeer::setText(HDC target, std::size_t part, const std::string& text) {
  const int left = part == 0 ? 0 : rightEdges_[part - 1];
  const int width = rightEdges_[part] - left - metrics().pixelsX(kPanePadding);
  if (shown_[part] == text) return;
  shown_[part] = text;
  if (hasWideCalls()) {
    const std::wstring shortened = shortenedText(target, text, width);
    SendMessageW(handle(), SB_SETTEXTW, part, reinterpret_cast<LPARAM>(shortened.c_str()));
  } else {
    SendMessageA(handle(), SB_SETTEXTA, part, reinterpret_cast<LPARAM>(text.c_str()));
  }
}

void StatusBarPeer::move() {
  if (!showsMoving_) return;
  ++position_;
  RECT part;
  SendMessageA(handle(), SB_GETRECT, rightEdges_.size() - 1, reinterpret_cast<LPARAM>(&part));
  InvalidateRect(handle(), &part, FALSE);
}

// Blocks that enter at the left and leave at the right.
void StatusBarPeer::draw(const DRAWITEMSTRUCT& item) {
  RECT room = item.rcItem;
  room.right = std::min<LONG>(room.right, room.left + metrics().pixelsX(kMovingWidth));
  FillRect(item.hDC, &room, GetSysColorBrush(COLOR_BTNFACE));
  InflateRect(&room, -2, -2);
  const int step = metrics().pixelsX(kBlockWidth + kBlockGap);
  const int places = std::max<int>(1, (room.right - room.left) / step);
  for (int i = 0; i < kBlocks; ++i) {
    const int left = room.left + (position_ + i) % places * step;
    const RECT block = {left, room.top, left + metrics().pixelsX(kBlockWidth), room.bottom};
    FillRect(item.hDC, &block, GetSysColorBrush(COLOR_HIGHLIGHT));
  }
}

}  // namespace platform::win32
