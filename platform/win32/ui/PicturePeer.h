// A picture from the program's resources that acts as a button: it can be reached and pressed by the keyboard.
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
  HBITMAP bitmap_ = nullptr;  // the largest that fits; null when the program carries none
};

}  // namespace platform::win32
