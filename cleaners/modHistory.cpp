#include "cleaners/modHistory.h"

#include "platform/Platform.h"

namespace {

// Slots in the function table of IUrlHistoryStg2.
constexpr std::uint32_t kRelease = 2;
constexpr std::uint32_t kClearHistory = 9;

}  // namespace

platform::Guid UrlHistoryClsid() {
  return {0x3C374A40, 0xBAE4, 0x11CF, {0xBF, 0x7D, 0x00, 0xAA, 0x00, 0x69, 0x46, 0xEE}};
}

platform::Guid UrlHistoryIid() {
  return {0xAFA0DC11, 0xC313, 0x11D0, {0x83, 0x1A, 0x00, 0xC0, 0x4F, 0xD5, 0xAE, 0x38}};
}

platform::Result<void> ClearUrlHistory() {
  platform::UrlHistory& history = platform::machine().urlHistory();
  platform::Handle object = 0;
  const std::int32_t code = history.coCreateInstance(UrlHistoryClsid(), platform::kInProcess, UrlHistoryIid(), object);
  if (code != 0) return platform::failure(code);
  history.dispCallFunc(object, kClearHistory);
  history.dispCallFunc(object, kRelease);
  return {};
}
