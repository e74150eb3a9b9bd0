#include "cleaners/Cache.h"

#include <algorithm>
#include <cstring>

#include "platform/Platform.h"

namespace {

// Keeps its value after the walk has been closed; 0 when there never was one.
platform::Handle CacheFindHandle = platform::kNoUrlCache;
// Owned. Stays until the next entry takes its place.
platform::UrlCacheEntry* CacheEntryBuffer = nullptr;
// The head of the last entry that was found. Its texts lie in the buffer.
platform::UrlCacheEntry CacheEntry;

// Makes room for an entry of `size` bytes, which is what the head tells the system; false when there is no memory. The
// block is never smaller than the head: a system may report less, and nothing at all at the end.
bool renewBuffer(std::uint32_t size) {
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

std::string textAt(const char* text) { return text == nullptr ? "" : text; }

platform::Result<platform::Date> dateOf(const platform::FileTime& time) {
  platform::SystemTime fields;
  platform::machine().calendar().fileTimeToSystemTime(time, fields);
  return platform::dateOf(fields);
}

}  // namespace

bool CacheFindFirst() {
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

bool CacheFindNext() {
  if (CacheFindHandle == platform::kNoUrlCache) return false;
  platform::UrlCache& cache = platform::machine().urlCache();
  std::uint32_t size = 0;
  const bool sized = cache.findNextUrlCacheEntry(CacheFindHandle, nullptr, size);
  if (!renewBuffer(size)) return sized;
  const bool found = cache.findNextUrlCacheEntry(CacheFindHandle, CacheEntryBuffer, size);
  if (found) CacheEntry = *CacheEntryBuffer;
  return found;
}

void CacheFindClose() {
  if (CacheFindHandle != platform::kNoUrlCache) platform::machine().urlCache().findCloseUrlCache(CacheFindHandle);
}

std::uint32_t CacheEntryType() { return CacheEntry.entryType; }

std::string CacheLocalFileName() { return textAt(CacheEntry.localFileName); }

std::string CacheSourceUrl() { return textAt(CacheEntry.sourceUrl); }

platform::Date CacheExpires() { return dateOf(CacheEntry.expires).value_or(0); }

platform::Result<platform::Date> CacheLastAccess() { return dateOf(CacheEntry.accessed); }

bool CacheDeleteEntry(const std::string& url) { return platform::machine().urlCache().deleteUrlCacheEntry(url); }
