// The native picture: an owner-drawn button that shows a bitmap resource, so that it can be used by keyboard too.
#pragma once

#include "controls/PictureBox.h"
#include "platform/win32/ui/ControlPeer.h"

namespace platform::win32 {

class PicturePeer final : public ControlPeer {
 public:
  PicturePeer(const Host& host, controls::PictureBox& picture);
  ~PicturePeer() override;

  void placed() override;
  void onCommand(int code) override;
  void draw(const DRAWITEMSTRUCT& item) override;
  HCURSOR cursor() const override;
  bool press() override;

 private:
  void drawBitmap(HDC target, const RECT& room) const;

  controls::PictureBox& picture_;
  HBITMAP bitmap_ = nullptr;  // null when the program has no such resource
};

}  // namespace platform::win32
