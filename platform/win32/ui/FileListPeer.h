// The native list of a folder's files.
#pragma once

#include "controls/FileList.h"
#include "platform/win32/ui/ControlPeer.h"

namespace platform::win32 {

class FileListPeer final : public ControlPeer {
 public:
  FileListPeer(const Host& host, controls::FileList& list);

  void changed(controls::Change change) override;
  void onCommand(int code) override;
  void metricsChanged() override;

 protected:
  void showValue() override;

 private:
  void showFiles();

  controls::FileList& list_;
  bool filesChanged_ = true;
};

}  // namespace platform::win32
