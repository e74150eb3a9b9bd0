#include "platform/win32/ui/FileListPeer.h"

#include <algorithm>

namespace platform::win32 {
namespace {

constexpr int kRightMargin = 4;  // dialog units right of the widest name

}  // namespace

FileListPeer::FileListPeer(const Host& host, controls::FileList& list)
    : ControlPeer(host, list,
                  {.windowClass = "LISTBOX",
                   .style = LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | WS_VSCROLL | WS_HSCROLL,
                   .extendedStyle = WS_EX_CLIENTEDGE}),
      list_(list) {}

void FileListPeer::changed(controls::Change change) {
  if (change == controls::Change::kRows) filesChanged_ = true;
  ControlPeer::changed(change);
}

void FileListPeer::metricsChanged() {
  filesChanged_ = true;
  ControlPeer::metricsChanged();
}

// LB_GETCURSEL returns LB_ERR when nothing is selected; click() ignores an index out of range.
void FileListPeer::onCommand(int code) {
  if (code == LBN_SELCHANGE) list_.click(static_cast<std::size_t>(SendMessageA(handle(), LB_GETCURSEL, 0, 0)));
}

void FileListPeer::showValue() {
  if (filesChanged_) showFiles();
  filesChanged_ = false;
  SendMessageA(handle(), LB_SETCURSEL, list_.selected().value_or(static_cast<std::size_t>(LB_ERR)), 0);
}

void FileListPeer::showFiles() {
  SendMessageA(handle(), WM_SETREDRAW, FALSE, 0);
  SendMessageA(handle(), LB_RESETCONTENT, 0, 0);
  int widest = 0;
  for (const std::string& file : list_.files()) {
    SendMessageA(handle(), LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(file.c_str()));
    widest = std::max(widest, metrics().textWidth(file));
  }
  SendMessageA(handle(), LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(widest + metrics().pixelsX(kRightMargin)), 0);
  SendMessageA(handle(), WM_SETREDRAW, TRUE, 0);
  InvalidateRect(handle(), nullptr, TRUE);
}

}  // namespace platform::win32
