// The native status bar (msctls_statusbar32), which the first version of the common controls has too.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "controls/StatusBar.h"
#include "platform/win32/ui/ControlPeer.h"

namespace platform::win32 {

class StatusBarPeer final : public ControlPeer {
 public:
  StatusBarPeer(const Host& host, controls::StatusBar& bar);

  void placed() override;
  void draw(const DRAWITEMSTRUCT& item) override;
  // Moves the bar that tells that work is going on.
  void move();

 protected:
  void showValue() override;

 private:
  // The widths of the panes behind the text, in pixels. While the bar moves, none gets narrower, so that they stand
  // still.
  std::vector<int> paneWidths(HDC target);
  // Returns whether the parts are new ones, without texts.
  bool divide(const std::vector<int>& widths);
  void setText(HDC target, std::size_t part, const std::string& text);

  controls::StatusBar& bar_;
  std::vector<int> rightEdges_;                    // of the parts, in pixels, as last set
  std::vector<int> leastWidths_;                   // of the panes, while the bar moves
  std::vector<std::optional<std::string>> shown_;  // the texts of the parts, if set since they were divided
  bool showsMoving_ = false;
  int position_ = 0;  // of the moving bar, counted in steps
};

}  // namespace platform::win32
