// UrlCache by the functions of wininet.dll. Without that library (Windows 95 without Internet Explorer) all calls fail.
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
  // Enumerations that are open. A handle is an address in Wine: using a closed one reads freed memory.
  std::set<Handle> open_;
};

}  // namespace platform::win32
