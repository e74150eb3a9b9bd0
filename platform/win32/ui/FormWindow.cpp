#include "platform/win32/ui/FormWindow.h"

#include <algorithm>
#include <string>
#include <utility>

#include "platform/win32/ui/Accessibility.h"
#include "platform/win32/ui/Dpi.h"
#include "platform/win32/ui/DroppedFiles.h"
#include "platform/win32/ui/PeerFactory.h"

namespace platform::win32 {
namespace {

constexpr const char* kWindowClass = "ScrubhavenForm";
constexpr UINT kThemeChanged = 0x031A;  // WM_THEMECHANGED, from Windows XP on
constexpr UINT kDpiChanged = 0x02E0;    // WM_DPICHANGED, from Windows 8.1 on
constexpr UINT kAnnotate = WM_APP;
// The system uses the four lowest bits of the commands of a system menu.
constexpr UINT kSystemMenuItem = 0x0010;
constexpr WPARAM kSystemMenuMask = 0xFFF0;
constexpr UINT_PTR kHoverTimer = 1;
constexpr int kScrollLine = 14;      // dialog units
constexpr int kRevealMargin = 4;     // dialog units around a control that is scrolled into view
constexpr UINT kHoverInterval = 50;  // milliseconds between checks whether the pointer has left a control

// The initial size of the first window, in percent of its least size.
constexpr int kInitialWidth = 120;
constexpr int kInitialHeight = 130;

// Only the first window can be minimized and maximized.
DWORD windowStyle(bool hasOwner) {
  const DWORD boxes = hasOwner ? 0 : WS_MINIMIZEBOX | WS_MAXIMIZEBOX;
  return WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_CLIPCHILDREN | boxes;
}

HICON loadIcon(int side) {
  return static_cast<HICON>(LoadImageA(GetModuleHandleA(nullptr), kIconName, IMAGE_ICON, side, side, LR_SHARED));
}

void registerClass(WNDPROC procedure) {
  WNDCLASSA windowClass = {};
  if (GetClassInfoA(GetModuleHandleA(nullptr), kWindowClass, &windowClass)) return;
  windowClass.lpfnWndProc = procedure;
  windowClass.hInstance = GetModuleHandleA(nullptr);
  windowClass.hCursor = LoadCursorA(nullptr, IDC_ARROW);
  windowClass.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
  windowClass.lpszClassName = kWindowClass;
  RegisterClassA(&windowClass);
}

HWND createWindow(const controls::Form& form, HWND owner, WNDPROC procedure) {
  registerClass(procedure);
  return CreateWindowExA(WS_EX_CONTROLPARENT, kWindowClass, form.caption().c_str(), windowStyle(owner != nullptr), 0, 0,
                         0, 0, owner, nullptr, GetModuleHandleA(nullptr), nullptr);
}

RECT workArea() {
  RECT area = {0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
  SystemParametersInfoA(SPI_GETWORKAREA, 0, &area, 0);
  return area;
}

// The start of a range of `length` pixels that is centred between `from` and `to`, kept between `least` and `most`.
int centred(int length, int from, int to, int least, int most) {
  return std::clamp((from + to - length) / 2, least, std::max(least, most - length));
}

}  // namespace

FormWindow::FormWindow(controls::Form& form, FormWindow* owner, const Ui& ui)
    : form_(form),
      owner_(owner),
      ui_(ui),
      layout_(form.layout()),
      handle_(createWindow(form, owner == nullptr ? nullptr : owner->handle(), procedure)),
      toolTips_(handle_) {
  SetWindowLongPtrA(handle_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  metrics_.update(dpiOf(handle_));
  setIcons();
  addSystemMenuItem();
  // The controls are created where they are shown, because moving each of them later takes as long again.
  form_.prepareToShow();
  layout_ = form_.layout();
  const controls::Rect place = initialPlace();
  SetWindowPos(handle_, nullptr, place.x, place.y, place.width, place.height, SWP_NOZORDER | SWP_NOACTIVATE);
  createControls();
  scheme_.follow(handle_);
  // Access keys and the focus are shown from the start, not only after a key has been used.
  SendMessageA(handle_, WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEACCEL | UISF_HIDEFOCUS), 0);
  form_.attach(this);
}

FormWindow::~FormWindow() {
  form_.attach(nullptr);
  close();
  // procedure() must not use this object any more. The peers are destroyed later, as members, because the native
  // controls call the peers' window procedures until they are destroyed.
  SetWindowLongPtrA(handle_, GWLP_USERDATA, 0);
  if (annotated_) {
    for (const auto& [window, peer] : peers_) removeAnnotations(window, peer->control());
  }
  DestroyWindow(handle_);
}

void FormWindow::setIcons() const {
  for (const auto& [kind, metric] : {std::pair{ICON_BIG, SM_CXICON}, {ICON_SMALL, SM_CXSMICON}}) {
    const HICON icon = loadIcon(systemMetric(metric, handle_));
    SendMessageA(handle_, WM_SETICON, static_cast<WPARAM>(kind), reinterpret_cast<LPARAM>(icon));
  }
}

void FormWindow::addSystemMenuItem() const {
  const std::string& caption = form_.systemMenuItem().caption;
  if (caption.empty()) return;
  const HMENU menu = GetSystemMenu(handle_, FALSE);
  AppendMenuA(menu, MF_SEPARATOR, 0, nullptr);
  AppendMenuA(menu, MF_STRING, kSystemMenuItem, caption.c_str());
}

void FormWindow::createControls() {
  const controls::Places places = fitContent();
  for (controls::Control* control : controls::tabOrder(layout_)) {
    const controls::Rect place = places.at(control);
    std::unique_ptr<ControlPeer> peer = makePeer({handle_, metrics_, place, changed_, rearrange_}, *control);
    toolTips_.add(peer->handle());
    placed_[peer->handle()] = place;
    peers_.emplace(peer->handle(), std::move(peer));
  }
  std::vector<ControlPeer*> order = tabOrder();
  // Frames go to the bottom of the Z order, an outer one below its inner ones, so that they do not paint over the
  // controls in them.
  for (auto peer = order.rbegin(); peer != order.rend(); ++peer) {
    if ((*peer)->control().kind() != controls::Kind::kFrame) continue;
    SetWindowPos((*peer)->handle(), HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  }
  for (ControlPeer* peer : order) peer->placed();
  keys_.emplace(form_, std::move(order));
  if (form_.statusBar() != nullptr) {
    auto status =
        std::make_unique<StatusBarPeer>(Host{handle_, metrics_, {}, changed_, rearrange_}, *form_.statusBar());
    status_ = status.get();
    SetWindowPos(status->handle(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    peers_.emplace(status->handle(), std::move(status));
  }
  arrange();
}

std::vector<ControlPeer*> FormWindow::tabOrder() const {
  std::unordered_map<const controls::Control*, ControlPeer*> peerOfControl;
  for (const auto& [window, peer] : peers_) peerOfControl[&peer->control()] = peer.get();
  std::vector<ControlPeer*> order;
  for (const controls::Control* control : controls::tabOrder(layout_)) order.push_back(peerOfControl.at(control));
  return order;
}

void FormWindow::annotateControls() {
  if (annotated_) return;
  annotated_ = true;
  for (const auto& [window, peer] : peers_) annotate(window, peer->control());
}

void FormWindow::open() {
  flush();
  if (form_.onDrop) DragAcceptFiles(handle_, TRUE);
  if (owner_ != nullptr) EnableWindow(owner_->handle(), FALSE);
  ShowWindow(handle_, owner_ == nullptr ? SW_SHOWDEFAULT : SW_SHOW);
  UpdateWindow(handle_);
}

void FormWindow::close() {
  if (closed_) return;
  closed_ = true;
  if (owner_ != nullptr) {
    EnableWindow(owner_->handle(), TRUE);
    if (GetActiveWindow() == handle_) SetActiveWindow(owner_->handle());
  }
  ShowWindow(handle_, SW_HIDE);
}

void FormWindow::changed(controls::Change change) {
  if (change == controls::Change::kClosed) close();
  const bool isDue = GetTickCount() - repaintedAt_ >= kFlushInterval;
  if (change == controls::Change::kRepaintNow || (change == controls::Change::kRepaint && isDue)) repaint();
}

// Paints what has changed immediately, because the running handler may not process messages for a long time.
void FormWindow::repaint() {
  repaintedAt_ = GetTickCount();
  flush();
  RedrawWindow(handle_, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

void FormWindow::flush() {
  if (status_ != nullptr) status_->move();
  // WM_DPICHANGED may arrive before the controls are there.
  if (!changed_ || !keys_) return;
  form_.prepareToShow();
  if (rearrange_) rearrange();
  // The tooltip that it shows may be another one now.
  if (status_ != nullptr) status_->changed(controls::Change::kValue);
  changed_ = false;
  keys_->beginChanges();
  for (const auto& [window, peer] : peers_) peer->flush();
  keys_->endChanges();
  followFocus(false);
}

bool FormWindow::handle(const MSG& message) {
  const bool ours = message.hwnd == handle_ || IsChild(handle_, message.hwnd);
  if (!ours) return false;
  toolTips_.relay(message);
  if (!keys_->handle(message)) return false;
  followFocus(true);
  return true;
}

void FormWindow::followFocus(bool byKey) {
  ControlPeer* const now = keys_->focused();
  if (now == focused_) return;
  focused_ = now;
  if (now == nullptr) return;
  if (form_.statusBar() != nullptr && hovered_ == nullptr) {
    form_.statusBar()->setHinted(byKey ? &now->control() : nullptr);
  }
  if (across_.view >= across_.content && down_.view >= down_.content) return;
  RECT at;
  GetWindowRect(now->handle(), &at);
  MapWindowPoints(nullptr, handle_, reinterpret_cast<POINT*>(&at), 2);
  const int marginX = metrics_.pixelsX(kRevealMargin);
  const int marginY = metrics_.pixelsY(kRevealMargin);
  across_.reveal(across_.offset + at.left - marginX, across_.offset + at.right + marginX);
  down_.reveal(down_.offset + at.top - marginY, down_.offset + at.bottom + marginY);
  arrange();
}

controls::Size FormWindow::wholeSize(controls::Size inside) const {
  RECT frame = {0, 0, inside.width, inside.height};
  adjustWindowRect(frame, windowStyle(owner_ != nullptr), WS_EX_CONTROLPARENT, handle_);
  return {static_cast<int>(frame.right - frame.left), static_cast<int>(frame.bottom - frame.top)};
}

controls::Size FormWindow::leastWholeSize() const {
  controls::Size inside = controls::leastSize(layout_, metrics_);
  inside.height += statusHeight();
  return wholeSize(inside);
}

controls::Rect FormWindow::initialPlace() const {
  const RECT area = workArea();
  RECT around = area;
  controls::Size inside = controls::leastSize(layout_, metrics_);
  inside.height += statusHeight();
  if (owner_ == nullptr) {
    inside = {MulDiv(inside.width, kInitialWidth, 100), MulDiv(inside.height, kInitialHeight, 100)};
  } else {
    GetWindowRect(owner_->handle(), &around);
  }
  const controls::Size whole = wholeSize(inside);
  controls::Rect place;
  place.width = std::min<int>(whole.width, area.right - area.left);
  place.height = std::min<int>(whole.height, area.bottom - area.top);
  place.x = centred(place.width, around.left, around.right, area.left, area.right);
  place.y = centred(place.height, around.top, around.bottom, area.top, area.bottom);
  return place;
}

int FormWindow::statusHeight() const { return form_.statusBar() == nullptr ? 0 : controls::statusBarHeight(metrics_); }

controls::Size FormWindow::room() const {
  RECT whole;
  GetWindowRect(handle_, &whole);
  const controls::Size frame = wholeSize({});
  return {std::max<int>(0, whole.right - whole.left - frame.width),
          std::max<int>(0, whole.bottom - whole.top - frame.height)};
}

void FormWindow::showScrollBar(int bar, bool shown, const controls::Scrolling& scrolling) const {
  SCROLLINFO info = {};
  info.cbSize = sizeof(info);
  info.fMask = SIF_PAGE | SIF_POS | SIF_RANGE;
  info.nMax = std::max(0, scrolling.content - 1);
  info.nPage = static_cast<UINT>(scrolling.view);
  info.nPos = scrolling.offset;
  ShowScrollBar(handle_, bar, shown);
  if (shown) SetScrollInfo(handle_, bar, &info, TRUE);
}

controls::Places FormWindow::fitContent() {
  const controls::Size content = controls::leastSize(layout_, metrics_);
  controls::Size inside = room();
  inside.height = std::max(0, inside.height - statusHeight());
  const controls::Size bar = {systemMetric(SM_CXVSCROLL, handle_), systemMetric(SM_CYHSCROLL, handle_)};
  const controls::ScrollBars bars = controls::scrollBarsFor(content, inside, bar);
  if (bars.vertical) inside.width = std::max(0, inside.width - bar.width);
  if (bars.horizontal) inside.height = std::max(0, inside.height - bar.height);
  across_.content = content.width;
  across_.view = inside.width;
  down_.content = content.height;
  down_.view = inside.height;
  across_.scrollTo(across_.offset);
  down_.scrollTo(down_.offset);
  showScrollBar(SB_HORZ, bars.horizontal, across_);
  showScrollBar(SB_VERT, bars.vertical, down_);
  return controls::arrange(layout_, metrics_, inside);
}

// Showing a scroll bar sends WM_SIZE.
void FormWindow::arrange() {
  if (arranging_) return;
  arranging_ = true;
  NativePlaces places;
  const controls::Places inLayout = fitContent();
  for (const auto& [window, peer] : peers_) {
    if (peer.get() == status_) {
      places[window] = {0, down_.view, across_.view, statusHeight()};
      continue;
    }
    controls::Rect place = peer->nativePlace(inLayout.at(&peer->control()));
    place.x -= across_.offset;
    place.y -= down_.offset;
    places[window] = place;
  }
  const int right = seenAcross_ - across_.offset;
  const int down = seenDown_ - down_.offset;
  seenAcross_ = across_.offset;
  seenDown_ = down_.offset;
  const bool isScrolled = right != 0 || down != 0;
  if (isScrolled && places == shifted(right, down)) {
    shiftControls(right, down);
  } else if (places != placed_) {
    moveControls(places);
  }
  arranging_ = false;
}

// Those whose place has changed, in one step, and paints what they covered and cover. SWP_NOCOPYBITS, because the
// pixels at the old position may be those of another control.
void FormWindow::moveControls(const NativePlaces& places) {
  std::vector<HWND> moved;
  std::vector<controls::Rect> stale;
  HDWP moves = BeginDeferWindowPos(static_cast<int>(places.size()));
  for (const auto& [window, place] : places) {
    const auto before = placed_.find(window);
    if (before != placed_.end() && before->second == place) continue;
    moves = DeferWindowPos(moves, window, nullptr, place.x, place.y, place.width, place.height,
                           SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS);
    moved.push_back(window);
    stale.push_back(place);
    if (before != placed_.end()) stale.push_back(before->second);
  }
  EndDeferWindowPos(moves);
  placed_ = places;
  for (const HWND window : moved) peerOf(window)->placed();
  for (const controls::Rect& place : stale) {
    const RECT rectangle = {place.x, place.y, place.right(), place.bottom()};
    RedrawWindow(handle_, &rectangle, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
  }
}

FormWindow::NativePlaces FormWindow::shifted(int right, int down) const {
  NativePlaces places = placed_;
  for (auto& [window, place] : places) {
    if (status_ != nullptr && window == status_->handle()) continue;
    place.x += right;
    place.y += down;
  }
  return places;
}

// ScrollWindowEx moves only the controls that are seen.
void FormWindow::shiftControls(int right, int down) {
  placed_ = shifted(right, down);
  const RECT view = {0, 0, across_.view, down_.view};
  ScrollWindowEx(handle_, right, down, &view, &view, nullptr, nullptr, SW_SCROLLCHILDREN | SW_INVALIDATE | SW_ERASE);
  HDWP moves = BeginDeferWindowPos(static_cast<int>(placed_.size()));
  for (const auto& [window, place] : placed_) {
    moves = DeferWindowPos(moves, window, nullptr, place.x, place.y, 0, 0,
                           SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS);
  }
  EndDeferWindowPos(moves);
}

void FormWindow::rearrange() {
  rearrange_ = false;
  layout_ = form_.layout();
  keys_->setOrder(tabOrder());
  if (IsWindowVisible(handle_) && !IsIconic(handle_)) arrange();
}

void FormWindow::redrawAll() const {
  RedrawWindow(handle_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
}

// The common controls cache the system colours and expect their parent to forward WM_SYSCOLORCHANGE.
void FormWindow::forwardColourChange() {
  for (const auto& [window, peer] : peers_) SendMessageA(window, WM_SYSCOLORCHANGE, 0, 0);
  scheme_.follow(handle_);
  redrawAll();
}

ControlPeer* FormWindow::peerOf(HWND window) const {
  const auto found = peers_.find(window);
  return found == peers_.end() ? nullptr : found->second.get();
}

void FormWindow::hover(ControlPeer* peer) {
  if (hovered_ == peer) return;
  if (hovered_ != nullptr) hovered_->pointerLeaves();
  hovered_ = peer;
  if (form_.statusBar() != nullptr) form_.statusBar()->setHinted(peer == nullptr ? nullptr : &peer->control());
  if (peer == nullptr) {
    KillTimer(handle_, kHoverTimer);
    return;
  }
  SetTimer(handle_, kHoverTimer, kHoverInterval, nullptr);
  peer->pointerEnters();
}

// Windows 95 has no WM_MOUSELEAVE, so a timer checks whether the pointer has left the window.
void FormWindow::checkHover() {
  POINT position;
  if (!GetCursorPos(&position) || peerOf(WindowFromPoint(position)) != hovered_) hover(nullptr);
}

LRESULT FormWindow::receivePointer(HWND under, LPARAM details) {
  ControlPeer* const peer = peerOf(under);
  hover(peer);
  if (toolTips_.hasText()) toolTips_.follow(peer == nullptr ? "" : peer->toolTip());
  if (LOWORD(details) == HTCLIENT) {
    HCURSOR shape = peer == nullptr ? nullptr : peer->cursor();
    if (ui_.pointer() == Pointer::kHourglass) shape = LoadCursorA(nullptr, IDC_WAIT);
    if (shape != nullptr) {
      SetCursor(shape);
      return TRUE;
    }
  }
  return DefWindowProcA(handle_, WM_SETCURSOR, reinterpret_cast<WPARAM>(under), details);
}

LRESULT FormWindow::receiveNotify(NMHDR& header) {
  HWND about = nullptr;
  if (toolTips_.isTextRequest(header, about)) {
    const ControlPeer* const asked = peerOf(about);
    if (asked != nullptr) toolTips_.setText(header, asked->toolTip());
    return 0;
  }
  ControlPeer* const peer = peerOf(header.hwndFrom);
  return peer == nullptr ? 0 : peer->onNotify(header);
}

LRESULT FormWindow::receiveCommand(HWND from, int code) {
  ControlPeer* const peer = peerOf(from);
  if (peer != nullptr) peer->onCommand(code);
  return 0;
}

LRESULT FormWindow::receiveDrawItem(const DRAWITEMSTRUCT& item) {
  ControlPeer* const peer = peerOf(item.hwndItem);
  if (peer != nullptr) peer->draw(item);
  return TRUE;
}

LRESULT FormWindow::receiveActivation(WPARAM first, LPARAM second) {
  if (LOWORD(first) == WA_INACTIVE) {
    keys_->rememberFocus();
    return 0;
  }
  DefWindowProcA(handle_, WM_ACTIVATE, first, second);
  const bool minimized = HIWORD(first) != 0;
  // WM_ACTIVATE can arrive inside another SetFocus; gotFocus() must not repaint here.
  repaintedAt_ = GetTickCount();
  if (!minimized) form_.gotFocus();
  return 0;
}

controls::Size FormWindow::leastSizeOnScreen() const {
  const controls::Size least = leastWholeSize();
  const RECT area = workArea();
  return {std::min<int>(least.width, area.right - area.left), std::min<int>(least.height, area.bottom - area.top)};
}

LRESULT FormWindow::receiveSizeLimits(MINMAXINFO& limits) const {
  const controls::Size least = leastSizeOnScreen();
  limits.ptMinTrackSize = {least.width, least.height};
  return 0;
}

bool FormWindow::takeOverMetrics(int dpi) {
  if (!metrics_.update(dpi)) return false;
  setIcons();
  for (const auto& [window, peer] : peers_) peer->metricsChanged();
  // The controls may stay where they are and still need to be told.
  placed_.clear();
  return true;
}

LRESULT FormWindow::receiveDpi(int dpi, const RECT& suggested) {
  takeOverMetrics(dpi);
  SetWindowPos(handle_, nullptr, suggested.left, suggested.top, suggested.right - suggested.left,
               suggested.bottom - suggested.top, SWP_NOZORDER | SWP_NOACTIVATE);
  if (!IsIconic(handle_)) arrange();
  flush();
  return 0;
}

// The window grows where its controls need more room in the new font.
LRESULT FormWindow::receiveSettings() {
  forwardColourChange();
  if (!takeOverMetrics(metrics_.dpi()) || IsIconic(handle_)) return 0;
  RECT whole;
  GetWindowRect(handle_, &whole);
  const controls::Size least = leastSizeOnScreen();
  const int width = std::max<int>(least.width, whole.right - whole.left);
  const int height = std::max<int>(least.height, whole.bottom - whole.top);
  if (!IsZoomed(handle_)) {
    SetWindowPos(handle_, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  }
  arrange();
  flush();
  return 0;
}

LRESULT FormWindow::receiveScroll(int bar, int action) {
  controls::Scrolling& scrolling = bar == SB_HORZ ? across_ : down_;
  const int line = metrics_.pixelsY(kScrollLine);
  SCROLLINFO info = {};
  info.cbSize = sizeof(info);
  info.fMask = SIF_TRACKPOS;
  GetScrollInfo(handle_, bar, &info);
  switch (action) {
    case SB_LINEUP:
      scrolling.scrollTo(scrolling.offset - line);
      break;
    case SB_LINEDOWN:
      scrolling.scrollTo(scrolling.offset + line);
      break;
    case SB_PAGEUP:
      scrolling.scrollTo(scrolling.offset - scrolling.view);
      break;
    case SB_PAGEDOWN:
      scrolling.scrollTo(scrolling.offset + scrolling.view);
      break;
    case SB_TOP:
      scrolling.scrollTo(0);
      break;
    case SB_BOTTOM:
      scrolling.scrollTo(scrolling.content);
      break;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
      scrolling.scrollTo(info.nTrackPos);
      break;
    default:
      return 0;
  }
  arrange();
  UpdateWindow(handle_);
  return 0;
}

LRESULT FormWindow::receiveWheel(int delta) {
  constexpr int kLinesPerNotch = 3;
  down_.scrollTo(down_.offset - MulDiv(delta, kLinesPerNotch * metrics_.pixelsY(kScrollLine), WHEEL_DELTA));
  arrange();
  return 0;
}

// Before the constructor and after the destructor, messages get their default processing.
LRESULT CALLBACK FormWindow::procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
  auto* const form = reinterpret_cast<FormWindow*>(GetWindowLongPtrA(window, GWLP_USERDATA));
  if (form == nullptr) return DefWindowProcA(window, message, first, second);
  return form->receive(message, first, second);
}

LRESULT FormWindow::receive(UINT message, WPARAM first, LPARAM second) {
  switch (message) {
    case WM_COMMAND:
      return receiveCommand(reinterpret_cast<HWND>(second), HIWORD(first));
    case WM_NOTIFY:
      return receiveNotify(*reinterpret_cast<NMHDR*>(second));
    case WM_DRAWITEM:
      return receiveDrawItem(*reinterpret_cast<const DRAWITEMSTRUCT*>(second));
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORBTN:
      SetTextColor(reinterpret_cast<HDC>(first), GetSysColor(COLOR_BTNTEXT));
      SetBkColor(reinterpret_cast<HDC>(first), GetSysColor(COLOR_BTNFACE));
      return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_BTNFACE));
    case WM_SETCURSOR:
      return receivePointer(reinterpret_cast<HWND>(first), second);
    case WM_ACTIVATE:
      return receiveActivation(first, second);
    case WM_GETMINMAXINFO:
      return receiveSizeLimits(*reinterpret_cast<MINMAXINFO*>(second));
    case WM_SIZE:
      if (first != SIZE_MINIMIZED) arrange();
      return 0;
    case WM_HSCROLL:
      return receiveScroll(SB_HORZ, LOWORD(first));
    case WM_VSCROLL:
      return receiveScroll(SB_VERT, LOWORD(first));
    case WM_MOUSEWHEEL:
      return receiveWheel(GET_WHEEL_DELTA_WPARAM(first));
    case WM_SETFOCUS:
      keys_->restoreFocus();
      return 0;
    case WM_TIMER:
      checkHover();
      return 0;
    case WM_GETOBJECT:
      // A screen reader has come. Its message is one during which COM may not call out.
      if (!annotated_) PostMessageA(handle_, kAnnotate, 0, 0);
      return DefWindowProcA(handle_, message, first, second);
    case kAnnotate:
      annotateControls();
      return 0;
    case WM_DROPFILES:
      form_.drop(droppedPaths(reinterpret_cast<HDROP>(first)));
      return 0;
    case WM_SYSCOLORCHANGE:
    case kThemeChanged:
      forwardColourChange();
      return 0;
    case WM_SETTINGCHANGE:
      return receiveSettings();
    case kDpiChanged:
      return receiveDpi(HIWORD(first), *reinterpret_cast<const RECT*>(second));
    case WM_SYSCOMMAND:
      if ((first & kSystemMenuMask) != kSystemMenuItem) return DefWindowProcA(handle_, message, first, second);
      form_.clickSystemMenuItem();
      return 0;
    case WM_CLOSE:
      form_.closeRequested();
      return 0;
    default:
      return DefWindowProcA(handle_, message, first, second);
  }
}

}  // namespace platform::win32
