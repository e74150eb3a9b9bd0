#include "cleaners/Cache.h"

#include <algorithm>
#include <cstring>

#include "platform/Platform.h"

namespace {

std::string textAt(const char* text) { return text == nullptr ? "" : text; }

platform::Result<platform::Date> dateOf(const platform::FileTime& time) {
  platform::SystemTime fields;
  platform::machine().calendar().fileTimeToSystemTime(time, fields);
  return platform::dateOf(fields);
}

}  // namespace

Cache::~Cache() {
  if (CacheEntryBuffer != nullptr) platform::machine().urlCache().localFree(CacheEntryBuffer);
}

// Allocates the buffer for an entry of `size` bytes and stores the size in it; returns false when there is no memory.
// The buffer is never smaller than the fixed part: the size reported at the end of the enumeration may be 0.
bool Cache::renewBuffer(std::uint32_t size) {
  platform::UrlCache& cache = platform::machine().urlCache();
  cache.localFree(CacheEntryBuffer);
  CacheEntry.sourceUrl = nullptr;
  CacheEntry.localFileName = nullptr;

  const std::size_t bytes = std::max<std::size_t>(size, sizeof(platform::UrlCacheEntry));
  CacheEntryBuffer = static_cast<platform::UrlCacheEntry*>(cache.localAlloc(bytes));
  if (CacheEntryBuffer == nullptr) return false;
  std::memset(static_cast<void*>(CacheEntryBuffer), 0, bytes);
  CacheEntryBuffer->structSize = size;
  return true;
}

bool Cache::CacheFindFirst() {
  platform::UrlCache& cache = platform::machine().urlCache();
  CacheFindClose();
  std::uint32_t size = 0;
  cache.findFirstUrlCacheEntry(nullptr, size);
  if (renewBuffer(size)) {
    CacheFindHandle = cache.findFirstUrlCacheEntry(CacheEntryBuffer, size);
    if (CacheFindHandle != platform::kNoUrlCache) CacheEntry = *CacheEntryBuffer;
  }
  return CacheFindHandle != platform::kNoUrlCache;
}

bool Cache::CacheFindNext() {
  if (CacheFindHandle == platform::kNoUrlCache) return false;
  platform::UrlCache& cache = platform::machine().urlCache();
  std::uint32_t size = 0;
  const bool sized = cache.findNextUrlCacheEntry(CacheFindHandle, nullptr, size);
  if (!renewBuffer(size)) return sized;
  const bool found = cache.findNextUrlCacheEntry(CacheFindHandle, CacheEntryBuffer, size);
  if (found) CacheEntry = *CacheEntryBuffer;
  return found;
}

void Cache::CacheFindClose() {
  if (CacheFindHandle != platform::kNoUrlCache) platform::machine().urlCache().findCloseUrlCache(CacheFindHandle);
}

std::string Cache::CacheLocalFileName() const { return textAt(CacheEntry.localFileName); }

std::string Cache::CacheSourceUrl() const { return textAt(CacheEntry.sourceUrl); }

platform::Date Cache::CacheExpires() const { return dateOf(CacheEntry.expires).value_or(0); }

platform::Result<platform::Date> Cache::CacheLastAccess() const { return dateOf(CacheEntry.accessed); }

bool Cache::CacheDeleteEntry(const std::string& url) { return platform::machine().urlCache().deleteUrlCacheEntry(url); }
