// The machine's Internet cache. A Windows without a browser has none, and then all calls fail.
#pragma once

#include <set>

#include "platform/UrlCache.h"

namespace platform::win32 {

class Win32UrlCache final : public UrlCache {
 public:
  Handle findFirstUrlCacheEntry(UrlCacheEntry* buffer, std::uint32_t& size) override;
  bool findNextUrlCacheEntry(Handle enumeration, UrlCacheEntry* buffer, std::uint32_t& size) override;
  bool findCloseUrlCache(Handle enumeration) override;
  bool deleteUrlCacheEntry(const std::string& url) override;
  void* localAlloc(std::size_t bytes) override;
  void localFree(void* block) override;

 private:
  // Some systems crash on a handle that has been closed, so that only these are handed on.
  std::set<Handle> live_;
};

}  // namespace platform::win32
