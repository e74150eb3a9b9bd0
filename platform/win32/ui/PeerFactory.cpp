#include "platform/win32/ui/PeerFactory.h"

#include "platform/win32/ui/ButtonPeer.h"
#include "platform/win32/ui/CheckBoxPeer.h"
#include "platform/win32/ui/DirListPeer.h"
#include "platform/win32/ui/DriveListPeer.h"
#include "platform/win32/ui/FileListPeer.h"
#include "platform/win32/ui/FramePeer.h"
#include "platform/win32/ui/LabelPeer.h"
#include "platform/win32/ui/ListViewPeer.h"
#include "platform/win32/ui/PicturePeer.h"
#include "platform/win32/ui/StatusBarPeer.h"
#include "platform/win32/ui/TextBoxPeer.h"

namespace platform::win32 {
namespace {

// `C` must be the class that the control's kind stands for.
template <typename P, typename C>
std::unique_ptr<ControlPeer> make(const Host& host, controls::Control& control) {
  return std::make_unique<P>(host, static_cast<C&>(control));
}

}  // namespace

std::unique_ptr<ControlPeer> makePeer(const Host& host, controls::Control& control) {
  using controls::Kind;
  switch (control.kind()) {
    case Kind::kButton:
      return make<ButtonPeer, controls::FlatButton>(host, control);
    case Kind::kCheckBox:
      return make<CheckBoxPeer, controls::CheckBox>(host, control);
    case Kind::kLabel:
      return make<LabelPeer, controls::Label>(host, control);
    case Kind::kTextBox:
      return make<TextBoxPeer, controls::TextBox>(host, control);
    case Kind::kFrame:
      return make<FramePeer, controls::Frame>(host, control);
    case Kind::kPicture:
      return make<PicturePeer, controls::PictureBox>(host, control);
    case Kind::kListView:
      return make<ListViewPeer, controls::ListView>(host, control);
    case Kind::kDriveList:
      return make<DriveListPeer, controls::DriveList>(host, control);
    case Kind::kDirList:
      return make<DirListPeer, controls::DirList>(host, control);
    case Kind::kFileList:
      return make<FileListPeer, controls::FileList>(host, control);
    case Kind::kStatusBar:
      return make<StatusBarPeer, controls::StatusBar>(host, control);
  }
  return nullptr;
}

}  // namespace platform::win32
