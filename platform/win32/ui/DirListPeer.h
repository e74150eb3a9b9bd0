// The native list of folders, owner-drawn: each with a picture, indented by its depth.
#pragma once

#include "controls/DirList.h"
#include "platform/win32/ui/ControlPeer.h"

namespace platform::win32 {

class DirListPeer final : public ControlPeer {
 public:
  DirListPeer(const Host& host, controls::DirList& list);

  void onCommand(int code) override;
  void draw(const DRAWITEMSTRUCT& item) override;
  bool press() override;
  void metricsChanged() override;

 protected:
  void showValue() override;

 private:
  int lineHeight() const;
  // Pixels from the list's left edge to the text of an entry.
  int textLeft(const controls::DirEntry& entry) const;
  void openSelected();
  // The index of the highlighted line; LB_ERR, which is beyond any entry, when there is none.
  std::size_t selected() const;

  controls::DirList& list_;
};

}  // namespace platform::win32
